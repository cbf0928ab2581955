#include "media/PictureHeaders.h"

#include <string>

namespace tavel {

using namespace std::string_view_literals;

namespace {

// More than a decoder can hold, even at one bit a pixel: a file that claims as much is not decoded,
// so it is no picture.
constexpr std::int64_t mostPixels = std::int64_t{1} << 34;

bool IsTiff(std::string_view start) {
    for (const std::string_view mark : {"II*\0"sv, "MM\0*"sv, "II+\0"sv, "MM\0+"sv}) {
        if (start.starts_with(mark)) return true;
    }
    return false;
}

}  // namespace

PictureSize SizeByContent(FileBytes& file) {
    file.Seek(0);
    const std::string start(file.Peek(8));
    PictureSize size;
    if (start.starts_with("BM")) {
        size = BitmapSize(file);
    } else if (start.starts_with("\xFF\xD8")) {
        size = JpegSize(file);
    } else if (start == "\x89PNG\r\n\x1A\n") {
        size = PngSize(file);
    } else if (IsTiff(start)) {
        size = TiffSize(file);
    } else if (start.starts_with("GIF87a") || start.starts_with("GIF89a")) {
        size = GifSize(file);
    }
    const bool isPicture =
        size.Width > 0 && size.Height > 0 && size.Width <= mostPixels / size.Height;
    return isPicture ? size : PictureSize{};
}

}  // namespace tavel
