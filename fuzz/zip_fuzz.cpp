#include "library/ZipReader.h"
#include "support/OneFileService.h"

#include <cstdlib>
#include <memory>
#include <set>

namespace {

using namespace tavel;

const std::string root = "c:\\TEMPUNZIP";

// Paths come as the reader makes them; one that leads out of the folder is what is looked for.
void RequireBelow(std::string_view path) {
    const bool isBelow = path.substr(0, root.size() + 1) == root + "\\";
    const std::string inside = std::string(path.substr(root.size())) + "\\";
    if (!isBelow || inside.find("\\..\\") != std::string::npos || path.size() > 4 * 254)
        std::abort();
}

// Takes a megabyte, then the disk is full.
class Sink : public test::MemoryFile {
  public:
    Sink() : MemoryFile({}) {}

    bool Write(std::span<const char> buffer, std::size_t& bytesWritten) override {
        bytesWritten = std::min(buffer.size(), m_room);
        m_room -= bytesWritten;
        return bytesWritten == buffer.size();
    }
    Long Error() const override { return failure::DiskFull; }

  private:
    std::size_t m_room = 1'000'000;
};

// The archive, and a folder in which files can be made, and made again.
class ArchiveAndFolder : public test::OneFileService {
  public:
    using OneFileService::OneFileService;

    bool FileExists(std::string_view path) override {
        RequireBelow(path);
        return m_files.count(std::string(path)) != 0;
    }
    void DeleteFile(std::string_view path, bool) override {
        RequireBelow(path);
        if (m_files.erase(std::string(path)) == 0) std::abort();
    }
    void DeleteLinks(std::string_view folder, std::string_view name) override {
        RequireBelow(std::string(folder) + "\\" + std::string(name));
    }
    bool FolderExists(std::string_view path) override {
        RequireBelow(path);
        return m_folders.count(std::string(path)) != 0;
    }
    void CreateFolder(std::string_view path) override {
        RequireBelow(path);
        m_folders.emplace(path);
    }
    std::unique_ptr<RawFile> OpenRaw(std::string_view path, RawMode mode, Long& error) override {
        if (mode == RawMode::Read) return OneFileService::OpenRaw(path, mode, error);
        RequireBelow(path);
        if (!m_files.emplace(path).second) std::abort();  // it was to be replaced, not written into
        error = 0;
        return std::make_unique<Sink>();
    }

  private:
    std::set<std::string> m_folders;
    std::set<std::string> m_files;
};

}  // namespace

// An archive of any bytes: it opens or fails, and so does each of its entries, and nothing is made
// outside of the folder.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    ArchiveAndFolder files(std::string(reinterpret_cast<const char*>(data), size));
    ZipReader zip;
    try {
        zip.ZipFile("c:\\archive.zip");
    } catch (const Failure&) {
        return 0;
    }
    for (std::uint64_t i = 0; i < zip.Count(); ++i) {
        ZipEntry entry = zip.Item(i);
        if (entry.Name().ends_with('\\')) continue;
        entry.bWithPath = true;
        try {
            entry.Extract(root);
        } catch (const Failure&) {
            continue;  // the import would end here; the next ones are worth a look
        }
    }
    return 0;
}
