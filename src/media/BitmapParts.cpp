#include "media/ByteNumbers.h"
#include "media/PictureParts.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace tavel {

namespace {

constexpr std::size_t fileHeaderSize = 14;
constexpr std::size_t pixelsPlace = 10;  // of the offset of the pixels
constexpr std::size_t coreHeaderSize = 12;
constexpr std::size_t plainHeaderSize = 40;

constexpr std::size_t runLengths4 = 2;
constexpr std::size_t colourMasks = 3;

// The picture's own header, of which every form but the core one begins like the plain one.
struct Header {
    explicit Header(std::string_view bytes) : Bytes(bytes) {}
    std::size_t Size() const { return LittleEndianNumber(Bytes.substr(0, 4)); }
    std::int64_t Width() const { return Signed(4); }
    // Negative where the rows run from the top down.
    std::int64_t Height() const { return std::abs(Signed(8)); }
    std::size_t Bits() const { return LittleEndianNumber(Bytes.substr(14, 2)); }
    std::size_t Compression() const { return LittleEndianNumber(Bytes.substr(16, 4)); }
    std::size_t Colours() const {
        if (Bits() > 8) return 0;
        const std::size_t most = std::size_t{1} << Bits();
        const std::size_t used = LittleEndianNumber(Bytes.substr(32, 4));
        return used == 0 ? most : std::min(used, most);
    }

    std::string_view Bytes;

  private:
    std::int64_t Signed(std::size_t place) const {
        return static_cast<std::int32_t>(LittleEndianNumber(Bytes.substr(place, 4)));
    }
};

bool IsAffordableCore(std::string_view header) {
    const auto number = [&](std::size_t place) {
        return static_cast<std::int64_t>(LittleEndianNumber(header.substr(place, 2)));
    };
    return IsAffordable(number(4), number(6), number(10));
}

bool IsTrusted(const Header& header) {
    if (header.Compression() == colourMasks && header.Bits() != 16 && header.Bits() != 32)
        return false;
    const std::size_t unpacked = header.Compression() == runLengths4 ? 8 : 0;
    return IsAffordable(header.Width(), header.Height(),
                        static_cast<std::int64_t>(header.Bits() + unpacked));
}

std::string LittleEndian(std::size_t number) {
    std::string bytes;
    for (int i = 0; i < 4; ++i) bytes += static_cast<char>(number >> 8 * i);
    return bytes;
}

// The library knows the plain header alone, while programs of today write longer ones.
std::string WithPlainHeader(std::string file) {
    const Header header(std::string_view(file).substr(fileHeaderSize));
    const std::size_t pixels = LittleEndianNumber(std::string_view(file).substr(pixelsPlace, 4));
    const std::size_t masksSize = header.Compression() == colourMasks ? 12 : 0;
    const std::size_t table = fileHeaderSize + header.Size();
    const std::size_t tableSize = 4 * header.Colours();
    if (pixels > file.size() || table + tableSize > pixels) return {};
    const std::size_t start = fileHeaderSize + plainHeaderSize + masksSize;
    std::string front = file.substr(0, start) + file.substr(table, tableSize);
    front.replace(pixelsPlace, 4, LittleEndian(front.size()));
    front.replace(fileHeaderSize, 4, LittleEndian(plainHeaderSize));
    file.replace(0, pixels, front);
    return file;
}

}  // namespace

// There is no metadata in it that the library would look at.
std::string BitmapParts(std::string file) {
    if (file.size() < fileHeaderSize + coreHeaderSize) return {};
    const Header header(std::string_view(file).substr(fileHeaderSize));
    if (header.Size() == coreHeaderSize) {
        if (!IsAffordableCore(header.Bytes)) file.clear();
        return file;
    }
    if (header.Bytes.size() < header.Size() || header.Size() < plainHeaderSize) return {};
    if (!IsTrusted(header)) return {};
    return header.Size() == plainHeaderSize ? std::move(file) : WithPlainHeader(std::move(file));
}

}  // namespace tavel
