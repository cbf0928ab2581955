#include "platform/ProfileFile.h"
#include "platform/ProfileService.h"
#include "platform/windows/FileIdentity.h"
#include "platform/windows/HostPaths.h"
#include "support/HostDrives.h"

#include <gmock/gmock.h>

#include <filesystem>

// What another computer shares. packaging/windows/test-engine gives Wine a computer "nas" with a
// share "music".

namespace tavel::test {

namespace {

namespace fs = std::filesystem;

class SharePaths : public HostDrives {
  protected:
    void SetUp() override {
        if (!fs::is_directory(L"\\\\nas\\music")) GTEST_SKIP() << "there is no such share";
        folder = "\\\\nas\\music\\" + fs::path(temp.HostPath()).filename().string();
        files->CreateFolder(folder);
    }
    void TearDown() override {
        if (!folder.empty()) fs::remove_all(folder);
    }

    std::string At(const std::string& name) const { return folder + "\\" + name; }
    void Put(const std::string& name, const std::string& bytes) const {
        Long error = 0;
        std::size_t written = 0;
        const auto file = files->OpenRaw(At(name), RawMode::Create, error);
        ASSERT_TRUE(file) << error;
        EXPECT_TRUE(file->Write(bytes, written));
        EXPECT_TRUE(file->Close());
    }

    std::string folder;
};

}  // namespace

TEST_F(SharePaths, Files_are_made_listed_copied_moved_replaced_and_deleted) {
    Put("a.mp3", "bytes");
    EXPECT_TRUE(files->FileExists(At("A.mp3")));
    EXPECT_TRUE(files->FolderExists(folder + "\\"));
    files->CopyFile(At("a.mp3"), At("b.mp3"), false);
    files->MoveFile(At("b.mp3"), At("c.mp3"));
    Put("new.tmp", "new");
    files->ReplaceFile(At("c.mp3"), At("new.tmp"));
    EXPECT_EQ(files->ReadWhole(At("c.mp3")), "new");
    const FolderContents contents = files->GetFolder(folder);
    EXPECT_EQ(contents.Folder.Path, folder);
    ASSERT_EQ(contents.Files.size(), 2u);
    EXPECT_EQ(contents.Files[0].Path, At("a.mp3"));
    files->DeleteFile(At("a.mp3"), false);
    EXPECT_FALSE(files->FileExists(At("a.mp3")));
    EXPECT_EQ(FailureOf([&] { files->GetFile(At("a.mp3")); }), 53);
    EXPECT_EQ(FailureOf([&] { files->CreateFolder("\\\\nas\\video\\x"); }), 76);
}

TEST_F(SharePaths, Files_come_from_a_drive_and_go_to_it) {
    temp.Write("a.mp3", "bytes");
    files->MoveFile(temp.DrivePath("a.mp3"), folder + "\\");
    EXPECT_FALSE(temp.Has("a.mp3"));
    EXPECT_EQ(files->ReadWhole(At("a.mp3")), "bytes");
    files->MoveFile(At("a.mp3"), temp.DrivePath("b.mp3"));
    EXPECT_EQ(temp.Read("b.mp3"), "bytes");
    EXPECT_FALSE(files->FileExists(At("a.mp3")));
}

TEST_F(SharePaths, Dots_do_not_lead_out_of_the_share) {
    Put("a.mp3", "x");
    const std::string name = folder.substr(folder.rfind('\\'));
    EXPECT_TRUE(files->FileExists("\\\\nas\\music\\..\\.." + name + "\\.\\a.mp3"));
    EXPECT_TRUE(files->FolderExists("\\\\nas\\music"));
    EXPECT_TRUE(files->FolderExists("\\\\nas\\music\\.."));
}

TEST_F(SharePaths, Host_paths_lead_there_and_back) {
    Put("One.mp3", "x");
    EXPECT_EQ(files->HostPath(At("one.MP3")).substr(0, 12), "\\\\nas\\music\\");
    EXPECT_EQ(files->FromHostPath(files->HostPath(At("One.mp3"))), At("One.mp3"));
    EXPECT_EQ(files->FromHostPath("\\\\?\\UNC" + At("One.mp3").substr(1)), At("One.mp3"));
    EXPECT_EQ(files->StablePath(At("One.mp3")), At("One.mp3"));
    EXPECT_TRUE(FileIdentity(CallPath(At("One.mp3"))) == FileIdentity(CallPath(At("ONE.mp3"))));
}

TEST_F(SharePaths, A_profile_there_is_replaced_in_one_step) {
    Put("db.txt", "[data]\r\nname=old\r\n");
    const std::optional<FileStamp> before = StampOf(files->HostPath(At("db.txt")));
    ASSERT_TRUE(before);
    EXPECT_TRUE(WritePrivateProfileString("data", "name", "new", At("db.txt")));
    EXPECT_EQ(files->ReadWhole(At("db.txt")), "[data]\r\nname=new\r\n");
    EXPECT_NE(StampOf(files->HostPath(At("db.txt")))->inode, before->inode);
    EXPECT_EQ(files->GetFolder(folder).Files.size(), 1u);
}

}  // namespace tavel::test
