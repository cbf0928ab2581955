#include "platform/linux/Descriptor.h"

#include <algorithm>
#include <cerrno>

namespace tavel {

namespace {

constexpr std::size_t smallestPiece = 512;

}  // namespace

bool Descriptor::Read(std::span<char> buffer, std::size_t& bytesRead) const {
    bytesRead = 0;
    while (bytesRead < buffer.size()) {
        const ssize_t count =
            read(m_descriptor, buffer.data() + bytesRead, buffer.size() - bytesRead);
        if (count == 0) break;
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return false;
        bytesRead += static_cast<std::size_t>(count);
    }
    return true;
}

// A file system may refuse a large piece as a whole where a part of it would still fit: smaller
// ones fill the medium to its end, so that what follows finds it full and leaves no gap.
bool Descriptor::Write(std::span<const char> buffer, std::size_t& bytesWritten) const {
    bytesWritten = 0;
    std::size_t limit = buffer.size();
    while (bytesWritten < buffer.size()) {
        const ssize_t count = write(m_descriptor, buffer.data() + bytesWritten,
                                    std::min(limit, buffer.size() - bytesWritten));
        if (count < 0 && errno == EINTR) continue;
        if (count < 0 && errno == ENOSPC && limit > smallestPiece) {
            limit /= 2;
            continue;
        }
        if (count < 0) return false;
        bytesWritten += static_cast<std::size_t>(count);
    }
    return true;
}

void Descriptor::SetTime(const timespec& modified) const {
    const timespec times[2] = {{0, UTIME_OMIT}, modified};
    futimens(m_descriptor, times);
}

// Without the right to give it away it is the user's, who may write it, as the other one's owner
// may perhaps not. A group that is not the other one's may do no more than everybody.
void Descriptor::TakeOwnerAndMode(const struct stat& other) const {
    constexpr uid_t sameOwner = -1;
    mode_t mode = other.st_mode & 0777;
    if (fchown(m_descriptor, other.st_uid, other.st_gid) != 0) {
        mode |= S_IRUSR | S_IWUSR;
        if (fchown(m_descriptor, sameOwner, other.st_gid) != 0)
            mode = (mode & ~S_IRWXG) | (mode & S_IRWXO) << 3;
    }
    [[maybe_unused]] const bool hasMode = fchmod(m_descriptor, mode) == 0;
}

}  // namespace tavel
