#include "../tests/support/MemoryFile.h"
#include "media/FrameList.h"
#include "media/Genres.h"
#include "media/TagReader.h"
#include "platform/Failure.h"

// A file with any bytes, read as the tag class reads it: it gives frames or none, and fails only
// when it is empty.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    if (size == 0) return 0;
    tavel::test::MemoryFile raw(std::string(reinterpret_cast<const char*>(data), size));
    tavel::FileBytes file(raw);
    const std::int64_t position = tavel::FindTag(file);
    if (position == 0) return 0;

    file.Seek(position - 1);
    unsigned char version = 0;
    unsigned char genre = 255;
    std::string otherName;
    std::vector<tavel::TagFrame> framesRead;
    tavel::ReadFrames(file, version, [&](tavel::TagFrame frame) {
        tavel::ReadGenreText(frame.Text, genre, otherName);
        framesRead.push_back(std::move(frame));
    });
    const tavel::FrameList frames(std::move(framesRead));
    for (tavel::Long i = 1; i <= frames.FrameCount(); ++i) {
        const std::string& id = frames.Frame(i);
        frames.FrameText(id, frames.TagsInFrame(id));
    }
    return 0;
}
