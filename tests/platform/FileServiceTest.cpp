#include "platform/OnEachDrive.h"
#include "support/LongPast.h"

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
    fs::last_write_time(Host("a.bin"), timeIn2004);
    files->CopyFile(At("a.bin"), At("b.bin"), true);
    EXPECT_EQ(Bytes("b.bin"), Bytes("a.bin"));
    EXPECT_EQ(fs::last_write_time(Host("b.bin")), timeIn2004);
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

}  // namespace tavel::test
