#include "media/ByteNumbers.h"
#include "media/PictureHeaders.h"

namespace tavel {

namespace {

constexpr std::uint64_t widthTag = 256;
constexpr std::uint64_t heightTag = 257;

// What differs between the two forms of a file, and between its two byte orders.
struct Layout {
    std::uint64_t (*Number)(std::string_view);
    std::size_t OffsetPlace;  // of the first directory's offset
    std::size_t OffsetSize;   // of every offset, and of an entry's count
    std::size_t CountSize;    // of the number of entries
};

// The one number of a directory's entry; 0 for anything else.
std::int64_t EntryNumber(std::string_view entry, const Layout& layout) {
    constexpr std::uint64_t shortType = 3;
    constexpr std::uint64_t longType = 4;
    const std::uint64_t type = layout.Number(entry.substr(2, 2));
    if (layout.Number(entry.substr(4, layout.OffsetSize)) != 1) return 0;
    const std::string_view value = entry.substr(4 + layout.OffsetSize);
    if (type == shortType) return static_cast<std::int64_t>(layout.Number(value.substr(0, 2)));
    if (type == longType) return static_cast<std::int64_t>(layout.Number(value.substr(0, 4)));
    return 0;
}

// Of the directory that is next.
PictureSize DirectorySize(FileBytes& file, const Layout& layout) {
    std::uint64_t left = layout.Number(file.Peek(layout.CountSize));
    file.Skip(static_cast<std::int64_t>(layout.CountSize));
    const std::size_t entrySize = 4 + 2 * layout.OffsetSize;
    PictureSize size;
    for (; left > 0; --left) {
        const std::string_view entry = file.Peek(entrySize);
        if (entry.size() < entrySize) return {};
        const std::uint64_t tag = layout.Number(entry.substr(0, 2));
        if (tag == widthTag) size.Width = EntryNumber(entry, layout);
        if (tag == heightTag) size.Height = EntryNumber(entry, layout);
        file.Skip(static_cast<std::int64_t>(entrySize));
    }
    return size;
}

}  // namespace

PictureSize TiffSize(FileBytes& file) {
    file.Seek(0);
    const std::string_view header = file.Peek(16);
    if (header.size() < 16) return {};
    const auto number = header[0] == 'M' ? BigEndianNumber : LittleEndianNumber;
    constexpr std::uint64_t bigForm = 43;
    const Layout layout =
        number(header.substr(2, 2)) == bigForm ? Layout{number, 8, 8, 8} : Layout{number, 4, 4, 2};
    const std::uint64_t directory = number(header.substr(layout.OffsetPlace, layout.OffsetSize));
    if (directory >= static_cast<std::uint64_t>(file.Length())) return {};
    file.Seek(static_cast<std::int64_t>(directory));
    return DirectorySize(file, layout);
}

}  // namespace tavel
