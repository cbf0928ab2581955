#pragma once

#include "platform/Numbers.h"
#include "platform/Service.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tavel {

// Paths are drive letter and backslash paths in engine text (`C:\Pictures\a.jpg`), matched without
// regard to case, the exact spelling first. `X:name\` is relative to the current folder of drive X,
// which is its root; a path without a drive is relative to the program folder. "." and ".." are
// taken lexically, and ".." never leaves the root of a drive. A separator at the end of a folder's
// path is allowed everywhere. Nothing is made, moved or copied to a path with a second drive in it
// (52), even where the host has a folder of such a name. On Windows, what another computer shares
// has paths without a drive, too (`\\server\share\a.jpg`).

// The setting's limit. What has a longer path cannot be picked or added, and is left out of the
// contents of folders that are not on a removable drive, since such a path would not come back
// whole from a profile.
inline constexpr std::size_t MaxPathCharacters = 254;
bool IsPathTooLong(std::string_view path);

// Whether a file or folder of such a name can be made; what the name is like decides it, and is the
// same on every drive.
bool IsNameAllowed(std::string_view name);

inline constexpr int DriveRemovable = 1;
inline constexpr int DriveFixed = 2;

// A drive as GetDrive gave it. It stays usable as a value after the drive has gone; its figures
// then fail.
class Drive {
  public:
    virtual ~Drive() = default;
    virtual std::string Path() const = 0;  // letter and colon, no separator
    virtual int DriveType() const = 0;     // DriveRemovable, DriveFixed
    virtual double TotalSize() const = 0;  // bytes; fails with 71 when the drive is not ready
    virtual double FreeSpace() const = 0;  // bytes that a user may fill; fails likewise
};

struct FileEntry {
    std::string Path;
    std::string Name;
    std::int64_t Size = 0;  // bytes
    bool Hidden = false;    // the hidden attribute; on Linux a leading dot
};

struct FolderEntry {
    std::string Path;  // no separator at its end, but for the root of a drive
    std::string Name;
    std::string LinkedTo = {};  // of a link: the same text for all links to one folder; else empty
};

// On a drive that is not removable, what has a path that is too long is not in it.
struct FolderContents {
    FolderEntry Folder;
    std::vector<FolderEntry> SubFolders;  // by name, without regard to case
    std::vector<FileEntry> Files;         // by name, without regard to case
};

// An open raw file. Reading and writing report failure and never throw. What was written to a
// removable drive is on its medium when Close returns.
class RawFile {
  public:
    virtual ~RawFile() = default;  // closes

    // False on failure. At the end of the file it succeeds with fewer bytes than asked, or none.
    virtual bool Read(std::span<char> buffer, std::size_t& bytesRead) = 0;
    // False when not all could be written; bytesWritten tells how much was. Each call goes to the
    // host, so large pieces are the cheap ones.
    virtual bool Write(std::span<const char> buffer, std::size_t& bytesWritten) = 0;
    virtual std::int64_t Size() = 0;               // bytes; -1 on failure
    virtual bool Seek(std::int64_t position) = 0;  // from 0
    virtual bool Close() = 0;  // false when something written may not be on the medium

    // The run-time's number for the first read, write or close that failed; 0 while none has.
    virtual Long Error() const = 0;
    // What is written is on its medium when Close returns, on any drive.
    virtual void FlushOnClose() = 0;
    // What is written gets this modification time, in seconds from 1970 on (UTC). To be called
    // behind the last write; a time that the file system can't keep is passed over.
    virtual void SetTime(std::int64_t seconds) = 0;
};

enum class RawMode {
    Read,       // sharing reads alone: it can't be opened for writing meanwhile (70); must exist
    Create,     // for writing; made new, an existing file is truncated
    ReadWrite,  // sharing reads alone, like Read; must exist, and is kept as it is
};

// The scripting file-system object of the setting. Failures are the run-time's: 53 File not found,
// 76 Path not found, 58 File already exists, 70 Permission denied, 61 Disk full, 71 Disk not ready,
// 52 Bad file name, 57 Device I/O error, 68 Device unavailable.
class FileService {
  public:
    virtual ~FileService() = default;

