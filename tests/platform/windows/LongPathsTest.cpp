#include "platform/OnEachDrive.h"
#include "platform/ProfileFile.h"
#include "platform/windows/HostPaths.h"
#include "platform/windows/WindowsApi.h"

namespace tavel::test {

namespace {

// Below a path that no call of the host takes as it stands.
class LongPaths : public OnEachDrive {
  protected:
    void SetUp() override {
        OnEachDrive::SetUp();
        folder = root;
        for (int i = 0; i < 4; ++i) {
            folder += "\\" + std::string(100, 'a');
            files->CreateFolder(folder);
        }
    }

    // The standard library can't.
    void TearDown() override { Clear("e:\\"); }

    void Clear(const std::string& path) const {
        const FolderContents contents = files->GetFolder(path);
        for (const FileEntry& file : contents.Files) files->DeleteFile(file.Path, true);
        for (const FolderEntry& sub : contents.SubFolders) {
            Clear(sub.Path);
            EXPECT_NE(RemoveDirectoryW(CallPath(files->HostPath(sub.Path)).c_str()), 0);
        }
    }

    std::string Below(const std::string& name) const { return folder + "\\" + name; }
    void Write(const std::string& name, const std::string& bytes) const {
        Long error = 0;
        std::size_t written = 0;
        const auto file = files->OpenRaw(Below(name), RawMode::Create, error);
        ASSERT_TRUE(file) << error;
        EXPECT_TRUE(file->Write(bytes, written));
        EXPECT_TRUE(file->Close());
    }

    std::string folder;
};

INSTANTIATE_TEST_SUITE_P(Drives, LongPaths, ::testing::Values('c', 'e'),
                         [](const auto& drive) { return std::string(1, drive.param); });

}  // namespace

TEST_P(LongPaths, Files_are_made_copied_moved_replaced_and_deleted) {
    Write("a.bin", "bytes");
    files->CopyFile(Below("a.bin"), Below("b.bin"), false);
    files->MoveFile(Below("b.bin"), Below("c.bin"));
    EXPECT_EQ(files->ReadWhole(Below("c.bin")), "bytes");
    Write("new.bin", "new");
    files->ReplaceFile(Below("c.bin"), Below("new.bin"));
    EXPECT_EQ(files->ReadWhole(Below("c.bin")), "new");
    files->DeleteFile(Below("a.bin"), false);
    const FolderContents contents = files->GetFolder(folder);
    EXPECT_EQ(contents.Files.size(), GetParam() == 'c' ? 0u : 1u) << "too long for c:";
    EXPECT_EQ(files->GetFile(Below("C.bin")).Size, 3);
    EXPECT_EQ(files->CreateTempFile(folder, "x").substr(0, folder.size()), folder);
}

TEST_P(LongPaths, Host_paths_of_such_files_lead_back) {
    Write("a.bin", "old");
    const std::string hostPath = files->HostPath(Below("a.bin"));
    EXPECT_EQ(hostPath.substr(0, 4), "\\\\?\\");
    EXPECT_TRUE(StampOf(hostPath));
    EXPECT_TRUE(ReplaceHostFile(
        hostPath, [](const ByteSink& sink) { sink("new"); }, false));
    EXPECT_EQ(files->ReadWhole(files->FromHostPath(hostPath)), "new");
}

// Names may be that long themselves.
TEST_P(LongPaths, A_name_of_255_characters_is_made_and_one_of_256_refused) {
    const std::string longest(255, 'x');
    EXPECT_TRUE(IsNameAllowed(longest));
    EXPECT_FALSE(IsNameAllowed(longest + "x"));
    Write(longest, "x");
    EXPECT_TRUE(files->FileExists(Below(longest)));
    Long error = 0;
    EXPECT_FALSE(files->OpenRaw(Below(longest + "x"), RawMode::Create, error));
    EXPECT_EQ(error, 52);
    EXPECT_TRUE(ReplaceHostFile(
        files->HostPath(Below(longest)), [](const ByteSink& sink) { sink("new"); }, false));
    EXPECT_EQ(files->ReadWhole(Below(longest)), "new");
}

}  // namespace tavel::test
