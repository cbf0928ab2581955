#include "platform/OnEachDrive.h"
#include "platform/windows/WindowsApi.h"

namespace tavel::test {

namespace {

class FileAttributes : public OnEachDrive {
  protected:
    void TearDown() override {
        for (const fs::directory_entry& entry : fs::directory_iterator(Host("")))
            SetFileAttributesW(entry.path().c_str(), FILE_ATTRIBUTE_NORMAL);
    }

    // A file with these attributes and no others that people see.
    void PutWith(DWORD attributes, const std::string& path) const {
        Put(path, "x");
        ASSERT_NE(SetFileAttributesW(Host(path).c_str(), attributes), 0);
    }

    bool Is(DWORD attribute, const std::string& path) const {
        return (GetFileAttributesW(Host(path).c_str()) & attribute) != 0;
    }

    static constexpr DWORD readOnly = FILE_ATTRIBUTE_READONLY;
    static constexpr DWORD hidden = FILE_ATTRIBUTE_HIDDEN;
};

INSTANTIATE_TEST_SUITE_P(Drives, FileAttributes, ::testing::Values('c', 'e'),
                         [](const auto& drive) { return std::string(1, drive.param); });

}  // namespace

TEST_P(FileAttributes, What_is_hidden_has_the_attribute_and_a_dot_hides_nothing) {
    PutWith(hidden, "a.jpg");
    Put(".b.jpg", "x");
    EXPECT_TRUE(files->GetFile(At("a.jpg")).Hidden);
    EXPECT_FALSE(files->GetFile(At(".b.jpg")).Hidden);
    const FolderContents contents = files->GetFolder(root + "\\");
    ASSERT_EQ(contents.Files.size(), 2u);
    EXPECT_EQ(contents.Files[0].Name, ".b.jpg");
    EXPECT_FALSE(contents.Files[0].Hidden);
    EXPECT_TRUE(contents.Files[1].Hidden);
}

TEST_P(FileAttributes, A_hidden_file_is_written_and_stays_hidden) {
    PutWith(hidden, "a.bin");
    Long error = 0;
    std::size_t written = 0;
    for (const RawMode mode : {RawMode::Create, RawMode::ReadWrite}) {
        const auto file = files->OpenRaw(At("a.bin"), mode, error);
        ASSERT_TRUE(file) << error;
        EXPECT_TRUE(file->Write(std::string("yz"), written));
        EXPECT_TRUE(file->Close());
        EXPECT_EQ(Bytes("a.bin"), "yz");
        EXPECT_TRUE(Is(hidden, "a.bin"));
    }
    files->CreateTextFile(At("a.bin"), true);
    EXPECT_EQ(Bytes("a.bin"), "");
    EXPECT_TRUE(Is(hidden, "a.bin"));
}

TEST_P(FileAttributes, A_copy_is_read_only_or_hidden_as_its_source_is) {
    PutWith(hidden, "hidden.bin");
    PutWith(readOnly, "locked.bin");
    Put("plain.bin", "x");
    for (const std::string name : {"hidden", "locked", "plain"})
        files->CopyFile(At(name + ".bin"), At(name + ".copy"), false);
    EXPECT_TRUE(Is(hidden, "hidden.copy"));
    EXPECT_FALSE(Is(readOnly, "hidden.copy"));
    EXPECT_TRUE(Is(readOnly, "locked.copy"));
    EXPECT_FALSE(Is(readOnly | hidden, "plain.copy"));
    EXPECT_EQ(FailureOf([&] { files->CopyFile(At("plain.bin"), At("locked.copy"), true); }), 70);
    EXPECT_EQ(Bytes("locked.copy"), "x");
    files->CopyFile(At("plain.bin"), At("hidden.copy"), true);
    EXPECT_FALSE(Is(hidden, "hidden.copy"));
}

TEST_P(FileAttributes, A_read_only_file_that_cannot_be_deleted_stays_read_only) {
    PutWith(readOnly, "a.bin");
    Long error = 0;
    const auto file = files->OpenRaw(At("a.bin"), RawMode::Read, error);
    ASSERT_TRUE(file);
    EXPECT_EQ(FailureOf([&] { files->DeleteFile(At("a.bin"), true); }), 70);
    EXPECT_TRUE(Is(readOnly, "a.bin"));
    EXPECT_TRUE(file->Close());
    files->DeleteFile(At("a.bin"), true);
    EXPECT_FALSE(Has("a.bin"));
}

TEST_P(FileAttributes, A_read_only_file_gives_its_place_to_no_other) {
    PutWith(readOnly, "a.bin");
    Put("new.bin", "new");
    EXPECT_EQ(FailureOf([&] { files->ReplaceFile(At("a.bin"), At("new.bin")); }), 70);
    EXPECT_EQ(Bytes("a.bin"), "x");
    EXPECT_EQ(Bytes("new.bin"), "new");
}

TEST_P(FileAttributes, A_file_that_takes_over_rights_is_hidden_like_the_other_and_never_read_only) {
    PutWith(hidden | readOnly, "a.bin");
    Put("b.bin", "y");
    files->CopyRights(At("a.bin"), At("b.bin"));
    EXPECT_TRUE(Is(hidden, "b.bin"));
    EXPECT_FALSE(Is(readOnly, "b.bin"));
    EXPECT_EQ(Bytes("b.bin"), "y");
    Put("c.bin", "z");
    files->CopyRights(At("c.bin"), At("b.bin"));
    EXPECT_FALSE(Is(hidden, "b.bin"));
}

}  // namespace tavel::test
