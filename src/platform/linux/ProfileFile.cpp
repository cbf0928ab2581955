#include "platform/ProfileFile.h"

#include "platform/linux/Descriptor.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <time.h>

#include <cstdlib>

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
    std::size_t count = 0;
    if (!file.Read(bytes, count)) return false;
    bytes.resize(count);
    return true;
}

}  // namespace tavel
