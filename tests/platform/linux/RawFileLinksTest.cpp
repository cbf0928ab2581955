#include "platform/OnEachDrive.h"
#include "support/linux/FileSizeLimit.h"

// Raw files behind links, and on a disk that takes no more.

namespace tavel::test {

namespace {

class RawFilesOnLinux : public OnEachDrive {};

INSTANTIATE_TEST_SUITE_P(Drives, RawFilesOnLinux, ::testing::Values('c', 'e'),
                         [](const auto& drive) { return std::string(1, drive.param); });

}  // namespace

TEST_P(RawFilesOnLinux, A_file_open_for_reading_cannot_be_opened_for_writing_by_any_path) {
    Put("A.bin", "bytes");
    fs::create_directory_symlink(Host(""), temp.HostPath("way round"));
    Long error = 0;
    const auto first = files->OpenRaw(At("A.bin"), RawMode::Read, error);
    auto second = files->OpenRaw(At("a.BIN"), RawMode::Read, error);
    ASSERT_TRUE(first && second);
    EXPECT_TRUE(second->Close());
    for (const std::string& path : {At("A.bin"), At("a.bin"), temp.DrivePath("way round/A.bin")}) {
        EXPECT_FALSE(files->OpenRaw(path, RawMode::Create, error)) << path;
        EXPECT_EQ(error, 70) << path;
    }
    EXPECT_EQ(Bytes("A.bin"), "bytes");
    EXPECT_TRUE(files->OpenRaw(At("B.bin"), RawMode::Create, error));
    EXPECT_TRUE(first->Close());
    EXPECT_TRUE(files->OpenRaw(At("A.bin"), RawMode::Create, error));
}

TEST_P(RawFilesOnLinux, A_raw_file_tells_why_a_write_failed) {
    Long error = 0;
    std::size_t written = 0;
    const auto file = files->OpenRaw(At("a.bin"), RawMode::Create, error);
    ASSERT_TRUE(file->Write(std::string("bytes"), written));
    EXPECT_EQ(file->Error(), 0);
    const FileSizeLimit limit(8);
    EXPECT_FALSE(file->Write(std::string("no room"), written));
    EXPECT_EQ(file->Error(), 61);
}

TEST_P(RawFilesOnLinux, No_file_is_made_behind_a_link_to_nothing) {
    fs::create_symlink(Host("elsewhere.bin"), Host("a.bin"));
    Put("b.bin", "x");
    Long error = 0;
    EXPECT_FALSE(files->OpenRaw(At("a.bin"), RawMode::Create, error));
    EXPECT_EQ(error, 76);
    EXPECT_EQ(FailureOf([&] { files->CopyFile(At("b.bin"), At("a.bin"), true); }), 76);
    EXPECT_FALSE(Has("elsewhere.bin"));
}

}  // namespace tavel::test
