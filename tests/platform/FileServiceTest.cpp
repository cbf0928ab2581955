#include "platform/OnEachDrive.h"
#include "support/PlainUser.h"

#include <sys/stat.h>
#include <unistd.h>

namespace tavel::test {

namespace {

class FileOperations : public OnEachDrive {};

INSTANTIATE_TEST_SUITE_P(Drives, FileOperations, ::testing::Values('c', 'e'),
                         [](const auto& drive) { return std::string(1, drive.param); });

}  // namespace

TEST_P(FileOperations, CreateFolder_makes_one_level) {
    files->CreateFolder(At("psp\\"));
    EXPECT_TRUE(fs::is_directory(Host("psp")));
    files->CreateFolder(At("psp\\photo"));
    EXPECT_TRUE(fs::is_directory(Host("psp/photo")));
    EXPECT_EQ(FailureOf([&] { files->CreateFolder(At("PSP")); }), 58);
    EXPECT_EQ(FailureOf([&] { files->CreateFolder(At("none\\photo")); }), 76);
    Put("a.txt", "");
    EXPECT_EQ(FailureOf([&] { files->CreateFolder(At("a.txt")); }), 58);
    EXPECT_EQ(FailureOf([&] { files->CreateFolder(At("a.txt\\b")); }), 76);
}

TEST_P(FileOperations, CopyFile_copies_bytes_and_time) {
    Put("a.bin", std::string(3'000'000, 'x') + "end");
    fs::last_write_time(Host("a.bin"), fs::file_time_type{} + std::chrono::hours(1));
    files->CopyFile(At("a.bin"), At("b.bin"), true);
    EXPECT_EQ(Bytes("b.bin"), Bytes("a.bin"));
    EXPECT_EQ(fs::last_write_time(Host("b.bin")), fs::last_write_time(Host("a.bin")));
}

TEST_P(FileOperations, CopyFile_of_an_empty_file_makes_an_empty_file) {
    Put("a.bin", "");
    files->CopyFile(At("a.bin"), At("b.bin"), false);
    EXPECT_TRUE(Has("b.bin"));
}

TEST_P(FileOperations, CopyFile_overwrites_only_when_told_and_keeps_the_spelling) {
    Put("a.bin", "new");
    Put("B.BIN", "old and longer");
    EXPECT_EQ(FailureOf([&] { files->CopyFile(At("a.bin"), At("b.bin"), false); }), 58);
    EXPECT_EQ(Bytes("B.BIN"), "old and longer");
    files->CopyFile(At("a.bin"), At("b.bin"), true);
    EXPECT_EQ(Bytes("B.BIN"), "new");
    EXPECT_FALSE(Has("b.bin"));
}

TEST_P(FileOperations, CopyFile_fails_as_the_platform_does) {
    Put("a.bin", "x");
    Put("locked.bin", "x");
    fs::permissions(Host("locked.bin"), fs::perms::owner_read);
    fs::create_directory(Host("sub"));
    const auto copy = [&](const std::string& from, const std::string& to) {
        return FailureOf([&] { files->CopyFile(At(from), At(to), true); });
    };
    EXPECT_EQ(copy("none.bin", "b.bin"), 53);
    EXPECT_EQ(copy("none\\a.bin", "b.bin"), 76);
    EXPECT_EQ(copy("sub", "b.bin"), 53);
    EXPECT_EQ(copy("a.bin", "none\\b.bin"), 76);
    EXPECT_EQ(copy("a.bin", "none\\"), 76);
    EXPECT_EQ(copy("a.bin", "sub"), 70);
    EXPECT_EQ(copy("a.bin", "locked.bin"), 70);
    EXPECT_EQ(copy("a.bin", "a.bin"), 70);
    EXPECT_EQ(copy("a.bin", "A.BIN"), 70);
    EXPECT_EQ(copy("a.bin", "b?.bin"), 52);
    EXPECT_EQ(Bytes("a.bin"), "x");
}

TEST_P(FileOperations, A_target_that_ends_in_a_separator_is_the_folder_to_put_it_in) {
    Put("a.bin", "x");
    fs::create_directory(Host("sub"));
    files->CopyFile(At("a.bin"), At("sub\\"), true);
    EXPECT_EQ(Bytes("sub/a.bin"), "x");
    EXPECT_EQ(FailureOf([&] { files->MoveFile(At("a.bin"), At("sub\\")); }), 58);
    fs::remove(Host("sub/a.bin"));
    files->MoveFile(At("a.bin"), At("sub\\"));
    EXPECT_EQ(Bytes("sub/a.bin"), "x");
    EXPECT_FALSE(Has("a.bin"));
}

TEST_P(FileOperations, MoveFile_renames_and_refuses_a_target_that_is_there) {
    Put("a.bin", "x");
    Put("Taken.bin", "y");
    EXPECT_EQ(FailureOf([&] { files->MoveFile(At("a.bin"), At("taken.bin")); }), 58);
    files->MoveFile(At("a.bin"), At("b.bin"));
    EXPECT_FALSE(Has("a.bin"));
    EXPECT_EQ(Bytes("b.bin"), "x");
    EXPECT_EQ(FailureOf([&] { files->MoveFile(At("a.bin"), At("c.bin")); }), 53);
    EXPECT_EQ(FailureOf([&] { files->MoveFile(At("b.bin"), At("none\\c.bin")); }), 76);
    EXPECT_EQ(FailureOf([&] { files->MoveFile(At("b.bin"), At("none\\")); }), 76);
    EXPECT_EQ(FailureOf([&] { files->MoveFile(At("b.bin"), At("c\"d.bin")); }), 52);
    EXPECT_EQ(Bytes("b.bin"), "x");
}

TEST_P(FileOperations, MoveFile_leaves_a_link_to_nothing_where_it_is) {
    if (GetParam() != 'c') GTEST_SKIP() << "a stick has no links";
    Put("a.bin", "x");
    fs::create_symlink("nothing", Host("b.bin"));
    EXPECT_NE(FailureOf([&] { files->MoveFile(At("a.bin"), At("b.bin")); }), 0);
    EXPECT_TRUE(fs::is_symlink(Host("b.bin")));
    EXPECT_EQ(Bytes("a.bin"), "x");
}

TEST_P(FileOperations, MoveFile_refuses_the_file_itself_in_any_spelling) {
    Put("a.bin", "x");
    fs::create_hard_link(Host("a.bin"), Host("c.bin"));
    for (const char* target : {"a.bin", "A.Bin", "a.bin.", "c.bin", "C.BIN"})
        EXPECT_EQ(FailureOf([&] { files->MoveFile(At("a.bin"), At(target)); }), 58) << target;
    EXPECT_TRUE(Has("a.bin"));
    EXPECT_FALSE(Has("A.Bin"));
}

TEST_P(FileOperations, DeleteFile_spares_read_only_files_unless_forced) {
    Put("a.bin", "x");
    Put("locked.bin", "x");
    fs::permissions(Host("locked.bin"), fs::perms::owner_read);
    files->DeleteFile(At("A.BIN"), false);
    EXPECT_FALSE(Has("a.bin"));
    EXPECT_EQ(FailureOf([&] { files->DeleteFile(At("locked.bin"), false); }), 70);
    EXPECT_TRUE(Has("locked.bin"));
    files->DeleteFile(At("locked.bin"), true);
    EXPECT_FALSE(Has("locked.bin"));
    EXPECT_EQ(FailureOf([&] { files->DeleteFile(At("a.bin"), true); }), 53);
    EXPECT_EQ(FailureOf([&] { files->DeleteFile(At("none\\a.bin"), true); }), 76);
    fs::create_directory(Host("sub"));
    EXPECT_EQ(FailureOf([&] { files->DeleteFile(At("sub"), true); }), 53);
    EXPECT_TRUE(Has("sub"));
}

TEST_P(FileOperations, CreateTextFile_makes_an_empty_file) {
    files->CreateTextFile(At("TavelDataFile.tavel"), true);
    EXPECT_TRUE(Has("TavelDataFile.tavel"));
    temp.Write("card/TavelDataFile.tavel", "text");
    EXPECT_EQ(FailureOf([&] { files->CreateTextFile(At("taveldatafile.tavel"), false); }), 58);
    EXPECT_EQ(Bytes("TavelDataFile.tavel"), "text");
    files->CreateTextFile(At("taveldatafile.tavel"), true);
    EXPECT_EQ(Bytes("TavelDataFile.tavel"), "");
    EXPECT_FALSE(Has("taveldatafile.tavel"));
    EXPECT_EQ(FailureOf([&] { files->CreateTextFile(At("none\\a.txt"), true); }), 76);
}

TEST_P(FileOperations, Rights_are_those_of_another_file_where_both_are_there) {
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

TEST_P(FileOperations, What_the_user_has_no_rights_to_is_refused) {
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

TEST_P(FileOperations, Links_of_a_name_are_removed_and_nothing_else) {
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

TEST_P(FileOperations, Links_in_a_folder_that_cannot_be_read_are_not_passed_over) {
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

}  // namespace tavel::test
