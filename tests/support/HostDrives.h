#pragma once

#include "platform/FileService.h"
#include "support/Support.h"

#include <memory>
#include <string>

namespace tavel::test {

// The host's file service with the drives of the host, and a host folder in the program's place.
std::unique_ptr<FileService> HostFilesBelow(const std::string& hostFolder);

// The host's file service with drives of its own: the fixture's program folder, and folders that
// are removable drives.
class HostDrives : public ::testing::Test {
  protected:
    HostDrives();

    // Makes a folder of this fixture, which is made, a removable drive. One that is removed
    // afterwards is a drive without a medium.
    void Link(char letter, const std::string& folder);
    void Unlink(char letter);

    TempFolder temp;
    std::unique_ptr<FileService> files;
};

}  // namespace tavel::test
