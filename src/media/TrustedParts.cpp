#include "media/TrustedParts.h"

#include "media/PictureParts.h"

#include <string_view>
#include <utility>

namespace tavel {

using namespace std::string_view_literals;

namespace {

bool IsTiff(std::string_view file) {
    return file.starts_with("II*\0"sv) || file.starts_with("MM\0*"sv);
}

TrustedPicture PartsOf(std::string file) {
    const std::string_view view = file;
    if (view.starts_with("BM")) return {PictureFormat::Bitmap, BitmapParts(std::move(file))};
    if (view.starts_with("\xFF\xD8")) return {PictureFormat::Jpeg, JpegParts(file)};
    if (view.starts_with("\x89PNG\r\n\x1A\n")) return {PictureFormat::Png, PngParts(file)};
    if (view.starts_with("GIF87a") || view.starts_with("GIF89a")) {
        return {PictureFormat::Gif, GifParts(file)};
    }
    if (IsTiff(file)) return {PictureFormat::Tiff, TiffParts(std::move(file))};
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
    TrustedPicture picture = PartsOf(std::move(file));
    if (picture.Bytes.empty()) return std::nullopt;
    return picture;
}

}  // namespace tavel
