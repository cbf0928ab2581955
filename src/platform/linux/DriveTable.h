#pragma once

#include "platform/DrivePath.h"
#include "platform/Numbers.h"
#include "platform/linux/DriveLinks.h"
#include "platform/linux/MountSource.h"

#include <memory>
#include <set>
#include <string>
#include <vector>

namespace tavel {

// The removable drives and their letters: mounted file systems from d: on, in the order of
// mounting, each keeping its letter while it is mounted, and folders linked as `drives/X`. A letter
// that a mount has stays with it; a new mount passes over the letters of links, and of the free
// letters it gets the one that has been unused longest: what still names a file of a drive that has
// gone shall not name one of the next drive. The exception is a mount that takes the place of one
// that went since the last look: whoever watches the letter could not tell the two apart.
class DriveTable {
  public:
    DriveTable(const std::string& programFolder, std::unique_ptr<MountSource> mounts);

    // The program's folder, wherever the program was started from.
    const DrivePath& CurrentFolder() const { return m_currentFolder; }

    struct Entry {
        char letter = 0;
        bool isLink = false;
        std::string label;                   // empty when there is no medium
        std::vector<std::string> hostRoots;  // the host's names of its root
    };

    // What is there at this moment, by letter.
    std::vector<Entry> Entries();
    bool Has(char letter);

    // The root of a drive's file system, to look beneath; `hostPath` is its name. Keep it open no
    // longer than a call, or the stick can't be unmounted. Not open when the drive has no medium
    // (`error` is then 71 Disk not ready) or is not there (76 Path not found).
    struct Root {
        Descriptor folder;
        std::string hostPath;
        Long error = 0;
    };
    Root Open(char letter);

    // Paths of c: lead to mounted sticks, too, be it through links. Of which stick a file is, its
    // status tells by the number of the file system.
    enum class Stick { None, There, Pulled };
    Stick StickWith(dev_t fileSystem);

    // True for the folder that a stick was mounted on and had left behind at the last look. Paths
    // of c: that were kept lead there.
    bool IsLeftBehind(int folder) const;

  private:
    struct MountedDrive {
        char letter = 0;
        RemovableMount mount;
        dev_t fileSystem = 0;
    };

    void Refresh();
    void RefreshMounts();
    void ReadMounts();
    void PutTakenLettersLast();
    bool IsKnown(const RemovableMount& mount) const;
    bool IsTaken(char letter) const;
    char FreeLetter() const;
    Entry LinkEntry(char letter);
    const MountedDrive* MountOf(char letter) const;

    DrivePath m_currentFolder;
    DriveLinks m_links;
    std::unique_ptr<MountSource> m_source;
    std::vector<MountedDrive> m_mounts;
    std::set<std::string> m_leftBehind;  // the folders that mounts have been seen to leave
    std::string m_letters;  // of mounts: the free ones first, the longest unused in front
};

}  // namespace tavel
