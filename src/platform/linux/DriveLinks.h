#pragma once

#include "platform/linux/Descriptor.h"
#include "platform/linux/FolderWatch.h"

#include <sys/types.h>
#include <time.h>

#include <map>
#include <string>

namespace tavel {

// A folder linked as `drives/X` beside the program.
struct DriveLink {
    std::string hostPath;  // of the link itself
    ino_t inode = 0;       // of the link itself, as is the time: a link made anew is another drive
    timespec changed{};
    bool wasMounted = false;  // it has been seen to lead to the root of a mounted file system
};

// The links in the folder `drives`. The kernel tells when one comes or goes.
class DriveLinks {
  public:
    // `folder` is the host's name of the folder with the links; it need not exist.
    explicit DriveLinks(std::string folder);

    // Brings the links up to date; true when they may have changed.
    bool Refresh();

    // By their letters: lower case, never c.
    const std::map<char, DriveLink>& Links() const { return m_links; }
    bool Has(char letter) const { return m_links.count(letter) != 0; }

    // The folder that a link leads to, to look beneath. Not open when the link dangles, and when it
    // led to a mounted file system that is gone now: what is left there is the empty folder that
    // the file system was mounted on.
    Descriptor Open(char letter);
    // The host's name of that folder; empty for a link that dangles.
    std::string Target(char letter) const;

  private:
    void Read();

    std::string m_folder;
    FolderWatch m_watch;
    bool m_isWatching = false;
    std::map<char, DriveLink> m_links;
};

}  // namespace tavel
