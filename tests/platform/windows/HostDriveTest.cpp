#include "platform/Failure.h"
#include "platform/windows/DriveSource.h"
#include "platform/windows/HostDrive.h"
#include "platform/windows/WindowsApi.h"
#include "support/HostDrives.h"

#include <gmock/gmock.h>

#include <algorithm>

// The machine's own drives. packaging/windows/test-engine gives Wine an e:, a removable drive with
// a folder for its medium, and an f: without one.

namespace tavel::test {

namespace {

bool IsUnderWine() {
    return ::GetProcAddress(::GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
}

class MachineDrives : public ::testing::Test {
  protected:
    void SetUp() override {
        if (!IsUnderWine()) GTEST_SKIP() << "this machine's drives are its owner's";
    }

    std::shared_ptr<DriveSource> drives = MakeHostDriveSource();
};

}  // namespace

TEST_F(MachineDrives, Are_listed_by_letter_with_and_without_a_medium) {
    std::string letters;
    for (const HostDriveEntry& entry : drives->Entries()) letters += entry.letter;
    EXPECT_THAT(letters, ::testing::AllOf(::testing::HasSubstr("c"), ::testing::HasSubstr("ef")));
    EXPECT_TRUE(std::is_sorted(letters.begin(), letters.end()));
    EXPECT_TRUE(drives->Has('e'));
    EXPECT_TRUE(drives->Has('f'));
    EXPECT_FALSE(drives->Has('q'));
}

TEST_F(MachineDrives, Have_the_hosts_own_types) {
    EXPECT_EQ(drives->Entry('c').driveType, DriveFixed);
    EXPECT_EQ(drives->Entry('c').root, "C:\\");
    EXPECT_EQ(drives->Entry('e').driveType, DriveRemovable);
    EXPECT_EQ(drives->Entry('f').driveType, DriveRemovable);
}

TEST_F(MachineDrives, Without_a_medium_are_not_ready) {
    EXPECT_TRUE(drives->HasMedium('c'));
    EXPECT_TRUE(drives->HasMedium('e'));
    EXPECT_FALSE(drives->HasMedium('f'));
    const HostDrive empty(drives->Entry('f'), drives);
    EXPECT_EQ(FailureOf([&] { (void)empty.TotalSize(); }), failure::DiskNotReady);
    EXPECT_EQ(FailureOf([&] { (void)empty.FreeSpace(); }), failure::DiskNotReady);
}

TEST_F(MachineDrives, Tell_their_label) {
    const std::vector<HostDriveEntry> entries = drives->Entries();
    const auto stick =
        std::find_if(entries.begin(), entries.end(),
                     [](const HostDriveEntry& entry) { return entry.letter == 'e'; });
    ASSERT_NE(stick, entries.end());
    EXPECT_EQ(stick->label, "STICK");
}

TEST_F(MachineDrives, Have_room_of_which_some_is_free) {
    const HostDrive fixed(drives->Entry('c'), drives);
    ULARGE_INTEGER total{};
    ASSERT_NE(::GetDiskFreeSpaceExW(L"C:\\", nullptr, &total, nullptr), 0);
    EXPECT_EQ(fixed.Path(), "c:");
    EXPECT_EQ(fixed.TotalSize(), static_cast<double>(total.QuadPart));
    EXPECT_GT(fixed.FreeSpace(), 0);
    EXPECT_LE(fixed.FreeSpace(), fixed.TotalSize());
}

using PulledDrives = HostDrives;

TEST_F(PulledDrives, A_drive_that_has_gone_tells_no_figures) {
    Link('e', "card");
    const std::shared_ptr<Drive> drive = files->GetDrive("e");
    EXPECT_GT(drive->TotalSize(), 0);
    Unlink('e');
    EXPECT_EQ(drive->Path(), "e:");
    EXPECT_EQ(FailureOf([&] { (void)drive->FreeSpace(); }), failure::DeviceUnavailable);
}

}  // namespace tavel::test
