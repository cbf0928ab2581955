#pragma once

#include "media/TrustedParts.h"

#include <string>

namespace tavel {

inline constexpr int ThumbWidth = 160;
inline constexpr int ThumbHeight = 120;

// The picture as a JPEG of 160 by 120, stretched to it and of its own colour depth, with the
// picture library's own quality. Empty when the library can't read it, or can't write a JPEG of
// its depth. Decoding is all that it costs in memory; nothing is kept.
std::string ThumbnailPicture(TrustedPicture picture);

}  // namespace tavel
