#include "media/TagReader.h"

#include "media/ByteNumbers.h"
#include "platform/Failure.h"

#include <array>
#include <utility>

namespace tavel {

namespace {

constexpr std::string_view tagMark = "ID3";
constexpr std::string_view audioSync = "\xFF\xFB";

// How the frames of a version are laid out. What a header counts for in the walk is its size in
// memory, padding included, and not its size in the file.
struct FrameLayout {
    std::size_t HeaderSize;
    std::size_t IdSize;
    std::size_t SizeBytes;
    std::int64_t Counted;
};
constexpr FrameLayout layoutOf2{6, 3, 3, 9};
constexpr FrameLayout layoutOf3And4{10, 4, 4, 16};

std::string_view ConvertFrameId(std::string_view id) {
    constexpr std::array<std::pair<std::string_view, std::string_view>, 8> newerIds{{
        {"TP1", "TPE1"},
        {"TT2", "TIT2"},
        {"TAL", "TALB"},
        {"COM", "COMM"},
        {"TRK", "TRCK"},
        {"TEN", "TENC"},
        {"TYE", "TYER"},
        {"TCO", "TCON"},
    }};
    for (const auto& [older, newer] : newerIds) {
        if (older == id) return newer;
    }
    return {};
}

void WalkFrames(FileBytes& file, Long limit, const FrameLayout& layout, const FrameSink& sink) {
    std::array<char, layoutOf3And4.HeaderSize> buffer{};
    const std::span<char> header = std::span(buffer).first(layout.HeaderSize);
    const std::string_view id(header.data(), layout.IdSize);
    const std::string_view sizeBytes(header.data() + layout.IdSize, layout.SizeBytes);
    std::int64_t counted = 0;
    do {
        file.Read(header);
        counted += layout.Counted;
        if (id.find_first_not_of('\0') == std::string_view::npos) break;
        const Long size = SwapEndian(sizeBytes);
        if (size < 0 || counted + size > limit) break;
        counted += size;
        sink({std::string(layout.IdSize == 3 ? ConvertFrameId(id) : id),
              file.ReadWithoutNulls(size)});
    } while (file.Offset() < limit);
}

}  // namespace

Long SwapEndian(std::string_view bytes) {
    return static_cast<Long>(static_cast<std::uint32_t>(BigEndianNumber(bytes)));
}

std::int64_t FindTag(FileBytes& file) {
    if (file.Length() == 0) Fail(failure::InvalidProcedureCall);
    std::int64_t position = 1;
    std::int64_t chunkSize = FileBytes::ChunkSize;
    bool done = false;
    do {
        if (position + chunkSize >= file.Length()) {
            chunkSize = file.Length() - position;
            done = true;
        }
        file.Seek(position - 1);
        const std::string_view chunk = file.Peek(static_cast<std::size_t>(chunkSize));
        const std::size_t found = chunk.find(tagMark);
        if (found != std::string_view::npos) {
            return position + static_cast<std::int64_t>(found + tagMark.size());
        }
        if (chunk.find(audioSync) != std::string_view::npos) done = true;
        position += chunkSize - std::ssize(tagMark);  // so that a mark astride two chunks is found
    } while (!done);
    return 0;
}

void ReadFrames(FileBytes& file, unsigned char& version, const FrameSink& sink) {
    std::array<char, 7> header{};  // version, revision, flags, size
    file.Read(std::span(header).first(1));
    version = static_cast<unsigned char>(header[0]);
    if (version < 2 || version > 4) return;

    file.Read(std::span(header).subspan(1));
    const Long limit = SwapEndian({header.data() + 3, 4});
    WalkFrames(file, limit, version == 2 ? layoutOf2 : layoutOf3And4, sink);
}

}  // namespace tavel
