#include "media/JpegMarkers.h"
#include "media/PictureParts.h"
#include "media/TiffDirectory.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace tavel {

namespace {

// Numbers of the TIFF standard.
namespace tag {
constexpr std::uint16_t Width = 256;
constexpr std::uint16_t Height = 257;
constexpr std::uint16_t BitsPerSample = 258;
constexpr std::uint16_t Compression = 259;
constexpr std::uint16_t Photometric = 262;
constexpr std::uint16_t FillOrder = 266;
constexpr std::uint16_t StripOffsets = 273;
constexpr std::uint16_t SamplesPerPixel = 277;
constexpr std::uint16_t RowsPerStrip = 278;
constexpr std::uint16_t StripByteCounts = 279;
constexpr std::uint16_t PlanarConfiguration = 284;
constexpr std::uint16_t FaxOptions = 292;
constexpr std::uint16_t Predictor = 317;
constexpr std::uint16_t ColourMap = 320;
constexpr std::uint16_t TileWidth = 322;
constexpr std::uint16_t SampleFormat = 339;
constexpr std::uint16_t JpegTables = 347;
constexpr std::uint16_t ColourSubsampling = 530;
}  // namespace tag

enum Photometric { WhiteIsZero, BlackIsZero, Rgb, Palette, Cmyk = 5, YCbCr = 6 };

enum Compression {
    None = 1,
    FaxRows = 2,
    Fax3 = 3,
    Fax4 = 4,
    Lzw = 5,
    Jpeg = 7,
    Deflate = 8,
    OldDeflate = 32946,
    PackBits = 32773
};

struct TiffPicture {
    std::int64_t Width;
    std::int64_t Height;
    std::int64_t Bits;  // of a sample
    std::int64_t Samples;
    std::int64_t Compression;
    std::int64_t Photometric;
    std::int64_t RowsPerStrip;
};

// The number that an entry gives for each sample, where it gives the same for all.
std::int64_t NumberOfSamples(const TiffDirectory& directory, std::uint16_t entry,
                             std::int64_t samples, std::int64_t missing) {
    if (!directory.Has(entry)) return missing;
    const TiffNumbers numbers = directory.Numbers(entry, static_cast<std::size_t>(samples));
    const bool isSame = !numbers.empty() && std::ranges::count(numbers, numbers[0]) == samples;
    return isSame ? numbers[0] : -1;
}

TiffPicture PictureIn(const TiffDirectory& directory) {
    TiffPicture picture{};
    picture.Width = directory.Number(tag::Width, 0);
    picture.Height = directory.Number(tag::Height, 0);
    picture.Samples = directory.Number(tag::SamplesPerPixel, 1);
    picture.Bits = NumberOfSamples(directory, tag::BitsPerSample, picture.Samples, 1);
    picture.Compression = directory.Number(tag::Compression, None);
    picture.Photometric = directory.Number(tag::Photometric, -1);
    picture.RowsPerStrip =
        std::min(directory.Number(tag::RowsPerStrip, picture.Height), picture.Height);
    return picture;
}

// The forms whose rows fill the library's own rows exactly, and of which a JPEG can be made.
bool HasTrustedSamples(const TiffPicture& picture) {
    switch (picture.Photometric) {
        case WhiteIsZero:
        case BlackIsZero:
        case Palette:
            return picture.Samples == 1 &&
                   (picture.Bits == 1 || picture.Bits == 4 || picture.Bits == 8);
        case Rgb:
            return picture.Samples == 3 && picture.Bits == 8;
        case Cmyk:
            return picture.Samples == 4 && picture.Bits == 8;
        case YCbCr:
            return picture.Samples == 3 && picture.Bits == 8 && picture.Compression == Jpeg;
        default:
            return false;
    }
}

bool HasTrustedCompression(const TiffPicture& picture) {
    switch (picture.Compression) {
        case None:
        case Lzw:
        case Deflate:
        case OldDeflate:
        case PackBits:
            return true;
        case Jpeg:
            return picture.Bits == 8 && picture.Photometric != Palette;
        case FaxRows:
        case Fax3:
        case Fax4:
            return picture.Bits == 1;
        default:
            return false;
    }
}

// Decoding takes the rows of a strip beside the picture, and for some colours a copy of all.
bool IsAffordableTiff(const TiffPicture& picture) {
    if (picture.Height <= 0 || picture.RowsPerStrip <= 0) return false;
    const std::int64_t bits = picture.Bits * picture.Samples;
    const std::int64_t strip = bits * picture.RowsPerStrip / picture.Height;
    const bool isCopied = picture.Photometric == Cmyk || picture.Photometric == YCbCr;
    return IsAffordable(picture.Width, picture.Height, bits + strip + (isCopied ? 32 : 0));
}

// Strips of unsigned numbers, all samples of a pixel together.
bool IsPlain(const TiffDirectory& directory, const TiffPicture& picture) {
    return !directory.Has(tag::TileWidth) && directory.Number(tag::PlanarConfiguration, 1) == 1 &&
           NumberOfSamples(directory, tag::SampleFormat, picture.Samples, 1) == 1;
}

// A progressive picture, or one of many scans, would be gone over again and again, and a few
// kilobytes hold a hundred scans. What no marker of a picture is could hide some: decoders look for
// the next marker inside of it.
bool IsPlainJpeg(std::string_view strip, std::int64_t samples) {
    constexpr unsigned char firstOfPictures = 0xC0;
    if (!strip.starts_with("\xFF\xD8")) return false;
    std::int64_t scans = 0;
    JpegMarkers markers(strip);
    while (markers.Next()) {
        const unsigned char marker = markers.Marker();
        if (marker == jpeg::ProgressiveFrame || marker == jpeg::ProgressiveArithmeticFrame ||
            marker < firstOfPictures)
            return false;
        if (marker != jpeg::StartOfScan) continue;
        ++scans;
        markers.TakeData();
    }
    return markers.IsSound() && scans <= samples;
}

// A strip without bytes would be looked for by the library in all of the file.
bool ArePlainJpegs(std::string_view file, const TiffNumbers& offsets, const TiffNumbers& sizes,
                   std::int64_t samples) {
    for (std::size_t i = 0; i < offsets.size(); ++i) {
        if (sizes[i] == 0 || offsets[i] > file.size()) return false;
        if (!IsPlainJpeg(file.substr(offsets[i], sizes[i]), samples)) return false;
    }
    return true;
}

// The places and sizes of the strips. False unless all of them are there, and together no larger
// than the file: strips that overlap can make a small file an endless one. So can scans in them.
bool PutStrips(TiffDirectoryWriter& writer, const TiffDirectory& directory,
               const TiffPicture& picture, std::string_view file) {
    const auto count = static_cast<std::size_t>((picture.Height + picture.RowsPerStrip - 1) /
                                                picture.RowsPerStrip);
    const TiffNumbers offsets = directory.Numbers(tag::StripOffsets, count);
    const TiffNumbers sizes = directory.Numbers(tag::StripByteCounts, count);
    if (offsets.size() != count || sizes.size() != count) return false;
    if (std::accumulate(sizes.begin(), sizes.end(), std::uint64_t{0}) > file.size()) return false;
    if (picture.Compression == Jpeg && !ArePlainJpegs(file, offsets, sizes, picture.Samples))
        return false;
    writer.PutLongs(tag::StripOffsets, offsets);
    writer.PutLongs(tag::StripByteCounts, sizes);
    return true;
}

// Entries of 16-bit numbers that some pictures need and others don't have.
void PutWhatIsThere(TiffDirectoryWriter& writer, const TiffDirectory& directory,
                    const TiffPicture& picture) {
    const std::pair<std::uint16_t, std::size_t> entries[] = {
        {tag::FillOrder, 1},
        {tag::Predictor, 1},
        {tag::ColourSubsampling, 2},
        {tag::ColourMap, std::size_t{3} << picture.Bits},
    };
    for (const auto& [entry, count] : entries) {
        const TiffNumbers numbers = directory.Numbers(entry, count);
        if (!numbers.empty()) writer.PutShorts(entry, numbers);
    }
    const std::int64_t options = directory.Number(tag::FaxOptions, 0);
    if (options > 0) writer.PutLongs(tag::FaxOptions, {static_cast<std::uint32_t>(options)});
    const std::string_view tables = directory.Bytes(tag::JpegTables);
    constexpr std::size_t mostTables = 65535;  // many times what all of them take
    if (!tables.empty() && tables.size() <= mostTables) writer.PutBytes(tag::JpegTables, tables);
}

void PutPicture(TiffDirectoryWriter& writer, const TiffPicture& picture) {
    const auto number = [](std::int64_t value) { return static_cast<std::uint32_t>(value); };
    const TiffNumbers bits(static_cast<std::size_t>(picture.Samples), number(picture.Bits));
    writer.PutLongs(tag::Width, {number(picture.Width)});
    writer.PutLongs(tag::Height, {number(picture.Height)});
    writer.PutShorts(tag::BitsPerSample, bits);
    writer.PutShorts(tag::Compression, {number(picture.Compression)});
    writer.PutShorts(tag::Photometric, {number(picture.Photometric)});
    writer.PutShorts(tag::SamplesPerPixel, {number(picture.Samples)});
    writer.PutLongs(tag::RowsPerStrip, {number(picture.RowsPerStrip)});
}

}  // namespace

// The pixels stay where they are; a directory with the entries that tell how to read them takes
// the place of the file's own.
std::string TiffParts(std::string file) {
    const TiffDirectory directory(file);
    const TiffPicture picture = PictureIn(directory);
    const bool isTrusted = IsPlain(directory, picture) && HasTrustedSamples(picture) &&
                           HasTrustedCompression(picture) && IsAffordableTiff(picture);
    TiffDirectoryWriter writer;
    if (!isTrusted || !PutStrips(writer, directory, picture, file)) return {};
    PutPicture(writer, picture);
    PutWhatIsThere(writer, directory, picture);
    writer.Replace(file);
    return file;
}

}  // namespace tavel
