#include "platform/linux/FileIdentity.h"

#include "platform/HostNames.h"
#include "platform/Text.h"
#include "platform/linux/FolderNames.h"
#include "platform/linux/HostPaths.h"

#include <linux/magic.h>
#include <sys/vfs.h>

#include <algorithm>
#include <vector>

namespace tavel {

namespace {

Descriptor Look(const Place& place) {
    return Descriptor(openat(place.Parent(), place.name.c_str(), O_PATH | place.OpenFlags()));
}

// A name as its folder spells it. Where the folder can't be read, names that match are taken for
// the same: a copy that is refused is better than a file emptied by a copy of itself.
std::string OwnSpelling(const std::string& folder, const std::string& name) {
    int error = 0;
    const Descriptor opened(open(folder.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    const std::vector<std::string> names = NamesIn(opened.Get(), error);
    if (std::binary_search(names.begin(), names.end(), name)) return name;
    const std::string key = MatchKey(name);
    const auto own = std::find_if(names.begin(), names.end(),
                                  [&](const std::string& each) { return MatchKey(each) == key; });
    return own == names.end() ? key : *own;
}

std::string PathInOwnSpelling(std::string_view hostPath) {
    std::string path;
    for (const std::string& name : Split(hostPath.substr(1), '/'))
        path = HostJoin(path, OwnSpelling(path.empty() ? "/" : path, name));
    return path;
}

// Names that match are those of one file unless their folder has both.
bool IsSamePath(const std::string& a, const std::string& b) {
    return MatchKey(a) == MatchKey(b) && PathInOwnSpelling(a) == PathInOwnSpelling(b);
}

}  // namespace

bool IsOnFileSystemOfProcess(int file) {
    struct statfs status {};
    return fstatfs(file, &status) == 0 && status.f_type == FUSE_SUPER_MAGIC;
}

// Such a file system may match names without regard to case and still give each spelling of a path
// an inode number of its own.
FileIdentity::FileIdentity(int file) {
    struct stat status {};
    if (fstat(file, &status) != 0) return;
    m_device = status.st_dev;
    m_inode = status.st_ino;
    if (IsOnFileSystemOfProcess(file)) m_path = PathOf(file);
}

FileIdentity::FileIdentity(const Place& place) : FileIdentity(Look(place).Get()) {}

bool FileIdentity::operator==(const FileIdentity& other) const {
    if (m_device != other.m_device) return false;
    if (m_inode == other.m_inode) return true;
    return !m_path.empty() && !other.m_path.empty() && IsSamePath(m_path, other.m_path);
}

}  // namespace tavel
