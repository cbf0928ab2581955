#include "support/linux/MountedDrives.h"

#include "platform/linux/Descriptor.h"
#include "platform/linux/HostFileService.h"
#include "platform/linux/MountFacts.h"

#include <fcntl.h>

#include <algorithm>

namespace tavel::test {

namespace {

class TableSource : public MountSource {
  public:
    explicit TableSource(MountTable& table) : m_table(table) {}

    bool HasChanged() override { return std::exchange(m_table.hasChanged, false); }

    std::vector<MountEntry> Entries() override {
        ++m_table.readings;
        std::vector<MountEntry> entries;
        for (const auto& [entry, properties] : m_table.mounts) entries.push_back(entry);
        return entries;
    }

    DeviceProperties PropertiesOf(const MountEntry& wanted) override {
        for (const auto& [entry, properties] : m_table.mounts) {
            if (entry.target == wanted.target && entry.device == wanted.device) return properties;
        }
        return {};
    }

  private:
    MountTable& m_table;
};

}  // namespace

void MountTable::Mount(const std::string& hostFolder, const std::string& label) {
    const Descriptor folder(open(hostFolder.c_str(), O_PATH | O_CLOEXEC));
    MountEntry entry;
    entry.target = hostFolder;
    entry.source = "/dev/" + label;
    entry.id = MountIdOf(folder.Get());
    DeviceProperties properties;
    properties.bus = "usb";
    properties.label = label;
    mounts.emplace_back(entry, properties);
    hasChanged = true;
}

void MountTable::Unmount(const std::string& hostFolder) {
    mounts.erase(
        std::remove_if(mounts.begin(), mounts.end(),
                       [&](const auto& mount) { return mount.first.target == hostFolder; }),
        mounts.end());
    hasChanged = true;
}

std::unique_ptr<MountSource> MakeMountSource(MountTable& table) {
    return std::make_unique<TableSource>(table);
}

MountedDrives::MountedDrives() {
    files = MakeHostFileService(temp.HostPath("program"), MakeMountSource(mounts));
}

}  // namespace tavel::test
