#pragma once

#include "platform/linux/MountSource.h"
#include "support/HostDrives.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace tavel::test {

// A mount table and device database as a test tells them.
struct MountTable {
    std::vector<std::pair<MountEntry, DeviceProperties>> mounts;
    bool hasChanged = true;
    int readings = 0;

    // Mounts a removable file system on a folder that exists.
    void Mount(const std::string& hostFolder, const std::string& label);
    void Unmount(const std::string& hostFolder);
};

std::unique_ptr<MountSource> MakeMountSource(MountTable& table);

// Folders of the fixture that are mounted as well.
class MountedDrives : public HostDrives {
  protected:
    MountedDrives();

    MountTable mounts;
};

}  // namespace tavel::test
