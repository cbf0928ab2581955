#include "platform/OnEachDrive.h"

// What others do in folders whose names were looked up before.

namespace tavel::test {

namespace {

using FolderChanges = OnEachDrive;

INSTANTIATE_TEST_SUITE_P(Drives, FolderChanges, ::testing::Values('c', 'e'),
                         [](const auto& drive) { return std::string(1, drive.param); });

}  // namespace

TEST_P(FolderChanges, What_others_do_in_a_folder_is_seen_at_once) {
    EXPECT_FALSE(files->FileExists(At("a.txt")));
    for (int i = 0; i < 20; ++i) {
        Put("A.txt", "x");
        ASSERT_EQ(FailureOf([&] { files->CreateTextFile(At("a.TXT"), false); }), 58);
        fs::rename(Host("A.txt"), Host("b.txt"));
        ASSERT_FALSE(files->FileExists(At("a.TXT")));
        ASSERT_TRUE(files->FileExists(At("B.TXT")));
        fs::remove(Host("b.txt"));
        ASSERT_FALSE(files->FileExists(At("B.TXT")));
        fs::create_directory(Host("A.txt"));
        ASSERT_TRUE(files->FolderExists(At("a.TXT")));
        fs::remove(Host("A.txt"));
    }
}

TEST_P(FolderChanges, A_folder_that_was_replaced_or_moved_is_another_one) {
    Put("a/One.txt", "x");
    Put("b/Two.txt", "x");
    EXPECT_TRUE(files->FileExists(At("a\\one.txt")));
    EXPECT_TRUE(files->FileExists(At("b\\two.txt")));
    fs::rename(Host("a"), Host("c"));
    fs::rename(Host("b"), Host("a"));
    EXPECT_FALSE(files->FileExists(At("a\\one.txt")));
    EXPECT_TRUE(files->FileExists(At("a\\two.txt")));
    EXPECT_TRUE(files->FileExists(At("c\\one.txt")));
    fs::remove_all(Host("a"));
    Put("a/Three.txt", "x");
    EXPECT_FALSE(files->FileExists(At("a\\two.txt")));
    EXPECT_TRUE(files->FileExists(At("a\\three.txt")));
}

TEST_P(FolderChanges, More_folders_than_are_remembered_are_told_apart) {
    for (int round = 0; round < 2; ++round) {
        for (int i = 0; i < 40; ++i) {
            const std::string folder = std::to_string(i);
            if (round == 0) Put(folder + "/A" + folder + ".txt", "x");
            ASSERT_TRUE(files->FileExists(At(folder + "\\a" + folder + ".txt")));
            ASSERT_FALSE(files->FileExists(At(folder + "\\a" + std::to_string(i + 1) + ".txt")));
        }
    }
}

}  // namespace tavel::test
