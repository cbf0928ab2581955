#include "platform/linux/Flush.h"

#include "platform/linux/HostPaths.h"
#include "platform/linux/MountFacts.h"

#include <cerrno>

namespace tavel {

namespace {

Descriptor OpenFolderOf(const Place& place) {
    constexpr int flags = O_RDONLY | O_DIRECTORY | O_CLOEXEC;
    if (place.folder.IsOpen()) return Descriptor(openat(place.Parent(), ".", flags));
    return Descriptor(open(FolderOf(place.hostPath).c_str(), flags));
}

// Some file systems have no such call for folders, and need none.
bool FlushFolder(const Descriptor& folder) {
    return folder.Flush() || errno == EINVAL || errno == ENOTSUP;
}

bool IsRootOfDrive(const Place& place, const Descriptor& folder) {
    return (place.isOnRemovable && place.path.names.size() < 2) || IsMountRoot(folder.Get());
}

}  // namespace

bool FlushFolderOf(const Place& place) {
    const Descriptor folder = OpenFolderOf(place);
    return folder.IsOpen() && FlushFolder(folder);
}

bool FlushEntriesOf(const Place& place) {
    const Descriptor folder = OpenFolderOf(place);
    if (!folder.IsOpen() || !FlushFolder(folder)) return false;
    if (IsRootOfDrive(place, folder)) return true;
    const Descriptor parent(openat(folder.Get(), "..", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    // One may change a folder in one that can't be read.
    return !parent.IsOpen() || FlushFolder(parent);
}

bool FlushRenamed(const Place& place) {
    const Descriptor file(
        openat(place.Parent(), place.name.c_str(), O_RDONLY | O_NONBLOCK | place.OpenFlags()));
    if (file.IsOpen()) return file.Flush();
    // One may move a file that one can't read.
    const Descriptor folder = OpenFolderOf(place);
    return folder.IsOpen() && syncfs(folder.Get()) == 0;
}

}  // namespace tavel
