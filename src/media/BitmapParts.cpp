#include "media/ByteNumbers.h"
#include "media/PictureParts.h"

#include <algorithm>
#include <cstdlib>
#include <string_view>

namespace tavel {

namespace {

constexpr std::size_t fileHeaderSize = 14;
constexpr std::size_t pixelsPlace = 10;     // of the offset of the pixels
constexpr std::size_t coreHeaderSize = 12;  // the first form, with 16-bit sides
constexpr std::size_t plainHeaderSize = 40;
constexpr std::size_t masksSize = 12;

constexpr std::size_t noCompression = 0;
constexpr std::size_t runLengths8 = 1;
constexpr std::size_t runLengths4 = 2;
constexpr std::size_t colourMasks = 3;

struct Form {
    std::size_t HeaderSize;
    std::int64_t Width;
    std::int64_t Height;  // negative where the rows run from the top down
    std::size_t Bits;
    std::size_t Compression;
    std::size_t Colours;
};

std::size_t Number(std::string_view bytes, std::size_t place, std::size_t size) {
    return LittleEndianNumber(bytes.substr(place, size));
}

std::int64_t Signed32(std::string_view bytes, std::size_t place) {
    return static_cast<std::int32_t>(Number(bytes, place, 4));
}

Form CoreForm(std::string_view header) {
    return {.HeaderSize = coreHeaderSize,
            .Width = static_cast<std::int64_t>(Number(header, 4, 2)),
            .Height = static_cast<std::int64_t>(Number(header, 6, 2)),
            .Bits = Number(header, 10, 2),
            .Compression = noCompression,
            .Colours = 0};
}

// Every form but the core one begins like the plain one.
Form PlainForm(std::string_view header) {
    return {.HeaderSize = Number(header, 0, 4),
            .Width = Signed32(header, 4),
            .Height = Signed32(header, 8),
            .Bits = Number(header, 14, 2),
            .Compression = Number(header, 16, 4),
            .Colours = Number(header, 32, 4)};
}

bool IsKnown(const Form& form) {
    switch (form.Compression) {
        case noCompression:
            return form.Bits == 1 || form.Bits == 4 || form.Bits == 8 || form.Bits == 16 ||
                   form.Bits == 24 || form.Bits == 32;
        case runLengths8:
            return form.Bits == 8;
        case runLengths4:
            return form.Bits == 4;
        case colourMasks:
            return form.Bits == 16 || form.Bits == 32;
        default:
            return false;
    }
}

bool IsAffordableForm(const Form& form) {
    const std::size_t unpacked = form.Compression == runLengths4 ? 8 : 0;  // to bytes, first
    return IsAffordable(form.Width, std::abs(form.Height),
                        static_cast<std::int64_t>(form.Bits + unpacked));
}

// The entries of the colour table; there is one up to 8 bits.
std::size_t Colours(const Form& form) {
    if (form.Bits > 8) return 0;
    const std::size_t most = std::size_t{1} << form.Bits;
    return form.Colours == 0 ? most : std::min(form.Colours, most);
}

// The colour table, in entries of four bytes. Empty when the file ends before it does.
std::string ColourTable(const Form& form, std::string_view file) {
    const std::size_t entrySize = form.HeaderSize == coreHeaderSize ? 3 : 4;
    std::string_view table = file.substr(fileHeaderSize + form.HeaderSize);
    std::string colours;
    for (std::size_t left = Colours(form); left > 0; --left) {
        if (table.size() < entrySize) return {};
        colours += table.substr(0, 3);
        colours += '\0';
        table.remove_prefix(entrySize);
    }
    return colours;
}

std::string LittleEndian(std::int64_t number, int size) {
    std::string bytes;
    for (int i = 0; i < size; ++i) bytes += static_cast<char>(number >> 8 * i);
    return bytes;
}

std::string Headers(const Form& form, std::size_t between) {
    constexpr std::int64_t dotsPerMeter = 2835;  // 72 an inch: where nobody tells, that is meant
    const std::size_t pixels = fileHeaderSize + plainHeaderSize + between;
    return "BM" + std::string(8, '\0') + LittleEndian(static_cast<std::int64_t>(pixels), 4) +
           LittleEndian(plainHeaderSize, 4) + LittleEndian(form.Width, 4) +
           LittleEndian(form.Height, 4) + LittleEndian(1, 2) +
           LittleEndian(static_cast<std::int64_t>(form.Bits), 2) +
           LittleEndian(static_cast<std::int64_t>(form.Compression), 4) + std::string(4, '\0') +
           LittleEndian(dotsPerMeter, 4) + LittleEndian(dotsPerMeter, 4) +
           LittleEndian(static_cast<std::int64_t>(Colours(form)), 4) + std::string(4, '\0');
}

}  // namespace

// Every form of the header becomes the plain one, since the library reads none of the longer ones
// that programs of today write. The colours have to be there: where the file ends before them, it
// would take what lies about in memory.
std::string BitmapParts(std::string file) {
    const std::string_view view = file;
    if (view.size() < fileHeaderSize + coreHeaderSize) return {};
    const std::string_view header = view.substr(fileHeaderSize);
    const std::size_t size = Number(header, 0, 4);
    if (size > header.size() || (size < plainHeaderSize && size != coreHeaderSize)) return {};
    const Form form = size == coreHeaderSize ? CoreForm(header) : PlainForm(header);
    const std::size_t pixels = Number(view, pixelsPlace, 4);
    if (!IsKnown(form) || !IsAffordableForm(form) || pixels > view.size()) return {};
    const bool hasMasks = form.Compression == colourMasks;
    std::string between = ColourTable(form, view);
    if (hasMasks) between = view.substr(fileHeaderSize + plainHeaderSize, masksSize);
    if (between.size() != 4 * Colours(form) + (hasMasks ? masksSize : 0)) return {};
    file.replace(0, pixels, Headers(form, between.size()) + between);
    return file;
}

}  // namespace tavel
