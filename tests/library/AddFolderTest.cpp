#include "library/Adding.h"
#include "library/Groups.h"
#include "library/LibraryFixture.h"
#include "platform/Failure.h"
#include "support/FaultyFileService.h"

#include <filesystem>

namespace tavel::test {
namespace {

class AddFolderTest : public LibraryTest {
  protected:
    struct Flags {
        bool bRecurse = true;
        bool bMakeGroups = false;
        bool bOnlyNew = false;
        bool bNoYield = true;
    };

    void Add(const std::string& folder, Flags flags) const {
        AddFolder(temp.DrivePath(folder), flags.bRecurse, flags.bMakeGroups, flags.bOnlyNew,
                  flags.bNoYield);
    }

    // What one file that is added leaves on the list.
    void ExpectAdded(Calls& expected, const std::string& name, bool bYield) const {
        const std::string sPath = temp.DrivePath(name);
        if (bYield) expected.push_back("Yield");
        expected.push_back("Log NEW FILE: New File Found - " + sPath);
        expected.push_back("frmAdd.SetPath " + sPath);
        expected.push_back("frmAdd.Repaint");
    }

    Texts PhotoNames() const {
        Texts names;
        for (Long i = 1; i <= colPhoto.Count(); ++i) names.push_back(colPhoto.Item(i).sName);
        return names;
    }
};

TEST_F(AddFolderTest, Subfolders_come_before_the_folders_own_files) {
    Write("m/a.jpg", "x");
    Write("m/sub/b.jpg", "x");
    Write("m/sub/deep/c.jpg", "x");
    Write("m/zoo/d.jpg", "x");
    Add("m", {});
    Calls expected;
    for (const char* name : {"m\\sub\\deep\\c.jpg", "m\\sub\\b.jpg", "m\\zoo\\d.jpg", "m\\a.jpg"})
        ExpectAdded(expected, name, false);
    EXPECT_EQ(windows.calls, expected);
    EXPECT_EQ(PhotoNames(), (Texts{"c", "b", "d", "a"}));
}

TEST_F(AddFolderTest, Without_recursion_only_its_own_files_come) {
    Write("m/a.jpg", "x");
    Write("m/sub/b.jpg", "x");
    Add("m", {.bRecurse = false});
    EXPECT_EQ(PhotoNames(), Texts{"a"});
}

TEST_F(AddFolderTest, Hidden_subfolders_are_walked_too) {
    Write("m/.sub/a.jpg", "x");
    Hide(AsHostPath(temp.HostPath("m/.sub")));
    Add("m", {});
    EXPECT_EQ(PhotoNames(), Texts{"a"});
}

TEST_F(AddFolderTest, It_yields_after_each_subfolder_and_each_file) {
    Write("m/a.jpg", "x");
    Write("m/b.jpg", "x");
    Write("m/sub/c.jpg", "x");
    Write("m/empty/x.txt", "x");
    Add("m", {.bNoYield = false});
    Calls expected{"Yield"};  // the folder that holds nothing
    ExpectAdded(expected, "m\\sub\\c.jpg", true);
    expected.push_back("Yield");
    ExpectAdded(expected, "m\\a.jpg", true);
    ExpectAdded(expected, "m\\b.jpg", true);
    EXPECT_EQ(windows.calls, expected);
}

TEST_F(AddFolderTest, Only_new_passes_over_what_is_in_the_library) {
    const std::string sKnown = Write("m/a.jpg", "x");
    Write("m/b.jpg", "x");
    Give(colPhoto, "ph_a", sKnown);
    Add("m", {.bOnlyNew = true});
    Calls expected{"Yield", "Yield"};  // the two comparisons with the library
    ExpectAdded(expected, "m\\b.jpg", false);
    EXPECT_EQ(windows.calls, expected);
    Write("m/sub/c.jpg", "x");
    for (int walk = 1; walk <= 2; ++walk) Add("m", {.bOnlyNew = true});
    EXPECT_EQ(PhotoNames(), (Texts{"", "b", "c"}));
}

TEST_F(AddFolderTest, Without_only_new_every_file_gets_another_record) {
    Write("m/a.jpg", "x");
    Write("m/sub/b.jpg", "x");
    for (int walk = 1; walk <= 2; ++walk) Add("m", {});
    EXPECT_EQ(PhotoNames(), (Texts{"b", "a", "b", "a"}));
}

TEST_F(AddFolderTest, Unsupported_files_leave_no_trace) {
    Write("m/a.txt", "x");
    Add("m", {.bMakeGroups = true, .bNoYield = false});
    EXPECT_EQ(windows.calls, Calls{});
    EXPECT_EQ(colMagazine.Count(), 0);
}

TEST_F(AddFolderTest, A_leaf_folder_of_one_type_becomes_a_group_of_its_name) {
    Write("m/Pictures/a.jpg", "x");
    Write("m/Pictures/b.jpg", "x");
    Write("m/Pictures/notes.txt", "x");
    Write("m/Films/c.mp4", "x");
    Write("m/Songs/d.mp3", "x");
    Add("m", {.bMakeGroups = true});
    ASSERT_EQ(colMagazine.Count(), 1);
    EXPECT_EQ(colMagazine.Item(1).sName, "Pictures");
    EXPECT_EQ(MembersOf(colMagazine.Item(1)),
              (Texts{colPhoto.Item(1).sDBID, colPhoto.Item(2).sDBID}));
    EXPECT_EQ(colVidSeries.Item(1).sName, "Films");
    EXPECT_EQ(MembersOf(colVidSeries.Item(1)), Texts{colVideo.Item(1).sDBID});
    EXPECT_EQ(colPlaylist.Item("pl_").sName, "Songs");
    EXPECT_EQ(GroupsOf(colMusic.Item(1)), Texts{"pl_"});
}

TEST_F(AddFolderTest, The_group_is_made_after_the_files_and_before_a_last_yield) {
    Write("Trip1/a.jpg", "x");
    Add("Trip1", {.bMakeGroups = true, .bNoYield = false});
    Calls expected;
    ExpectAdded(expected, "Trip1\\a.jpg", true);
    expected.push_back("RefreshCats");
    expected.push_back("Yield");
    EXPECT_EQ(windows.calls, expected);
}

TEST_F(AddFolderTest, A_leaf_folder_of_two_types_adds_all_and_makes_no_group) {
    Write("mixed/a.jpg", "x");
    Write("mixed/b.mp3", "x");
    Write("mixed/c.jpg", "x");
    Add("mixed", {.bMakeGroups = true});
    EXPECT_EQ(colPhoto.Count(), 2);
    EXPECT_EQ(colMusic.Count(), 1);
    EXPECT_EQ(colMagazine.Count() + colPlaylist.Count(), 0);
}

TEST_F(AddFolderTest, A_hidden_file_counts_for_the_type_of_its_folder_and_a_known_one_does_not) {
    WriteHidden("hidden/.a.mp3");
    Write("hidden/b.jpg", "x");
    Add("hidden", {.bMakeGroups = true});
    EXPECT_EQ(colPhoto.Count(), 1);
    EXPECT_EQ(colMagazine.Count(), 0);
    Give(colMusic, "mu_a", Write("known/a.mp3", "x"));
    Write("known/b.jpg", "x");
    Add("known", {.bMakeGroups = true, .bOnlyNew = true});
    ASSERT_EQ(colMagazine.Count(), 1);
    EXPECT_EQ(MembersOf(colMagazine.Item(1)), Texts{colPhoto.Item(2).sDBID});
}

TEST_F(AddFolderTest, A_folder_with_subfolders_makes_no_group_of_its_own_files) {
    Write("m/a.jpg", "x");
    Write("m/sub/notes.txt", "x");
    for (const bool bRecurse : {true, false}) {
        Add("m", {.bRecurse = bRecurse, .bMakeGroups = true});
        EXPECT_EQ(colMagazine.Count(), 0);
    }
    EXPECT_EQ(colPhoto.Count(), 2);
}

TEST_F(AddFolderTest, Only_the_new_files_of_a_folder_go_into_its_next_group) {
    Write("Trip1/a.jpg", "x");
    Add("Trip1", {.bMakeGroups = true, .bOnlyNew = true});
    Write("Trip1/b.jpg", "x");
    Add("Trip1", {.bMakeGroups = true, .bOnlyNew = true});
    ASSERT_EQ(colMagazine.Count(), 2);
    EXPECT_EQ(colMagazine.Item(2).sName, "Trip1");
    EXPECT_EQ(MembersOf(colMagazine.Item(1)), Texts{colPhoto.Item(1).sDBID});
    EXPECT_EQ(MembersOf(colMagazine.Item(2)), Texts{colPhoto.Item(2).sDBID});
    Add("Trip1", {.bMakeGroups = true, .bOnlyNew = true});
    EXPECT_EQ(colMagazine.Count(), 2);
}

TEST_F(AddFolderTest, A_second_leaf_folder_of_music_fails_on_the_id_of_its_playlist) {
    Write("m/One/a.mp3", "x");
    Write("m/Two/b.mp3", "x");
    EXPECT_EQ(FailureOf([&] { Add("m", {.bMakeGroups = true}); }), failure::KeyAlreadyThere);
    EXPECT_EQ(colPlaylist.Item("pl_").sName, "One");
}

TEST_F(AddFolderTest, A_hidden_file_is_logged_at_every_walk_without_a_record) {
    WriteHidden("m/.a.jpg");
    for (int walk = 1; walk <= 2; ++walk) {
        windows.calls.clear();
        Add("m", {.bOnlyNew = true});
        Calls expected;
        ExpectAdded(expected, "m\\.a.jpg", false);
        EXPECT_EQ(windows.calls, expected);
    }
    EXPECT_EQ(colPhoto.Count(), 0);
}

TEST_F(AddFolderTest, A_hidden_file_at_the_head_of_a_group_gives_its_place_to_the_next) {
    WriteHidden("Trip1/.a.jpg");
    Write("Trip1/b.jpg", "x");
    Add("Trip1", {.bMakeGroups = true});
    EXPECT_EQ(MembersOf(colMagazine.Item(1)), Texts{colPhoto.Item(1).sDBID});
}

TEST_F(AddFolderTest, A_folder_of_hidden_files_alone_makes_no_group) {
    WriteHidden("Trip1/.a.jpg");
    Add("Trip1", {.bMakeGroups = true});
    EXPECT_EQ(colMagazine.Count(), 0);
}

TEST_F(AddFolderTest, A_hidden_file_further_back_fails_when_the_group_is_made) {
    Write("Trip1/!a.jpg", "x");  // sorts before a leading dot
    WriteHidden("Trip1/.b.jpg");
    EXPECT_EQ(FailureOf([&] { Add("Trip1", {.bMakeGroups = true}); }),
              failure::InvalidProcedureCall);
}

TEST_F(AddFolderTest, A_file_without_a_dot_stops_the_walk) {
    Write("m/README", "x");
    Write("m/z.jpg", "x");
    EXPECT_EQ(FailureOf([&] { Add("m", {.bOnlyNew = true}); }), failure::Overflow);
    EXPECT_EQ(FailureOf([&] { Add("m", {}); }), failure::Overflow);
    EXPECT_EQ(colPhoto.Count(), 0);
}

TEST_F(AddFolderTest, Cancelling_ends_the_folder_in_which_it_is_noticed_and_no_other) {
    Write("m/one/a.jpg", "x");
    Write("m/one/b.jpg", "x");
    Write("m/two/c.jpg", "x");
    Write("m/z.jpg", "x");
    windows.add.exitChecked = true;
    Add("m", {.bMakeGroups = true});
    Calls expected;
    ExpectAdded(expected, "m\\one\\a.jpg", false);
    expected.push_back("frmAdd.Unload");
    ExpectAdded(expected, "m\\two\\c.jpg", false);
    expected.push_back("RefreshCats");
    ExpectAdded(expected, "m\\z.jpg", false);
    EXPECT_EQ(windows.calls, expected);
    EXPECT_EQ(colMagazine.Count(), 1);
    EXPECT_EQ(colMagazine.Item(1).sName, "two");
}

TEST_F(AddFolderTest, Cancelling_is_not_noticed_at_files_that_are_passed_over) {
    Give(colPhoto, "ph_a", Write("m/a.jpg", "x"));
    Write("m/b.txt", "x");
    windows.add.exitChecked = true;
    Add("m", {.bOnlyNew = true});
    EXPECT_EQ(windows.calls, Calls{"Yield"});  // the comparison
    EXPECT_TRUE(windows.add.exitChecked);
}

TEST_F(AddFolderTest, Cancelling_leaves_what_was_added_without_a_group) {
    for (const char* name : {"m/a.jpg", "m/b.jpg", "m/c.jpg"}) Write(name, "x");
    windows.events.onYield = [&] { windows.add.exitChecked = colPhoto.Count() == 2; };
    Add("m", {.bMakeGroups = true, .bNoYield = false});
    EXPECT_EQ(PhotoNames(), (Texts{"a", "b"}));
    EXPECT_EQ(colMagazine.Count(), 0);
    EXPECT_EQ(windows.calls.back(), "frmAdd.Unload");
}

TEST_F(AddFolderTest, Without_yields_a_cancel_comes_in_at_a_comparison_alone) {
    windows.events.onYield = [&] { windows.add.exitChecked = true; };
    Write("first/a.jpg", "x");
    Add("first", {.bOnlyNew = true});  // nothing to compare with
    Calls expected;
    ExpectAdded(expected, "first\\a.jpg", false);
    EXPECT_EQ(windows.calls, expected);
    windows.calls.clear();
    Write("second/b.jpg", "x");
    Write("second/c.jpg", "x");
    Add("second", {.bOnlyNew = true});
    expected = {"Yield"};
    ExpectAdded(expected, "second\\b.jpg", false);
    expected.push_back("frmAdd.Unload");
    EXPECT_EQ(windows.calls, expected);
}

TEST_F(AddFolderTest, The_grouping_option_is_looked_at_anew_in_each_folder) {
    Write("m/one/a.jpg", "x");
    Write("m/two/b.jpg", "x");
    bAutoGroup = false;
    windows.events.onYield = [] { bAutoGroup = colPhoto.Count() == 1; };
    AddFolder(temp.DrivePath("m"), true, bAutoGroup, true, false);
    ASSERT_EQ(colMagazine.Count(), 1);
    EXPECT_EQ(colMagazine.Item(1).sName, "two");
}

TEST_F(AddFolderTest, Its_files_are_those_that_are_there_once_its_subfolders_are_done) {
    for (const bool bNoYield : {false, true}) {
        ReleaseCollections();
        Give(colPhoto, "ph_a");
        Write("m/gone.jpg", "x");
        std::filesystem::remove(temp.HostPath("m/new.jpg"));
        Write("m/sub/a.jpg", "x");
        windows.events.onYield = [&] {
            if (std::filesystem::remove(temp.HostPath("m/gone.jpg"))) Write("m/new.jpg", "x");
        };
        Add("m", {.bOnlyNew = true, .bNoYield = bNoYield});
        EXPECT_EQ(PhotoNames(), (Texts{"", "a", "new"}));
    }
}

TEST_F(AddFolderTest, A_record_removed_at_a_yield_fails_only_when_a_group_is_made) {
    windows.events.onYield = [] {
        bool bDeleteFile = false;
        RemoveItem(colPhoto.Item(1).sDBID, bDeleteFile);
    };
    Write("m/a.jpg", "x");
    Write("m/b.jpg", "x");
    Add("m", {.bNoYield = false});
    EXPECT_EQ(colPhoto.Count(), 0);
    EXPECT_EQ(FailureOf([&] { Add("m", {.bMakeGroups = true, .bNoYield = false}); }),
              failure::InvalidProcedureCall);
}

TEST_F(AddFolderTest, A_folder_that_is_missing_or_cannot_be_read_fails) {
    EXPECT_EQ(FailureOf([&] { Add("none", {}); }), failure::PathNotFound);
    FaultyFileService files;
    Service<FileService>::Use(&files);
    Write("m/sub/a.jpg", "x");
    files.FailOn("GetFolder " + temp.DrivePath("m\\sub"), failure::PermissionDenied);
    EXPECT_EQ(FailureOf([&] { Add("m", {}); }), failure::PermissionDenied);
    Service<FileService>::Use(nullptr);
}

TEST_F(AddFolderTest, A_subfolder_that_vanishes_during_the_walk_fails) {
    Write("m/sub/a.jpg", "x");
    Write("m/zoo/b.jpg", "x");
    windows.events.onYield = [&] { std::filesystem::remove_all(temp.HostPath("m/zoo")); };
    EXPECT_EQ(FailureOf([&] { Add("m", {.bNoYield = false}); }), failure::PathNotFound);
    EXPECT_EQ(PhotoNames(), Texts{"a"});
}

TEST_F(AddFolderTest, A_file_that_vanishes_during_the_walk_fails) {
    Write("m/a.jpg", "x");
    Write("m/b.jpg", "x");
    windows.events.onYield = [&] { std::filesystem::remove(temp.HostPath("m/b.jpg")); };
    EXPECT_EQ(FailureOf([&] { Add("m", {.bNoYield = false}); }), failure::FileNotFound);
}

}  // namespace
}  // namespace tavel::test
