#include "platform/ProfileService.h"
#include "platform/linux/HostFileService.h"
#include "support/HostDrives.h"
#include "support/linux/ExfatStick.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

// The file service on a real memory-stick file system.

namespace tavel::test {

namespace {

namespace fs = std::filesystem;

class OnExfat : public HostDrives {
  protected:
    void SetUp() override {
        if (!stick.WhyNot().empty()) GTEST_SKIP() << stick.WhyNot();
        fs::create_directories(temp.HostPath("program/drives"));
        fs::create_directory_symlink(stick.MountFolder(), temp.HostPath("program/drives/e"));
    }

    std::unique_ptr<RawFile> Create(const std::string& path) {
        Long error = 0;
        return files->OpenRaw(path, RawMode::Create, error);
    }

    // Of the stick as a mounted drive. Other tests may have sticks of their own at this moment.
    std::string RootOf(FileService& service) const {
        for (const std::string& text : service.DriveTexts()) {
            const std::string root = text.substr(0, 2) + "\\";
            if (service.HostPath(root) == stick.MountFolder()) return root;
        }
        return {};
    }

    bool IsMountFolderEmpty() const { return fs::is_empty(stick.MountFolder()); }

    ExfatStick stick{24};
};

// The machine's mounts, with loop devices taken for sticks.
class LoopsAreSticks : public MountSource {
  public:
    bool HasChanged() override { return m_real->HasChanged(); }
    std::vector<MountEntry> Entries() override { return m_real->Entries(); }
    DeviceProperties PropertiesOf(const MountEntry& entry) override {
        DeviceProperties properties = m_real->PropertiesOf(entry);
        if (entry.source.rfind("/dev/loop", 0) == 0) properties.bus = "usb";
        return properties;
    }

