#include "media/ByteNumbers.h"
#include "media/PictureParts.h"

#include <algorithm>

namespace tavel {

namespace {

constexpr std::size_t signatureSize = 8;
constexpr std::size_t chunkOverhead = 12;  // length, type and check sum

// The chunks without which pixels would look otherwise: header, palette, transparency, brightness,
// data, end.
bool IsNeeded(std::string_view type) {
    for (const char* needed : {"IHDR", "PLTE", "tRNS", "gAMA", "IDAT", "IEND"}) {
        if (type == needed) return true;
    }
    return false;
}

// Of a pixel once it is decoded: 8 bits at least, and three colours where there is alpha.
std::int64_t DecodedBits(std::string_view header, bool hasTransparency) {
    enum Type { Grey = 0, Rgb = 2, Palette = 3 };
    const auto depth = static_cast<std::int64_t>(BigEndianNumber(header.substr(8, 1)));
    const auto type = BigEndianNumber(header.substr(9, 1));
    if (type == Palette || (type == Grey && depth <= 8)) return std::max<std::int64_t>(depth, 8);
    if (hasTransparency || (type != Grey && type != Rgb)) return 4 * depth;
    return type == Rgb ? 3 * depth : depth;
}

bool IsAffordablePng(std::string_view header, bool hasTransparency) {
    constexpr std::size_t headerSize = 13;
    if (header.size() != headerSize) return false;
    const auto width = static_cast<std::int64_t>(BigEndianNumber(header.substr(0, 4)));
    const auto height = static_cast<std::int64_t>(BigEndianNumber(header.substr(4, 4)));
    return IsAffordable(width, height, DecodedBits(header, hasTransparency));
}

}  // namespace

std::string PngParts(std::string_view file) {
    std::string kept(file.substr(0, signatureSize));
    std::string_view header;
    bool hasTransparency = false;
    for (std::string_view rest = file.substr(kept.size()); rest.size() >= chunkOverhead;) {
        const std::uint64_t length = BigEndianNumber(rest.substr(0, 4));
        const std::string_view type = rest.substr(4, 4);
        if (length > rest.size() - chunkOverhead) return {};
        const std::string_view chunk = rest.substr(0, length + chunkOverhead);
        rest.remove_prefix(chunk.size());
        if (header.empty() != (type == "IHDR")) return {};
        if (type == "IHDR") header = chunk.substr(8, length);
        if (type == "tRNS") hasTransparency = true;
        if (IsNeeded(type)) kept += chunk;
        if (type == "IEND") return IsAffordablePng(header, hasTransparency) ? kept : std::string();
    }
    return {};
}

}  // namespace tavel
