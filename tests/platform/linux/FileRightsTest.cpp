#include "platform/OnEachDrive.h"
#include "support/linux/PlainUser.h"

#include <sys/stat.h>
#include <unistd.h>

// Owners, modes and links.

namespace tavel::test {

namespace {

class FileRights : public OnEachDrive {};

INSTANTIATE_TEST_SUITE_P(Drives, FileRights, ::testing::Values('c', 'e'),
                         [](const auto& drive) { return std::string(1, drive.param); });

}  // namespace

TEST_P(FileRights, Rights_are_those_of_another_file_where_both_are_there) {
    Put("a.bin", "x");
    Put("b.bin", "y");
    fs::permissions(Host("a.bin"), fs::perms(0640));
    const std::uintmax_t owner = geteuid() == 0 ? 65534 : geteuid();
    ASSERT_EQ(chown(Host("a.bin").c_str(), static_cast<uid_t>(owner), getegid()), 0);
    files->CopyRights(At("A.bin"), At("B.bin"));
    struct stat status {};
    ASSERT_EQ(stat(Host("b.bin").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0640u);
    EXPECT_EQ(status.st_uid, owner);
    EXPECT_EQ(Bytes("b.bin"), "y");
    files->CopyRights(At("none"), At("b.bin"));
    files->CopyRights(At("a.bin"), At("none\\b.bin"));
    ASSERT_EQ(stat(Host("b.bin").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0640u);
}

TEST_P(FileRights, What_the_user_has_no_rights_to_is_refused) {
    Put("closed/a.bin", "x");
    Put("shown/a.bin", "x");
    Put("a.bin", "x");
    fs::permissions(temp.HostPath(), fs::perms(0755));
    fs::permissions(Host("closed"), fs::perms(0));
    fs::permissions(Host("shown"), fs::perms(0555));
    {
        const PlainUser user;
        EXPECT_EQ(FailureOf([&] { files->GetFolder(At("closed")); }), 70);
        EXPECT_EQ(FailureOf([&] { files->GetFile(At("closed\\a.bin")); }), 70);
        EXPECT_FALSE(files->FileExists(At("closed\\a.bin")));
        EXPECT_EQ(FailureOf([&] { files->CreateFolder(At("shown\\b")); }), 70);
        EXPECT_EQ(FailureOf([&] { files->CreateTextFile(At("shown\\b"), true); }), 70);
        EXPECT_EQ(FailureOf([&] { files->DeleteFile(At("shown\\a.bin"), true); }), 70);
        EXPECT_EQ(FailureOf([&] { files->MoveFile(At("shown\\a.bin"), At("shown\\b")); }), 70);
        EXPECT_EQ(FailureOf([&] { files->CopyFile(At("a.bin"), At("shown\\b"), true); }), 70);
    }
    fs::permissions(Host("closed"), fs::perms(0700));
    EXPECT_EQ(Bytes("shown/a.bin"), "x");
}

TEST_P(FileRights, Links_of_a_name_are_removed_and_nothing_else) {
    Put("elsewhere/b.bin", "x");
    fs::create_symlink(Host("elsewhere"), Host("A"));
    fs::create_symlink(Host("none"), Host("a"));
    fs::create_symlink(Host("none"), Host("ab"));
    Put("c", "a file");
    for (const char* name : {"a", "c", "elsewhere", "d"}) files->DeleteLinks(root, name);
    files->DeleteLinks(At("none"), "a");
    EXPECT_FALSE(fs::is_symlink(Host("A")) || fs::is_symlink(Host("a")));
    EXPECT_TRUE(fs::is_symlink(Host("ab")));
    EXPECT_EQ(Bytes("elsewhere/b.bin"), "x");
    EXPECT_EQ(Bytes("c"), "a file");
}

TEST_P(FileRights, Links_in_a_folder_that_cannot_be_read_are_not_passed_over) {
    fs::create_directories(Host("closed"));
    fs::create_symlink(Host("none"), Host("closed/a"));
    fs::permissions(temp.HostPath(), fs::perms(0755));
    fs::permissions(Host("closed"), fs::perms(0333));
    Long failure = 0;
    {
        const PlainUser plain;
        failure = FailureOf([&] { files->DeleteLinks(At("closed"), "a"); });
    }
    fs::permissions(Host("closed"), fs::perms::all);
    EXPECT_EQ(failure, 70);
}

TEST_P(FileRights, MoveFile_leaves_a_link_to_nothing_where_it_is) {
    if (GetParam() != 'c') GTEST_SKIP() << "a stick has no links";
    Put("a.bin", "x");
    fs::create_symlink("nothing", Host("b.bin"));
    EXPECT_NE(FailureOf([&] { files->MoveFile(At("a.bin"), At("b.bin")); }), 0);
    EXPECT_TRUE(fs::is_symlink(Host("b.bin")));
    EXPECT_EQ(Bytes("a.bin"), "x");
}

}  // namespace tavel::test
