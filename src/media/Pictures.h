#pragma once

#include "platform/Numbers.h"

#include <string_view>

namespace tavel {

// Width and height of a picture in pixels, as decoding it would give them.
struct PictureSize {
    std::int64_t Width = 0;
    std::int64_t Height = 0;
};

// Tells JPEG, PNG, GIF, BMP and TIFF by their content, whatever the name says; 0 by 0 for a file of
// any other kind and for one that can't be opened or read. Never fails.
//
// Only the header is read: a thousand photographs cost no more than their first kilobytes, and
// nothing looks at their metadata, which the picture library's reader of it does not survive when
// it is made to hurt. So a sound header before damaged pixels still has a size.
PictureSize SizeOfPicture(std::string_view sPath);

}  // namespace tavel
