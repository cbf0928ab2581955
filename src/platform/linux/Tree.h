#pragma once

#include "platform/linux/Descriptor.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <string>
#include <string_view>

namespace tavel {

// What of a drive's file system is the drive's, and how names are followed in it: on c: all that
// the host would follow; on a removable drive neither links nor other file systems mounted below
// its root.
class Tree {
  public:
    // The host's own tree.
    Tree() = default;
    // A removable drive. `root` is its root, open as long as the tree is used.
    Tree(int root, const struct stat& status)
        : m_root(root), m_device(status.st_dev), m_isRemovable(true) {}

    Descriptor OpenRoot() const;
    // A folder below the root by exactly this path; the empty one is the root. Not open when there
    // is none, or when the host can't be told to stay in the tree.
    Descriptor OpenBelow(const std::string& path) const;
    // A folder in an open folder of the tree.
    Descriptor OpenIn(int folder, const std::string& name) const;

    // An entry of a folder under the host's spelling of its name.
    struct Entry {
        std::string name;
        struct stat status {};
        int error = ENOENT;  // of the host; ENOENT when no entry matches
    };
    // The exact spelling first, then without regard to case.
    Entry Find(int folder, std::string_view name) const;

    bool IsOutside(const struct stat& status) const {
        return m_isRemovable && (status.st_dev != m_device || S_ISLNK(status.st_mode));
    }

  private:
    bool Look(int folder, std::string_view spelling, Entry& entry) const;

    int m_root = AT_FDCWD;
    dev_t m_device = 0;
    bool m_isRemovable = false;
};

}  // namespace tavel
