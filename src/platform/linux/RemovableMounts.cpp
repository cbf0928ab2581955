#include "platform/linux/HostPaths.h"
#include "platform/linux/MountSource.h"

#include <sys/sysmacros.h>

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace tavel {

namespace {

bool StartsWith(std::string_view text, std::string_view start) {
    return text.substr(0, start.size()) == start;
}

// Parts of the running system are no sticks, though it may have been started from one.
bool IsSystemFolder(std::string_view target) {
    return target == "/" || target == "/home" || target == "/usr" || target == "/var" ||
           StartsWith(target, "/boot");
}

// The later of two mounts on one folder hides the earlier.
bool IsHidden(const std::vector<MountEntry>& entries, std::size_t index) {
    return std::any_of(
        entries.begin() + static_cast<std::ptrdiff_t>(index) + 1, entries.end(),
        [&](const MountEntry& later) { return later.target == entries[index].target; });
}

// A file system that is mounted a second time elsewhere is still one drive.
bool IsKnown(const std::vector<RemovableMount>& mounts, const MountEntry& entry) {
    return std::any_of(mounts.begin(), mounts.end(), [&](const RemovableMount& known) {
        return known.entry.device == entry.device && major(entry.device) != 0;
    });
}

}  // namespace

bool IsRemovable(const DeviceProperties& properties) {
    if (properties.isOptical) return false;
    if (properties.bus == "usb" || properties.bus == "ieee1394") return true;
    const std::string_view name = properties.kernelName;
    if (StartsWith(name, "msblk") || StartsWith(name, "mspblk")) return true;
    if (properties.isBuiltInFlash || properties.cardType == "MMC") return false;
    // The removable attribute of a card reader on this bus tells nothing.
    if (StartsWith(name, "mmcblk")) return true;
    if (properties.isFlashCard || properties.isFloppy) return true;
    return properties.removableAttribute && !properties.isThumbDrive;
}

std::vector<RemovableMount> RemovableMounts(MountSource& source) {
    std::vector<RemovableMount> mounts;
    const std::vector<MountEntry> entries = source.Entries();
    for (std::size_t i = 0; i < entries.size(); ++i) {
        const MountEntry& entry = entries[i];
        if (!entry.isRegular || IsSystemFolder(entry.target)) continue;
        if (IsHidden(entries, i) || IsKnown(mounts, entry)) continue;
        const DeviceProperties properties = source.PropertiesOf(entry);
        if (!IsRemovable(properties)) continue;
        const std::string_view name = LastName(entry.target);
        mounts.push_back({entry, properties.label.empty() ? std::string(name) : properties.label});
    }
    return mounts;
}

}  // namespace tavel
