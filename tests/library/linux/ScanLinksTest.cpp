#include "library/ScanFixture.h"
#include "platform/Failure.h"
#include "support/linux/PlainUser.h"

#include <filesystem>
#include <vector>

// Watch folders with links in them, or that their user may not read.

namespace tavel::test {
namespace {

using ScanLinks = Scan;

TEST_F(ScanLinks, Names_that_differ_in_case_alone_are_those_of_two_files) {
    Write("m/a.jpg", "x");
    Watch({"m"});
    BackgroundScan();
    Write("m/A.JPG", "x");
    BackgroundScan();
    EXPECT_EQ(colPhoto.Count(), 2);
}

TEST_F(ScanLinks, A_watch_folder_that_cannot_be_read_fails) {
    Write("m/a.jpg", "x");
    Watch({"m"});
    std::filesystem::permissions(temp.HostPath(), std::filesystem::perms::all);
    std::filesystem::permissions(temp.HostPath("m"), std::filesystem::perms::none);
    {
        const PlainUser plain;
        EXPECT_EQ(FailureOf(BackgroundScan), failure::PermissionDenied);
    }
    std::filesystem::permissions(temp.HostPath("m"), std::filesystem::perms::all);
    EXPECT_EQ(colPhoto.Count(), 0);
}

TEST_F(ScanLinks, A_folder_is_walked_by_itself_and_by_a_link_and_never_round) {
    Write("m/one/a.jpg", "x");
    Write("m/two/b.jpg", "x");
    std::filesystem::create_directory_symlink(temp.HostPath("m"), temp.HostPath("m/one/up"));
    std::filesystem::create_directory_symlink(temp.HostPath("m/two"), temp.HostPath("m/one/two"));
    std::filesystem::create_directory_symlink(temp.HostPath("m/one"), temp.HostPath("m/two/one"));
    std::filesystem::create_directory_symlink(temp.HostPath("m/two"), temp.HostPath("m/two/self"));
    Watch({"m"});
    BackgroundScan();
    Texts found;
    for (Long i = 1; i <= colPhoto.Count(); ++i) found.push_back(colPhoto.Item(i).sPath());
    const std::string sStart = temp.DrivePath("m\\");
    EXPECT_EQ(found, (Texts{sStart + "one\\two\\b.jpg", sStart + "one\\a.jpg",
                            sStart + "two\\one\\a.jpg", sStart + "two\\b.jpg"}));
    BackgroundScan();
    EXPECT_EQ(colPhoto.Count(), static_cast<Long>(found.size()));
}

// On each way through them it would take hundreds of thousands of walks with ten of them.
TEST_F(ScanLinks,
       Folders_that_all_link_to_each_other_are_walked_once_themselves_and_once_by_a_link) {
    const std::vector<std::string> names{"one", "two", "three", "four", "five", "six", "seven"};
    for (const std::string& name : names) {
        Write("m/" + name + "/a.jpg", "x");
        for (const std::string& other : names) {
            if (other == name) continue;
            std::filesystem::create_directory_symlink(temp.HostPath("m/" + other),
                                                      temp.HostPath("m/" + name + "/" + other));
        }
    }
    Watch({"m"});
    BackgroundScan();
    EXPECT_EQ(colPhoto.Count(), 14);
    BackgroundScan();
    EXPECT_EQ(colPhoto.Count(), 14);
}

TEST_F(ScanLinks, Of_links_to_one_folder_the_first_is_followed_in_each_watched_folder) {
    Write("elsewhere/a.jpg", "x");
    for (const char* link : {"m/here", "m/there", "n/here"}) {
        std::filesystem::create_directories(
            temp.HostPath(link).substr(0, temp.HostPath("m").size()));
        std::filesystem::create_directory_symlink(temp.HostPath("elsewhere"), temp.HostPath(link));
    }
    Watch({"m", "n"});
    BackgroundScan();
    ASSERT_EQ(colPhoto.Count(), 2);
    EXPECT_EQ(colPhoto.Item(1).sPath(), temp.DrivePath("m\\here\\a.jpg"));
    EXPECT_EQ(colPhoto.Item(2).sPath(), temp.DrivePath("n\\here\\a.jpg"));
}

}  // namespace
}  // namespace tavel::test
