#include "platform/OnEachDrive.h"

namespace tavel::test {

namespace {

class FolderListings : public OnEachDrive {};

INSTANTIATE_TEST_SUITE_P(Drives, FolderListings, ::testing::Values('c', 'e'),
                         [](const auto& drive) { return std::string(1, drive.param); });

}  // namespace

TEST_P(FolderListings, Exist_tests_tell_files_from_folders) {
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

TEST_P(FolderListings, GetFile_tells_path_name_size_and_hidden) {
    Put("psp/.a.jpg", "12345");
    Hide(Host("psp/.a.jpg"));
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

TEST_P(FolderListings, GetFile_tells_sizes_beyond_32_bits) {
    Put("big.avi", "");
    fs::resize_file(Host("big.avi"), std::uintmax_t{5} << 30);
    EXPECT_EQ(files->GetFile(At("big.avi")).Size, std::int64_t{5} << 30);
}

TEST_P(FolderListings, GetFolder_lists_by_name_without_regard_to_case) {
    for (const char* name : {"b.jpg", "A.jpg", "c.JPG", ".h.jpg"}) Put(name, name);
    Hide(Host(".h.jpg"));
    for (const char* name : {"zoo", "Album", "beach"}) fs::create_directory(Host(name));
    const FolderContents contents = files->GetFolder(root + "\\");
    std::vector<std::string> names;
    for (const FileEntry& file : contents.Files) {
        names.push_back(file.Name);
        EXPECT_EQ(file.Path, At(file.Name));
        EXPECT_EQ(file.Size, static_cast<std::int64_t>(file.Name.size()));
        EXPECT_EQ(file.Hidden, file.Name == ".h.jpg");
    }
    EXPECT_EQ(names, (std::vector<std::string>{".h.jpg", "A.jpg", "b.jpg", "c.JPG"}));
    names.clear();
    for (const FolderEntry& folder : contents.SubFolders) {
        names.push_back(folder.Name);
        EXPECT_EQ(folder.Path, At(folder.Name));
    }
    EXPECT_EQ(names, (std::vector<std::string>{"Album", "beach", "zoo"}));
}

TEST_P(FolderListings, GetFolder_names_the_folder_as_it_was_asked_for) {
    fs::create_directories(Host("PSP/MUSIC/Rock"));
    const FolderContents contents = files->GetFolder(At("psp\\music\\"));
    EXPECT_EQ(contents.Folder.Path, At("psp\\music"));
    EXPECT_EQ(contents.Folder.Name, "music");
    ASSERT_EQ(contents.SubFolders.size(), 1u);
    EXPECT_EQ(contents.SubFolders[0].Path, At("psp\\music\\Rock"));
    EXPECT_TRUE(files->FolderExists(contents.SubFolders[0].Path));
}

TEST_P(FolderListings, GetFolder_of_what_is_no_folder_fails) {
    Put("a.jpg", "x");
    EXPECT_EQ(FailureOf([&] { files->GetFolder(At("none")); }), 76);
    EXPECT_EQ(FailureOf([&] { files->GetFolder(At("a.jpg")); }), 76);
    EXPECT_EQ(FailureOf([&] { files->GetFolder(""); }), 76);
}

}  // namespace tavel::test
