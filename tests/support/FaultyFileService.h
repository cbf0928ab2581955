#pragma once

#include "platform/DrivePath.h"
#include "platform/FileService.h"

#include <cstdint>
#include <functional>
#include <limits>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace tavel::test {

// A drive of a FaultyFileService: a folder of the host under a letter, with what it says of itself
// and what goes wrong on it. A test may change any of it at any time.
struct FakeDrive {
    static constexpr std::int64_t plenty = std::numeric_limits<std::int64_t>::max();

    std::string hostFolder;  // empty for the real c:
    int driveType = DriveRemovable;
    double totalSize = 1'000'000'000;
    double freeSpace = 400'000'000;
    std::string label;
    bool hasMedia = true;
    bool isGone = false;  // pulled: as if there were no such drive

    // Counts that run down to the fault. The write that passes a byte count is a short one.
    std::int64_t bytesUntilFull = plenty;       // written to the drive; then Disk full
    std::int64_t bytesUntilGone = plenty;       // written to the drive; then it is pulled
    std::int64_t operationsUntilGone = plenty;  // that succeed on it, raw ones too; then likewise
};

// A file service over a real one, with drives of its own and things that go wrong when a test says
// so. It shows c: (the real one) and the drives that were plugged in, and none of the machine's.
class FaultyFileService : public FileService {
  public:
    explicit FaultyFileService(FileService& real = oFSO());

    // Makes a host folder a removable drive. The reference stays good until the drive is plugged
    // in again or pulled out.
    FakeDrive& Plug(char letter, const std::string& hostFolder);
    void Pull(char letter) { m_drives.erase(letter); }
    FakeDrive& At(char letter) { return m_drives.at(letter); }  // 'c' too

    // Calls whose record begins so fail with the number, `times` times, after `spared` of them:
    // "GetDrive f" for one. What raw files are asked for are calls, too.
    void FailOn(const std::string& callStart, Long number, int times = 1'000'000, int spared = 0);
    // A name that no new file or folder may have.
    void Refuse(const std::string& name) { m_refused.insert(name); }
    // Raw files of this name fail after so many bytes; `FailClose` when they are closed.
    void FailReadAfter(const std::string& name, std::int64_t bytes) { m_readFaults[name] = bytes; }
    void FailWriteAfter(const std::string& name, std::int64_t bytes) {
        m_writeFaults[name] = bytes;
    }
    void FailClose(const std::string& name) { m_closeFaults.insert(name); }

    // Every call in order, as it was made: "FileExists e:\a.txt", "CopyFile c:\a -> e:\b",
    // "OpenRaw Create e:\b", "DriveExists e:\", "TotalSize e:".
    std::vector<std::string> calls;
    // What raw files were asked for, in order: "Read c:\a 1024", "Write e:\b 1024", "Seek c:\a 0",
    // "Size c:\a", "Close e:\b".
    std::vector<std::string> rawCalls;
    // The folder for temporary files; the real one's while this is empty.
    std::string tempFolder;
    // Each of both as it comes.
    std::function<void(const std::string&)> onCall = [](const std::string&) {};

    bool DriveExists(std::string_view name) override;
    std::shared_ptr<Drive> GetDrive(std::string_view name) override;
    std::vector<std::string> DriveTexts() override;
    bool FileExists(std::string_view path) override;
    bool FolderExists(std::string_view path) override;
    FileEntry GetFile(std::string_view path) override;
    FolderContents GetFolder(std::string_view path) override;
    void CreateFolder(std::string_view path) override;
    void MoveFile(std::string_view source, std::string_view target) override;
    void CopyFile(std::string_view source, std::string_view target, bool overwrite) override;
    void DeleteFile(std::string_view path, bool force) override;
    void ReplaceFile(std::string_view path, std::string_view source) override;
    void DeleteLinks(std::string_view folder, std::string_view name) override;
    void CopyRights(std::string_view source, std::string_view target) override;
    void CreateTextFile(std::string_view path, bool overwrite) override;
    std::string GetTempFolder() override;
    std::string CreateTempFile(std::string_view folder, std::string_view prefix) override;
    std::unique_ptr<RawFile> OpenRaw(std::string_view path, RawMode mode, Long& error) override;
    std::string ReadWhole(std::string_view path) override;
    std::string HostPath(std::string_view path) override;
    std::string FromHostPath(std::string_view hostPath) override;

  private:
    friend class FaultyFile;
    friend class FakeDriveHandle;

    // A path as the real service knows it.
    struct Mapped {
        char letter = 0;
        DrivePath path;
        std::string real;
        Long failure = 0;  // why the drive takes no operation: 71 no media, 76 no drive
    };

    void Record(const std::string& call);
    Long FailureOf(const std::string& call);     // 0 for none
    Long RawFailureOf(const std::string& call);  // likewise
    FakeDrive* Find(char letter);
    bool Touch(char letter);
    Mapped Map(std::string_view path);
    Mapped MapForChange(std::string_view path);
    void RequireNameAllowed(const Mapped& target) const;
    void Store(const Mapped& target, std::int64_t bytes);

    FileService& m_real;
    std::map<char, FakeDrive> m_drives;
    struct Fault {
        std::string callStart;
        Long number;
        int times;
        int spared;
    };
    std::vector<Fault> m_faults;
    std::set<std::string> m_refused;
    std::map<std::string, std::int64_t> m_readFaults;
    std::map<std::string, std::int64_t> m_writeFaults;
    std::set<std::string> m_closeFaults;
};

}  // namespace tavel::test
