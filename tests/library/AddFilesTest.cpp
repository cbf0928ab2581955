#include "library/Adding.h"
#include "library/LibraryFixture.h"
#include "platform/Failure.h"

namespace tavel::test {
namespace {

class AddFilesTest : public LibraryTest {
  protected:
    // What frmAdd is asked while one path is added.
    void ExpectShown(Calls& expected, const std::string& sPath) const {
        expected.push_back("frmAdd.SetPath " + sPath);
        expected.push_back("frmAdd.Repaint");
    }
};

TEST_F(AddFilesTest, A_single_file_is_given_by_its_full_path) {
    const std::string sPath = Write("a.jpg", "x");
    AddFiles({sPath, ""});
    Calls expected{"frmAdd.Show"};
    ExpectShown(expected, sPath);
    expected.push_back("frmAdd.Unload");
    EXPECT_EQ(windows.calls, expected);
    EXPECT_EQ(colPhoto.Item(1).sPath(), sPath);
}

TEST_F(AddFilesTest, Several_files_are_given_by_their_folder_and_names) {
    const std::string sFirst = Write("a.jpg", "x");
    const std::string sSecond = Write("b.mp4", "x");
    AddFiles({temp.DrivePath(""), "a.jpg", "b.mp4"});
    Calls expected{"frmAdd.Show"};
    ExpectShown(expected, sFirst);
    ExpectShown(expected, sSecond);
    expected.push_back("frmAdd.Unload");
    EXPECT_EQ(windows.calls, expected);
    EXPECT_EQ(colPhoto.Item(1).sPath(), sFirst);
    EXPECT_EQ(colVideo.Item(1).sPath(), sSecond);
}

TEST_F(AddFilesTest, A_blank_entry_ends_the_list) {
    const std::string sFirst = Write("a.jpg", "x");
    Write("b.jpg", "x");
    AddFiles({temp.DrivePath(""), "a.jpg", "  ", "b.jpg"});
    EXPECT_EQ(colPhoto.Count(), 1);
    EXPECT_EQ(windows.calls.back(), "frmAdd.Unload");
    windows.calls.clear();
    AddFiles({temp.DrivePath(""), " ", "b.jpg"});
    EXPECT_EQ(colPhoto.Count(), 1);
    EXPECT_EQ(windows.calls, (Calls{"frmAdd.Show", "frmAdd.Unload"}));
}

TEST_F(AddFilesTest, An_entry_is_put_behind_its_folder_and_a_backslash_as_it_stands) {
    Write(" abcde.jpg", "x");
    AddFiles({temp.DrivePath("") + "\\", " abcde.jpg", ""});
    EXPECT_EQ(colPhoto.Item(1).sPath(), temp.DrivePath("") + "\\\\ abcde.jpg");
}

TEST_F(AddFilesTest, Unsupported_and_hidden_files_are_shown_and_passed_over_without_a_word) {
    Calls expected{"frmAdd.Show"};
    ExpectShown(expected, Write("a.txt", "x"));
    ExpectShown(expected, WriteHidden(".a.jpg"));
    ExpectShown(expected, Write("b.jpg", "x"));
    expected.push_back("frmAdd.Unload");
    AddFiles({temp.DrivePath(""), "a.txt", ".a.jpg", "b.jpg"});
    EXPECT_EQ(windows.calls, expected);
    EXPECT_EQ(colPhoto.Count(), 1);
    EXPECT_EQ(colPhoto.Item(1).sName, "b");
}

TEST_F(AddFilesTest, Cancelling_has_no_effect_and_nothing_is_yielded) {
    windows.add.exitChecked = true;
    Write("a.jpg", "x");
    Write("b.jpg", "x");
    AddFiles({temp.DrivePath(""), "a.jpg", "b.jpg"});
    EXPECT_EQ(colPhoto.Count(), 2);
    for (const std::string& call : windows.calls) EXPECT_NE(call, "Yield");
}

TEST_F(AddFilesTest, A_file_that_is_in_the_library_gets_a_second_record) {
    const std::string sPath = Write("a.jpg", "x");
    AddFiles({sPath, ""});
    AddFiles({sPath, ""});
    EXPECT_EQ(colPhoto.Count(), 2);
    EXPECT_NE(colPhoto.Item(1).sDBID, colPhoto.Item(2).sDBID);
}

TEST_F(AddFilesTest, A_list_of_less_than_two_entries_fails) {
    EXPECT_EQ(FailureOf([] { AddFiles({}); }), failure::SubscriptOutOfRange);
    EXPECT_EQ(FailureOf([] { AddFiles({"C:\\a.jpg"}); }), failure::SubscriptOutOfRange);
    EXPECT_EQ(windows.calls, (Calls{"frmAdd.Show", "frmAdd.Show"}));
}

TEST_F(AddFilesTest, A_file_that_has_gone_fails) {
    EXPECT_EQ(FailureOf([&] {
                  AddFiles({temp.DrivePath("none.jpg"), ""});
              }),
              failure::FileNotFound);
}

TEST_F(AddFilesTest, ShowInvalidFiles_lists_all_and_shows_the_window_last) {
    ShowInvalidFiles({"C:\\a.txt", "C:\\b.txt"});
    EXPECT_EQ(windows.calls, (Calls{"frmInvFiles.AddItem C:\\a.txt",
                                    "frmInvFiles.AddItem C:\\b.txt", "frmInvFiles.Show"}));
}

}  // namespace
}  // namespace tavel::test
