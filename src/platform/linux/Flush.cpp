#include "platform/linux/Flush.h"

#include "platform/linux/HostPaths.h"

#include <cerrno>

namespace tavel {

namespace {

Descriptor OpenFolderOf(const Place& place) {
    constexpr int flags = O_RDONLY | O_DIRECTORY | O_CLOEXEC;
    if (place.folder.IsOpen()) return Descriptor(openat(place.Parent(), ".", flags));
    return Descriptor(open(FolderOf(place.hostPath).c_str(), flags));
}

}  // namespace

bool FlushFolderOf(const Place& place) {
    const Descriptor folder = OpenFolderOf(place);
    // Some file systems have no such call for folders, and need none.
    return folder.IsOpen() && (folder.Flush() || errno == EINVAL || errno == ENOTSUP);
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
