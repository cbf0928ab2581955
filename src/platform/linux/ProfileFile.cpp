#include "platform/ProfileFile.h"

#include "platform/linux/Descriptor.h"

#include <errno.h>
#include <fcntl.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <time.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <utility>

namespace tavel {

namespace {

constexpr std::int64_t nanoseconds = 1'000'000'000;

std::int64_t Nanoseconds(const timespec& time) {
    return std::int64_t{time.tv_sec} * nanoseconds + time.tv_nsec;
}

FileStamp StampFrom(const struct stat& status) {
    FileStamp stamp;
    stamp.device = status.st_dev;
    stamp.inode = status.st_ino;
    stamp.size = static_cast<std::uint64_t>(status.st_size);
    stamp.modified = Nanoseconds(status.st_mtim);
    stamp.changed = Nanoseconds(status.st_ctim);
    return stamp;
}

using ByteTeller = std::function<void(const ByteSink&)>;

bool WriteAll(int file, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = write(file, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) return false;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

bool WriteAll(int file, const ByteTeller& tellBytes) {
    bool isWritten = true;
    int error = 0;
    tellBytes([&](std::string_view piece) {
        if (!isWritten) return;
        isWritten = WriteAll(file, piece);
        error = errno;
    });
    errno = error;
    return isWritten;
}

off_t SizeOf(const ByteTeller& tellBytes) {
    off_t size = 0;
    tellBytes([&](std::string_view piece) { size += static_cast<off_t>(piece.size()); });
    return size;
}

// Some file systems have no way to flush a folder, and say so.
bool FlushFolder(int folder) { return fsync(folder) == 0 || errno == EINVAL || errno == ENOTSUP; }

// A path taken apart behind all symbolic links.
struct Place {
    std::string folder;
    std::string name;
};

bool Resolve(const std::string& hostPath, Place& place) {
    struct Free {
        void operator()(char* text) const { free(text); }
    };
    const std::unique_ptr<char, Free> resolved(realpath(hostPath.c_str(), nullptr));
    if (resolved == nullptr) return false;
    const std::string path = resolved.get();
    const std::size_t slash = path.rfind('/');
    place.folder = path.substr(0, slash + 1);
    place.name = path.substr(slash + 1);
    return true;
}

// A new file beside another, which vanishes again unless it takes that one's place.
class Successor {
  public:
    Successor(int folder, const struct stat& former) : m_folder(folder), m_name(FreshName()) {
        m_file = openat(folder, m_name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
        if (m_file < 0) {
            m_error = errno;
            return;
        }
        // Without the right to give it to the former owner it is the user's, who may write it. A
        // file system without owners and modes refuses both.
        [[maybe_unused]] const bool keepsOwner = fchown(m_file, former.st_uid, former.st_gid) == 0;
        [[maybe_unused]] const bool keepsMode = fchmod(m_file, former.st_mode & 0777) == 0;
    }
    ~Successor() {
        if (m_file < 0) return;
        close(m_file);
        if (!m_isPlaced) unlinkat(m_folder, m_name.c_str(), 0);
    }
    Successor(const Successor&) = delete;
    Successor& operator=(const Successor&) = delete;

    bool Fill(const ByteTeller& bytes) {
        return Check(WriteAll(m_file, bytes) && fsync(m_file) == 0);
    }

    bool TakePlaceOf(const std::string& name) {
        m_isPlaced = Check(renameat(m_folder, m_name.c_str(), m_folder, name.c_str()) == 0);
        return m_isPlaced;
    }

    bool IsOpen() const { return m_file >= 0; }
    // The folder or its file system does not let files be made or replaced in it.
    bool IsRefused() const { return m_error == EACCES || m_error == EPERM || m_error == EBUSY; }
    bool IsDiskFull() const { return m_error == ENOSPC; }

  private:
    static std::string FreshName() {
        timespec now{};
        clock_gettime(CLOCK_REALTIME, &now);
        return ".tavel-" + std::to_string(getpid()) + "-" + std::to_string(Nanoseconds(now));
    }

    bool Check(bool isGood) {
        if (!isGood) m_error = errno;
        return isGood;
    }

    int m_folder;
    std::string m_name;
    int m_file = -1;
    int m_error = 0;
    bool m_isPlaced = false;
};

// A full stick may have no room for a second file where the room that the first one takes up
// already would do.
bool FitsInOwnRoom(const struct stat& former, const ByteTeller& tellBytes) {
    constexpr off_t mostBytes = 64 * 1024;
    constexpr off_t blockSize = 512;
    return SizeOf(tellBytes) <= std::min(mostBytes, off_t{former.st_blocks} * blockSize);
}

// The room is claimed first, so that a full disk is told before a byte has changed. File systems
// that cannot claim room say so, and are written all the same.
bool OverwriteInPlace(int folder, const std::string& name, const ByteTeller& bytes) {
    Descriptor file(openat(folder, name.c_str(), O_WRONLY | O_CLOEXEC | O_NOFOLLOW));
    if (!file.IsOpen()) return false;
    const off_t size = SizeOf(bytes);
    if (size > 0 && fallocate(file.Get(), FALLOC_FL_KEEP_SIZE, 0, size) != 0 && errno == ENOSPC) {
        return false;
    }
    if (!WriteAll(file.Get(), bytes) || ftruncate(file.Get(), size) != 0) return false;
    return fsync(file.Get()) == 0 && file.Close();
}

}  // namespace

std::optional<FileStamp> StampOf(const std::string& hostPath) {
    struct stat status {};
    if (stat(hostPath.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) return std::nullopt;
    return StampFrom(status);
}

bool MayChangeUnseen(const FileStamp& stamp) {
    // A kernel tick or two, or the two seconds of the file systems that sticks have. A time that
    // lies in the future was made by a clock that has been set since, and cannot come again soon.
    const bool hasWholeSeconds = stamp.changed % nanoseconds == 0;
    const std::int64_t grain = hasWholeSeconds ? 2 * nanoseconds : nanoseconds / 50;
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    return std::abs(Nanoseconds(now) - stamp.changed) < grain;
}

bool ReadHostFile(const std::string& hostPath, std::size_t limit, std::string& bytes,
                  FileStamp& stamp) {
    // Without O_NONBLOCK a named pipe would wait for its writer.
    const Descriptor file(open(hostPath.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    struct stat status {};
    if (!file.IsOpen() || fstat(file.Get(), &status) != 0 || !S_ISREG(status.st_mode)) return false;
    stamp = StampFrom(status);
    if (stamp.size > limit) return false;
    bytes.resize(stamp.size);
    std::size_t have = 0;
    while (have < bytes.size()) {
        const ssize_t got = read(file.Get(), bytes.data() + have, bytes.size() - have);
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) return false;
        if (got == 0) break;
        have += static_cast<std::size_t>(got);
    }
    bytes.resize(have);
    return true;
}

bool ReplaceHostFile(const std::string& hostPath, const ByteTeller& bytes, bool mayUseOwnRoom) {
    Place place;
    if (!Resolve(hostPath, place)) return false;
    const Descriptor folder(open(place.folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!folder.IsOpen()) return false;
    struct stat former {};
    if (fstatat(folder.Get(), place.name.c_str(), &former, AT_SYMLINK_NOFOLLOW) != 0) return false;
    // A rename would get around the file's own write protection.
    if (!S_ISREG(former.st_mode)) return false;
    if (faccessat(folder.Get(), place.name.c_str(), W_OK, AT_EACCESS) != 0) return false;

    Successor successor(folder.Get(), former);
    const bool isPlaced =
        successor.IsOpen() && successor.Fill(bytes) && successor.TakePlaceOf(place.name);
    if (isPlaced) return FlushFolder(folder.Get());
    const bool canBeInPlace = successor.IsRefused() || (mayUseOwnRoom && successor.IsDiskFull() &&
                                                        FitsInOwnRoom(former, bytes));
    return canBeInPlace && OverwriteInPlace(folder.Get(), place.name, bytes);
}

}  // namespace tavel
