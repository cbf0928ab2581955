#include "../tests/support/MemoryFile.h"
#include "media/PictureHeaders.h"
#include "media/ThumbnailPicture.h"
#include "media/TrustedParts.h"

#include <cstdlib>
#include <optional>
#include <string>
#include <utility>

namespace {

tavel::PictureSize SizeOf(const std::string& bytes) {
    tavel::test::MemoryFile raw(bytes);
    tavel::FileBytes file(raw);
    return tavel::SizeByContent(file);
}

}  // namespace

// A picture file with any bytes: what is let through to the picture library tells its size, and
// becomes a JPEG of 160 by 120 or nothing. Large ones are left out, since they only take time.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    std::string bytes(reinterpret_cast<const char*>(data), size);
    std::optional<tavel::TrustedPicture> picture = tavel::TrustedParts(std::move(bytes));
    if (!picture) return 0;
    const tavel::PictureSize claimed = SizeOf(picture->Bytes);
    constexpr std::int64_t large = 1'000'000;
    if (claimed.Width * claimed.Height > large) return 0;
    const std::string thumbnail = tavel::ThumbnailPicture(*std::move(picture));
    if (thumbnail.empty()) return 0;
    const tavel::PictureSize made = SizeOf(thumbnail);
    const bool isThumbnail = made.Width == tavel::ThumbWidth && made.Height == tavel::ThumbHeight;
    if (!isThumbnail) std::abort();
    return 0;
}
