#include "platform/OnEachDrive.h"
#include "support/linux/FoldersRead.h"
#include "support/linux/PlainUser.h"

#include <unistd.h>

#include <fstream>

// Whether a name is there without regard to case is told from memory where that is as good as
// looking.

namespace tavel::test {

namespace {

using FolderNames = OnEachDrive;
using FolderNamesOnC = HostDrives;

INSTANTIATE_TEST_SUITE_P(Drives, FolderNames, ::testing::Values('c', 'e'),
                         [](const auto& drive) { return std::string(1, drive.param); });

}  // namespace

TEST_P(FolderNames, Many_new_names_in_a_folder_cost_one_reading_of_it) {
    Put("a/source.jpg", "x");
    fs::create_directory(Host("b"));
    EXPECT_TRUE(files->FolderExists(At("b")));
    const auto number = [](int i) { return std::to_string(i) + ".jpg"; };
    const int before = FoldersRead();
    for (int i = 0; i < 30; ++i) {
        files->CreateTextFile(At("b\\made" + number(i)), false);
        files->CopyFile(At("a\\source.jpg"), At("b\\copied" + number(i)), false);
        files->MoveFile(At("b\\copied" + number(i)), At("b\\moved" + number(i)));
        EXPECT_FALSE(files->FileExists(At("b\\none" + number(i))));
        EXPECT_TRUE(files->FileExists(At("b\\MOVED" + number(i))));
        files->DeleteFile(At("b\\MADE" + number(i)), false);
    }
    EXPECT_LE(FoldersRead() - before, 1);
}

// The kernel keeps so many news and drops what comes later.
TEST_P(FolderNames, More_changes_than_the_kernel_keeps_are_seen_all_the_same) {
    int limit = 0;
    std::ifstream("/proc/sys/fs/inotify/max_queued_events") >> limit;
    if (limit == 0 || limit > 50'000) GTEST_SKIP() << "the kernel keeps " << limit << " changes";
    Put("A.txt", "x");
    EXPECT_TRUE(files->FileExists(At("a.TXT")));
    for (int i = 0; i <= limit / 2; ++i) {
        ASSERT_EQ(symlink("none", Host("link").c_str()), 0);
        ASSERT_EQ(unlink(Host("link").c_str()), 0);
    }
    fs::rename(Host("A.txt"), Host("B.txt"));
    EXPECT_FALSE(files->FileExists(At("a.TXT")));
    EXPECT_TRUE(files->FileExists(At("b.TXT")));
}

TEST_P(FolderNames, A_folder_that_could_not_be_read_is_looked_at_again) {
    Put("a/Photos/one.jpg", "x");
    fs::permissions(temp.HostPath(), fs::perms(0755));
    fs::permissions(Host("a"), fs::perms(0311));
    {
        const PlainUser user;
        EXPECT_FALSE(files->FolderExists(At("a\\photos")));
    }
    fs::permissions(Host("a"), fs::perms(0755));
    EXPECT_TRUE(files->FolderExists(At("a\\photos")));
}

// Such as a share of another machine, of whose changes this one's kernel tells nothing.
TEST_F(FolderNamesOnC, A_folder_that_the_kernel_cannot_speak_for_is_read_each_time) {
    const int before = FoldersRead();
    for (int i = 0; i < 3; ++i) EXPECT_FALSE(files->FileExists("c:\\proc\\self\\Nothing"));
    EXPECT_EQ(FoldersRead() - before, 3);
}

}  // namespace tavel::test
