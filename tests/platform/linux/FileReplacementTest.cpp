#include "platform/OnEachDrive.h"
#include "support/linux/HostCalls.h"

#include <gmock/gmock.h>

// A file that is deleted, and another that is moved to its place.

namespace tavel::test {

namespace {

class FileReplacement : public OnEachDrive {
  protected:
    void SetUp() override {
        OnEachDrive::SetUp();
        Put("old.bin", "old");
        Put("temp/new.bin", "new");
    }

    Long Replace(const std::string& path) {
        return FailureOf([&] { files->ReplaceFile(At(path), At("temp\\new.bin")); });
    }
    void ExpectUnchanged() const {
        EXPECT_EQ(Bytes("old.bin"), "old");
        EXPECT_EQ(Bytes("temp/new.bin"), "new");
    }
};

INSTANTIATE_TEST_SUITE_P(Drives, FileReplacement, ::testing::Values('c', 'e'),
                         [](const auto& drive) { return std::string(1, drive.param); });

}  // namespace

TEST_P(FileReplacement, The_other_file_has_the_place_and_the_name_that_the_path_has) {
    EXPECT_EQ(Replace("OLD.bin"), 0);
    EXPECT_EQ(Bytes("OLD.bin"), "new");
    EXPECT_FALSE(Has("old.bin"));
    EXPECT_FALSE(Has("temp/new.bin"));
}

TEST_P(FileReplacement, A_read_only_file_stays) {
    fs::permissions(Host("old.bin"), fs::perms(0444));
    EXPECT_EQ(Replace("old.bin"), 70);
    ExpectUnchanged();
}

TEST_P(FileReplacement, A_file_that_is_open_stays) {
    Long error = 0;
    const auto file = files->OpenRaw(At("old.bin"), RawMode::Read, error);
    EXPECT_EQ(Replace("old.bin"), 70);
    ExpectUnchanged();
}

TEST_P(FileReplacement, What_is_no_file_is_not_replaced) {
    Put("folder/a.bin", "x");
    Put("c:/a.bin", "x");
    EXPECT_EQ(Replace("none.bin"), 53);
    EXPECT_EQ(Replace("none\\old.bin"), 76);
    EXPECT_EQ(Replace("folder"), 53);
    EXPECT_EQ(Replace("old.bin\\"), 53);
    EXPECT_EQ(Replace("c:\\a.bin"), 52);
    EXPECT_TRUE(Has("folder/a.bin") && Has("c:/a.bin"));
    ExpectUnchanged();
}

TEST_P(FileReplacement, Nothing_is_deleted_for_what_is_no_file) {
    for (const char* source : {"temp", "temp\\none.bin", "OLD.bin"}) {
        EXPECT_NE(FailureOf([&] { files->ReplaceFile(At("old.bin"), At(source)); }), 0) << source;
        ExpectUnchanged();
    }
}

TEST_P(FileReplacement, A_file_that_comes_to_the_free_place_meanwhile_stays) {
    HostCalls calls(temp.HostPath());
    calls.Before("rename card/temp/new.bin", [&] { Put("old.bin", "another program's"); });
    EXPECT_EQ(Replace("old.bin"), 58);
    EXPECT_EQ(Bytes("old.bin"), "another program's");
    EXPECT_EQ(Bytes("temp/new.bin"), "new");
}

}  // namespace tavel::test
