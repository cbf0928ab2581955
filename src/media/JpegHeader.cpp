#include "media/ByteNumbers.h"
#include "media/PictureHeaders.h"

#include <algorithm>
#include <optional>

namespace tavel {

namespace {

// What a marker tells, by the numbers of the JPEG standard.
constexpr unsigned char startOfImage = 0xD8;
constexpr unsigned char endOfImage = 0xD9;
constexpr unsigned char startOfScan = 0xDA;

constexpr std::int64_t largestSide = 65500;  // the decoders' own limit

bool StandsAlone(unsigned char marker) { return marker == 0x01 || (marker & 0xF8) == 0xD0; }

bool IsFrame(unsigned char marker) {
    constexpr unsigned char tables = 0xC4;
    constexpr unsigned char arithmeticTables = 0xCC;
    return (marker & 0xF0) == 0xC0 && marker != tables && marker != arithmeticTables;
}

// Baseline, extended and progressive, the latter two in arithmetic coding as well. Lossless and
// hierarchical pictures have no decoder.
bool IsFrameWithDecoder(unsigned char marker) {
    constexpr std::string_view known = "\xC0\xC1\xC2\xC9\xCA";
    return known.find(static_cast<char>(marker)) != std::string_view::npos;
}

// Moves behind the next marker, past whatever lies before it.
std::optional<unsigned char> NextMarker(FileBytes& file) {
    for (;;) {
        std::string_view next = file.Peek(1);
        if (next.empty()) return std::nullopt;
        if (next[0] != '\xFF') {
            next = file.Peek(FileBytes::ChunkSize);
            file.Skip(static_cast<std::int64_t>(std::min(next.find('\xFF'), next.size())));
            continue;
        }
        while (next == "\xFF") {
            file.Skip(1);
            next = file.Peek(1);
        }
        if (next.empty()) return std::nullopt;
        const auto marker = static_cast<unsigned char>(next[0]);
        file.Skip(1);
        if (marker != 0) return marker;
    }
}

// The size that a frame header tells, from its length on; 0 by 0 for one that decoders refuse.
PictureSize FrameSize(std::string_view segment) {
    if (segment.size() < 8) return {};
    const std::uint64_t components = BigEndianNumber(segment.substr(7, 1));
    const bool isWhole = BigEndianNumber(segment.substr(0, 2)) == 8 + 3 * components;
    if (!isWhole || components == 0 || segment[2] != 8) return {};
    const auto height = static_cast<std::int64_t>(BigEndianNumber(segment.substr(3, 2)));
    const auto width = static_cast<std::int64_t>(BigEndianNumber(segment.substr(5, 2)));
    if (std::max(width, height) > largestSide) return {};
    return {width, height};
}

}  // namespace

// Follows the markers to the first scan: before that no decoder knows that there is a picture.
PictureSize JpegSize(FileBytes& file) {
    file.Seek(2);
    PictureSize size;
    while (const auto marker = NextMarker(file)) {
        if (StandsAlone(*marker)) continue;
        if (*marker == startOfImage || *marker == endOfImage) return {};
        const std::string_view segment = file.Peek(8);
        if (segment.size() < 2) return {};
        const auto length = static_cast<std::int64_t>(BigEndianNumber(segment.substr(0, 2)));
        if (length < 2 || file.Offset() + length > file.Length()) return {};
        if (*marker == startOfScan) return size;
        if (IsFrame(*marker)) {
            const bool isSecond = size.Width != 0;
            if (isSecond || !IsFrameWithDecoder(*marker)) return {};
            size = FrameSize(segment);
            if (size.Width == 0 || size.Height == 0) return {};
        }
        file.Skip(length);
    }
    return {};
}

}  // namespace tavel
