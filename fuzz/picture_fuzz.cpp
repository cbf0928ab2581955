#include "../tests/support/MemoryFile.h"
#include "media/PictureHeaders.h"

#include <cstdlib>

// A file with any bytes: it has a size of two sides, or none.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    tavel::test::MemoryFile raw(std::string(reinterpret_cast<const char*>(data), size));
    tavel::FileBytes file(raw);
    const tavel::PictureSize picture = tavel::SizeByContent(file);
    if ((picture.Width > 0) != (picture.Height > 0) || picture.Width < 0) std::abort();
    return 0;
}
