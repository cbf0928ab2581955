// Loads a file of any bytes, changes its tag by a row of operations and updates it, on a disk that
// may fill up, and holds the bytes of the file against those before. The input is the operations,
// "%%", and the file. An operation is a letter, an id and a text, each of the two ended by byte 1F.

#include "media/cMP3ID3v2.h"
#include "support/OneFileService.h"

#include <cstdio>
#include <cstdlib>
#include <map>
#include <memory>

namespace {

using namespace tavel;

constexpr std::size_t diskSize = 4'000'000;
const std::string path = "c:\\one.mp3";

void Check(bool holds, const char* what) {
    if (holds) return;
    std::fprintf(stderr, "%s\n", what);
    std::abort();
}

using Bytes = std::shared_ptr<std::string>;

class DiskFile : public test::MemoryFile {
  public:
    DiskFile(Bytes bytes, std::size_t& room) : MemoryFile({}), m_bytes(bytes), m_room(room) {}

    bool Read(std::span<char> buffer, std::size_t& bytesRead) override {
        const std::size_t start = std::min(m_position, m_bytes->size());
        bytesRead = m_bytes->copy(buffer.data(), buffer.size(), start);
        m_position += bytesRead;
        return true;
    }
    bool Write(std::span<const char> buffer, std::size_t& bytesWritten) override {
        Check(m_position <= m_bytes->size(), "a gap in a file");
        const std::size_t inside = std::min(buffer.size(), m_bytes->size() - m_position);
        bytesWritten = std::min(buffer.size(), inside + m_room);
        m_room -= bytesWritten - std::min(inside, bytesWritten);
        m_bytes->resize(std::max(m_bytes->size(), m_position + bytesWritten));
        m_bytes->replace(m_position, bytesWritten, buffer.data(), bytesWritten);
        m_position += bytesWritten;
        return bytesWritten == buffer.size();
    }
    std::int64_t Size() override { return std::ssize(*m_bytes); }
    bool Seek(std::int64_t position) override {
        m_position = static_cast<std::size_t>(position);
        return position >= 0;
    }
    Long Error() const override { return failure::DiskFull; }

  private:
    Bytes m_bytes;
    std::size_t& m_room;
    std::size_t m_position = 0;
};

// The MP3 file, and a temporary file beside it at times.
class Disk : public test::OneFileService {
  public:
    explicit Disk(std::string bytes) : OneFileService({}) {
        m_files[path] = std::make_shared<std::string>(std::move(bytes));
    }

    std::size_t room = diskSize;

    bool HasOneFile() const { return m_files.size() == 1 && m_files.count(path) != 0; }
    const std::string& File() const { return *m_files.at(path); }

    std::unique_ptr<RawFile> OpenRaw(std::string_view name, RawMode mode, Long& error) override {
        const auto file = m_files.find(std::string(name));
        error = file == m_files.end() ? failure::FileNotFound : 0;
        if (error != 0) return nullptr;
        if (mode == RawMode::Create) file->second->clear();
        return std::make_unique<DiskFile>(file->second, room);
    }
    std::string GetTempFolder() override { return "c:\\tmp"; }
    std::string CreateTempFile(std::string_view folder, std::string_view) override {
        const std::string name = std::string(folder) + "\\1.tmp";
        Check(m_files.emplace(name, std::make_shared<std::string>()).second, "a second temp file");
        return name;
    }
    void CopyRights(std::string_view, std::string_view) override {}
    void DeleteFile(std::string_view name, bool) override {
        Check(m_files.erase(std::string(name)) == 1, "a file is deleted that is not there");
    }
    void ReplaceFile(std::string_view to, std::string_view from) override {
        DeleteFile(to, false);
        auto file = m_files.extract(std::string(from));
        Check(!file.empty(), "a file is moved that is not there");
        file.key() = to;
        m_files.insert(std::move(file));
    }

