#pragma once

#include "platform/DrivePath.h"
#include "platform/Numbers.h"
#include "platform/windows/DriveSource.h"
#include "platform/windows/HostStatus.h"

#include <memory>
#include <string>
#include <string_view>

namespace tavel {

// What drive paths are followed in.
struct HostTree {
    std::shared_ptr<DriveSource> drives;
    DrivePath currentFolder;  // where a path without a drive starts
};

// Where a drive path leads on the host.
struct Place {
    // 0 when something is there, and `status` tells what. 53 when the name is free in a folder that
    // exists: `name` is then what a new entry is called, empty when such a name is refused. Else
    // why the path can't be followed: 76, 71, 70, 57.
    Long failure = 0;
    DrivePath path;
    // No link is followed, since it could lead out of the drive, and what happens here is on the
    // medium at once.
    bool isOnRemovable = false;
    std::string name;
    std::wstring callPath;  // for the host's wide calls
    HostStatus status;      // of what a link leads to

    bool IsFile() const { return failure == 0 && status.IsFile() && !path.endsInSeparator; }
    bool IsFolder() const { return failure == 0 && status.IsFolder(); }
    bool IsReadOnly() const { return status.IsReadOnly(); }
};

// The host itself matches names without regard to case. Those that end in blanks or dots are found
// as they stand, if something has such a name, and else without that end.
Place FindPlace(const HostTree& tree, std::string_view path);

// The place of what a host path leads to, behind a link.
Place FindOnHost(std::string_view hostPath);

}  // namespace tavel
