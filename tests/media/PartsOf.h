#pragma once

#include "media/TagMaker.h"
#include "media/TrustedParts.h"

#include <cstdint>
#include <optional>
#include <string>

namespace tavel::test {

// The parts of a picture that are let through; empty when it is refused.
inline std::string Parts(const std::string& file) {
    const std::optional<TrustedPicture> picture = TrustedParts(file);
    return picture ? picture->Bytes : std::string();
}

inline std::string LittleEndian(std::uint32_t value, int bytes) {
    const std::string text = BigEndian(value, bytes);
    return {text.rbegin(), text.rend()};
}

}  // namespace tavel::test
