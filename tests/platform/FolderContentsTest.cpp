#include "platform/OnEachDrive.h"
#include "platform/Text.h"

#include <sys/stat.h>
#include <unistd.h>

#include <map>

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

TEST_P(FolderListings, GetFolder_names_the_folder_as_it_was_asked_for) {
    fs::create_directories(Host("PSP/MUSIC/Rock"));
    const FolderContents contents = files->GetFolder(At("psp\\music\\"));
    EXPECT_EQ(contents.Folder.Path, At("psp\\music"));
    EXPECT_EQ(contents.Folder.Name, "music");
    ASSERT_EQ(contents.SubFolders.size(), 1u);
    EXPECT_EQ(contents.SubFolders[0].Path, At("psp\\music\\Rock"));
    EXPECT_TRUE(files->FolderExists(contents.SubFolders[0].Path));
}

TEST_P(FolderListings, GetFolder_passes_over_what_is_neither_file_nor_folder) {
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

TEST_P(FolderListings, GetFolder_tells_links_to_one_folder_alike) {
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
TEST_P(FolderListings, GetFolder_passes_over_paths_of_more_than_254_characters_on_c_alone) {
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

TEST_P(FolderListings, GetFolder_of_what_is_no_folder_fails) {
    Put("a.jpg", "x");
    EXPECT_EQ(FailureOf([&] { files->GetFolder(At("none")); }), 76);
    EXPECT_EQ(FailureOf([&] { files->GetFolder(At("a.jpg")); }), 76);
    EXPECT_EQ(FailureOf([&] { files->GetFolder(""); }), 76);
}

}  // namespace tavel::test
