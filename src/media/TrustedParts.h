#pragma once

#include <optional>
#include <string>

namespace tavel {

enum class PictureFormat { Bitmap, Gif, Jpeg, Png, Tiff };

// A picture as the picture library may see it.
struct TrustedPicture {
    PictureFormat Format;
    std::string Bytes;  // of a file of that format
};

// Pictures come from anybody, and the picture library does not survive everything that can stand
// in one. So it is shown a file made anew of the parts that hold the first picture's pixels and
// their colours, in the forms that it has been found to read without harm. Metadata, further
// pictures and what stands behind them are left out or, in BMP and TIFF, cannot be reached: a TIFF
// keeps all its bytes and gets a directory behind them, a BMP keeps all from its pixels on.
//
// The format is told by content. Nothing for a file of any other kind, for one whose parts do not
// hang together, and for a picture that would take more than 200 megapixels or 600 MB to decode.
std::optional<TrustedPicture> TrustedParts(std::string file);

}  // namespace tavel
