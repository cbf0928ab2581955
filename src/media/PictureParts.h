#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tavel {

// The parts of a file of one format that the picture library may see, as a file of that format.
// Empty when the picture is refused. Each relies on the file's beginning being what its name says.
std::string BitmapParts(std::string file);
std::string GifParts(std::string_view file);
std::string JpegParts(std::string_view file);
std::string PngParts(std::string_view file);
std::string TiffParts(std::string file);

// Whether a picture can be decoded in reasonable memory; `bits` is what decoding takes for a pixel,
// copies on the way included. Both sides must be there, too.
bool IsAffordable(std::int64_t width, std::int64_t height, std::int64_t bits);

}  // namespace tavel
