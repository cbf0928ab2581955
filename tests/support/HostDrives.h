#pragma once

#include "platform/FileService.h"
#include "platform/linux/MountSource.h"
#include "support/Support.h"

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

// The host's file service with drives of its own: a program folder for links and a mount table.
class HostDrives : public ::testing::Test {
  protected:
    HostDrives();

    // Links drive X to a folder of this fixture, which is made.
    void Link(char letter, const std::string& folder);
    void Unlink(char letter);

    TempFolder temp;
    MountTable mounts;
    std::unique_ptr<FileService> files;
};

}  // namespace tavel::test
