#include "media/TagWriter.h"

#include "media/FileBytes.h"
#include "media/TagBuffer.h"
#include "media/TagReader.h"
#include "platform/Activity.h"
#include "platform/Failure.h"

#include <algorithm>
#include <array>
#include <memory>
#include <span>
#include <string_view>
#include <utility>

namespace tavel {

namespace {

std::unique_ptr<RawFile> Open(const std::string& path, RawMode mode) {
    Long error = 0;
    auto file = oFSO().OpenRaw(path, mode, error);
    if (!file) Fail(error);
    return file;
}

void Write(RawFile& file, std::string_view bytes) {
    std::size_t written = 0;
    if (!file.Write(bytes, written)) FailAs(file);
}

void Close(RawFile& file) {
    if (!file.Close()) FailAs(file);
}

void Seek(RawFile& file, std::int64_t offset) {
    if (!file.Seek(offset)) FailAs(file);
}

std::string GetTempDir() {
    std::string folder = oFSO().GetTempFolder();
    return folder.empty() ? ProgramFolder() : folder;
}

std::string MakeTempFile(std::string_view prefix) {
    return oFSO().CreateTempFile(GetTempDir(), prefix);
}

void DeleteIfPossible(const std::string& path) {
    try {
        oFSO().DeleteFile(path, true);
    } catch (const Failure&) {
    }
}

using Block = std::array<char, 4096>;

// The next block of so many bytes, the last one cut to fit.
std::span<char> Piece(Block& block, std::int64_t size) {
    return std::span(block).first(
        static_cast<std::size_t>(std::min<std::int64_t>(size, std::ssize(block))));
}

void WriteZeros(RawFile& file, std::int64_t size) {
    Block block{};
    for (; size > 0; size -= std::ssize(block)) {
        const std::span<char> piece = Piece(block, size);
        Write(file, {piece.data(), piece.size()});
    }
}

// A file that is cut short meanwhile has no whole copy, and fails.
void CopyAll(RawFile& input, RawFile& file) {
    Block block;
    Seek(input, 0);
    for (std::int64_t size = FileBytes(input).Length(); size > 0; size -= std::ssize(block)) {
        const std::span<char> piece = Piece(block, size);
        std::size_t count = 0;
        if (!input.Read(piece, count) || count < piece.size()) FailAs(input);
        Write(file, {piece.data(), piece.size()});
    }
}

// So many zero bytes, and behind them the whole of the input. What it leaves has to be on the
// medium before the input is deleted.
void WriteBehindSpace(RawFile& temp, Long size, RawFile& input) {
    temp.FlushOnClose();
    WriteZeros(temp, size);
    CopyAll(input, temp);
}

// The path of the temporary file, which is whole and closed as the file itself is by then.
std::string CopyBehindSpace(RawFile& file, const std::string& path, Long size) {
    std::string tempPath;
    std::unique_ptr<RawFile> temp;
    try {
        tempPath = MakeTempFile("");
        temp = Open(tempPath, RawMode::Create);
        WriteBehindSpace(*temp, size, file);
        oFSO().CopyRights(path, tempPath);
        Close(*temp);
        Close(file);
    } catch (const Failure&) {
        temp.reset();  // not every host deletes what is open
        if (!tempPath.empty()) DeleteIfPossible(tempPath);
        throw;
    }
    return tempPath;
}

// From the deletion on only the temporary file has what was in the other one: it stays when it
// can't be brought to the path, and the user has to learn where it lies.
void Replace(const std::string& path, const std::string& tempPath) {
    const Doing doing("Moving", tempPath, "to", path);
    oFSO().ReplaceFile(path, tempPath);
}

// The file at the path, opened anew with so many zero bytes in front.
std::unique_ptr<RawFile> InsertSpace(std::unique_ptr<RawFile> file, const std::string& path,
                                     Long size) {
    Replace(path, CopyBehindSpace(*file, path, size));
    return Open(path, RawMode::ReadWrite);
}

struct OldTag {
    Long Position = 0;  // from 1, of the byte behind "ID3"; 0 for none
    Long Size = 0;      // as its header tells it
};

OldTag FindOldTag(RawFile& file) {
    FileBytes bytes(file);
    OldTag tag{ToLong(FindTag(bytes))};
    if (tag.Position == 0) return tag;
    std::array<char, 7> header{};  // version, revision, flags, size
    bytes.Seek(tag.Position - 1);
    bytes.Read(header);
    tag.Size = SwapEndian({header.data() + 3, 4});
    return tag;
}

// Writes over what is there. A disk that takes no more than a part gets that part's old bytes back,
// lest the file have half of either.
void Overwrite(RawFile& file, std::int64_t offset, std::string_view bytes) {
    std::string before(bytes.size(), '\0');
    std::size_t count = 0;
    Seek(file, offset);
    if (!file.Read(before, count)) FailAs(file);
    before.resize(count);
    Seek(file, offset);
    if (file.Write(bytes, count)) return;
    before.resize(std::min(before.size(), count));
    if (file.Seek(offset)) file.Write(before, count);
    FailAs(file);
}

}  // namespace

void WriteTag(const std::string& sMP3File, std::string tag) {
    std::unique_ptr<RawFile> file = Open(sMP3File, RawMode::ReadWrite);
    const Long size = ToLong(std::ssize(tag));
    const OldTag old = FindOldTag(*file);
    std::int64_t offset = 0;
    if (size >= old.Size) {
        const Long room = SizeWithRoom(size);
        PutSize(tag, TagSizeAt, room);
        file = InsertSpace(std::move(file), sMP3File, ToLong(std::int64_t{room} - old.Size));
    } else {
        constexpr Long markSize = 3;
        PutSize(tag, TagSizeAt, old.Size);
        offset = old.Position - 1 - markSize;
    }
    Overwrite(*file, offset, tag);
    file->Close();
}

}  // namespace tavel
