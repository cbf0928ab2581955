#include "library/LibraryFixture.h"
#include "library/Scan.h"
#include "platform/Failure.h"
#include "support/FaultyFileService.h"

#include <gmock/gmock.h>

namespace tavel::test {
namespace {

using testing::Contains;
using testing::Not;

using AddWatchFoldersTest = LibraryTest;

TEST_F(AddWatchFoldersTest, Walks_the_folders_in_order_behind_the_window_without_a_yield) {
    const std::string sVideo = Write("two/b.mp4", "x");
    const std::string sPhoto = Write("one/sub/a.jpg", "x");
    Watch({"two", "one"});
    AddWatchFolders();
    EXPECT_EQ(windows.calls,
              (Calls{"frmAdd.Show", "Log NEW FILE: New File Found - " + sVideo,
                     "frmAdd.SetPath " + sVideo, "frmAdd.Repaint", "RefreshCats",
                     "Log NEW FILE: New File Found - " + sPhoto, "frmAdd.SetPath " + sPhoto,
                     "frmAdd.Repaint", "RefreshCats", "frmAdd.Unload"}));
}

TEST_F(AddWatchFoldersTest, Makes_groups_whatever_the_option_says) {
    Write("m/Trip/a.jpg", "x");
    Watch({"m"});
    bAutoGroup = false;
    AddWatchFolders();
    ASSERT_EQ(colMagazine.Count(), 1);
    EXPECT_EQ(colMagazine.Item(1).sName, "Trip");
}

TEST_F(AddWatchFoldersTest, Adds_everything_once_more_when_it_is_done_again) {
    Write("m/a.jpg", "x");
    Watch({"m"});
    AddWatchFolders();
    AddWatchFolders();
    EXPECT_EQ(colPhoto.Count(), 2);
    EXPECT_EQ(colMagazine.Count(), 2);
}

TEST_F(AddWatchFoldersTest, A_second_folder_of_music_fails_on_the_second_playlist) {
    Write("m/One/a.mp3", "x");
    Write("m/Two/b.mp3", "x");
    Watch({"m"});
    EXPECT_EQ(FailureOf(AddWatchFolders), failure::KeyAlreadyThere);
    EXPECT_THAT(windows.calls, Not(Contains("frmAdd.Unload")));
}

TEST_F(AddWatchFoldersTest, A_list_without_folders_fails_behind_the_window) {
    for (const char* text : {"", "[watch]\r\nnoofflds=-1\r\n", "[watch]\r\nnoofflds=none\r\n",
                             "[watch]\r\nnoofflds=0\r\n"}) {
        Contain(text);
        windows.calls.clear();
        EXPECT_EQ(FailureOf(AddWatchFolders), failure::SubscriptOutOfRange) << text;
        EXPECT_EQ(windows.calls, Calls{"frmAdd.Show"});
        EXPECT_EQ(FailedActivityOf(AddWatchFolders), "Reading [watch] of " + sDBFile) << text;
    }
}

TEST_F(AddWatchFoldersTest, A_folder_number_that_is_missing_is_walked_as_it_reads) {
    Contain("[watch]\r\nnoofflds=1\r\n");
    FaultyFileService files;
    Service<FileService>::Use(&files);
    EXPECT_EQ(FailureOf(AddWatchFolders), failure::PathNotFound);
    EXPECT_EQ(files.calls.back(), "GetFolder XYZXYZ");
    Service<FileService>::Use(nullptr);
}

}  // namespace
}  // namespace tavel::test
