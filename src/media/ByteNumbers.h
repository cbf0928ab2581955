#pragma once

#include <cstdint>
#include <string_view>

namespace tavel {

// Unsigned numbers of up to eight bytes.
inline std::uint64_t BigEndianNumber(std::string_view bytes) {
    std::uint64_t value = 0;
    for (const char byte : bytes) value = value << 8 | static_cast<unsigned char>(byte);
    return value;
}

inline std::uint64_t LittleEndianNumber(std::string_view bytes) {
    std::uint64_t value = 0;
    for (auto byte = bytes.rbegin(); byte != bytes.rend(); ++byte) {
        value = value << 8 | static_cast<unsigned char>(*byte);
    }
    return value;
}

}  // namespace tavel
