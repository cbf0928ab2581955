#pragma once

#include <sys/types.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace tavel {

// An entry of the host's mount table.
struct MountEntry {
    std::string target;
    std::string source;
    std::uint64_t id = 0;   // the kernel's number for the mount (MountIdOf its root)
    dev_t device = 0;       // the block device; major 0 when none is known
    bool isRegular = true;  // no pseudo, network or swap file system
};

// What the kernel and the device database say about the whole disk behind a mount.
struct DeviceProperties {
    std::string kernelName;           // "sdb", "mmcblk0", "mspblk0"
    std::string bus;                  // "usb", "ata", "ieee1394"; empty when unknown
    std::string cardType;             // of an mmcblk device: "SD", "MMC"
    std::string label;                // of the file system
    bool removableAttribute = false;  // the sysfs attribute
    bool isFlashCard = false;         // a slot or card for CF, MS, SD and their like
    bool isBuiltInFlash = false;      // eMMC
    bool isThumbDrive = false;
    bool isFloppy = false;
    bool isOptical = false;
};

// The host's mount table and device database; tests have tables of their own.
class MountSource {
  public:
    virtual ~MountSource() = default;

    // True when the table may have changed since the last call, and at the first.
    virtual bool HasChanged() = 0;
    // In the order of mounting.
    virtual std::vector<MountEntry> Entries() = 0;
    virtual DeviceProperties PropertiesOf(const MountEntry& entry) = 0;
};

std::unique_ptr<MountSource> MakeHostMounts();

// A mounted removable file system.
struct RemovableMount {
    MountEntry entry;
    std::string label;  // the file system's own, or the name of its mount folder
};

// Whether the setting would call the drive removable. Optical drives are a kind of their own there.
bool IsRemovable(const DeviceProperties& properties);

// The mounted removable file systems, each once, in the order of mounting.
std::vector<RemovableMount> RemovableMounts(MountSource& source);

}  // namespace tavel
