#include "support/HostDrives.h"

#include <gmock/gmock.h>

#include <filesystem>

// Drives as the file service shows them, whatever the host has for drives.

namespace tavel::test {

namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;

class Drives : public HostDrives {
  protected:
    Long OpenError(const std::string& path, RawMode mode) {
        Long error = 0;
        EXPECT_FALSE(files->OpenRaw(path, mode, error));
        return error;
    }
};

}  // namespace

TEST_F(Drives, A_drive_goes_by_letter_colon_root_and_list_text) {
    Link('e', "card");
    for (const char* name : {"e", "E", "e:", "E:", "e:\\", "e: [card]"}) {
        EXPECT_TRUE(files->DriveExists(name)) << name;
        EXPECT_EQ(files->GetDrive(name)->Path(), "e:") << name;
        EXPECT_EQ(files->GetDrive(name)->DriveType(), DriveRemovable) << name;
    }
    for (const char* name : {"", "1:", ":", "ee", "\xe9:", "f:", "%", "\x05:"}) {
        EXPECT_FALSE(files->DriveExists(name)) << name;
        EXPECT_EQ(FailureOf([&] { files->GetDrive(name); }), 68) << name;
    }
}

TEST_F(Drives, A_drive_is_there_as_long_as_the_host_has_it) {
    EXPECT_FALSE(files->DriveExists("e"));
    Link('e', "card");
    EXPECT_TRUE(files->DriveExists("e"));
    EXPECT_TRUE(files->FolderExists("e:\\"));
    Unlink('e');
    EXPECT_FALSE(files->DriveExists("e"));
    EXPECT_FALSE(files->FolderExists("e:\\"));
    Link('e', "other");
    temp.Write("other/a.txt", "x");
    EXPECT_TRUE(files->FileExists("e:\\a.txt"));
    Unlink('e');
    EXPECT_FALSE(files->DriveExists("e"));
    Link('f', "card");
    EXPECT_THAT(files->DriveTexts(), ElementsAre("c:", "f: [card]"));
}

TEST_F(Drives, A_drive_without_a_medium_is_a_drive) {
    Link('e', "card");
    fs::remove(temp.HostPath("card"));
    EXPECT_TRUE(files->DriveExists("e:\\"));
    const std::shared_ptr<Drive> drive = files->GetDrive("e");
    EXPECT_EQ(drive->DriveType(), DriveRemovable);
    EXPECT_THAT(files->DriveTexts(), ElementsAre("c:", "e:"));
    EXPECT_EQ(FailureOf([&] { (void)drive->TotalSize(); }), 71);
    EXPECT_EQ(FailureOf([&] { (void)drive->FreeSpace(); }), 71);
    EXPECT_FALSE(files->FileExists("e:\\a.txt"));
    EXPECT_FALSE(files->FolderExists("e:\\"));
    EXPECT_EQ(FailureOf([&] { files->GetFile("e:\\a.txt"); }), 53);
    EXPECT_EQ(FailureOf([&] { files->GetFolder("e:\\"); }), 76);
    EXPECT_EQ(FailureOf([&] { files->CreateTextFile("e:\\a.txt", true); }), 71);
    EXPECT_EQ(FailureOf([&] { files->CreateFolder("e:\\a"); }), 71);
    EXPECT_EQ(OpenError("e:\\a.txt", RawMode::Create), 71);
    EXPECT_EQ(OpenError("e:\\a.txt", RawMode::Read), 71);
    fs::create_directory(temp.HostPath("card"));
    EXPECT_TRUE(files->FolderExists("e:\\"));
    EXPECT_GT(drive->TotalSize(), 0);
}

TEST_F(Drives, Files_move_and_copy_between_drives) {
    Link('e', "card");
    temp.Write("a.txt", "x");
    files->CopyFile(temp.DrivePath("a.txt"), "e:\\", false);
    EXPECT_EQ(temp.Read("card/a.txt"), "x");
    EXPECT_EQ(FailureOf([&] { files->MoveFile(temp.DrivePath("a.txt"), "e:\\A.TXT"); }), 58);
    files->MoveFile(temp.DrivePath("a.txt"), "e:b.txt");
    EXPECT_EQ(temp.Read("card/b.txt"), "x");
    EXPECT_FALSE(files->FileExists(temp.DrivePath("a.txt")));
}

TEST_F(Drives, A_path_without_a_drive_is_below_the_program_folder) {
    temp.Write("program/Media/a.txt", "x");
    EXPECT_TRUE(files->FileExists("Media\\a.txt"));
    EXPECT_TRUE(files->FileExists("..\\program\\media\\A.txt"));
    EXPECT_EQ(files->GetFile("Media\\a.txt").Path, temp.DrivePath("program/Media/a.txt"));
    EXPECT_EQ(files->HostPath("Media"), files->HostPath(temp.DrivePath("program/Media")));
    EXPECT_FALSE(files->FileExists("\\Media\\a.txt"));
    EXPECT_TRUE(files->FolderExists("\\"));
}

TEST_F(Drives, A_drive_path_without_a_leading_separator_starts_at_the_root) {
    Link('e', "card");
    temp.Write("card/psp/PHOTO/a.jpg", "x");
    EXPECT_EQ(files->GetFolder("e:psp\\photo\\").Files.at(0).Path, "e:\\psp\\photo\\a.jpg");
    EXPECT_TRUE(files->FileExists("E:psp\\photo\\a.jpg"));
    EXPECT_TRUE(files->FolderExists("e:"));
}

}  // namespace tavel::test
