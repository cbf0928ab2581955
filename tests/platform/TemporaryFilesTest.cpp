#include "platform/OnEachDrive.h"

#include <gmock/gmock.h>

namespace tavel::test {

namespace {

using ::testing::MatchesRegex;
using TemporaryFiles = OnEachDrive;

INSTANTIATE_TEST_SUITE_P(Drives, TemporaryFiles, ::testing::Values('c', 'e'),
                         [](const auto& drive) { return std::string(1, drive.param); });

}  // namespace

TEST_P(TemporaryFiles, Temporary_files_are_new_and_empty) {
    fs::create_directory(Host("temp"));
    const std::string one = files->CreateTempFile(At("TEMP"), "");
    const std::string two = files->CreateTempFile(At("TEMP\\"), "tag");
    const std::string three = files->CreateTempFile(At("TEMP\\"), "tag");
    const std::string eight = "\\w\\w\\w\\w\\w\\w\\w\\w";
    EXPECT_THAT(one, MatchesRegex(".*\\\\TEMP\\\\" + eight + "\\.tmp"));
    EXPECT_THAT(two, MatchesRegex(".*\\\\TEMP\\\\tag" + eight + "\\.tmp"));
    EXPECT_NE(three, two);
    for (const std::string& path : {one, two, three}) EXPECT_EQ(files->GetFile(path).Size, 0);
    EXPECT_EQ(FailureOf([&] { files->CreateTempFile(At("none"), ""); }), 76);
    EXPECT_EQ(FailureOf([&] { files->CreateTempFile(At("temp"), "a?"); }), 52);
    EXPECT_EQ(FailureOf([&] { files->CreateTempFile(At("temp"), "a/b"); }), 52);
}

TEST_P(TemporaryFiles, The_folder_for_them_is_there) {
    const std::string folder = files->GetTempFolder();
    EXPECT_TRUE(files->FolderExists(folder)) << folder;
}

}  // namespace tavel::test