  private:
    std::unique_ptr<MountSource> m_real = MakeHostMounts();
};

}  // namespace

TEST_F(OnExfat, What_was_written_is_on_the_stick_when_the_file_is_closed) {
    const std::string bytes(5'000'000, 'x');
    std::size_t count = 0;
    files->CreateFolder("e:\\PSP");
    const auto file = Create("e:\\psp\\a.bin");
    ASSERT_TRUE(file);
    EXPECT_TRUE(file->Write(bytes, count));
    EXPECT_TRUE(file->Close());
    EXPECT_TRUE(stick.BytesWhenPulled("PSP/a.bin") == bytes);
    files->CopyFile("e:\\psp\\a.bin", "e:\\b.bin", true);
    EXPECT_TRUE(stick.BytesWhenPulled("b.bin") == bytes);
    files->MoveFile("e:\\b.bin", "e:\\psp\\c.bin");
    EXPECT_TRUE(stick.BytesWhenPulled("PSP/c.bin") == bytes);
    files->DeleteFile("e:\\psp\\c.bin", false);
    EXPECT_TRUE(stick.BytesWhenPulled("PSP/c.bin").empty());
}

TEST_F(OnExfat, The_stick_can_be_unmounted_between_calls) {
    files->CreateTextFile("e:\\TavelDataFile.tavel", true);
    EXPECT_TRUE(files->FileExists("e:\\taveldatafile.tavel"));
    const std::shared_ptr<Drive> drive = files->GetDrive("e");
    EXPECT_GT(drive->TotalSize(), 20'000'000);
    EXPECT_TRUE(stick.Unmount());
}

TEST_F(OnExfat, A_pulled_stick_has_no_media_and_its_mount_folder_stays_empty) {
    files->CreateTextFile("e:\\a.txt", true);
    stick.Pull();
    ASSERT_TRUE(IsMountFolderEmpty());
    EXPECT_TRUE(files->DriveExists("e"));
    EXPECT_EQ(FailureOf([&] { (void)files->GetDrive("e")->FreeSpace(); }), 71);
    EXPECT_FALSE(files->FileExists("e:\\a.txt"));
    EXPECT_FALSE(files->FolderExists("e:\\"));
    EXPECT_EQ(FailureOf([&] { files->CreateTextFile("e:\\b.txt", true); }), 71);
    EXPECT_EQ(FailureOf([&] { files->CreateFolder("e:\\b"); }), 71);
    EXPECT_FALSE(Create("e:\\b.txt"));
    temp.Write("c.txt", "x");
    EXPECT_EQ(FailureOf([&] { files->CopyFile(temp.DrivePath("c.txt"), "e:\\c.txt", true); }), 71);
    EXPECT_TRUE(IsMountFolderEmpty());
    ASSERT_TRUE(stick.Mount());
    EXPECT_TRUE(files->FileExists("e:\\a.txt"));
}

TEST_F(OnExfat, A_full_stick_takes_what_fits_and_says_so) {
    const std::string piece(std::size_t{1} << 20, 'x');
    const auto file = Create("e:\\a.bin");
    std::size_t count = 0;
    std::size_t total = 0;
    while (total < (std::size_t{100} << 20) && file->Write(piece, count)) total += count;
    total += count;
    EXPECT_LT(total, std::size_t{24} << 20);
    EXPECT_FALSE(file->Write(piece, count));
    EXPECT_FALSE(file->Close());
    EXPECT_EQ(files->GetFile("e:\\a.bin").Size, static_cast<std::int64_t>(total));
    EXPECT_EQ(files->GetDrive("e")->FreeSpace(), 0);
    temp.Write("c.bin", piece);
    EXPECT_EQ(FailureOf([&] { files->CopyFile(temp.DrivePath("c.bin"), "e:\\c.bin", true); }), 61);
    EXPECT_FALSE(files->FileExists("e:\\c.bin"));
}

TEST_F(OnExfat, A_profile_takes_what_still_fits_on_a_full_stick) {
    Service<FileService>::Use(files.get());
    files->CreateTextFile("e:\\TavelDataFile.tavel", true);
    const std::string path = "e:\\taveldatafile.tavel";
    ASSERT_TRUE(WritePrivateProfileString("video", "M4V10001", "Old", path));
    const std::string piece(1024, 'x');
    const auto filler = Create("e:\\a.bin");
    std::size_t count = 0;
    while (filler->Write(piece, count)) continue;
    filler->Close();
    EXPECT_EQ(files->GetDrive("e")->FreeSpace(), 0);
    EXPECT_TRUE(WritePrivateProfileString("video", "M4V10001", "New and longer", path));
    EXPECT_EQ(GetPrivateProfileString("video", "M4V10001", "", 255, path), "New and longer");
    EXPECT_FALSE(WritePrivateProfileString("video", "M4V10002", std::string(200'000, 'x'), path));
    {
        const ProfileBatch batch(path);
        WritePrivateProfileString("video", "M4V10001", "Half", path);
    }
    EXPECT_EQ(GetPrivateProfileString("video", "M4V10001", "", 255, path), "New and longer");
    Service<FileService>::Use(nullptr);
}

TEST_F(OnExfat, A_full_stick_fails_small_pieces_too) {
    const std::string piece(1024, 'x');
    const auto file = Create("e:\\a.bin");
    std::size_t count = 0;
    std::int64_t total = 0;
    while (total < (std::int64_t{100} << 20) && file->Write(piece, count)) total += 1024;
    for (int i = 0; i < 1000; ++i) ASSERT_FALSE(file->Write(piece, count));
    EXPECT_LT(total, std::int64_t{24} << 20);
    EXPECT_FALSE(file->Close());
    EXPECT_LE(files->GetFile("e:\\a.bin").Size, total);
}

TEST(OnABrokenStick, Nothing_is_taken_once_a_flush_has_failed) {
    const ExfatStick stick(200, 16);
    if (!stick.WhyNot().empty()) GTEST_SKIP() << stick.WhyNot();
    const TempFolder program;
    fs::create_directories(program.HostPath("drives"));
    fs::create_directory_symlink(stick.MountFolder(), program.HostPath("drives/e"));
    const auto files = MakeHostFileService(program.HostPath(), MakeHostMounts());
    Long error = 0;
    const auto file = files->OpenRaw("e:\\a.bin", RawMode::Create, error);
    ASSERT_TRUE(file);
    const std::string piece(std::size_t{1} << 20, 'x');
    std::size_t count = 0;
    int pieces = 0;
    while (pieces < 150 && file->Write(piece, count)) ++pieces;
    EXPECT_LT(pieces, 150);
    EXPECT_FALSE(file->Write(piece, count));
    EXPECT_EQ(count, 0U);
    EXPECT_FALSE(file->Close());
}

// A stick is asked for its identity file under two spellings.
TEST_F(OnExfat, A_profile_is_one_under_any_spelling_and_keeps_its_own) {
    Service<FileService>::Use(files.get());
    files->CreateTextFile("e:\\TavelDataFile.tavel", true);
    for (int i = 0; i < 5; ++i) {
        const std::string key = std::to_string(i);
        EXPECT_TRUE(WritePrivateProfileString("a", key, "v", "e:\\TavelDataFile.tavel"));
        EXPECT_TRUE(WritePrivateProfileString("b", key, "v", "e:\\taveldatafile.TAVEL"));
        EXPECT_EQ(GetPrivateProfileString("a", key, "", 255, "e:\\taveldatafile.tavel"), "v");
    }
    for (int i = 0; i < 5; ++i) {
        const std::string key = std::to_string(i);
        for (const char* section : {"a", "b"})
            EXPECT_EQ(GetPrivateProfileString(section, key, "", 255, "e:\\TAVELdatafile.tavel"),
                      "v");
    }
    Service<FileService>::Use(nullptr);
    EXPECT_THAT(files->GetFolder("e:\\").Files, ::testing::SizeIs(1));
    EXPECT_EQ(files->GetFolder("e:\\").Files.at(0).Name, "TavelDataFile.tavel");
}

TEST_F(OnExfat, A_host_path_has_the_spelling_that_the_stick_has_now) {
    std::ofstream(stick.MountFolder() + "/DATA.txt") << "x";
    EXPECT_EQ(files->HostPath("e:\\data.txt"), temp.HostPath("program/drives/e/DATA.txt"));
    fs::rename(stick.MountFolder() + "/DATA.txt", stick.MountFolder() + "/other.txt");
    fs::rename(stick.MountFolder() + "/other.txt", stick.MountFolder() + "/Data.txt");
    EXPECT_EQ(files->HostPath("e:\\data.txt"), temp.HostPath("program/drives/e/Data.txt"));
}

TEST_F(OnExfat, A_write_protected_stick_refuses_all_changes) {
    files->CreateTextFile("e:\\a.txt", true);
    ASSERT_TRUE(stick.Unmount());
    ASSERT_TRUE(stick.Mount("ro"));
    EXPECT_TRUE(files->FileExists("e:\\A.TXT"));
    EXPECT_EQ(FailureOf([&] { files->CreateTextFile("e:\\b.txt", true); }), 70);
    EXPECT_EQ(FailureOf([&] { files->CreateFolder("e:\\b"); }), 70);
    EXPECT_EQ(FailureOf([&] { files->DeleteFile("e:\\a.txt", true); }), 70);
    EXPECT_EQ(FailureOf([&] { files->MoveFile("e:\\a.txt", "e:\\b.txt"); }), 70);
    EXPECT_EQ(FailureOf([&] { files->CopyFile("e:\\a.txt", "e:\\b.txt", true); }), 70);
    Long error = 0;
    EXPECT_FALSE(files->OpenRaw("e:\\b.txt", RawMode::Create, error));
    EXPECT_EQ(error, 70);
}

TEST_F(OnExfat, Names_behave_as_on_any_other_drive) {
    files->CreateTextFile("e:\\a.txt", true);
    EXPECT_EQ(FailureOf([&] { files->MoveFile("e:\\a.txt", "e:\\A.Txt"); }), 58);
    EXPECT_EQ(files->GetFolder("e:\\").Files.at(0).Name, "a.txt");
    files->CreateTextFile("e:\\b.txt", true);
    EXPECT_EQ(FailureOf([&] { files->MoveFile("e:\\B.TXT", "e:\\a.txt"); }), 58);
    EXPECT_EQ(FailureOf([&] { files->CreateFolder("e:\\a?"); }), 52);
    files->CreateFolder("e:\\Vol. 1.");
    files->CreateTextFile("e:\\Vol. 1.\\\xc3\x84.txt", true);
    EXPECT_TRUE(files->FileExists("e:\\vol. 1.\\\xe4.TXT"));
}

TEST_F(OnExfat, A_file_is_itself_in_any_spelling) {
    fs::create_directory(stick.MountFolder() + "/PSP");
    std::ofstream(stick.MountFolder() + "/PSP/a.txt") << "x";
    EXPECT_EQ(FailureOf([&] { files->CopyFile("e:\\psp\\a.txt", "e:\\PSP\\A.TXT", true); }), 70);
    Long error = 0;
    const auto file = files->OpenRaw("e:\\psp\\a.txt", RawMode::Read, error);
    ASSERT_TRUE(file);
    EXPECT_FALSE(files->OpenRaw("e:\\PSP\\A.TXT", RawMode::Create, error));
    EXPECT_EQ(error, 70);
    EXPECT_EQ(files->ReadWhole("e:\\Psp\\A.txt"), "x");
}

// On this file system each spelling of a path has an inode number of its own.
TEST_F(OnExfat, A_file_is_itself_by_every_way_to_it) {
    const std::string bytes(3'000'000, 'x');
    fs::create_directory(stick.MountFolder() + "/PSP");
    std::ofstream(stick.MountFolder() + "/PSP/a.bin") << bytes;
    fs::create_directory_symlink(stick.MountFolder() + "/psp", temp.HostPath("album"));
    fs::create_symlink(stick.MountFolder() + "/PSP/A.BIN", temp.HostPath("a.lnk"));
    std::string mounted = "c:" + stick.MountFolder();
    std::replace(mounted.begin(), mounted.end(), '/', '\\');
    for (const std::string& way : {mounted + "\\psp\\A.bin", temp.DrivePath("album/a.BIN"),
                                   temp.DrivePath("a.lnk"), std::string("e:\\Psp\\a.bin")}) {
        SCOPED_TRACE(way);
        EXPECT_EQ(FailureOf([&] { files->CopyFile(way, "e:\\psp\\A.BIN", true); }), 70);
        EXPECT_EQ(FailureOf([&] { files->CopyFile("e:\\psp\\A.BIN", way, true); }), 70);
        EXPECT_EQ(FailureOf([&] { files->MoveFile(way, "e:\\psp\\A.BIN"); }), 58);
        Long error = 0;
        const auto source = files->OpenRaw(way, RawMode::Read, error);
        ASSERT_TRUE(source);
        EXPECT_FALSE(files->OpenRaw("e:\\psp\\A.BIN", RawMode::Create, error));
        EXPECT_EQ(error, 70);
        EXPECT_TRUE(Create("e:\\psp\\b.bin")) << "another file";
    }
    EXPECT_TRUE(files->ReadWhole("e:\\psp\\a.bin") == bytes);
}

TEST_F(OnExfat, A_mounted_stick_has_a_letter_and_is_gone_when_it_is_pulled) {
    temp.Write("program2/x", "");
    const auto service =
        MakeHostFileService(temp.HostPath("program2"), std::make_unique<LoopsAreSticks>());
    const std::string root = RootOf(*service);
    ASSERT_NE(root, "");
    service->CreateTextFile(root + "TavelDataFile.tavel", true);
    const std::string lasting = service->StablePath(root);
    EXPECT_TRUE(service->FileExists(lasting + "\\taveldatafile.tavel"));
    EXPECT_TRUE(fs::exists(stick.MountFolder() + "/TavelDataFile.tavel"));
    EXPECT_TRUE(service->FileExists(root + "taveldatafile.tavel"));
    stick.Pull();
    EXPECT_FALSE(service->DriveExists(root));
    EXPECT_EQ(FailureOf([&] { service->GetDrive(root); }), 68);
    EXPECT_FALSE(service->FileExists(root + "taveldatafile.tavel"));
    EXPECT_EQ(FailureOf([&] { service->CreateTextFile(root + "b.txt", true); }), 76);
    EXPECT_EQ(FailureOf([&] { service->CreateTextFile(lasting + "\\b.txt", true); }), 76);
    EXPECT_TRUE(IsMountFolderEmpty());
    ASSERT_TRUE(stick.Mount());
    service->CreateTextFile(lasting + "\\b.txt", true);
    EXPECT_TRUE(service->FileExists(RootOf(*service) + "taveldatafile.tavel"));
}

}  // namespace tavel::test
