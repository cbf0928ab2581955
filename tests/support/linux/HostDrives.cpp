#include "support/HostDrives.h"

#include "platform/linux/HostFileService.h"
#include "platform/linux/MountSource.h"

#include <filesystem>

namespace tavel::test {

namespace {

class NoMounts : public MountSource {
  public:
    bool HasChanged() override { return false; }
    std::vector<MountEntry> Entries() override { return {}; }
    DeviceProperties PropertiesOf(const MountEntry&) override { return {}; }
};

}  // namespace

std::unique_ptr<FileService> HostFilesBelow(const std::string& hostFolder) {
    return MakeHostFileService(hostFolder, MakeHostMounts());
}

HostDrives::HostDrives()
    : files(MakeHostFileService(temp.HostPath("program"), std::make_unique<NoMounts>())) {}

void HostDrives::Link(char letter, const std::string& folder) {
    std::filesystem::create_directories(temp.HostPath("program/drives"));
    std::filesystem::create_directories(temp.HostPath(folder));
    std::filesystem::create_directory_symlink(temp.HostPath(folder),
                                              temp.HostPath("program/drives/") + letter);
}

void HostDrives::Unlink(char letter) {
    std::filesystem::remove(temp.HostPath("program/drives/") + letter);
}

}  // namespace tavel::test
