#include "platform/linux/Tree.h"

#include "platform/HostNames.h"
#include "platform/linux/FolderNames.h"

#include <linux/openat2.h>
#include <sys/syscall.h>

namespace tavel {

namespace {

constexpr int folderFlags = O_PATH | O_DIRECTORY | O_CLOEXEC;

// The host could know no such name, so that only another spelling can be there.
bool IsNotThere(int error) {
    return error == ENOENT || error == ENAMETOOLONG || error == EINVAL || error == EILSEQ;
}

}  // namespace

Descriptor Tree::OpenRoot() const { return OpenIn(m_root, m_isRemovable ? "." : "/"); }

Descriptor Tree::OpenBelow(const std::string& path) const {
    if (!m_isRemovable) return Descriptor(open(('/' + path).c_str(), folderFlags));
    open_how how{};
    how.flags = folderFlags;
    how.resolve = RESOLVE_BENEATH | RESOLVE_NO_SYMLINKS | RESOLVE_NO_XDEV;
    const char* below = path.empty() ? "." : path.c_str();
    return Descriptor(static_cast<int>(syscall(SYS_openat2, m_root, below, &how, sizeof how)));
}

Descriptor Tree::OpenIn(int folder, const std::string& name) const {
    return Descriptor(openat(folder, name.c_str(), folderFlags | (m_isRemovable ? O_NOFOLLOW : 0)));
}

bool Tree::Look(int folder, std::string_view spelling, Entry& entry) const {
    entry.name = spelling;
    const int flags = m_isRemovable ? AT_SYMLINK_NOFOLLOW : 0;
    entry.error = fstatat(folder, entry.name.c_str(), &entry.status, flags) == 0 ? 0 : errno;
    return !IsNotThere(entry.error);
}

Tree::Entry Tree::Find(int folder, std::string_view name) const {
    Entry entry;
    if (name.find('/') != std::string_view::npos || Look(folder, name, entry)) return entry;
    const auto lookForMatch = [&](std::string_view wanted) {
        for (const std::string& match : MatchingNames(folder, wanted)) {
            if (Look(folder, match, entry)) return true;
        }
        return false;
    };
    if (lookForMatch(name)) return entry;
    const std::string_view shorter = WithoutDroppedEnd(name);
    const bool isShorter = !shorter.empty() && shorter.size() < name.size();
    if (isShorter && (Look(folder, shorter, entry) || lookForMatch(shorter))) return entry;
    entry.error = ENOENT;
    return entry;
}

}  // namespace tavel
