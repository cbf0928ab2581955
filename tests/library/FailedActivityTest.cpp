#include "core/Options.h"
#include "library/Adding.h"
#include "library/Folders.h"
#include "library/Groups.h"
#include "library/LibraryFile.h"
#include "library/LibraryFixture.h"
#include "library/Scan.h"
#include "platform/Failure.h"
#include "support/FaultyFileService.h"

#include <filesystem>

namespace tavel::test {
namespace {

// What the failure message says that the program was doing, for each thing that can fail in the
// library.
class FailedActivity : public LibraryTest {
  protected:
    ~FailedActivity() override { Service<FileService>::Use(nullptr); }

    std::string At(const std::string& name) const { return temp.DrivePath(name); }

    FaultyFileService files;
};

TEST_F(FailedActivity, Adding_names_the_file) {
    const std::string sPath = Write("empty.mp3", "");
    const auto expectNamed = [&](auto&& add) {
        EXPECT_EQ(FailedActivityOf(add), "Adding " + sPath);
        ReleaseCollections();
    };
    expectNamed([&] { AddFile(sPath); });
    expectNamed([&] { AddFiles({sPath, ""}); });
    expectNamed([&] { AddFiles({temp.DrivePath(""), "empty.mp3", ""}); });
    expectNamed([&] { AddFolder(temp.DrivePath(""), true, false, true, true); });
}

TEST_F(FailedActivity, Adding_names_a_file_without_an_extension) {
    Write("db.txt", "");
    std::filesystem::remove(temp.HostPath("db.txt"));
    const std::string sPath = Write("README", "x");
    EXPECT_EQ(FailedActivityOf([&] { AddFolder(temp.DrivePath(""), true, false, true, true); }),
              "Adding " + sPath);
}

TEST_F(FailedActivity, Adding_names_the_file_that_the_disk_could_not_give) {
    const std::string sPath = Write("a.mp3", "some bytes of a file");
    Service<FileService>::Use(&files);
    files.FailReadAfter("a.mp3", 0);
    EXPECT_EQ(FailedActivityOf([&] { AddFile(sPath); }), "Adding " + sPath);
}

TEST_F(FailedActivity, A_walk_names_the_folder_in_which_it_ends) {
    const std::string sInner = At("in\\ner");
    Write("in/ner/a.mp4", "x");
    Service<FileService>::Use(&files);
    files.FailOn("GetFolder " + sInner, failure::PermissionDenied);
    EXPECT_EQ(FailedActivityOf([&] { AddFolder(At("in"), true, false, true, true); }),
              "Scanning " + sInner);
}

TEST_F(FailedActivity, A_scan_names_the_watched_folder_that_has_gone) {
    Contain("[watch]\r\nnoofflds=1\r\n0=" + At("gone") + "\r\n");
    EXPECT_EQ(FailedActivityOf(BackgroundScan), "Scanning " + At("gone"));
}

TEST_F(FailedActivity, A_scan_without_a_count_names_the_section) {
    Contain("");
    EXPECT_EQ(FailedActivityOf(BackgroundScan), "Reading [watch] of " + sDBFile);
}

TEST_F(FailedActivity, Grouping_names_the_group) {
    Give(colMusic, "mu_a");
    MakeGroup({"mu_a"}, "One", mtPlaylist);
    EXPECT_EQ(FailedActivityOf([] { MakeGroup({"mu_a"}, "Two", mtPlaylist); }),
              "Making the group Two");
    EXPECT_EQ(FailedActivityOf([] { AddToGroup({"mu_x"}, "pl_"); }), "Adding to the group One");
}

TEST_F(FailedActivity, Deleting_names_the_file) {
    Give(colPhoto, "ph_a", At("none.jpg"));
    bool bDeleteFile = true;
    EXPECT_EQ(FailedActivityOf([&] { RemoveItem("ph_a", bDeleteFile); }),
              "Deleting " + At("none.jpg"));
}

TEST_F(FailedActivity, An_id_that_leads_nowhere_is_told_with_the_group) {
    Give(colMusic, "mu_a", At("a.mp3"));
    Give(colMusic, "mu_b", At("b.mp3"));
    const std::string sGroup = MakeGroup({"mu_a", "mu_a"}, "One", mtPlaylist);
    EXPECT_EQ(FailedActivityOf([] { AddToGroup({"mu_a"}, "pl_none"); }),
              "Adding to the group pl_none");
    EXPECT_EQ(FailedActivityOf([] { RemoveFromGroup("mu_a", "pl_none"); }),
              "Removing mu_a from the group pl_none");
    EXPECT_EQ(FailedActivityOf([&] { RemoveFromGroup("mu_x", sGroup); }),
              "Removing mu_x from the group One");
    EXPECT_EQ(FailedActivityOf([&] { RemoveFromGroup("mu_b", sGroup); }),
              "Removing " + At("b.mp3") + " from the group One");
    EXPECT_EQ(FailedActivityOf([&] { RemoveFromGroup("mu_a", sGroup); }),
              "Removing mu_a from the group One");
}

TEST_F(FailedActivity, Removing_names_the_file_or_the_group_or_at_least_the_id) {
    Give(colPhoto, "ph_a", At("a.jpg"));
    Give(colPhoto, "ph_b", At("b.jpg"));
    const std::string sAlbum = MakeGroup({"ph_a", "ph_b"}, "Summer", mtPhotoAlbum);
    MakeGroup({"ph_b"}, "Winter", mtPhotoAlbum);
    bool bDeleteFile = false;
    EXPECT_EQ(FailedActivityOf([&] { RemoveItem("ph_b", bDeleteFile); }),
              "Removing " + At("b.jpg") + " from the library");
    AddToGroup({"ph_b"}, sAlbum);
    EXPECT_EQ(FailedActivityOf([&] { RemoveItem(sAlbum, bDeleteFile); }),
              "Removing the group Summer from the library");
    EXPECT_EQ(FailedActivityOf([&] { RemoveItem("ph_x", bDeleteFile); }),
              "Removing ph_x from the library");
}

TEST_F(FailedActivity, Moving_into_the_library_folders_names_both_places) {
    sDefaultDBPath = At("library");
    Give(colPhoto, "ph_a", At("a.jpg")).sName = "Holiday";
    EXPECT_EQ(FailedActivityOf([] { MoveToDBFolder("ph_a"); }),
              "Moving " + At("a.jpg") + " to " + At("library\\Photos\\Holiday.jpg"));
}

TEST_F(FailedActivity, Loading_names_the_file_or_the_group_and_the_section) {
    const auto expectNamed = [&](const std::string& entry, const std::string& activity) {
        Contain("[DB]\r\nNoOfItems=2\r\n[1]\r\nID=x\r\nType=6\r\n[2]\r\nID=a\r\n" + entry);
        EXPECT_EQ(FailedActivityOf(LoadDB), activity + " from [2] of " + sDBFile);
        ReleaseCollections();
    };
    for (const std::string type : {"0", "3", "5"})
        expectNamed("Type=" + type + "\r\nName=a\r\nPath=C:\\a.x\r\nSize=many\r\n",
                    "Loading C:\\a.x");
    for (const std::string type : {"1", "2", "4", "8"})
        expectNamed("Type=" + type + "\r\nName=Summer\r\n", "Loading the group Summer");
}

TEST_F(FailedActivity, Loading_names_at_least_the_section) {
    Contain("[DB]\r\nNoOfItems=1\r\n[1]\r\nID=ph_a\r\nType=photo\r\nPath=C:\\a.jpg\r\n");
    EXPECT_EQ(FailedActivityOf(LoadDB), "Loading an entry from [1] of " + sDBFile);
}

TEST_F(FailedActivity, The_settings_name_what_was_to_be_read) {
    Contain("[options]\r\nbFirstTime=perhaps\r\n[musicsupport]\r\nno=1\r\n0=mp3\r\n");
    EXPECT_EQ(FailedActivityOf(LoadOptions), "Reading the options of " + sDBFile);
    EXPECT_EQ(FailedActivityOf(LoadSupportedExts), "Reading the list videosupport of " + sDBFile);
}

TEST_F(FailedActivity, Saving_names_the_file_or_the_group) {
    Contain("");
    Give(colVidSeries, "vs_a").sName = "Holidays";  // without a count
    EXPECT_EQ(FailedActivityOf(SaveDB), "Saving the group Holidays in " + sDBFile);
    Give(colPhoto, "ph_a", "C:\\a.jpg").iNoGroups = 1;  // which it doesn't have
    EXPECT_EQ(FailedActivityOf(SaveDB), "Saving C:\\a.jpg in " + sDBFile);
}

TEST_F(FailedActivity, Saving_more_entries_than_a_file_holds_names_the_library) {
    Contain("");
    for (int i = 0; i <= 32767; ++i) Give(colPlaylist, "pl_" + std::to_string(i));
    EXPECT_EQ(FailedActivityOf(SaveDB), "Saving the library in " + sDBFile);
}

TEST_F(FailedActivity, A_folder_that_cannot_be_made_leaves_nothing_for_a_later_failure) {
    Service<FileService>::Use(&files);
    files.FailOn("CreateFolder", failure::PermissionDenied);
    EXPECT_FALSE(MakeDBFolders(At("library")));
    EXPECT_EQ(FailedActivityOf([] { colPhoto.Item("none"); }), "");
}

}  // namespace
}  // namespace tavel::test
