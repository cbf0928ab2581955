#include "media/ByteNumbers.h"
#include "media/PictureHeaders.h"

namespace tavel {

namespace {

// The bytes of a colour table that a flag byte announces.
std::int64_t ColourTableSize(char flags) {
    const unsigned bits = static_cast<unsigned char>(flags);
    return (bits & 0x80) != 0 ? 3 * (2 << (bits & 7)) : 0;
}

// Moves behind a chain of sub-blocks. False when the file ends before the chain.
bool SkipSubBlocks(FileBytes& file) {
    for (;;) {
        const std::string_view length = file.Peek(1);
        if (length.empty()) return false;
        file.Skip(1 + static_cast<unsigned char>(length[0]));
        if (length[0] == '\0') return true;
    }
}

}  // namespace

// Goes through all blocks to the trailer: decoders refuse a file that is cut off, even behind its
// first picture.
PictureSize GifSize(FileBytes& file) {
    file.Seek(0);
    const std::string_view screen = file.Peek(13);
    if (screen.size() < 13) return {};
    file.Seek(13 + ColourTableSize(screen[10]));
    PictureSize size;
    for (;;) {
        const std::string_view block = file.Peek(10);
        if (block.starts_with(';')) return size;
        if (block.starts_with('!')) {
            file.Skip(2);
        } else if (block.starts_with(',') && block.size() == 10) {
            if (size.Width == 0) {
                size.Width = static_cast<std::int64_t>(LittleEndianNumber(block.substr(5, 2)));
                size.Height = static_cast<std::int64_t>(LittleEndianNumber(block.substr(7, 2)));
            }
            file.Skip(10 + ColourTableSize(block[9]) + 1);
        } else {
            return {};
        }
        if (!SkipSubBlocks(file)) return {};
    }
}

}  // namespace tavel
