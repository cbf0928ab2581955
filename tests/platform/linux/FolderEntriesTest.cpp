#include "platform/OnEachDrive.h"
#include "platform/Text.h"

#include <sys/stat.h>

#include <map>

// What a folder of this host may hold that others know nothing of.

namespace tavel::test {

namespace {

class FolderEntries : public OnEachDrive {};

INSTANTIATE_TEST_SUITE_P(Drives, FolderEntries, ::testing::Values('c', 'e'),
                         [](const auto& drive) { return std::string(1, drive.param); });

}  // namespace

TEST_P(FolderEntries, GetFolder_lists_names_that_differ_in_case_alone_in_byte_order) {
    for (const char* name : {"b.jpg", "a.jpg", "A.jpg"}) Put(name, name);
    for (const char* name : {"zoo", "album", "Album"}) fs::create_directory(Host(name));
    const FolderContents contents = files->GetFolder(root + "\\");
    std::vector<std::string> names;
    for (const FileEntry& file : contents.Files) names.push_back(file.Name);
    for (const FolderEntry& folder : contents.SubFolders) names.push_back(folder.Name);
    EXPECT_EQ(names,
              (std::vector<std::string>{"A.jpg", "a.jpg", "b.jpg", "Album", "album", "zoo"}));
}

TEST_P(FolderEntries, GetFolder_passes_over_what_is_neither_file_nor_folder) {
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

TEST_P(FolderEntries, GetFolder_tells_links_to_one_folder_alike) {
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
TEST_P(FolderEntries, GetFolder_passes_over_paths_of_more_than_254_characters_on_c_alone) {
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

}  // namespace tavel::test
