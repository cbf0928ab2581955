#pragma once

#include "platform/Failure.h"
#include "platform/FileService.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace tavel {

// All bytes of an open file. Fails with the number that the file tells when it can't be read.
std::string ReadToEnd(RawFile& file);

// Hands over a file piece by piece for as long as the pieces are taken. 0, or the run-time's number
// of why it can't be read; what has been cut short since it had `size` bytes has no whole copy.
template <class Take>
Long ReadPieces(RawFile& file, std::int64_t size, Take&& take) {
    constexpr std::size_t pieceSize = std::size_t{1024} * 1024;
    const auto piece = std::make_unique_for_overwrite<char[]>(pieceSize);
    std::int64_t left = size;
    std::size_t count = 0;
    do {
        if (!file.Read({piece.get(), pieceSize}, count)) return file.Error();
        if (!take(std::string_view(piece.get(), count))) return 0;
        left -= static_cast<std::int64_t>(count);
    } while (count == pieceSize);
    return left > 0 ? failure::DeviceIO : 0;
}

}  // namespace tavel
