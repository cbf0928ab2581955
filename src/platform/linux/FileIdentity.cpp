#include "platform/linux/FileIdentity.h"

#include "platform/linux/HostNames.h"
#include "platform/linux/HostPaths.h"

#include <linux/magic.h>
#include <sys/vfs.h>

namespace tavel {

namespace {

Descriptor Look(const Place& place) {
    return Descriptor(openat(place.Parent(), place.name.c_str(), O_PATH | place.OpenFlags()));
}

}  // namespace

bool IsOnFileSystemOfProcess(int file) {
    struct statfs status {};
    return fstatfs(file, &status) == 0 && status.f_type == FUSE_SUPER_MAGIC;
}

// Such a file system may match names without regard to case and still give each spelling an inode
// number of its own.
FileIdentity::FileIdentity(int file) {
    struct stat status {};
    if (fstat(file, &status) != 0) return;
    m_device = status.st_dev;
    m_inode = status.st_ino;
    if (IsOnFileSystemOfProcess(file)) m_path = MatchKey(PathOf(file));
}

FileIdentity::FileIdentity(const Place& place) : FileIdentity(Look(place).Get()) {}

bool FileIdentity::operator==(const FileIdentity& other) const {
    if (m_device != other.m_device) return false;
    return m_inode == other.m_inode || (!m_path.empty() && m_path == other.m_path);
}

}  // namespace tavel
