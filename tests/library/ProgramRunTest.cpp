#include "core/Main.h"
#include "core/UsefulFunctions.h"
#include "core/modRegistry.h"
#include "library/Adding.h"
#include "library/Groups.h"
#include "library/LibraryFixture.h"
#include "library/MediaLibraryStore.h"
#include "platform/ProfileText.h"
#include "platform/Service.h"
#include "support/ProgramDB.h"

#include <filesystem>

namespace tavel::test {
namespace {

constexpr const char* Settings =
    "[options]\r\nbFirstTime=0\r\n[musicsupport]\r\nno=1\r\n0=mp3\r\n[videosupport]\r\nno=1\r\n"
    "0=mp4\r\n[photosupport]\r\nno=1\r\n0=bmp\r\n[watch]\r\nnoofflds=0\r\n";

constexpr const char* Library =
    "[DB]\r\nNoOfItems=1\r\n[1]\r\nID=ph_a\r\nName=a\r\nType=0\r\nPath=C:\\a.bmp\r\nFormat=bmp\r\n"
    "Size=9\r\nSizeW=640\r\nSizeH=480\r\nNoOfGroups=0\r\n";

// The program from its start to its end, over the real library.
class ProgramRun : public LibraryTest {
  protected:
    ProgramRun() { Service<LibraryStore>::Use(&store); }
    ~ProgramRun() override { Service<LibraryStore>::Use(nullptr); }

    MediaLibraryStore store;
};

TEST_F(ProgramRun, Starts_in_its_order_with_the_library_behind_the_splash) {
    const ProgramDB db(std::string(Settings) + Library);
    Main();
    EXPECT_EQ(windows.calls,
              (Calls{"InitCommonControls 8 512", "ShowSplash", "Log DB: DB Loaded", "UnloadSplash",
                     "ShowMain", "Log FORM: frmMain and frmLog Opened"}));
    EXPECT_EQ(colPhoto.Count(), 1);
}

TEST_F(ProgramRun, Ends_without_a_byte_changed_when_nothing_was_changed) {
    const ProgramDB db(std::string(Settings) + Library);
    const std::string before = db.Read();
    StartUp();
    windows.calls.clear();
    ShutDown();
    EXPECT_EQ(windows.calls, (Calls{"ShowEnd", "UnloadAllButMain", "EndProcess"}));
    EXPECT_EQ(db.Read(), before);
    EXPECT_EQ(colPhoto.Count(), 0);
    EXPECT_EQ(curPhoto, nullptr);
}

TEST_F(ProgramRun, Loses_a_change_of_groups_alone) {
    const ProgramDB db(std::string(Settings) + Library);
    const std::string before = db.Read();
    StartUp();
    const std::string sID = MakeGroup({"ph_a"}, "Summer", mtMagazine);
    Give(colPhoto, "ph_b");
    AddToGroup({"ph_b"}, sID);
    RemoveFromGroup("ph_a", sID);
    EXPECT_FALSE(bDBChanged);
    ShutDown();
    EXPECT_EQ(db.Read(), before);
}

TEST_F(ProgramRun, Ends_without_a_word_when_the_library_cannot_be_saved) {
    const ProgramDB db(std::string(Settings) + Library);
    const std::string before = db.Read();
    StartUp();
    Write("folder/file.txt", "kept");
    sDBFile = temp.DrivePath("folder");
    bDBChanged = true;
    windows.calls.clear();
    ShutDown();
    EXPECT_EQ(windows.calls, (Calls{"ShowEnd", "UnloadAllButMain", "EndProcess"}));
    EXPECT_EQ(temp.Read("folder/file.txt"), "kept");
    EXPECT_EQ(db.Read(), before);
}

TEST_F(ProgramRun, Saves_what_was_added_and_finds_it_again) {
    const ProgramDB db(std::string(Settings) + Library);
    StartUp();
    AddFiles({Write("new.bmp", Bitmap(30, 20)), ""});
    MakeGroup({"ph_a", colPhoto.Item(2).sDBID}, "Summer", mtPhotoAlbum);
    ShutDown();
    EXPECT_TRUE(bDBChanged) << "nothing can follow the save";
    EXPECT_EQ(db.Read().substr(0, std::string(Settings).size()), Settings);
    StartUp();
    ASSERT_EQ(colPhoto.Count(), 2);
    EXPECT_EQ(colPhoto.Item(1).iSizeW, 640);  // swapped by each load, saved in between
    EXPECT_EQ(colPhoto.Item(2).iSizeW, 20);   // by one
    ASSERT_EQ(colPhotoAlbum.Count(), 1);
    EXPECT_EQ(MembersOf(colPhotoAlbum.Item(1)), (Texts{"ph_a", colPhoto.Item(2).sDBID}));
    EXPECT_EQ(GroupsOf(colPhoto.Item(2)), Texts{colPhotoAlbum.Item(1).sDBID});
}

TEST_F(ProgramRun, Ends_as_if_a_save_that_fails_had_worked) {
    const ProgramDB db(std::string(Settings) + Library);
    StartUp();
    AddFiles({Write("new.bmp", Bitmap(30, 20)), ""});
    ASSERT_TRUE(bDBChanged);
    // A file this large is no profile, so that nothing can be put in its place.
    constexpr std::uintmax_t tooLarge = ProfileText::MaxSize + std::uintmax_t{1};
    const std::string path = oFSO().HostPath(sDBFile);
    std::filesystem::resize_file(path, tooLarge);
    windows.calls.clear();
    ShutDown();
    EXPECT_EQ(windows.calls, (Calls{"ShowEnd", "UnloadAllButMain", "EndProcess"}));
    EXPECT_EQ(std::filesystem::file_size(path), tooLarge);
}

TEST_F(ProgramRun, Scans_at_its_start_behind_the_wizard) {
    const std::string sFolder = temp.DrivePath("m");
    Write("m/a.bmp", Bitmap(1, 1));
    const ProgramDB db(
        "[options]\r\nbFirstTime=1\r\nbScanOnAppStart=1\r\n" +
        std::string(Settings).substr(std::string("[options]\r\nbFirstTime=0\r\n").size()));
    WriteValue(GetAppPath() + "db.txt", "watch", "noofflds", "s", "1");
    WriteValue(GetAppPath() + "db.txt", "watch", "0", "s", sFolder);
    StartUp();
    EXPECT_EQ(windows.calls[3], "ShowStartWizard");
    EXPECT_EQ(windows.calls[5], "tmrBack off");
    EXPECT_EQ(windows.calls.back(), "tmrBack on");
    EXPECT_EQ(colPhoto.Count(), 1);
}

}  // namespace
}  // namespace tavel::test
