#include "media/ThumbnailPicture.h"

#include <FreeImage.h>
#include <tiffio.h>

#include <memory>
#include <utility>

namespace tavel {

namespace {

struct Release {
    void operator()(FIBITMAP* bitmap) const { FreeImage_Unload(bitmap); }
    void operator()(FIMEMORY* memory) const { FreeImage_CloseMemory(memory); }
};
using Bitmap = std::unique_ptr<FIBITMAP, Release>;
using Memory = std::unique_ptr<FIMEMORY, Release>;

FREE_IMAGE_FORMAT FormatOf(PictureFormat format) {
    switch (format) {
        case PictureFormat::Bitmap:
            return FIF_BMP;
        case PictureFormat::Gif:
            return FIF_GIF;
        case PictureFormat::Jpeg:
            return FIF_JPEG;
        case PictureFormat::Png:
            return FIF_PNG;
        case PictureFormat::Tiff:
            return FIF_TIFF;
    }
    return FIF_UNKNOWN;
}

// The picture library is silent by itself; the one that it reads TIFF with is not.
void Silence() {
    TIFFSetErrorHandler(nullptr);
    TIFFSetWarningHandler(nullptr);
}

// The file's bytes are gone once it returns: they and the pixels may fill much of the memory.
Bitmap Decode(TrustedPicture picture) {
    Silence();
    const Memory memory(FreeImage_OpenMemory(reinterpret_cast<BYTE*>(picture.Bytes.data()),
                                             static_cast<DWORD>(picture.Bytes.size())));
    return Bitmap(FreeImage_LoadFromMemory(FormatOf(picture.Format), memory.get(), 0));
}

std::string Encode(FIBITMAP* bitmap) {
    const Memory memory(FreeImage_OpenMemory());
    BYTE* bytes = nullptr;
    DWORD size = 0;
    if (!FreeImage_SaveToMemory(FIF_JPEG, bitmap, memory.get(), 0)) return {};
    if (!FreeImage_AcquireMemory(memory.get(), &bytes, &size)) return {};
    return {reinterpret_cast<const char*>(bytes), size};
}

}  // namespace

std::string ThumbnailPicture(TrustedPicture picture) {
    Bitmap bitmap = Decode(std::move(picture));
    if (!bitmap) return {};
    const unsigned width = FreeImage_GetWidth(bitmap.get());
    const unsigned height = FreeImage_GetHeight(bitmap.get());
    if (width != ThumbWidth || height != ThumbHeight) {
        bitmap.reset(FreeImage_Rescale(bitmap.get(), ThumbWidth, ThumbHeight, FILTER_BICUBIC));
    }
    return bitmap ? Encode(bitmap.get()) : std::string();
}

}  // namespace tavel
