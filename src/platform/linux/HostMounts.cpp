#include "platform/linux/MountSource.h"

#include <libmount.h>
#include <libudev.h>
#include <poll.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>

#include <string_view>

namespace tavel {

namespace {

struct Release {
    void operator()(libmnt_monitor* monitor) const { mnt_unref_monitor(monitor); }
    void operator()(libmnt_table* table) const { mnt_unref_table(table); }
    void operator()(libmnt_iter* iterator) const { mnt_free_iter(iterator); }
    void operator()(udev* database) const { udev_unref(database); }
    void operator()(udev_device* device) const { udev_device_unref(device); }
};

template <class T>
using Owned = std::unique_ptr<T, Release>;

std::string TextOrEmpty(const char* text) { return text == nullptr ? std::string() : text; }

// A file system of a user process has a number of its own in the table, no device's.
dev_t BlockDeviceOf(libmnt_fs* entry) {
    const dev_t device = mnt_fs_get_devno(entry);
    if (major(device) != 0) return device;
    struct stat status {};
    const std::string source = TextOrEmpty(mnt_fs_get_source(entry));
    if (source.rfind("/dev/", 0) != 0 || stat(source.c_str(), &status) != 0) return device;
    return S_ISBLK(status.st_mode) ? status.st_rdev : device;
}

MountEntry EntryOf(libmnt_fs* entry) {
    MountEntry found;
    found.target = TextOrEmpty(mnt_fs_get_target(entry));
    found.source = TextOrEmpty(mnt_fs_get_source(entry));
    found.id = static_cast<std::uint64_t>(mnt_fs_get_id(entry));
    found.device = BlockDeviceOf(entry);
    found.isRegular = mnt_fs_is_regularfs(entry) != 0;
    return found;
}

// A partition's parent belongs to the partition and is not released on its own.
udev_device* DiskOf(udev_device* device) {
    if (TextOrEmpty(udev_device_get_devtype(device)) != "partition") return device;
    udev_device* disk = udev_device_get_parent_with_subsystem_devtype(device, "block", "disk");
    return disk == nullptr ? device : disk;
}

bool HasFlag(udev_device* device, const char* property) {
    return TextOrEmpty(udev_device_get_property_value(device, property)) == "1";
}

// The bus in the device database, which a machine without its service lacks; the kernel's own tree
// of devices tells USB all the same.
std::string BusOf(udev_device* disk) {
    const std::string bus = TextOrEmpty(udev_device_get_property_value(disk, "ID_BUS"));
    if (!bus.empty()) return bus;
    return udev_device_get_parent_with_subsystem_devtype(disk, "usb", "usb_device") != nullptr
               ? "usb"
               : "";
}

bool IsFlashCard(udev_device* disk) {
    udev_list_entry* property = nullptr;
    udev_list_entry_foreach(property, udev_device_get_properties_list_entry(disk)) {
        const std::string_view name = udev_list_entry_get_name(property);
        if (name.rfind("ID_DRIVE_FLASH_", 0) == 0 || name.rfind("ID_DRIVE_MEDIA_FLASH_", 0) == 0) {
            if (name != "ID_DRIVE_FLASH_MMC" && HasFlag(disk, name.data())) return true;
        }
    }
    return false;
}

DeviceProperties DescriptionOf(udev_device* device) {
    udev_device* disk = DiskOf(device);
    DeviceProperties found;
    found.kernelName = TextOrEmpty(udev_device_get_sysname(disk));
    found.bus = BusOf(disk);
    if (udev_device* card = udev_device_get_parent_with_subsystem_devtype(disk, "mmc", nullptr)) {
        found.cardType = TextOrEmpty(udev_device_get_sysattr_value(card, "type"));
    }
    found.label = TextOrEmpty(udev_device_get_property_value(device, "ID_FS_LABEL"));
    found.removableAttribute = TextOrEmpty(udev_device_get_sysattr_value(disk, "removable")) == "1";
    found.isFlashCard = IsFlashCard(disk);
    found.isBuiltInFlash = HasFlag(disk, "ID_DRIVE_FLASH_MMC");
    found.isThumbDrive = HasFlag(disk, "ID_DRIVE_THUMB");
    found.isFloppy = HasFlag(disk, "ID_DRIVE_FLOPPY");
    found.isOptical = HasFlag(disk, "ID_CDROM") || found.kernelName.rfind("sr", 0) == 0;
    return found;
}

class HostMounts : public MountSource {
  public:
    HostMounts() : m_monitor(mnt_new_monitor()), m_udev(udev_new()) {
        if (m_monitor && mnt_monitor_enable_kernel(m_monitor.get(), 1) != 0) m_monitor.reset();
    }

    bool HasChanged() override {
        if (!m_monitor || !m_isRead) return m_isRead = true;
        pollfd state{mnt_monitor_get_fd(m_monitor.get()), POLLIN, 0};
        if (poll(&state, 1, 0) == 0) return false;
        bool changed = false;
        while (mnt_monitor_next_change(m_monitor.get(), nullptr, nullptr) == 0) changed = true;
        return changed;
    }

    std::vector<MountEntry> Entries() override {
        std::vector<MountEntry> entries;
        const Owned<libmnt_table> table(mnt_new_table());
        const Owned<libmnt_iter> iterator(mnt_new_iter(MNT_ITER_FORWARD));
        if (!table || !iterator || mnt_table_parse_mtab(table.get(), nullptr) != 0) return entries;
        libmnt_fs* entry = nullptr;
        while (mnt_table_next_fs(table.get(), iterator.get(), &entry) == 0) {
            entries.push_back(EntryOf(entry));
        }
        return entries;
    }

    DeviceProperties PropertiesOf(const MountEntry& entry) override {
        if (!m_udev || major(entry.device) == 0) return {};
        const Owned<udev_device> device(
            udev_device_new_from_devnum(m_udev.get(), 'b', entry.device));
        return device ? DescriptionOf(device.get()) : DeviceProperties{};
    }

  private:
    Owned<libmnt_monitor> m_monitor;
    Owned<udev> m_udev;
    bool m_isRead = false;
};

}  // namespace

std::unique_ptr<MountSource> MakeHostMounts() { return std::make_unique<HostMounts>(); }

}  // namespace tavel
