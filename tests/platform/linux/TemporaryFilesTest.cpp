#include "platform/OnEachDrive.h"
#include "support/linux/PlainUser.h"
#include "support/linux/TempPath.h"

#include <gmock/gmock.h>
#include <sys/stat.h>

namespace tavel::test {

namespace {

using ::testing::MatchesRegex;

class TemporaryFilesOnLinux : public OnEachDrive {
  protected:
    // By what TMPDIR is set to, or without it.
    std::string TempFolderWith(const char* value) {
        TempPath path;
        if (value != nullptr) {
            path.Use(value);
        } else {
            path.Unset();
        }
        return files->GetTempFolder();
    }
};

INSTANTIATE_TEST_SUITE_P(Drives, TemporaryFilesOnLinux, ::testing::Values('c', 'e'),
                         [](const auto& drive) { return std::string(1, drive.param); });

}  // namespace

TEST_P(TemporaryFilesOnLinux, Temporary_files_are_new_empty_and_the_users_own) {
    fs::create_directory(Host("temp"));
    const std::string one = files->CreateTempFile(At("TEMP"), "");
    const std::string two = files->CreateTempFile(At("TEMP\\"), "tag");
    EXPECT_THAT(one, MatchesRegex(".*\\\\TEMP\\\\[0-9a-f]{8}\\.tmp"));
    EXPECT_THAT(two, MatchesRegex(".*\\\\TEMP\\\\tag[0-9a-f]{8}\\.tmp"));
    for (const std::string& path : {one, two}) {
        EXPECT_EQ(files->GetFile(path).Size, 0);
        struct stat status {};
        ASSERT_EQ(stat(files->HostPath(path).c_str(), &status), 0);
        EXPECT_EQ(status.st_mode & 0777, 0600u);
    }
    EXPECT_EQ(FailureOf([&] { files->CreateTempFile(At("none"), ""); }), 76);
    EXPECT_EQ(FailureOf([&] { files->CreateTempFile(At("temp"), "a?"); }), 52);
    EXPECT_EQ(FailureOf([&] { files->CreateTempFile(At("temp"), "a/b"); }), 52);
    fs::permissions(temp.HostPath(), fs::perms(0755));
    fs::permissions(Host("temp"), fs::perms(0555));
    const PlainUser user;
    EXPECT_EQ(FailureOf([&] { files->CreateTempFile(At("temp"), ""); }), 70);
}

TEST_P(TemporaryFilesOnLinux, The_folder_for_temporary_files_is_the_users_or_the_hosts) {
    fs::create_directory(temp.HostPath("temp"));
    Put("file", "x");
    EXPECT_EQ(TempFolderWith(temp.HostPath("temp").c_str()), temp.DrivePath("temp"));
    EXPECT_EQ(TempFolderWith(Host("").c_str()), "e:\\");
    for (const char* other : {"", "relative", "/none/such"})
        EXPECT_EQ(TempFolderWith(other), "c:\\tmp") << other;
    EXPECT_EQ(TempFolderWith(Host("file").c_str()), "c:\\tmp");
    EXPECT_EQ(TempFolderWith(nullptr), "c:\\tmp");
}

}  // namespace tavel::test
