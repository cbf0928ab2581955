#pragma once

#include "media/FileBytes.h"
#include "media/Pictures.h"

namespace tavel {

// The readers of picture headers. They tell the size that decoding the whole picture would end
// with, and 0 by 0 where a decoder refuses what the header says. They look at no metadata and
// allocate nothing, whatever a header claims.
//
// Each starts at any offset and relies on the file's beginning being what its name says.
PictureSize BitmapSize(FileBytes& file);
PictureSize GifSize(FileBytes& file);  // of the first picture, which may be less than the screen
PictureSize JpegSize(FileBytes& file);
PictureSize PngSize(FileBytes& file);
PictureSize TiffSize(FileBytes& file);  // of the first page

// By the file's first bytes; 0 by 0 for any other kind.
PictureSize SizeByContent(FileBytes& file);

}  // namespace tavel
