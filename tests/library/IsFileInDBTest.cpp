#include "library/Adding.h"
#include "library/Groups.h"
#include "library/LibraryFixture.h"
#include "library/Scan.h"
#include "platform/Failure.h"

namespace tavel::test {
namespace {

class IsFileInDBTest : public LibraryTest {};

TEST_F(IsFileInDBTest, Looks_among_the_records_of_the_files_kind) {
    Give(colPhoto, "ph_a", "C:\\a.jpg");
    Give(colVideo, "vd_a", "C:\\a.mp4");
    Give(colMusic, "mu_a", "C:\\a.mp3");
    Give(colMusic, "mu_b", "C:\\b.jpg");
    EXPECT_TRUE(IsFileInDB("C:\\a.jpg"));
    EXPECT_TRUE(IsFileInDB("C:\\a.mp4"));
    EXPECT_TRUE(IsFileInDB("C:\\a.mp3"));
    EXPECT_FALSE(IsFileInDB("C:\\b.jpg"));
}

TEST_F(IsFileInDBTest, Compares_the_exact_text) {
    Give(colPhoto, "ph_a", "C:\\Pictures\\a.jpg");
    EXPECT_FALSE(IsFileInDB("C:\\pictures\\a.jpg"));
    EXPECT_FALSE(IsFileInDB("c:\\Pictures\\a.jpg"));
    EXPECT_FALSE(IsFileInDB("C:\\Pictures\\a.JPG"));
    EXPECT_TRUE(IsFileInDB("C:\\Pictures\\a.jpg"));
}

TEST_F(IsFileInDBTest, An_unsupported_file_is_in_no_library_and_yields_nothing) {
    Give(colPhoto, "ph_a", "C:\\a.txt");
    EXPECT_FALSE(IsFileInDB("C:\\a.txt"));
    EXPECT_EQ(windows.calls, Calls{});
}

TEST_F(IsFileInDBTest, A_path_without_a_dot_overflows) {
    EXPECT_EQ(FailureOf([] { IsFileInDB("C:\\README"); }), failure::Overflow);
}

TEST_F(IsFileInDBTest, Yields_only_while_there_is_something_to_compare_with) {
    IsFileInDB("C:\\a.jpg");
    EXPECT_EQ(windows.calls, Calls{});
    Give(colPhoto, "ph_a", "C:\\a.jpg");
    IsFileInDB("C:\\a.jpg");
    EXPECT_EQ(windows.calls, Calls{"Yield"});
}

TEST_F(IsFileInDBTest, Sees_what_came_and_went_since_the_last_look) {
    for (int i = 0; i < 3; ++i) {
        const std::string n = std::to_string(i);
        EXPECT_FALSE(IsFileInDB("C:\\" + n + ".jpg"));
        Give(colPhoto, "ph_" + n, "C:\\" + n + ".jpg");
        EXPECT_TRUE(IsFileInDB("C:\\" + n + ".jpg"));
    }
    bool bDeleteFile = false;
    RemoveItem("ph_1", bDeleteFile);
    EXPECT_TRUE(IsFileInDB("C:\\0.jpg"));
    EXPECT_FALSE(IsFileInDB("C:\\1.jpg"));
    Give(colPhoto, "ph_3", "C:\\1.jpg");
    EXPECT_TRUE(IsFileInDB("C:\\1.jpg"));
    ReleaseCollections();
    EXPECT_FALSE(IsFileInDB("C:\\0.jpg"));
}

TEST_F(IsFileInDBTest, One_of_two_records_with_a_path_is_enough) {
    Give(colPhoto, "ph_a", "C:\\a.jpg");
    Give(colPhoto, "ph_b", "C:\\a.jpg");
    bool bDeleteFile = false;
    RemoveItem("ph_a", bDeleteFile);
    EXPECT_TRUE(IsFileInDB("C:\\a.jpg"));
}

TEST_F(IsFileInDBTest, Answers_for_the_library_as_it_was_before_the_yield) {
    Give(colPhoto, "ph_a", "C:\\a.jpg");
    windows.events.onYield = [] {
        if (colPhoto.Count() == 1) Give(colPhoto, "ph_b", "C:\\b.jpg");
    };
    EXPECT_FALSE(IsFileInDB("C:\\b.jpg"));
    EXPECT_TRUE(IsFileInDB("C:\\b.jpg"));
}

TEST_F(IsFileInDBTest, A_library_that_shrinks_while_it_yields_fails) {
    Give(colPhoto, "ph_a", "C:\\a.jpg");
    Give(colPhoto, "ph_b", "C:\\b.jpg");
    windows.events.onYield = [] { RemoveRecord(mtPhoto, "ph_a"); };
    EXPECT_EQ(FailureOf([] { IsFileInDB("C:\\c.jpg"); }), failure::SubscriptOutOfRange);
}

// The walk ends at the count that it began with, whichever records make it up by then.
TEST_F(IsFileInDBTest,
       A_library_in_which_one_goes_and_another_comes_while_it_yields_does_not_fail) {
    Give(colPhoto, "ph_a", "C:\\a.jpg");
    Give(colPhoto, "ph_b", "C:\\b.jpg");
    windows.events.onYield = [] {
        if (!colPhoto.Has("ph_a")) return;
        RemoveRecord(mtPhoto, "ph_a");
        Give(colPhoto, "ph_c", "C:\\c.jpg");
    };
    EXPECT_TRUE(IsFileInDB("C:\\a.jpg"));
    EXPECT_FALSE(IsFileInDB("C:\\a.jpg"));
    EXPECT_TRUE(IsFileInDB("C:\\b.jpg"));
    EXPECT_TRUE(IsFileInDB("C:\\c.jpg"));
}

TEST_F(IsFileInDBTest, A_library_in_which_two_go_and_one_comes_while_it_yields_fails) {
    Give(colPhoto, "ph_a", "C:\\a.jpg");
    Give(colPhoto, "ph_b", "C:\\b.jpg");
    windows.events.onYield = [] {
        RemoveRecord(mtPhoto, "ph_a");
        RemoveRecord(mtPhoto, "ph_b");
        Give(colPhoto, "ph_c", "C:\\c.jpg");
    };
    EXPECT_EQ(FailureOf([] { IsFileInDB("C:\\a.jpg"); }), failure::SubscriptOutOfRange);
}

TEST_F(IsFileInDBTest, The_only_record_may_go_behind_the_only_comparison) {
    Give(colPhoto, "ph_a", "C:\\a.jpg");
    windows.events.onYield = [] { RemoveRecord(mtPhoto, "ph_a"); };
    EXPECT_TRUE(IsFileInDB("C:\\a.jpg"));
}

TEST_F(IsFileInDBTest, Another_collection_may_shrink) {
    Give(colPhoto, "ph_a", "C:\\a.jpg");
    Give(colPhoto, "ph_b", "C:\\b.jpg");
    Give(colMusic, "mu_a", "C:\\a.mp3");
    windows.events.onYield = [] { colMusic.Clear(); };
    EXPECT_TRUE(IsFileInDB("C:\\a.jpg"));
}

}  // namespace
}  // namespace tavel::test
