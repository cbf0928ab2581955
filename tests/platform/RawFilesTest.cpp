#include "platform/OnEachDrive.h"

namespace tavel::test {

namespace {

class RawFiles : public OnEachDrive {};

INSTANTIATE_TEST_SUITE_P(Drives, RawFiles, ::testing::Values('c', 'e'),
                         [](const auto& drive) { return std::string(1, drive.param); });

}  // namespace

TEST_P(RawFiles, Raw_files_write_and_read_bytes) {
    Long error = -1;
    std::size_t count = 0;
    {
        const auto file = files->OpenRaw(At("a.bin"), RawMode::Create, error);
        ASSERT_TRUE(file);
        EXPECT_EQ(error, 0);
        EXPECT_TRUE(file->Write(std::string("\0one\r\n", 6), count));
        EXPECT_EQ(count, 6u);
        EXPECT_TRUE(file->Write({}, count));
        EXPECT_EQ(count, 0u);
        EXPECT_TRUE(file->Close());
    }
    const auto file = files->OpenRaw(At("a.bin"), RawMode::Read, error);
    ASSERT_TRUE(file);
    EXPECT_EQ(file->Size(), 6);
    std::string buffer(4, '?');
    EXPECT_TRUE(file->Read(buffer, count));
    EXPECT_EQ(buffer, std::string("\0one", 4));
    EXPECT_TRUE(file->Read(buffer, count));
    EXPECT_EQ(count, 2u);
    EXPECT_TRUE(file->Read(buffer, count));
    EXPECT_EQ(count, 0u);
    EXPECT_TRUE(file->Seek(1));
    EXPECT_FALSE(file->Seek(-1));
    EXPECT_TRUE(file->Read(buffer, count));
    EXPECT_EQ(buffer, "one\r");
    EXPECT_FALSE(file->Write(buffer, count));
    EXPECT_TRUE(file->Close());
}

TEST_P(RawFiles, A_raw_file_open_for_both_is_kept_and_changed_in_place) {
    Put("A.bin", "0123456789");
    Long error = -1;
    std::size_t count = 0;
    const auto file = files->OpenRaw(At("a.bin"), RawMode::ReadWrite, error);
    ASSERT_TRUE(file);
    EXPECT_EQ(error, 0);
    std::string buffer(4, '?');
    EXPECT_TRUE(file->Read(buffer, count));
    EXPECT_EQ(buffer, "0123");
    EXPECT_TRUE(file->Seek(2));
    EXPECT_TRUE(file->Write(std::string("abc"), count));
    EXPECT_EQ(file->Size(), 10);
    EXPECT_TRUE(file->Close());
    EXPECT_EQ(Bytes("A.bin"), "01abc56789");
}

TEST_P(RawFiles, A_file_open_for_both_keeps_writers_out_and_waits_for_readers) {
    Put("a.bin", "x");
    fs::create_hard_link(Host("a.bin"), Host("b.bin"));
    Long error = 0;
    {
        const auto file = files->OpenRaw(At("a.bin"), RawMode::ReadWrite, error);
        ASSERT_TRUE(file);
        for (const RawMode mode : {RawMode::ReadWrite, RawMode::Create}) {
            EXPECT_FALSE(files->OpenRaw(At("b.bin"), mode, error));
            EXPECT_EQ(error, 70);
        }
        EXPECT_EQ(FailureOf([&] { files->DeleteFile(At("a.bin"), true); }), 70);
    }
    const auto reader = files->OpenRaw(At("a.bin"), RawMode::Read, error);
    EXPECT_FALSE(files->OpenRaw(At("b.bin"), RawMode::ReadWrite, error));
    EXPECT_EQ(error, 70);
    EXPECT_TRUE(reader->Close());
    EXPECT_TRUE(files->OpenRaw(At("b.bin"), RawMode::ReadWrite, error));
    EXPECT_EQ(Bytes("a.bin"), "x");
}

TEST_P(RawFiles, A_file_being_written_tells_its_size_and_place) {
    Long error = 0;
    std::size_t count = 0;
    const auto file = files->OpenRaw(At("a.bin"), RawMode::Create, error);
    ASSERT_TRUE(file);
    for (int i = 0; i < 1000; ++i) EXPECT_TRUE(file->Write(std::string(1024, 'x'), count));
    EXPECT_EQ(file->Size(), 1'024'000);
    EXPECT_TRUE(file->Write(std::string("tail"), count));
    EXPECT_TRUE(file->Seek(0));
    EXPECT_TRUE(file->Write(std::string("head"), count));
    EXPECT_TRUE(file->Write(std::string(600'000, 'y'), count));
    EXPECT_TRUE(file->Close());
    EXPECT_TRUE(file->Close());
    EXPECT_TRUE(Bytes("a.bin") == "head" + std::string(600'000, 'y') +
                                      std::string(1'024'000 - 600'004, 'x') + "tail");
}

TEST_P(RawFiles, A_file_open_for_reading_shares_reads_alone) {
    Put("a.bin", "x");
    fs::create_hard_link(Host("a.bin"), Host("b.bin"));
    Long error = 0;
    const auto file = files->OpenRaw(At("a.bin"), RawMode::Read, error);
    ASSERT_TRUE(file);
    EXPECT_TRUE(files->OpenRaw(At("A.BIN"), RawMode::Read, error));
    EXPECT_FALSE(files->OpenRaw(At("b.bin"), RawMode::Create, error));
    EXPECT_EQ(error, 70);
    EXPECT_EQ(Bytes("a.bin"), "x");
    EXPECT_TRUE(file->Close());
    EXPECT_TRUE(files->OpenRaw(At("b.bin"), RawMode::Create, error));
}

TEST_P(RawFiles, A_file_open_for_reading_cannot_be_deleted) {
    Put("a.bin", "x");
    Long error = 0;
    const auto file = files->OpenRaw(At("a.bin"), RawMode::Read, error);
    EXPECT_EQ(FailureOf([&] { files->DeleteFile(At("A.BIN"), true); }), 70);
    EXPECT_EQ(Bytes("a.bin"), "x");
    EXPECT_TRUE(file->Close());
    files->DeleteFile(At("A.BIN"), true);
    EXPECT_FALSE(Has("a.bin"));
}

TEST_P(RawFiles, Raw_create_truncates_what_is_there) {
    Put("A.bin", "long text");
    Long error = 0;
    std::size_t count = 0;
    const auto file = files->OpenRaw(At("a.bin"), RawMode::Create, error);
    ASSERT_TRUE(file);
    EXPECT_TRUE(file->Write(std::string("x"), count));
    EXPECT_TRUE(file->Close());
    EXPECT_EQ(Bytes("A.bin"), "x");
}

TEST_P(RawFiles, A_file_that_is_written_can_be_given_a_date) {
    Long error = 0;
    std::size_t written = 0;
    const auto file = files->OpenRaw(At("a.bin"), RawMode::Create, error);
    ASSERT_TRUE(file->Write(std::string("bytes"), written));
    file->SetTime(1'164'117'909);
    ASSERT_TRUE(file->Close());
    EXPECT_EQ(ModifiedAt(Host("a.bin")), 1'164'117'909);
    EXPECT_EQ(Bytes("a.bin"), "bytes");
}

TEST_P(RawFiles, Raw_opens_that_fail_tell_why) {
    fs::create_directory(Host("sub"));
    Put("locked.bin", "x");
    fs::permissions(Host("locked.bin"), fs::perms::owner_read);
    const auto open = [&](const std::string& path, RawMode mode) {
        Long error = 0;
        EXPECT_FALSE(files->OpenRaw(At(path), mode, error));
        return error;
    };
    for (const RawMode mode : {RawMode::Read, RawMode::ReadWrite})
        EXPECT_EQ(open("none.bin", mode), 53);
    EXPECT_EQ(open("none\\a.bin", RawMode::Read), 76);
    EXPECT_EQ(open("none\\a.bin", RawMode::Create), 76);
    EXPECT_EQ(open("sub", RawMode::Read), 70);
    EXPECT_EQ(open("sub", RawMode::Create), 70);
    EXPECT_EQ(open("new\\", RawMode::Create), 76);
    EXPECT_EQ(open("sub", RawMode::ReadWrite), 70);
    EXPECT_EQ(open("locked.bin", RawMode::Create), 70);
    EXPECT_EQ(open("locked.bin", RawMode::ReadWrite), 70);
    EXPECT_EQ(open("a?.bin", RawMode::Create), 52);
    EXPECT_EQ(Bytes("locked.bin"), "x");
}

TEST_P(RawFiles, ReadWhole_gives_all_bytes_and_fails_as_GetFile_does) {
    const std::string bytes(1'500'000, 'x');
    Put("a.bin", bytes);
    Put("empty.bin", "");
    EXPECT_EQ(files->ReadWhole(At("a.bin")), bytes);
    EXPECT_EQ(files->ReadWhole(At("empty.bin")), "");
    EXPECT_EQ(FailureOf([&] { files->ReadWhole(At("none.bin")); }), 53);
    EXPECT_EQ(FailureOf([&] { files->ReadWhole(At("none\\a.bin")); }), 53);
}

}  // namespace tavel::test
