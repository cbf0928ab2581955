#include "media/ByteNumbers.h"
#include "media/PictureHeaders.h"

namespace tavel {

using namespace std::string_view_literals;

namespace {

constexpr std::int64_t chunkOverhead = 12;      // length, type and check sum
constexpr std::uint64_t largestSide = 1000000;  // the decoders' own limit

// The check sum of a chunk's type and content.
std::uint32_t CheckSum(std::string_view bytes) {
    std::uint32_t sum = 0xFFFFFFFF;
    for (const char byte : bytes) {
        sum ^= static_cast<unsigned char>(byte);
        for (int bit = 0; bit < 8; ++bit) sum = (sum & 1) != 0 ? sum >> 1 ^ 0xEDB88320 : sum >> 1;
    }
    return ~sum;
}

// Whether a colour type has a bit depth.
bool IsColour(unsigned type, unsigned depth) {
    switch (type) {
        case 0:
            return depth == 1 || depth == 2 || depth == 4 || depth == 8 || depth == 16;
        case 3:
            return depth == 1 || depth == 2 || depth == 4 || depth == 8;
        case 2:
        case 4:
        case 6:
            return depth == 8 || depth == 16;
        default:
            return false;
    }
}

PictureSize HeaderSize(std::string_view header) {
    if (header.size() < 25 || !header.starts_with("\0\0\0\x0DIHDR"sv)) return {};
    if (CheckSum(header.substr(4, 17)) != BigEndianNumber(header.substr(21, 4))) return {};
    const std::uint64_t width = BigEndianNumber(header.substr(8, 4));
    const std::uint64_t height = BigEndianNumber(header.substr(12, 4));
    const auto depth = static_cast<unsigned char>(header[16]);
    const auto type = static_cast<unsigned char>(header[17]);
    const bool isKnown = header[18] == 0 && header[19] == 0 && (header[20] & 0xFE) == 0;
    if (width > largestSide || height > largestSide || !IsColour(type, depth) || !isKnown)
        return {};
    return {static_cast<std::int64_t>(width), static_cast<std::int64_t>(height)};
}

// Moves to the first chunk of a type, from the chunk that is next. False when the file ends before
// the end of it.
bool FindChunk(FileBytes& file, std::string_view type) {
    for (;;) {
        const std::string_view start = file.Peek(8);
        if (start.size() < 8) return false;
        const auto length = static_cast<std::int64_t>(BigEndianNumber(start.substr(0, 4)));
        if (file.Offset() + length + chunkOverhead > file.Length()) return false;
        if (start.substr(4) == type) return true;
        file.Skip(length + chunkOverhead);
    }
}

bool EndsWithEndChunk(FileBytes& file) {
    constexpr std::string_view endChunk = "\0\0\0\0IEND\xAE\x42\x60\x82"sv;
    file.Seek(file.Length() - chunkOverhead);
    return file.Peek(endChunk.size()) == endChunk;
}

}  // namespace

// A picture that is cut off is none, so both ends are looked at; the chunks in between only when
// something else stands behind the last.
PictureSize PngSize(FileBytes& file) {
    file.Seek(8);
    const PictureSize size = HeaderSize(file.Peek(25));
    if (size.Width == 0 || !FindChunk(file, "IDAT")) return {};
    const std::int64_t data = file.Offset();
    if (EndsWithEndChunk(file)) return size;
    file.Seek(data);
    return FindChunk(file, "IEND") ? size : PictureSize{};
}

}  // namespace tavel
