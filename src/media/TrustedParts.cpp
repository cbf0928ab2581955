#include "media/TrustedParts.h"

#include "media/PictureParts.h"

#include <string_view>
#include <utility>

namespace tavel {

using namespace std::string_view_literals;

namespace {

std::optional<PictureFormat> FormatOf(std::string_view file) {
    if (file.starts_with("BM")) return PictureFormat::Bitmap;
    if (file.starts_with("\xFF\xD8")) return PictureFormat::Jpeg;
    if (file.starts_with("\x89PNG\r\n\x1A\n")) return PictureFormat::Png;
    if (file.starts_with("GIF87a") || file.starts_with("GIF89a")) return PictureFormat::Gif;
    if (file.starts_with("II*\0"sv) || file.starts_with("MM\0*"sv)) return PictureFormat::Tiff;
    return std::nullopt;
}

std::string PartsOf(PictureFormat format, std::string file) {
    switch (format) {
        case PictureFormat::Bitmap:
            return BitmapParts(std::move(file));
        case PictureFormat::Gif:
            return GifParts(file);
        case PictureFormat::Jpeg:
            return JpegParts(file);
        case PictureFormat::Png:
            return PngParts(file);
        case PictureFormat::Tiff:
            return TiffParts(std::move(file));
    }
    return {};
}

}  // namespace

bool IsAffordable(std::int64_t width, std::int64_t height, std::int64_t bits) {
    constexpr std::int64_t longestSide = 65535;  // rescaling takes memory by the side, too
    constexpr std::int64_t mostPixels = 200'000'000;
    constexpr std::int64_t mostBits = mostPixels * 24;
    if (width <= 0 || height <= 0 || width > longestSide || height > longestSide) return false;
    return width * height <= mostPixels && width * height * bits <= mostBits;
}

std::optional<TrustedPicture> TrustedParts(std::string file) {
    const std::optional<PictureFormat> format = FormatOf(file);
    if (!format) return std::nullopt;
    std::string parts = PartsOf(*format, std::move(file));
    if (parts.empty()) return std::nullopt;
    return TrustedPicture{*format, std::move(parts)};
}

}  // namespace tavel
