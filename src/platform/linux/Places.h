#pragma once

#include "platform/DrivePath.h"
#include "platform/Numbers.h"
#include "platform/linux/Descriptor.h"
#include "platform/linux/DriveTable.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <string>
#include <string_view>

namespace tavel {

// Where a drive path leads on the host. The host's calls take Parent() and name; on a removable
// drive the parent is held open, and nothing that happens to the drive meanwhile can lead a call
// to another file system.
struct Place {
    // 0 when something is there, and `status` tells what. 53 when the name is free in a folder
    // that exists: `name` is then what a new entry is called, empty when such a name is refused.
    // Else why the path can't be followed: 76, 71, 70, 57.
    Long failure = 0;
    DrivePath path;
    bool isOnRemovable = false;
    bool isFlushed = false;  // what happens here is on the medium at once
    Descriptor folder;       // not open where c: has something under the exact path
    std::string name;        // in that folder; the whole path when it isn't open
    std::string hostPath;
    struct stat status {};

    int Parent() const { return folder.IsOpen() ? folder.Get() : AT_FDCWD; }
    // A link on a removable drive could lead out of it.
    int OpenFlags() const { return O_CLOEXEC | (isOnRemovable ? O_NOFOLLOW : 0); }

    bool IsFile() const { return failure == 0 && S_ISREG(status.st_mode) && !path.endsInSeparator; }
    bool IsFolder() const { return failure == 0 && S_ISDIR(status.st_mode); }
    // The setting's attribute: nobody may write.
    bool IsReadOnly() const { return (status.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0; }
};

// Follows a path: its exact spelling first, then name by name without regard to case.
Place FindPlace(DriveTable& drives, std::string_view path);

// The place of what a host path leads to, behind all symbolic links and with its folder open.
Place FindOnHost(const std::string& hostPath);

// The host path of what is there on a removable drive, whose last name is spelt as its folder
// spells it: a file system that ignores case follows any other spelling as well, and may take it
// for a file of its own.
std::string HostPathInOwnSpelling(const Place& place);

}  // namespace tavel
