#include "support/HostDrives.h"

#include <filesystem>

namespace tavel::test {

namespace {

namespace fs = std::filesystem;

class DrivesWithoutMedium : public HostDrives {
  protected:
    void SetUp() override {
        Link('e', "card");
        temp.Write("card/a.bin", "x");
        fs::remove_all(temp.HostPath("card"));
    }

    Long WhyNotToOpen(const std::string& path, RawMode mode) const {
        Long error = 0;
        EXPECT_FALSE(files->OpenRaw(path, mode, error));
        return error;
    }
};

}  // namespace

TEST_F(DrivesWithoutMedium, Are_drives_on_which_nothing_is) {
    EXPECT_TRUE(files->DriveExists("e:"));
    EXPECT_EQ(files->GetDrive("e")->DriveType(), DriveRemovable);
    EXPECT_FALSE(files->FileExists("e:\\a.bin"));
    EXPECT_FALSE(files->FolderExists("e:\\"));
    EXPECT_EQ(files->HostPath("e:\\a.bin"), "");
}

TEST_F(DrivesWithoutMedium, Fail_as_not_ready) {
    temp.Write("a.bin", "x");
    EXPECT_EQ(WhyNotToOpen("e:\\a.bin", RawMode::Read), 71);
    EXPECT_EQ(WhyNotToOpen("e:\\a.bin", RawMode::Create), 71);
    EXPECT_EQ(FailureOf([&] { files->CreateTextFile("e:\\a.bin", true); }), 71);
    EXPECT_EQ(FailureOf([&] { files->CreateFolder("e:\\b"); }), 71);
    EXPECT_EQ(FailureOf([&] { files->DeleteFile("e:\\a.bin", true); }), 71);
    EXPECT_EQ(FailureOf([&] { files->CopyFile(temp.DrivePath("a.bin"), "e:\\a.bin", true); }), 71);
    EXPECT_EQ(FailureOf([&] { files->MoveFile(temp.DrivePath("a.bin"), "e:\\a.bin"); }), 71);
    EXPECT_EQ(FailureOf([&] { files->GetFolder("e:\\"); }), 76);
    EXPECT_EQ(FailureOf([&] { files->GetFile("e:\\a.bin"); }), 53);
    EXPECT_EQ(FailureOf([&] { files->GetDrive("e")->FreeSpace(); }), 71);
    EXPECT_EQ(temp.Read("a.bin"), "x");
}

TEST_F(DrivesWithoutMedium, Are_gone_when_they_are_pulled_out) {
    const std::shared_ptr<Drive> drive = files->GetDrive("e");
    Unlink('e');
    EXPECT_FALSE(files->DriveExists("e:"));
    EXPECT_EQ(FailureOf([&] { files->GetDrive("e"); }), 68);
    EXPECT_EQ(FailureOf([&] { drive->FreeSpace(); }), 68);
    EXPECT_EQ(WhyNotToOpen("e:\\a.bin", RawMode::Create), 76);
    EXPECT_EQ(FailureOf([&] { files->CreateFolder("e:\\b"); }), 76);
}

}  // namespace tavel::test
