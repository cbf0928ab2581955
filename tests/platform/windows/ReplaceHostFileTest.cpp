#include "platform/OnEachDrive.h"
#include "platform/ProfileFile.h"
#include "platform/windows/Handle.h"

#include <atomic>
#include <thread>

namespace tavel::test {

namespace {

class ReplacedFiles : public OnEachDrive {
  protected:
    void SetUp() override {
        OnEachDrive::SetUp();
        Put("db.txt", "old");
    }

    void TearDown() override { SetFileAttributesW(Host("db.txt").c_str(), FILE_ATTRIBUTE_NORMAL); }

    bool Replace(const std::string& bytes = "new") const {
        return ReplaceHostFile(
            temp.HostPath("card/db.txt"), [&](const ByteSink& sink) { sink(bytes); }, false);
    }
    // As another program opens it to read.
    Handle OpenAsAnother(const std::string& name, DWORD share) const {
        return Handle(CreateFileW(Host(name).c_str(), GENERIC_READ, share, nullptr, OPEN_EXISTING,
                                  FILE_ATTRIBUTE_NORMAL, nullptr));
    }
    bool IsHidden(const std::string& name) const {
        return (GetFileAttributesW(Host(name).c_str()) & FILE_ATTRIBUTE_HIDDEN) != 0;
    }
    void Hide(const std::string& name) const {
        SetFileAttributesW(Host(name).c_str(), FILE_ATTRIBUTE_HIDDEN);
    }

    static constexpr DWORD anything = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

    std::size_t FileCount() const { return files->GetFolder(root + "\\").Files.size(); }
    DWORD Attributes() const { return GetFileAttributesW(Host("db.txt").c_str()); }
};

INSTANTIATE_TEST_SUITE_P(Drives, ReplacedFiles, ::testing::Values('c', 'e'),
                         [](const auto& drive) { return std::string(1, drive.param); });

}  // namespace

TEST_P(ReplacedFiles, Another_file_takes_the_place_of_the_old_one) {
    const std::optional<FileStamp> before = StampOf(temp.HostPath("card/db.txt"));
    ASSERT_TRUE(Replace());
    EXPECT_NE(StampOf(temp.HostPath("card/db.txt"))->inode, before->inode);
    EXPECT_EQ(Bytes("db.txt"), "new");
    EXPECT_EQ(FileCount(), 1u);
}

TEST_P(ReplacedFiles, A_hidden_file_stays_hidden) {
    ASSERT_NE(SetFileAttributesW(Host("db.txt").c_str(), FILE_ATTRIBUTE_HIDDEN), 0);
    ASSERT_TRUE(Replace());
    EXPECT_NE(Attributes() & FILE_ATTRIBUTE_HIDDEN, 0u);
    EXPECT_EQ(Bytes("db.txt"), "new");
}

TEST_P(ReplacedFiles, A_read_only_file_is_not_written) {
    ASSERT_NE(SetFileAttributesW(Host("db.txt").c_str(), FILE_ATTRIBUTE_READONLY), 0);
    EXPECT_FALSE(Replace());
    EXPECT_NE(Attributes() & FILE_ATTRIBUTE_READONLY, 0u);
    EXPECT_EQ(Bytes("db.txt"), "old");
    EXPECT_EQ(FileCount(), 1u);
}

TEST_P(ReplacedFiles, What_a_killed_save_has_left_is_gone_with_the_next) {
    Put(".db.txt.new", "half");
    ASSERT_NE(SetFileAttributesW(Host(".db.txt.new").c_str(), FILE_ATTRIBUTE_READONLY), 0);
    ASSERT_TRUE(Replace());
    EXPECT_EQ(Bytes("db.txt"), "new");
    EXPECT_EQ(FileCount(), 1u);
}

// Every try to remove it begins with its attributes.
TEST_P(ReplacedFiles, What_a_killed_save_has_left_may_be_held_by_others_for_a_moment) {
    Put(".db.txt.new", "half");
    const std::optional<FileStamp> before = StampOf(temp.HostPath("card/db.txt"));
    Handle guard = OpenAsAnother(".db.txt.new", FILE_SHARE_READ);
    ASSERT_TRUE(guard.IsOpen());
    std::atomic<bool> isOver = false;
    Hide(".db.txt.new");
    std::thread other([&] {
        for (int tries = 0; tries < 2; ++tries) {
            while (IsHidden(".db.txt.new") && !isOver) std::this_thread::yield();
            if (tries == 0) Hide(".db.txt.new");
        }
        guard.Close();
    });
    EXPECT_TRUE(Replace());
    isOver = true;
    other.join();
    EXPECT_NE(StampOf(temp.HostPath("card/db.txt"))->inode, before->inode);
    EXPECT_EQ(Bytes("db.txt"), "new");
    EXPECT_EQ(FileCount(), 1u);
}

TEST_P(ReplacedFiles, Where_a_folder_has_the_name_of_the_temporary_file_it_is_written_in_place) {
    fs::create_directory(Host(".db.txt.new"));
    ASSERT_NE(SetFileAttributesW(Host(".db.txt.new").c_str(), FILE_ATTRIBUTE_HIDDEN), 0);
    const std::optional<FileStamp> before = StampOf(temp.HostPath("card/db.txt"));
    ASSERT_TRUE(Replace("much longer than before"));
    ASSERT_TRUE(Replace("x"));
    EXPECT_EQ(StampOf(temp.HostPath("card/db.txt"))->inode, before->inode);
    EXPECT_EQ(Bytes("db.txt"), "x");
    EXPECT_TRUE(fs::is_directory(Host(".db.txt.new")));
    EXPECT_NE(GetFileAttributesW(Host(".db.txt.new").c_str()) & FILE_ATTRIBUTE_HIDDEN, 0u);
}

TEST_P(ReplacedFiles, Others_can_read_the_temporary_file_and_not_write_it) {
    const bool isReplaced = ReplaceHostFile(
        temp.HostPath("card/db.txt"),
        [&](const ByteSink& sink) {
            Long error = 0;
            sink("mine");
            EXPECT_TRUE(OpenAsAnother(".db.txt.new", anything).IsOpen());
            EXPECT_FALSE(files->OpenRaw(At(".db.txt.new"), RawMode::Create, error));
            EXPECT_EQ(error, 70);
            EXPECT_EQ(FailureOf([&] { files->DeleteFile(At(".db.txt.new"), true); }), 70);
        },
        false);
    EXPECT_TRUE(isReplaced);
    EXPECT_EQ(Bytes("db.txt"), "mine");
}

TEST_P(ReplacedFiles, What_is_no_file_is_not_replaced) {
    fs::remove(Host("db.txt"));
    EXPECT_FALSE(Replace());
    fs::create_directory(Host("db.txt"));
    EXPECT_FALSE(Replace());
    EXPECT_EQ(FileCount(), 0u);
}

}  // namespace tavel::test
