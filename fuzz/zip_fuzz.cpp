#include "core/MessageBoxes.h"
#include "core/PublicStuff.h"
#include "core/UsefulFunctions.h"
#include "library/Collections.h"
#include "library/LibraryWindows.h"
#include "library/ZipImport.h"
#include "library/ZipReader.h"
#include "platform/Activity.h"
#include "platform/EventLoop.h"
#include "support/OneFileService.h"

#include <cstdlib>
#include <map>
#include <memory>
#include <set>
#include <utility>

namespace {

using namespace tavel;

constexpr const char* archivePath = "c:\\archive.zip";
const std::string libraryPath = "c:\\Media";
const std::string folderPath = libraryPath + "\\TEMPUNZIP";

// Paths come as the import makes them; one that leads out of the folder is what is looked for.
void RequireBelow(const std::string& folder, std::string_view path) {
    const bool isBelow = path.substr(0, folder.size() + 1) == folder + "\\";
    const std::string inside = std::string(path.substr(folder.size())) + "\\";
    if (!isBelow || inside.find("\\..\\") != std::string::npos || path.size() > 4 * 254)
        std::abort();
}

using Bytes = std::shared_ptr<std::string>;

// Takes what there is room for, then the disk is full.
class Sink : public test::MemoryFile {
  public:
    Sink(Bytes bytes, std::size_t& room)
        : MemoryFile({}), m_bytes(std::move(bytes)), m_room(room) {}

    bool Write(std::span<const char> buffer, std::size_t& bytesWritten) override {
        bytesWritten = std::min(buffer.size(), m_room);
        m_room -= bytesWritten;
        m_bytes->append(buffer.data(), bytesWritten);
        return bytesWritten == buffer.size();
    }
    Long Error() const override { return failure::DiskFull; }

  private:
    Bytes m_bytes;
    std::size_t& m_room;
};

// The archive, and a library folder with a megabyte of room, in which files can be made and moved.
class ArchiveAndLibrary : public test::OneFileService {
  public:
    using OneFileService::OneFileService;

    bool FileExists(std::string_view path) override {
        RequireBelow(libraryPath, path);
        return m_files.contains(std::string(path));
    }
    FileEntry GetFile(std::string_view path) override {
        const std::string name = GetFileName(std::string(path));
        return {std::string(path), name, std::ssize(*At(path)), name.front() == '.'};
    }
    void DeleteFile(std::string_view path, bool) override {
        RequireBelow(folderPath, path);
        if (m_files.erase(std::string(path)) == 0) std::abort();
    }
    void MoveFile(std::string_view source, std::string_view target) override {
        RequireBelow(folderPath, source);
        // Where a video or a track would go has a second drive in its middle, and is refused.
        if (target.find(':', 2) != std::string_view::npos) Fail(failure::BadFileName);
        RequireBelow(libraryPath + "\\Photos", target);
        const Bytes bytes = At(source);
        if (!m_files.emplace(target, bytes).second) Fail(failure::FileAlreadyExists);
        m_files.erase(std::string(source));
    }
    void DeleteLinks(std::string_view folder, std::string_view name) override {
        RequireBelow(folderPath, std::string(folder) + "\\" + std::string(name));
    }
    bool FolderExists(std::string_view path) override {
        RequireBelow(libraryPath, path);
        return m_folders.contains(std::string(path));
    }
    void CreateFolder(std::string_view path) override {
        RequireBelow(libraryPath, path);
        m_folders.emplace(path);
    }
    std::unique_ptr<RawFile> OpenRaw(std::string_view path, RawMode mode, Long& error) override {
        if (path == archivePath) return OneFileService::OpenRaw(path, mode, error);
        error = 0;
        if (mode == RawMode::Read) return std::make_unique<test::MemoryFile>(*At(path));
        RequireBelow(folderPath, path);
        const auto [file, isNew] = m_files.emplace(path, std::make_shared<std::string>());
        if (!isNew) std::abort();  // it was to be replaced, not written into
        return std::make_unique<Sink>(file->second, m_room);
    }

  private:
    Bytes At(std::string_view path) const {
        const auto file = m_files.find(std::string(path));
        if (file == m_files.end()) Fail(failure::FileNotFound);
        return file->second;
    }

    std::set<std::string> m_folders;
    std::map<std::string, Bytes> m_files;
    std::size_t m_room = 1'000'000;
};

// The windows of an import, which show nothing.
class NoAddWindow : public AddWindow {
    void Show() override {}
    void SetPath(const std::string&) override {}
    void Repaint() override {}
    bool ExitChecked() override { return false; }
    void Unload() override {}
};
class NoInvalidFiles : public InvalidFilesWindow {
    void AddItem(const std::string&) override {}
    void Show() override {}
};
class NoBoxes : public MessageBoxes {
    MsgBoxAnswer MsgBox(const std::string&, MsgBoxButtons, const std::string&) override {
        return MsgBoxAnswer::OK;
    }
};
class NoTree : public CategoryTree {
    void RefreshCats() override {}
};
class NoEvents : public EventLoop {
    void Yield() override {}
};

template <class Interface, class None>
void UseNone() {
    static None none;
    Service<Interface>::Use(&none);
}

void SetUp() {
    UseNone<AddWindow, NoAddWindow>();
    UseNone<InvalidFilesWindow, NoInvalidFiles>();
    UseNone<MessageBoxes, NoBoxes>();
    UseNone<CategoryTree, NoTree>();
    UseNone<EventLoop, NoEvents>();
    sDefaultDBPath = libraryPath;
    sPhotoSupport = {"jpg", "png", "gif", "bmp"};
    sVideoSupport = {"mp4"};
    sMusicSupport = {"mp3"};
}

void Import(const std::string& bytes, bool bMakeGroup) {
    const ArchiveAndLibrary files(bytes);
    try {
        AddZipFile(archivePath, bMakeGroup);
    } catch (const Failure&) {
        ForgetFailedActivity();
    }
    ReleaseCollections();
}

// The import ends at the first entry that fails; those behind it are worth a look.
void ExtractAll(const std::string& bytes) {
    const ArchiveAndLibrary files(bytes);
    ZipReader zip;
    try {
        zip.ZipFile(archivePath);
    } catch (const Failure&) {
        return;
    }
    for (std::uint64_t i = 0; i < zip.Count(); ++i) {
        ZipEntry entry = zip.Item(i);
        if (entry.Name().ends_with('\\')) continue;
        entry.bWithPath = true;
        try {
            entry.Extract(folderPath);
        } catch (const Failure&) {
            continue;
        }
    }
}

}  // namespace

// An archive of any bytes: it comes in or fails, as pictures or as a group, and so does each of its
// entries, and nothing is made outside of the library's folders.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    SetUp();
    ExtractAll(bytes);
    Import(bytes, size % 2 == 0);
    return 0;
}
