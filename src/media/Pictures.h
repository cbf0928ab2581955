#pragma once

#include "platform/Numbers.h"

#include <string_view>

namespace tavel {

// Width and height of a picture in pixels, as its decoder tells them; 0 by 0 for a file that can't
// be read as a picture. Nothing stays allocated.
struct PictureSize {
    std::int64_t Width = 0;
    std::int64_t Height = 0;
};

PictureSize SizeOfPicture(std::string_view sPath);

}  // namespace tavel
