#include "platform/OnEachDrive.h"
#include "platform/Text.h"
#include "support/FileSizeLimit.h"
#include "support/PlainUser.h"

#include <gmock/gmock.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <map>

namespace tavel::test {

namespace {

using ::testing::MatchesRegex;

class FileOperations : public OnEachDrive {
  protected:
    // By what TMPDIR is set to, or without it.
    std::string TempFolderWith(const char* value) {
        const char* const found = getenv("TMPDIR");
        const std::string before = found != nullptr ? found : "";
        if (value != nullptr) {
            setenv("TMPDIR", value, 1);
        } else {
            unsetenv("TMPDIR");
        }
        std::string folder = files->GetTempFolder();
        if (found != nullptr) {
            setenv("TMPDIR", before.c_str(), 1);
        } else {
            unsetenv("TMPDIR");
        }
        return folder;
    }
};

INSTANTIATE_TEST_SUITE_P(Drives, FileOperations, ::testing::Values('c', 'e'),
                         [](const auto& drive) { return std::string(1, drive.param); });

}  // namespace

TEST_P(FileOperations, Exist_tests_tell_files_from_folders) {
    Put("psp/a.jpg", "x");
    EXPECT_TRUE(files->FileExists(At("psp\\a.jpg")));
    EXPECT_FALSE(files->FileExists(At("psp")));
    EXPECT_FALSE(files->FileExists(At("psp\\a.jpg\\")));
    EXPECT_FALSE(files->FileExists(At("psp\\b.jpg")));
    EXPECT_FALSE(files->FileExists(At("none\\a.jpg")));
    EXPECT_FALSE(files->FileExists(""));
    EXPECT_FALSE(files->FileExists(std::string("c:\\\0x", 5)));
    EXPECT_TRUE(files->FolderExists(At("psp")));
    EXPECT_TRUE(files->FolderExists(At("psp\\")));
    EXPECT_TRUE(files->FolderExists(root + "\\"));
    EXPECT_FALSE(files->FolderExists(At("psp\\a.jpg")));
    EXPECT_FALSE(files->FolderExists(At("psp\\a.jpg\\x")));
    EXPECT_FALSE(files->FolderExists(""));
}

TEST_P(FileOperations, GetFile_tells_path_name_size_and_hidden) {
    Put("psp/.a.jpg", "12345");
    const FileEntry entry = files->GetFile(At("psp\\.a.jpg"));
    EXPECT_EQ(entry.Path, At("psp\\.a.jpg"));
    EXPECT_EQ(entry.Name, ".a.jpg");
    EXPECT_EQ(entry.Size, 5);
    EXPECT_TRUE(entry.Hidden);
    Put("b.jpg", "");
    EXPECT_FALSE(files->GetFile(At("b.jpg")).Hidden);
    EXPECT_EQ(FailureOf([&] { files->GetFile(At("none.jpg")); }), 53);
    EXPECT_EQ(FailureOf([&] { files->GetFile(At("none\\b.jpg")); }), 53);
    EXPECT_EQ(FailureOf([&] { files->GetFile(At("psp")); }), 53);
}

TEST_P(FileOperations, GetFile_tells_sizes_beyond_32_bits) {
    Put("big.avi", "");
    fs::resize_file(Host("big.avi"), std::uintmax_t{5} << 30);
    EXPECT_EQ(files->GetFile(At("big.avi")).Size, std::int64_t{5} << 30);
}

TEST_P(FileOperations, GetFolder_lists_by_name_without_regard_to_case) {
    for (const char* name : {"b.jpg", "A.jpg", "c.JPG", "a.jpg", ".h.jpg"}) Put(name, name);
    for (const char* name : {"zoo", "Album", "album"}) fs::create_directory(Host(name));
    const FolderContents contents = files->GetFolder(root + "\\");
    std::vector<std::string> names;
    for (const FileEntry& file : contents.Files) {
        names.push_back(file.Name);
        EXPECT_EQ(file.Path, At(file.Name));
        EXPECT_EQ(file.Size, static_cast<std::int64_t>(file.Name.size()));
        EXPECT_EQ(file.Hidden, file.Name == ".h.jpg");
    }
    EXPECT_EQ(names, (std::vector<std::string>{".h.jpg", "A.jpg", "a.jpg", "b.jpg", "c.JPG"}));
    names.clear();
    for (const FolderEntry& folder : contents.SubFolders) {
        names.push_back(folder.Name);
        EXPECT_EQ(folder.Path, At(folder.Name));
    }
    EXPECT_EQ(names, (std::vector<std::string>{"Album", "album", "zoo"}));
}

TEST_P(FileOperations, GetFolder_names_the_folder_as_it_was_asked_for) {
    fs::create_directories(Host("PSP/MUSIC/Rock"));
    const FolderContents contents = files->GetFolder(At("psp\\music\\"));
    EXPECT_EQ(contents.Folder.Path, At("psp\\music"));
    EXPECT_EQ(contents.Folder.Name, "music");
    ASSERT_EQ(contents.SubFolders.size(), 1u);
    EXPECT_EQ(contents.SubFolders[0].Path, At("psp\\music\\Rock"));
    EXPECT_TRUE(files->FolderExists(contents.SubFolders[0].Path));
}

TEST_P(FileOperations, GetFolder_passes_over_what_is_neither_file_nor_folder) {
    ASSERT_EQ(mkfifo(Host("pipe.jpg").c_str(), 0600), 0);
    fs::create_symlink(Host("none"), Host("dangling.jpg"));
    Put("back\\slash.jpg", "x");
    Put("a.jpg", "x");
    const FolderContents contents = files->GetFolder(root + "\\");
    ASSERT_EQ(contents.Files.size(), 1u);
    EXPECT_EQ(contents.Files[0].Name, "a.jpg");
    EXPECT_TRUE(contents.SubFolders.empty());
    EXPECT_FALSE(files->FileExists(At("pipe.jpg")));
}

TEST_P(FileOperations, GetFolder_tells_links_to_one_folder_alike) {
    for (const char* name : {"one", "two"}) fs::create_directory(temp.HostPath(name));
    fs::create_directory(Host("real"));
    fs::create_directory_symlink(temp.HostPath("one"), Host("a"));
    fs::create_directory_symlink(temp.HostPath("one"), Host("b"));
    fs::create_directory_symlink(temp.HostPath("two"), Host("c"));
    std::map<std::string, std::string> linkedTo;
    for (const FolderEntry& folder : files->GetFolder(root + "\\").SubFolders)
        linkedTo[folder.Name] = folder.LinkedTo;
    EXPECT_TRUE(linkedTo.contains("real"));
    EXPECT_EQ(linkedTo["real"], "");
    const bool isFollowed = At("").front() == 'c';
    EXPECT_EQ(linkedTo.size(), isFollowed ? 4u : 1u);
    if (!isFollowed) return;
    EXPECT_NE(linkedTo["a"], "");
    EXPECT_EQ(linkedTo["a"], linkedTo["b"]);
    EXPECT_NE(linkedTo["a"], linkedTo["c"]);
}

// A path of so many characters, letters of two bytes in its names.
TEST_P(FileOperations, GetFolder_passes_over_paths_of_more_than_254_characters_on_c_alone) {
    const auto letters = [](std::size_t count) {
        std::string text;
        while (count-- > 0) text += "\u0436";
        return text;
    };
    const std::string middle = letters((245 - CharacterCount(At(""))) / 2);
    const std::string folder = At(middle + "\\" + middle);
    fs::create_directories(Host(middle + "/" + middle));
    const std::size_t left = 254 - CharacterCount(folder) - 1;
    ASSERT_GE(left, 2u);
    const std::string fits = letters(left - 1) + "a";
    for (const std::string& name : {fits, fits + "b", letters(left - 1) + "\xff", fits + "\xff"})
        Put(middle + "/" + middle + "/" + name, "x");
    fs::create_directory(Host(middle + "/" + middle + "/" + letters(left)));
    fs::create_directory(Host(middle + "/" + middle + "/" + letters(left + 1)));
    const FolderContents contents = files->GetFolder(folder);
    if (At("").front() != 'c') {
        EXPECT_EQ(contents.Files.size(), 4u);
        EXPECT_EQ(contents.SubFolders.size(), 2u);
        return;
    }
    ASSERT_EQ(contents.Files.size(), 2u);
    EXPECT_EQ(contents.Files[0].Name, fits);
    EXPECT_EQ(contents.Files[1].Name, letters(left - 1) + "\xff");
    ASSERT_EQ(contents.SubFolders.size(), 1u);
    EXPECT_EQ(CharacterCount(contents.SubFolders[0].Path), MaxPathCharacters);
    EXPECT_FALSE(IsPathTooLong(contents.SubFolders[0].Path));
    EXPECT_TRUE(IsPathTooLong(contents.SubFolders[0].Path + "a"));
}

TEST_P(FileOperations, GetFolder_of_what_is_no_folder_fails) {
    Put("a.jpg", "x");
    EXPECT_EQ(FailureOf([&] { files->GetFolder(At("none")); }), 76);
    EXPECT_EQ(FailureOf([&] { files->GetFolder(At("a.jpg")); }), 76);
    EXPECT_EQ(FailureOf([&] { files->GetFolder(""); }), 76);
}

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

TEST_P(FileOperations, Raw_files_write_and_read_bytes) {
    Long error = -1;
    std::size_t count = 0;
    {
        const auto file = files->OpenRaw(At("a.bin"), RawMode::Create, error);
        ASSERT_TRUE(file);
        EXPECT_EQ(error, 0);
        EXPECT_TRUE(file->Write(std::string("\0one\r\n", 6), count));
        EXPECT_EQ(count, 6u);
        EXPECT_TRUE(file->Write({}, count));
        EXPECT_EQ(count, 0u);
        EXPECT_TRUE(file->Close());
    }
    const auto file = files->OpenRaw(At("a.bin"), RawMode::Read, error);
    ASSERT_TRUE(file);
    EXPECT_EQ(file->Size(), 6);
    std::string buffer(4, '?');
    EXPECT_TRUE(file->Read(buffer, count));
    EXPECT_EQ(buffer, std::string("\0one", 4));
    EXPECT_TRUE(file->Read(buffer, count));
    EXPECT_EQ(count, 2u);
    EXPECT_TRUE(file->Read(buffer, count));
    EXPECT_EQ(count, 0u);
    EXPECT_TRUE(file->Seek(1));
    EXPECT_FALSE(file->Seek(-1));
    EXPECT_TRUE(file->Read(buffer, count));
    EXPECT_EQ(buffer, "one\r");
    EXPECT_FALSE(file->Write(buffer, count));
    EXPECT_TRUE(file->Close());
}

TEST_P(FileOperations, A_raw_file_open_for_both_is_kept_and_changed_in_place) {
    Put("A.bin", "0123456789");
    Long error = -1;
    std::size_t count = 0;
    const auto file = files->OpenRaw(At("a.bin"), RawMode::ReadWrite, error);
    ASSERT_TRUE(file);
    EXPECT_EQ(error, 0);
    std::string buffer(4, '?');
    EXPECT_TRUE(file->Read(buffer, count));
    EXPECT_EQ(buffer, "0123");
    EXPECT_TRUE(file->Seek(2));
    EXPECT_TRUE(file->Write(std::string("abc"), count));
    EXPECT_EQ(file->Size(), 10);
    EXPECT_TRUE(file->Close());
    EXPECT_EQ(Bytes("A.bin"), "01abc56789");
}

TEST_P(FileOperations, A_file_open_for_both_keeps_writers_out_and_waits_for_readers) {
    Put("a.bin", "x");
    fs::create_hard_link(Host("a.bin"), Host("b.bin"));
    Long error = 0;
    {
        const auto file = files->OpenRaw(At("a.bin"), RawMode::ReadWrite, error);
        ASSERT_TRUE(file);
        for (const RawMode mode : {RawMode::ReadWrite, RawMode::Create}) {
            EXPECT_FALSE(files->OpenRaw(At("b.bin"), mode, error));
            EXPECT_EQ(error, 70);
        }
        EXPECT_EQ(FailureOf([&] { files->DeleteFile(At("a.bin"), true); }), 70);
    }
    const auto reader = files->OpenRaw(At("a.bin"), RawMode::Read, error);
    EXPECT_FALSE(files->OpenRaw(At("b.bin"), RawMode::ReadWrite, error));
    EXPECT_EQ(error, 70);
    EXPECT_TRUE(reader->Close());
    EXPECT_TRUE(files->OpenRaw(At("b.bin"), RawMode::ReadWrite, error));
    EXPECT_EQ(Bytes("a.bin"), "x");
}

TEST_P(FileOperations, Temporary_files_are_new_empty_and_the_users_own) {
    fs::create_directory(Host("temp"));
    const std::string one = files->CreateTempFile(At("TEMP"), "");
    const std::string two = files->CreateTempFile(At("TEMP\\"), "tag");
    EXPECT_THAT(one, MatchesRegex(".*\\\\TEMP\\\\[0-9a-f]{8}\\.tmp"));
    EXPECT_THAT(two, MatchesRegex(".*\\\\TEMP\\\\tag[0-9a-f]{8}\\.tmp"));
    for (const std::string& path : {one, two}) {
        EXPECT_EQ(files->GetFile(path).Size, 0);
        struct stat status {};
        ASSERT_EQ(stat(files->HostPath(path).c_str(), &status), 0);
        EXPECT_EQ(status.st_mode & 0777, 0600u);
    }
    EXPECT_EQ(FailureOf([&] { files->CreateTempFile(At("none"), ""); }), 76);
    EXPECT_EQ(FailureOf([&] { files->CreateTempFile(At("temp"), "a?"); }), 52);
    EXPECT_EQ(FailureOf([&] { files->CreateTempFile(At("temp"), "a/b"); }), 52);
    fs::permissions(temp.HostPath(), fs::perms(0755));
    fs::permissions(Host("temp"), fs::perms(0555));
    const PlainUser user;
    EXPECT_EQ(FailureOf([&] { files->CreateTempFile(At("temp"), ""); }), 70);
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

TEST_P(FileOperations, The_folder_for_temporary_files_is_the_users_or_the_hosts) {
    fs::create_directory(temp.HostPath("temp"));
    Put("file", "x");
    EXPECT_EQ(TempFolderWith(temp.HostPath("temp").c_str()), temp.DrivePath("temp"));
    EXPECT_EQ(TempFolderWith(Host("").c_str()), "e:\\");
    for (const char* other : {"", "relative", "/none/such"})
        EXPECT_EQ(TempFolderWith(other), "c:\\tmp") << other;
    EXPECT_EQ(TempFolderWith(Host("file").c_str()), "c:\\tmp");
    EXPECT_EQ(TempFolderWith(nullptr), "c:\\tmp");
}

TEST_P(FileOperations, A_file_being_written_tells_its_size_and_place) {
    Long error = 0;
    std::size_t count = 0;
    const auto file = files->OpenRaw(At("a.bin"), RawMode::Create, error);
    ASSERT_TRUE(file);
    for (int i = 0; i < 1000; ++i) EXPECT_TRUE(file->Write(std::string(1024, 'x'), count));
    EXPECT_EQ(file->Size(), 1'024'000);
    EXPECT_TRUE(file->Write(std::string("tail"), count));
    EXPECT_TRUE(file->Seek(0));
    EXPECT_TRUE(file->Write(std::string("head"), count));
    EXPECT_TRUE(file->Write(std::string(600'000, 'y'), count));
    EXPECT_TRUE(file->Close());
    EXPECT_TRUE(file->Close());
    EXPECT_TRUE(Bytes("a.bin") == "head" + std::string(600'000, 'y') +
                                      std::string(1'024'000 - 600'004, 'x') + "tail");
}

TEST_P(FileOperations, A_file_open_for_reading_shares_reads_alone) {
    Put("a.bin", "x");
    fs::create_hard_link(Host("a.bin"), Host("b.bin"));
    Long error = 0;
    const auto file = files->OpenRaw(At("a.bin"), RawMode::Read, error);
    ASSERT_TRUE(file);
    EXPECT_TRUE(files->OpenRaw(At("A.BIN"), RawMode::Read, error));
    EXPECT_FALSE(files->OpenRaw(At("b.bin"), RawMode::Create, error));
    EXPECT_EQ(error, 70);
    EXPECT_EQ(Bytes("a.bin"), "x");
    EXPECT_TRUE(file->Close());
    EXPECT_TRUE(files->OpenRaw(At("b.bin"), RawMode::Create, error));
}

TEST_P(FileOperations, A_file_open_for_reading_cannot_be_deleted) {
    Put("a.bin", "x");
    Long error = 0;
    const auto file = files->OpenRaw(At("a.bin"), RawMode::Read, error);
    EXPECT_EQ(FailureOf([&] { files->DeleteFile(At("A.BIN"), true); }), 70);
    EXPECT_EQ(Bytes("a.bin"), "x");
    EXPECT_TRUE(file->Close());
    files->DeleteFile(At("A.BIN"), true);
    EXPECT_FALSE(Has("a.bin"));
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

TEST_P(FileOperations, Raw_create_truncates_what_is_there) {
    Put("A.bin", "long text");
    Long error = 0;
    std::size_t count = 0;
    const auto file = files->OpenRaw(At("a.bin"), RawMode::Create, error);
    ASSERT_TRUE(file);
    EXPECT_TRUE(file->Write(std::string("x"), count));
    EXPECT_TRUE(file->Close());
    EXPECT_EQ(Bytes("A.bin"), "x");
}

TEST_P(FileOperations, A_file_open_for_reading_cannot_be_opened_for_writing_by_any_path) {
    Put("A.bin", "bytes");
    fs::create_directory_symlink(Host(""), temp.HostPath("way round"));
    Long error = 0;
    const auto first = files->OpenRaw(At("A.bin"), RawMode::Read, error);
    auto second = files->OpenRaw(At("a.BIN"), RawMode::Read, error);
    ASSERT_TRUE(first && second);
    EXPECT_TRUE(second->Close());
    for (const std::string& path : {At("A.bin"), At("a.bin"), temp.DrivePath("way round/A.bin")}) {
        EXPECT_FALSE(files->OpenRaw(path, RawMode::Create, error)) << path;
        EXPECT_EQ(error, 70) << path;
    }
    EXPECT_EQ(Bytes("A.bin"), "bytes");
    EXPECT_TRUE(files->OpenRaw(At("B.bin"), RawMode::Create, error));
    EXPECT_TRUE(first->Close());
    EXPECT_TRUE(files->OpenRaw(At("A.bin"), RawMode::Create, error));
}

TEST_P(FileOperations, A_file_that_is_written_can_be_given_a_date) {
    Long error = 0;
    std::size_t written = 0;
    const auto file = files->OpenRaw(At("a.bin"), RawMode::Create, error);
    ASSERT_TRUE(file->Write(std::string("bytes"), written));
    file->SetTime(1'164'117'909);
    ASSERT_TRUE(file->Close());
    struct stat status {};
    ASSERT_EQ(stat(Host("a.bin").c_str(), &status), 0);
    EXPECT_EQ(status.st_mtim.tv_sec, 1'164'117'909);
    EXPECT_EQ(status.st_mtim.tv_nsec, 0);
    EXPECT_EQ(Bytes("a.bin"), "bytes");
}

TEST_P(FileOperations, A_raw_file_tells_why_a_write_failed) {
    Long error = 0;
    std::size_t written = 0;
    const auto file = files->OpenRaw(At("a.bin"), RawMode::Create, error);
    ASSERT_TRUE(file->Write(std::string("bytes"), written));
    EXPECT_EQ(file->Error(), 0);
    const FileSizeLimit limit(8);
    EXPECT_FALSE(file->Write(std::string("no room"), written));
    EXPECT_EQ(file->Error(), 61);
}

TEST_P(FileOperations, No_file_is_made_behind_a_link_to_nothing) {
    fs::create_symlink(Host("elsewhere.bin"), Host("a.bin"));
    Put("b.bin", "x");
    Long error = 0;
    EXPECT_FALSE(files->OpenRaw(At("a.bin"), RawMode::Create, error));
    EXPECT_EQ(error, 76);
    EXPECT_EQ(FailureOf([&] { files->CopyFile(At("b.bin"), At("a.bin"), true); }), 76);
    EXPECT_FALSE(Has("elsewhere.bin"));
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

TEST_P(FileOperations, Raw_opens_that_fail_tell_why) {
    fs::create_directory(Host("sub"));
    Put("locked.bin", "x");
    fs::permissions(Host("locked.bin"), fs::perms::owner_read);
    const auto open = [&](const std::string& path, RawMode mode) {
        Long error = 0;
        EXPECT_FALSE(files->OpenRaw(At(path), mode, error));
        return error;
    };
    for (const RawMode mode : {RawMode::Read, RawMode::ReadWrite})
        EXPECT_EQ(open("none.bin", mode), 53);
    EXPECT_EQ(open("none\\a.bin", RawMode::Read), 76);
    EXPECT_EQ(open("none\\a.bin", RawMode::Create), 76);
    EXPECT_EQ(open("sub", RawMode::Read), 70);
    EXPECT_EQ(open("sub", RawMode::Create), 70);
    EXPECT_EQ(open("new\\", RawMode::Create), 76);
    EXPECT_EQ(open("sub", RawMode::ReadWrite), 70);
    EXPECT_EQ(open("locked.bin", RawMode::Create), 70);
    EXPECT_EQ(open("locked.bin", RawMode::ReadWrite), 70);
    EXPECT_EQ(open("a?.bin", RawMode::Create), 52);
    EXPECT_EQ(Bytes("locked.bin"), "x");
}

TEST_P(FileOperations, ReadWhole_gives_all_bytes_and_fails_as_GetFile_does) {
    const std::string bytes(1'500'000, 'x');
    Put("a.bin", bytes);
    Put("empty.bin", "");
    EXPECT_EQ(files->ReadWhole(At("a.bin")), bytes);
    EXPECT_EQ(files->ReadWhole(At("empty.bin")), "");
    EXPECT_EQ(FailureOf([&] { files->ReadWhole(At("none.bin")); }), 53);
    EXPECT_EQ(FailureOf([&] { files->ReadWhole(At("none\\a.bin")); }), 53);
}

}  // namespace tavel::test
