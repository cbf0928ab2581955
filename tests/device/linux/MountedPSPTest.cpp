#include "core/PublicStuff.h"
#include "device/Browser.h"
#include "device/Discovery.h"
#include "device/Naming.h"
#include "library/Records.h"
#include "support/DeviceRecorders.h"
#include "support/linux/MountedDrives.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <vector>

// The poll over the letters that mounted sticks really have.

namespace tavel::test {

namespace {

using ::testing::ElementsAre;

class MountedPSP : public MountedDrives {
  protected:
    MountedPSP() {
        ResetPublicStuff();
        Service<FileService>::Use(files.get());
        temp.Write("stick/TavelDataFile.tavel", "[Data]\r\nPSPName=First\r\n");
        temp.Write("stick/PSP/PHOTO/Trip/a.jpg", "x");
        mounts.Mount(temp.HostPath("stick"), "FIRST");
    }
    ~MountedPSP() override { ResetPublicStuff(); }

    void Remount(const std::string& label) {
        mounts.Unmount(temp.HostPath("stick"));
        mounts.Mount(temp.HostPath("stick"), label);
    }

    Calls calls;
    DevicePanelsRecorder panels{calls};
    EventLoopRecorder events{calls};
};

}  // namespace

TEST_F(MountedPSP, Is_reached_after_another_stick_has_replaced_it_within_one_poll_period) {
    PollPSP();
    ASSERT_EQ(oPSPDrive->Path(), "d:");
    calls.clear();
    Remount("OTHER");
    PollPSP();
    EXPECT_THAT(calls, ElementsAre("Yield"));
    EXPECT_EQ(sPSPName, "First");
    EXPECT_TRUE(oFSO().FolderExists(PSPPath(PhotoFolder)));
    EXPECT_EQ(PSPPhotoFolders().size(), 1u);
}

TEST_F(MountedPSP, Is_found_anew_when_a_poll_has_missed_it) {
    PollPSP();
    mounts.Unmount(temp.HostPath("stick"));
    PollPSP();
    EXPECT_FALSE(bPSPConnected);
    mounts.Mount(temp.HostPath("stick"), "FIRST");
    PollPSP();
    EXPECT_TRUE(bPSPConnected);
    EXPECT_EQ(oPSPDrive->Path(), "e:");
    EXPECT_EQ(PSPPhotoFolders().size(), 1u);
}

TEST_F(MountedPSP, Shows_and_deletes_a_file_whose_path_no_profile_could_keep) {
    PollPSP();
    const std::string name(200, 'x');
    temp.Write("stick/PSP/PHOTO/" + name + "/" + name + ".jpg", "x");
    std::vector<PSPRow> rows;
    for (const FolderEntry& folder : PSPPhotoFolders()) ListPSPFiles(folder.Path, mtPhoto, rows);
    ASSERT_EQ(rows.size(), 2u);
    EXPECT_EQ(rows[1].sText, name);
    DeletePSPFile(rows[1], mtPhoto);
    EXPECT_FALSE(
        std::filesystem::exists(temp.HostPath("stick/PSP/PHOTO/" + name + "/" + name + ".jpg")));
}

}  // namespace tavel::test
