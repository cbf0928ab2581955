#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace tavel {

// What tells one state of a host file from another.
struct FileStamp {
    std::uint64_t device = 0;
    std::uint64_t inode = 0;
    std::uint64_t size = 0;
    std::int64_t modified = 0;  // nanoseconds
    std::int64_t changed = 0;   // nanoseconds

    bool operator==(const FileStamp&) const = default;
};

// Nothing when no ordinary file is there. Symbolic links are followed.
std::optional<FileStamp> StampOf(const std::string& hostPath);

// True when the file could be changed once more without its stamp telling, because the last change
// is younger than what the file system's clock tells apart.
bool MayChangeUnseen(const FileStamp& stamp);

// False when it cannot be read, is no ordinary file or holds more than `limit` bytes.
bool ReadHostFile(const std::string& hostPath, std::size_t limit, std::string& bytes,
                  FileStamp& stamp);

// Gives an existing file other bytes in one atomic step: whoever looks, after a kill or a power cut
// too, finds the old bytes or the new ones. They are on the medium when it returns. Mode and, where
// the user may, owner are kept, and a symbolic link stays a link to the same file. Where the folder
// cannot be written but the file can, the file is written in place; `mayUseOwnRoom` allows the same
// for up to 64 KiB on a full disk, where there is no room but the file's own. False when it failed;
// the old bytes are then still there, unless writing in place was broken off. `tellBytes` passes
// the bytes to the sink in pieces, the same each time.
using ByteSink = std::function<void(std::string_view)>;
bool ReplaceHostFile(const std::string& hostPath,
                     const std::function<void(const ByteSink&)>& tellBytes, bool mayUseOwnRoom);

}  // namespace tavel