    // Names of drives: "e", "e:", "e:\", or the text of a drive list ("e: [LABEL]").
    virtual bool DriveExists(std::string_view name) = 0;                 // with or without media
    virtual std::shared_ptr<Drive> GetDrive(std::string_view name) = 0;  // 68 when there is none
    // Every drive of the moment, by letter: texts as a drive list shows them ("e: [LABEL]").
    virtual std::vector<std::string> DriveTexts() = 0;

    // False, not a failure, on a drive with no media or a path that makes no sense.
    virtual bool FileExists(std::string_view path) = 0;
    virtual bool FolderExists(std::string_view path) = 0;

    virtual FileEntry GetFile(std::string_view path) = 0;         // 53
    virtual FolderContents GetFolder(std::string_view path) = 0;  // 76; 70 when it can't be read

    virtual void CreateFolder(std::string_view path) = 0;  // 58 when there; 76 without its parent
    virtual void MoveFile(std::string_view source, std::string_view target) = 0;  // 58 when there
    virtual void CopyFile(std::string_view source, std::string_view target, bool overwrite) = 0;
    // Without `force` a read-only file fails with 70.
    virtual void DeleteFile(std::string_view path, bool force) = 0;
    // Deletes a file, as DeleteFile without force does, and moves another to its place. On Windows
    // that is one step: the first is there until the second is. On Linux it is two, and fails with
    // 58 when something has come there in between. The moved one gets the name that the path has
    // or, where a new file would get no such name or another has it, the deleted one's. Without a
    // source (53), or with the file itself (70), nothing is deleted.
    virtual void ReplaceFile(std::string_view path, std::string_view source) = 0;
    // Gives a file the owner and the mode of another, as far as the user may and the file system
    // knows them; on Windows the access list in the mode's place, and what hides it. Never fails.
    virtual void CopyRights(std::string_view source, std::string_view target) = 0;
    // Removes the symbolic links of a name in a folder, so that what is made there next lies there.
    // What they lead to, if anything, is left alone; nothing happens where there are none.
    virtual void DeleteLinks(std::string_view folder, std::string_view name) = 0;
    // An empty 8-bit text file. 58 when it is there and must not be overwritten; 71 without media.
    virtual void CreateTextFile(std::string_view path, bool overwrite) = 0;

    // The host's folder for temporary files; empty when there is none.
    virtual std::string GetTempFolder() = 0;
    // The path of an empty file that is made in a folder, in one step and for the user alone (on
    // Windows for whom the folder hands its rights on to), under a name that nothing there has: the
    // prefix, hexadecimal digits, ".tmp". 76 without the folder.
    virtual std::string CreateTempFile(std::string_view folder, std::string_view prefix) = 0;

    // Null when the file cannot be opened; `error` then is the run-time's number for it, else 0.
    virtual std::unique_ptr<RawFile> OpenRaw(std::string_view path, RawMode mode, Long& error) = 0;

    // The bytes of a whole file, for readers that work in memory; fails as GetFile does.
    virtual std::string ReadWhole(std::string_view path) = 0;

    // The host's own name of a path, for libraries that open files themselves: of what is there, or
    // of what would be created in a folder that exists. Empty when the path leads nowhere.
    virtual std::string HostPath(std::string_view path) = 0;
    // The drive path of a host file or folder (absolute): what a file dialog's answer becomes. It
    // is one to keep for years: below a folder linked as a drive it has that drive's letter, which
    // lasts as long as the link; anywhere else it begins with c:, since a mounted stick has its
    // letter only while it is mounted, and the next one may get it. On Windows it is the path
    // itself, with the letter that the host's drive has.
    virtual std::string FromHostPath(std::string_view hostPath) = 0;

    // The same place under such a path; the path itself when it leads nowhere.
    std::string StablePath(std::string_view path);
};

// The host's files and drives, for as long as the process lives.
template <>
FileService* OwnService<FileService>();

// The one file service of the program. The profile service stands on it too.
inline FileService& oFSO() { return Service<FileService>::Get(); }

// The program folder (platform/ProgramFolder.h tells which that is) as a drive path, without a
// separator at its end unless it is the root of a drive.
std::string ProgramFolder();

}  // namespace tavel
