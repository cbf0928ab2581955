#include "platform/ProfileFile.h"
#include "platform/linux/Places.h"
#include "platform/linux/Successor.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

namespace tavel {

namespace {

using ByteTeller = std::function<void(const ByteSink&)>;

off_t SizeOf(const ByteTeller& tellBytes) {
    off_t size = 0;
    tellBytes([&](std::string_view piece) { size += static_cast<off_t>(piece.size()); });
    return size;
}

// A full stick may have no room for a second file where the room that the first one takes up
// already would do.
bool FitsInOwnRoom(const struct stat& former, const ByteTeller& tellBytes) {
    constexpr off_t mostBytes = 64 * 1024;
    constexpr off_t blockSize = 512;
    return SizeOf(tellBytes) <= std::min(mostBytes, off_t{former.st_blocks} * blockSize);
}

// The room is claimed first, so that a full disk is told before a byte has changed. File systems
// that cannot claim room say so, and are written all the same.
bool OverwriteInPlace(const Place& place, const ByteTeller& tellBytes) {
    Descriptor file(openat(place.Parent(), place.name.c_str(), O_WRONLY | O_CLOEXEC | O_NOFOLLOW));
    if (!file.IsOpen()) return false;
    const off_t size = SizeOf(tellBytes);
    if (size > 0 && fallocate(file.Get(), FALLOC_FL_KEEP_SIZE, 0, size) != 0 && errno == ENOSPC) {
        return false;
    }
    bool isWritten = true;
    std::size_t count = 0;
    tellBytes([&](std::string_view piece) { isWritten = isWritten && file.Write(piece, count); });
    return isWritten && ftruncate(file.Get(), size) == 0 && file.Flush() && file.Close();
}

// The folder or its file system does not let files be made or replaced in it, or a folder lies
// under the successor's name.
bool IsRefusal(int error) {
    return error == EACCES || error == EPERM || error == EBUSY || error == EEXIST;
}

// A rename would get around the file's own write protection.
bool MayWrite(const Place& place) {
    return faccessat(place.Parent(), place.name.c_str(), W_OK, AT_EACCESS) == 0;
}

enum class Outcome { Replaced, Failed, Refused, DiskFull };

Outcome OutcomeOf(const Successor& successor) {
    // What failed after the step cannot be mended by writing once more.
    if (successor.HasTakenPlace()) return Outcome::Failed;
    if (IsRefusal(successor.Error())) return Outcome::Refused;
    return successor.Error() == ENOSPC ? Outcome::DiskFull : Outcome::Failed;
}

Outcome ReplaceInOneStep(const Place& place, const ByteTeller& tellBytes) {
    Successor successor(place);
    tellBytes([&](std::string_view piece) { successor.Write(piece); });
    return successor.TakePlace() ? Outcome::Replaced : OutcomeOf(successor);
}

}  // namespace

bool ReplaceHostFile(const std::string& hostPath, const ByteTeller& tellBytes, bool mayUseOwnRoom) {
    const Place place = FindOnHost(hostPath);
    if (!place.IsFile() || !MayWrite(place)) return false;
    const Outcome outcome = ReplaceInOneStep(place, tellBytes);
    if (outcome == Outcome::Replaced) return true;
    const bool usesOwnRoom =
        outcome == Outcome::DiskFull && mayUseOwnRoom && FitsInOwnRoom(place.status, tellBytes);
    return (usesOwnRoom || outcome == Outcome::Refused) && OverwriteInPlace(place, tellBytes);
}

}  // namespace tavel
