#include "platform/linux/FileIdentity.h"

#include "platform/Text.h"

#include <linux/magic.h>
#include <sys/vfs.h>

namespace tavel {

bool IsOnFileSystemOfProcess(int file) {
    struct statfs status {};
    return fstatfs(file, &status) == 0 && status.f_type == FUSE_SUPER_MAGIC;
}

// Such a file system may match names without regard to case and still give each spelling an inode
// number of its own.
FileIdentity::FileIdentity(const Place& place)
    : m_device(place.status.st_dev), m_inode(place.status.st_ino) {
    const Descriptor file(openat(place.Parent(), place.name.c_str(), O_PATH | place.OpenFlags()));
    if (IsOnFileSystemOfProcess(file.Get())) m_name = LowerCase(ToUtf8(place.hostPath));
}

bool FileIdentity::operator==(const FileIdentity& other) const {
    if (m_device != other.m_device) return false;
    return m_inode == other.m_inode || (!m_name.empty() && m_name == other.m_name);
}

}  // namespace tavel
