#include "platform/ProfileService.h"
#include "support/FaultyFileService.h"
#include "support/Support.h"

#include <gmock/gmock.h>

#include <filesystem>

// The fake on which other tests rely.

namespace tavel::test {

namespace {

using ::testing::ElementsAre;

class FaultyFiles : public ::testing::Test {
  protected:
    FaultyFiles() {
        std::filesystem::create_directory(temp.HostPath("stick"));
        files.Plug('f', temp.HostPath("stick"));
    }

    std::unique_ptr<RawFile> Create(const std::string& path) {
        Long error = 0;
        return files.OpenRaw(path, RawMode::Create, error);
    }

    TempFolder temp;
    FaultyFileService files;
};

}  // namespace

TEST_F(FaultyFiles, A_plugged_drive_is_a_removable_drive_over_its_folder) {
    temp.Write("stick/PSP/a.txt", "x");
    files.At('f').label = "STICK";
    EXPECT_THAT(files.DriveTexts(), ElementsAre("c:", "f: [STICK]"));
    const std::shared_ptr<Drive> drive = files.GetDrive("f: [STICK]");
    EXPECT_EQ(drive->Path(), "f:");
    EXPECT_EQ(drive->DriveType(), DriveRemovable);
    EXPECT_EQ(files.GetDrive("c:\\")->DriveType(), DriveFixed);
    EXPECT_EQ(drive->FreeSpace(), 400'000'000);
    EXPECT_EQ(files.GetFile("f:psp\\A.TXT").Path, "f:\\psp\\A.TXT");
    EXPECT_EQ(files.GetFolder("f:\\psp\\").Files.at(0).Path, "f:\\psp\\a.txt");
    EXPECT_TRUE(files.FolderExists("f:\\..\\..\\psp"));
    EXPECT_EQ(files.FromHostPath(temp.HostPath("stick/PSP")), "f:\\PSP");
    EXPECT_EQ(files.FromHostPath(temp.HostPath("sticks")), temp.DrivePath("sticks"));
}

TEST_F(FaultyFiles, A_pulled_drive_takes_nothing) {
    const std::shared_ptr<Drive> drive = files.GetDrive("f");
    const auto file = Create("f:\\a.txt");
    std::size_t count = 0;
    files.Pull('f');
    EXPECT_FALSE(files.DriveExists("f:\\"));
    EXPECT_FALSE(files.FolderExists("f:\\"));
    EXPECT_EQ(FailureOf([&] { files.GetDrive("f"); }), 68);
    EXPECT_EQ(FailureOf([&] { (void)drive->TotalSize(); }), 68);
    EXPECT_EQ(FailureOf([&] { files.GetFolder("f:\\"); }), 76);
    EXPECT_EQ(FailureOf([&] { files.CreateFolder("f:\\a"); }), 76);
    EXPECT_FALSE(file->Write(std::string("x"), count));
    EXPECT_FALSE(file->Close());
}

TEST_F(FaultyFiles, A_drive_without_media_is_there_and_not_ready) {
    files.At('f').hasMedia = false;
    EXPECT_TRUE(files.DriveExists("f:\\"));
    EXPECT_EQ(files.GetDrive("f")->DriveType(), DriveRemovable);
    EXPECT_EQ(FailureOf([&] { (void)files.GetDrive("f")->FreeSpace(); }), 71);
    EXPECT_FALSE(files.FileExists("f:\\a.txt"));
    EXPECT_EQ(FailureOf([&] { files.CreateTextFile("f:\\a.txt", true); }), 71);
}

TEST_F(FaultyFiles, A_drive_fills_up) {
    files.At('f').bytesUntilFull = 5;
    const auto file = Create("f:\\a.txt");
    std::size_t count = 0;
    EXPECT_TRUE(file->Write(std::string("123"), count));
    EXPECT_FALSE(file->Write(std::string("456"), count));
    EXPECT_EQ(count, 2u);
    EXPECT_TRUE(file->Close());
    EXPECT_EQ(temp.Read("stick/a.txt"), "12345");
    temp.Write("b.txt", "x");
    EXPECT_EQ(FailureOf([&] { files.CopyFile(temp.DrivePath("b.txt"), "f:\\b.txt", true); }), 61);
    EXPECT_FALSE(files.FileExists("f:\\b.txt"));
}

TEST_F(FaultyFiles, A_drive_vanishes_after_bytes_or_operations) {
    files.At('f').bytesUntilGone = 2;
    const auto file = Create("f:\\a.txt");
    std::size_t count = 0;
    EXPECT_FALSE(file->Write(std::string("123"), count));
    EXPECT_EQ(count, 2u);
    EXPECT_FALSE(files.DriveExists("f"));
    files.Plug('f', temp.HostPath("stick")).operationsUntilGone = 2;
    EXPECT_TRUE(files.FileExists("f:\\a.txt"));
    EXPECT_TRUE(files.DriveExists("f"));
    EXPECT_FALSE(files.FileExists("f:\\a.txt"));
}

TEST_F(FaultyFiles, Raw_files_calls_and_names_fail_as_told) {
    temp.Write("stick/r.txt", "12345");
    files.FailReadAfter("r.txt", 3);
    files.FailWriteAfter("w.txt", 0);
    files.FailClose("w.txt");
    files.Refuse("no.txt");
    files.FailOn("GetDrive f", 57, 1);
    Long error = 0;
    std::size_t count = 0;
    std::string buffer(5, '?');
    EXPECT_FALSE(files.OpenRaw("f:\\r.txt", RawMode::Read, error)->Read(buffer, count));
    EXPECT_EQ(count, 3u);
    const auto file = Create("f:\\w.txt");
    EXPECT_FALSE(file->Write(buffer, count));
    EXPECT_FALSE(file->Close());
    EXPECT_FALSE(files.OpenRaw("f:\\no.txt", RawMode::Create, error));
    EXPECT_EQ(error, 52);
    EXPECT_EQ(FailureOf([&] { files.CreateFolder("f:\\no.txt"); }), 52);
    EXPECT_EQ(FailureOf([&] { files.GetDrive("f"); }), 57);
    EXPECT_EQ(FailureOf([&] { files.GetDrive("f"); }), 0);
}

TEST_F(FaultyFiles, Any_call_in_the_row_can_be_the_one_that_fails) {
    temp.Write("stick/r.txt", "12345");
    files.FailOn("", 57, 1, 2);
    Long error = 0;
    std::size_t count = 0;
    std::string buffer(2, '?');
    const auto file = files.OpenRaw("f:\\r.txt", RawMode::ReadWrite, error);
    EXPECT_TRUE(file->Read(buffer, count));
    EXPECT_FALSE(file->Write(buffer, count));
    EXPECT_EQ(file->Error(), 57);
    EXPECT_TRUE(file->Write(buffer, count));
    EXPECT_TRUE(file->Close());
    EXPECT_EQ(temp.Read("stick/r.txt"), "12125");
}

TEST_F(FaultyFiles, Temporary_files_come_where_the_test_wants_them) {
    files.tempFolder = "f:\\";
    const std::string path = files.CreateTempFile(files.GetTempFolder(), "");
    EXPECT_EQ(path.substr(0, 3), "f:\\");
    EXPECT_TRUE(std::filesystem::exists(temp.HostPath("stick/" + path.substr(3))));
}

TEST_F(FaultyFiles, In_the_hosts_place_it_serves_the_profile_too) {
    Service<FileService>::Use(&files);
    EXPECT_TRUE(WritePrivateProfileString("Data", "PSPName", "My PSP", "f:\\TavelDataFile.tavel"));
    const std::string name =
        GetPrivateProfileString("data", "pspname", "PSP", 99, "f:\\taveldatafile.tavel");
    Service<FileService>::Use(nullptr);
    EXPECT_EQ(name, "My PSP");
    EXPECT_EQ(temp.Read("stick/TavelDataFile.tavel"), "[Data]\r\nPSPName=My PSP\r\n");
    EXPECT_NE(&oFSO(), &files);
}

TEST_F(FaultyFiles, Calls_are_recorded_in_order) {
    temp.Write("stick/a.txt", "x");
    files.FileExists("f:\\a.txt");
    files.CopyFile("f:\\a.txt", "f:\\b.txt", true);
    files.DeleteFile("f:\\b.txt", true);
    Create("f:\\c.txt");
    EXPECT_THAT(files.calls,
                ElementsAre("FileExists f:\\a.txt", "CopyFile f:\\a.txt -> f:\\b.txt",
                            "DeleteFile f:\\b.txt forced", "OpenRaw Create f:\\c.txt"));
    EXPECT_THAT(files.rawCalls, ElementsAre("Close f:\\c.txt"));
}

}  // namespace tavel::test
