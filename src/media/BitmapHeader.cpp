#include "media/ByteNumbers.h"
#include "media/PictureHeaders.h"

#include <cstdlib>

namespace tavel {

namespace {

constexpr std::int64_t fileHeaderSize = 14;
constexpr std::uint64_t coreHeaderSize = 12;  // the first form, with 16-bit sides

bool IsHeaderSize(std::uint64_t size) {
    switch (size) {
        case coreHeaderSize:
        case 40:
        case 52:
        case 56:
        case 64:
        case 108:
        case 124:
            return true;
        default:
            return false;
    }
}

bool IsDepth(std::uint64_t bits) {
    return bits == 1 || bits == 4 || bits == 8 || bits == 16 || bits == 24 || bits == 32;
}

std::int64_t Signed32(std::string_view bytes) {
    return static_cast<std::int32_t>(LittleEndianNumber(bytes));
}

}  // namespace

PictureSize BitmapSize(FileBytes& file) {
    file.Seek(fileHeaderSize);
    const std::uint64_t headerSize = LittleEndianNumber(file.Peek(4));
    if (!IsHeaderSize(headerSize)) return {};
    const std::string_view header = file.Peek(headerSize);
    if (header.size() < headerSize) return {};
    if (headerSize == coreHeaderSize) {
        if (!IsDepth(LittleEndianNumber(header.substr(10, 2)))) return {};
        return {static_cast<std::int64_t>(LittleEndianNumber(header.substr(4, 2))),
                static_cast<std::int64_t>(LittleEndianNumber(header.substr(6, 2)))};
    }
    if (!IsDepth(LittleEndianNumber(header.substr(14, 2)))) return {};
    // A negative height tells that the rows run from the top down.
    return {Signed32(header.substr(4, 4)), std::abs(Signed32(header.substr(8, 4)))};
}

}  // namespace tavel
