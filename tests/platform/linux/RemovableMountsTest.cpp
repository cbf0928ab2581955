#include "support/linux/MountedDrives.h"

#include <gmock/gmock.h>
#include <sys/sysmacros.h>

namespace tavel::test {

namespace {

using ::testing::ElementsAre;

DeviceProperties Named(const char* kernelName) {
    DeviceProperties properties;
    properties.kernelName = kernelName;
    return properties;
}

DeviceProperties With(DeviceProperties properties, bool DeviceProperties::*flag) {
    properties.*flag = true;
    return properties;
}

DeviceProperties OnBus(const char* kernelName, const char* bus) {
    DeviceProperties properties = Named(kernelName);
    properties.bus = bus;
    return properties;
}

DeviceProperties Card(const char* kernelName, const char* type) {
    DeviceProperties properties = Named(kernelName);
    properties.cardType = type;
    return properties;
}

std::vector<std::string> Targets(MountTable& table) {
    std::vector<std::string> targets;
    for (const RemovableMount& mount : RemovableMounts(*MakeMountSource(table))) {
        targets.push_back(mount.entry.target + " " + mount.label);
    }
    return targets;
}

MountEntry At(const char* target, unsigned minorNumber) {
    MountEntry entry;
    entry.target = target;
    entry.device = makedev(8, minorNumber);
    return entry;
}

}  // namespace

TEST(RemovableMounts, The_bus_the_slot_and_the_attribute_tell_what_is_removable) {
    using P = DeviceProperties;
    struct Row {
        const char* what;
        P properties;
        bool isRemovable;
    };
    for (const Row& row : {
             Row{"a disk that nothing is known of", Named("sda"), false},
             Row{"an internal disk", OnBus("sda", "ata"), false},
             Row{"the attribute", With(OnBus("sda", "ata"), &P::removableAttribute), true},
             Row{"a USB stick", With(OnBus("sdb", "usb"), &P::removableAttribute), true},
             Row{"a USB hard disk, which lacks the attribute", OnBus("sdb", "usb"), true},
             Row{"a USB thumb drive", With(OnBus("sdb", "usb"), &P::isThumbDrive), true},
             Row{"a FireWire disk", OnBus("sdb", "ieee1394"), true},
             Row{"a memory stick", Named("msblk0"), true},
             Row{"a memory stick pro", Named("mspblk0"), true},
             Row{"an SD card without the attribute", Card("mmcblk0", "SD"), true},
             Row{"a card of unknown type", Named("mmcblk0"), true},
             Row{"soldered memory by its type", Card("mmcblk0", "MMC"), false},
             Row{"soldered memory by the database", With(Named("mmcblk0"), &P::isBuiltInFlash),
                 false},
             Row{"a card slot", With(OnBus("sdc", "ata"), &P::isFlashCard), true},
             Row{"a floppy", With(Named("fd0"), &P::isFloppy), true},
             Row{"a thumb drive off the USB",
                 With(With(Named("sdd"), &P::removableAttribute), &P::isThumbDrive), false},
             Row{"an optical drive",
                 With(With(OnBus("sr0", "usb"), &P::removableAttribute), &P::isOptical), false},
         }) {
        EXPECT_EQ(IsRemovable(row.properties), row.isRemovable) << row.what;
    }
}

TEST(RemovableMounts, Parts_of_the_running_system_are_no_sticks) {
    MountTable table;
    unsigned minorNumber = 0;
    for (const char* target : {"/", "/boot", "/boot/efi", "/home", "/usr", "/var", "/media/x"}) {
        table.mounts.emplace_back(At(target, ++minorNumber), OnBus("sdb", "usb"));
    }
    EXPECT_THAT(Targets(table), ElementsAre("/media/x x"));
}

TEST(RemovableMounts, The_label_is_the_file_systems_own_or_the_mount_folders_name) {
    MountTable table;
    table.mounts.emplace_back(At("/media/x", 1), OnBus("sdb", "usb"));
    table.mounts.emplace_back(At("/media/y", 2), OnBus("sdc", "usb"));
    table.mounts[0].second.label = "MY PSP";
    EXPECT_THAT(Targets(table), ElementsAre("/media/x MY PSP", "/media/y y"));
}

TEST(RemovableMounts, A_file_system_that_is_mounted_twice_is_one_drive) {
    MountTable table;
    table.mounts.emplace_back(At("/media/x", 1), OnBus("sdb", "usb"));
    table.mounts.emplace_back(At("/srv/x", 1), OnBus("sdb", "usb"));
    EXPECT_THAT(Targets(table), ElementsAre("/media/x x"));
}

TEST(RemovableMounts, What_is_mounted_over_hides_what_was_there) {
    MountTable table;
    table.mounts.emplace_back(At("/media/x", 1), OnBus("sdb", "usb"));
    table.mounts.emplace_back(At("/media/x", 2), OnBus("sda", "ata"));
    EXPECT_THAT(Targets(table), ElementsAre());
}

TEST(RemovableMounts, Pseudo_and_network_file_systems_are_passed_over) {
    MountTable table;
    table.mounts.emplace_back(At("/media/x", 1), OnBus("sdb", "usb"));
    table.mounts[0].first.isRegular = false;
    EXPECT_THAT(Targets(table), ElementsAre());
}

TEST(RemovableMounts, The_machines_own_table_can_be_read) {
    const std::unique_ptr<MountSource> source = MakeHostMounts();
    EXPECT_TRUE(source->HasChanged());
    EXPECT_FALSE(source->HasChanged());
    const std::vector<MountEntry> entries = source->Entries();
    const auto root = std::find_if(entries.begin(), entries.end(),
                                   [](const MountEntry& entry) { return entry.target == "/"; });
    ASSERT_NE(root, entries.end());
    EXPECT_FALSE(IsRemovable(source->PropertiesOf(MountEntry{})));
}

}  // namespace tavel::test