  private:
    std::map<std::string, Bytes> m_files;
};

std::string Take(std::string& text, const std::string& end) {
    const std::size_t at = text.find(end);
    const std::string part = text.substr(0, at);
    text.erase(0, at == std::string::npos ? at : at + end.size());
    return part;
}

void Operate(cMP3ID3v2& tag, char what, const std::string& id, const std::string& text) {
    const Long number = static_cast<Long>(text.size());
    switch (what % 16) {
        case 0:
            return tag.RemoveFrame(id);
        case 1:
            return tag.RemoveFrame(number);
        case 2:
            return tag.AddTag(id, text);
        case 3:
            return tag.RemoveTag(id, number);
        case 4:
            return tag.Title(text);
        case 5:
            return tag.Comment(text);
        case 6:
            return tag.Lyrics(text);
        case 7:
            return tag.Genre(static_cast<unsigned char>(number));
        case 8:
            return tag.OtherGenreName(text);
        case 9:
            return tag.LinkTo(text);
        case 10:
            return tag.AddTag(id, std::string(text.size() * 997, 'x'));
        case 11:
            return tag.RemoveFrame(tag.Frame(number));
        default:
            return tag.AddTag(id.substr(0, 4), text);
    }
}

std::size_t Number(const std::string& bytes, std::size_t at) {
    std::size_t number = 0;
    for (std::size_t i = at; i < at + 4; ++i)
        number = number * 256 + static_cast<unsigned char>(i < bytes.size() ? bytes[i] : 0);
    return number;
}

struct FoundTag {
    std::size_t at = std::string::npos;
    std::int64_t size = 0;
};

FoundTag Find(const std::string& bytes) {
    for (std::size_t start = 0;; start += 4096 - 3) {
        const std::size_t end = std::min(start + 4096, bytes.size() - 1);
        if (start > end) return {};
        const std::string chunk = bytes.substr(start, end - start);
        const std::size_t at = chunk.find("ID3");
        if (at != std::string::npos)
            return {start + at, static_cast<std::int32_t>(Number(bytes, start + at + 6))};
        const bool isLast = start + 1 + 4096 >= bytes.size();
        if (isLast || chunk.find("\xFF\xFB") != std::string::npos) return {};
    }
}

// Where the tag that begins at an offset ends: behind four zero bytes in the place of an id.
std::size_t EndOfTag(const std::string& bytes, std::size_t at) {
    Check(bytes.compare(at, 6, std::string("ID3\3\0\0", 6)) == 0, "no tag is written");
    at += 10;
    while (Number(bytes, at) != 0) at += 10 + Number(bytes, at + 4);
    return at + 4;
}

void CheckWritten(const std::string& before, const std::string& after) {
    const FoundTag old = Find(before);
    const bool isGrown = after.compare(0, 3, "ID3") == 0 &&
                         (old.at != 0 || static_cast<std::int64_t>(Number(after, 6)) > old.size);
    const std::size_t at = isGrown ? 0 : old.at;
    const std::size_t end = EndOfTag(after, at);
    const auto size = static_cast<std::int64_t>(end - at);
    const auto told = static_cast<std::int64_t>(Number(after, at + 6));
    std::string expected;
    if (isGrown) {
        Check(size >= old.size, "a file has grown that need not");
        Check(told % 2048 == 0 && told > size && told - size <= 2048, "the room is another");
        expected = std::string(static_cast<std::size_t>(told - old.size), '\0') + before;
    } else {
        Check(size < old.size && told == old.size, "a tag is in place that is not smaller");
        expected = before;
    }
    expected.resize(std::max(expected.size(), end));
    expected.replace(at, end - at, after, at, end - at);
    Check(after == expected, "bytes outside of the tag have changed");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    std::string input(reinterpret_cast<const char*>(data), size);
    std::string operations = Take(input, "%%");
    if (input.empty()) return 0;
    Disk disk(input);
    cMP3ID3v2 tag;
    tag.MP3File(path);
    for (int i = 0; i < 64 && !operations.empty(); ++i) {
        const char what = operations.front();
        operations.erase(0, 1);
        std::string id = Take(operations, "\x1F");
        std::replace(id.begin(), id.end(), '\0', '0');  // an id of zero bytes would end the tag
        const std::string text = Take(operations, "\x1F");
        if (what % 16 == 15) disk.room = text.size() * 100;
        try {
            Operate(tag, what, id, text);
        } catch (const Failure&) {
        }
    }
    try {
        tag.Update();
    } catch (const Failure& failure) {
        Check(failure.Source() == "Tavel.cMP3ID3v2", "a failure has another source");
        // Where an old tag tells a size beyond the end, a tag that is laid over it takes more room,
        // and the disk may be full by then: the old bytes are back, and others are behind them.
        Check(disk.HasOneFile(), "a failure leaves another file");
        Check(disk.File().find(input) != std::string::npos, "a failure changes the file");
        return 0;
    }
    Check(disk.HasOneFile(), "another file is left");
    CheckWritten(input, disk.File());
    cMP3ID3v2 again;
    again.MP3File(path);
    again.FrameCount();
    Check(again.HasID3v2Tag(), "what was written is not found");
    return 0;
}
