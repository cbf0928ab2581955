#include "platform/OnEachDrive.h"
#include "platform/ProfileFile.h"
#include "platform/windows/Handle.h"

// What other programs have open.

namespace tavel::test {

namespace {

class Sharing : public OnEachDrive {
  protected:
    // As another program would open it.
    Handle Open(const std::string& path, DWORD access, DWORD share) const {
        return Handle(CreateFileW(Host(path).c_str(), access, share, nullptr, OPEN_EXISTING,
                                  FILE_ATTRIBUTE_NORMAL, nullptr));
    }

    static constexpr DWORD anything = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
};

INSTANTIATE_TEST_SUITE_P(Drives, Sharing, ::testing::Values('c', 'e'),
                         [](const auto& drive) { return std::string(1, drive.param); });

}  // namespace

TEST_P(Sharing, Others_may_read_what_is_open_for_reading_and_nothing_more) {
    Put("a.bin", "x");
    Long error = 0;
    const auto file = files->OpenRaw(At("a.bin"), RawMode::Read, error);
    ASSERT_TRUE(file);
    EXPECT_TRUE(Open("a.bin", GENERIC_READ, anything).IsOpen());
    EXPECT_FALSE(Open("a.bin", GENERIC_WRITE, anything).IsOpen());
    EXPECT_FALSE(Open("a.bin", DELETE, anything).IsOpen());
}

TEST_P(Sharing, What_others_write_is_not_read_meanwhile) {
    Put("a.bin", "x");
    const Handle writer = Open("a.bin", GENERIC_WRITE, anything);
    ASSERT_TRUE(writer.IsOpen());
    Long error = 0;
    for (const RawMode mode : {RawMode::Read, RawMode::ReadWrite}) {
        EXPECT_FALSE(files->OpenRaw(At("a.bin"), mode, error));
        EXPECT_EQ(error, 70);
    }
    EXPECT_EQ(FailureOf([&] { files->ReadWhole(At("a.bin")); }), 70);
    EXPECT_EQ(FailureOf([&] { files->CopyFile(At("a.bin"), At("b.bin"), true); }), 70);
    EXPECT_FALSE(Has("b.bin"));
    EXPECT_EQ(files->GetFile(At("a.bin")).Size, 1);
}

TEST_P(Sharing, What_is_written_may_be_read_and_written_by_others) {
    Put("a.bin", "x");
    Long error = 0;
    const auto file = files->OpenRaw(At("a.bin"), RawMode::Create, error);
    ASSERT_TRUE(file);
    EXPECT_TRUE(Open("a.bin", GENERIC_READ, anything).IsOpen());
    EXPECT_TRUE(Open("a.bin", GENERIC_WRITE, anything).IsOpen());
    EXPECT_TRUE(files->OpenRaw(At("a.bin"), RawMode::Create, error));
    EXPECT_FALSE(Open("a.bin", DELETE, anything).IsOpen());
}

TEST_P(Sharing, What_others_have_open_alone_is_neither_moved_nor_replaced_nor_deleted) {
    Put("a.bin", "x");
    Put("new.bin", "new");
    Handle other = Open("a.bin", GENERIC_READ, 0);
    ASSERT_TRUE(other.IsOpen());
    EXPECT_TRUE(files->FileExists(At("a.bin")));
    EXPECT_EQ(FailureOf([&] { files->DeleteFile(At("a.bin"), true); }), 70);
    EXPECT_EQ(FailureOf([&] { files->MoveFile(At("a.bin"), At("b.bin")); }), 70);
    EXPECT_EQ(FailureOf([&] { files->ReplaceFile(At("a.bin"), At("new.bin")); }), 70);
    EXPECT_EQ(FailureOf([&] { files->CopyFile(At("new.bin"), At("a.bin"), true); }), 70);
    EXPECT_TRUE(other.Close());
    EXPECT_EQ(Bytes("a.bin"), "x");
    EXPECT_EQ(Bytes("new.bin"), "new");
    files->ReplaceFile(At("a.bin"), At("new.bin"));
    EXPECT_EQ(Bytes("a.bin"), "new");
    EXPECT_FALSE(Has("new.bin"));
}

TEST_P(Sharing, A_failed_replacement_leaves_the_file_and_nothing_else) {
    Put("db.txt", "old");
    Handle other = Open("db.txt", GENERIC_READ, FILE_SHARE_READ);
    ASSERT_TRUE(other.IsOpen());
    const auto tell = [](const ByteSink& sink) { sink("new"); };
    EXPECT_FALSE(ReplaceHostFile(files->HostPath(At("db.txt")), tell, true));
    EXPECT_EQ(files->GetFolder(root + "\\").Files.size(), 1u);
    EXPECT_TRUE(other.Close());
    EXPECT_EQ(Bytes("db.txt"), "old");
    EXPECT_TRUE(ReplaceHostFile(files->HostPath(At("db.txt")), tell, true));
    EXPECT_EQ(Bytes("db.txt"), "new");
}

TEST_P(Sharing, A_file_that_others_let_be_written_and_not_replaced_is_written_in_place) {
    Put("db.txt", "a longer old text");
    const Handle other = Open("db.txt", GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE);
    ASSERT_TRUE(other.IsOpen());
    const auto tell = [](const ByteSink& sink) {
        sink("n");
        sink("ew");
    };
    EXPECT_TRUE(ReplaceHostFile(files->HostPath(At("db.txt")), tell, false));
    EXPECT_EQ(Bytes("db.txt"), "new");
    EXPECT_EQ(files->GetFolder(root + "\\").Files.size(), 1u);
}

// What is in another program's memory can't be made shorter, and half of a file is worse than the
// old one.
TEST_P(Sharing, What_others_have_in_their_memory_is_not_made_shorter) {
    Put("db.txt", "a longer old text");
    const Handle other = Open("db.txt", GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE);
    const HANDLE section = CreateFileMappingW(other.Get(), nullptr, PAGE_READONLY, 0, 0, nullptr);
    ASSERT_NE(section, nullptr);
    const void* seen = MapViewOfFile(section, FILE_MAP_READ, 0, 0, 0);
    ASSERT_NE(seen, nullptr);
    const auto tell = [](const ByteSink& sink) { sink("new"); };
    EXPECT_FALSE(ReplaceHostFile(files->HostPath(At("db.txt")), tell, false));
    EXPECT_EQ(Bytes("db.txt"), "a longer old text");
    UnmapViewOfFile(seen);
    CloseHandle(section);
    EXPECT_TRUE(ReplaceHostFile(files->HostPath(At("db.txt")), tell, false));
    EXPECT_EQ(Bytes("db.txt"), "new");
}

TEST_P(Sharing, What_others_have_open_alone_is_looked_at_and_listed_all_the_same) {
    Put("a.bin", "bytes");
    const Handle other = Open("a.bin", GENERIC_READ | GENERIC_WRITE, 0);
    ASSERT_TRUE(other.IsOpen());
    EXPECT_EQ(files->GetFile(At("a.bin")).Size, 5);
    EXPECT_EQ(files->GetFolder(root + "\\").Files.size(), 1u);
    // By the folder, where a file lets nobody ask.
    HostStatus asked;
    HostStatus listed;
    EXPECT_EQ(LookAt(Host("a.bin"), asked), 0u);
    EXPECT_EQ(LookInFolder(Host("a.bin"), listed), 0u);
    EXPECT_EQ(listed.size, 5);
    EXPECT_EQ(listed.attributes, asked.attributes);
    EXPECT_EQ(CompareFileTime(&listed.modified, &asked.modified), 0);
    EXPECT_EQ(LookInFolder(Host("none.bin"), listed), DWORD{ERROR_FILE_NOT_FOUND});
}

}  // namespace tavel::test
