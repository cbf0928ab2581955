#include "media/ByteNumbers.h"
#include "media/PictureParts.h"

namespace tavel {

namespace {

constexpr std::size_t screenSize = 13;
constexpr std::size_t descriptorSize = 10;

// The bytes of a colour table that a flag byte announces.
std::size_t ColourTableSize(char flags) {
    const unsigned bits = static_cast<unsigned char>(flags);
    return (bits & 0x80) != 0 ? std::size_t{3} * (2 << (bits & 7)) : 0;
}

// The bytes that `text` begins with, up to the end of a chain of sub-blocks that starts at `at`.
// Empty when the file ends before the chain.
std::string_view ThroughSubBlocks(std::string_view text, std::size_t at) {
    while (at < text.size()) {
        const auto length = static_cast<unsigned char>(text[at]);
        at += std::size_t{1} + length;
        if (length == 0) return text.substr(0, at);
    }
    return {};
}

// From an image descriptor to the end of its pixels; empty when it is refused.
std::string_view Image(std::string_view rest) {
    if (rest.size() < descriptorSize) return {};
    const auto width = static_cast<std::int64_t>(LittleEndianNumber(rest.substr(5, 2)));
    const auto height = static_cast<std::int64_t>(LittleEndianNumber(rest.substr(7, 2)));
    const std::size_t codeSizePlace = descriptorSize + ColourTableSize(rest[9]);
    if (!IsAffordable(width, height, 8) || rest.size() <= codeSizePlace) return {};
    const char codeSize = rest[codeSizePlace];
    if (codeSize < 1 || codeSize > 8) return {};
    return ThroughSubBlocks(rest, codeSizePlace + 1);
}

bool IsGraphicControl(std::string_view extension) {
    return extension.size() == 8 && extension.starts_with("!\xF9\4");
}

}  // namespace

// The screen, the first picture, and the extension before it that tells which colour is
// transparent.
std::string GifParts(std::string_view file) {
    if (file.size() < screenSize) return {};
    const std::size_t screenEnd = screenSize + ColourTableSize(file[10]);
    if (file.size() < screenEnd) return {};
    std::string_view control;
    for (std::string_view rest = file.substr(screenEnd); !rest.empty();) {
        if (rest[0] == ',') {
            const std::string_view image = Image(rest);
            if (image.empty()) return {};
            return std::string(file.substr(0, screenEnd)).append(control).append(image) + ";";
        }
        const std::string_view extension = ThroughSubBlocks(rest, 2);
        if (rest[0] != '!' || extension.empty()) return {};
        if (IsGraphicControl(extension)) control = extension;
        rest.remove_prefix(extension.size());
    }
    return {};
}

}  // namespace tavel
