#include "platform/FileService.h"
#include "platform/ProfileFile.h"
#include "platform/ProfileService.h"
#include "support/Support.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <string>
#include <vector>

namespace tavel::test {
namespace {

namespace fs = std::filesystem;

class ProfileFile : public ::testing::Test {
  protected:
    void SetUp() override { m_folder.Write("db.txt", m_old); }

    std::vector<std::string> Names() const {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(m_folder.HostPath())) {
            names.push_back(entry.path().filename().string());
        }
        std::sort(names.begin(), names.end());
        return names;
    }
    bool Put(const std::string& value) const {
        return WritePrivateProfileString("s", "k", value, m_folder.DrivePath("db.txt"));
    }
    std::string Get() const {
        return GetPrivateProfileString("s", "k", "(none)", 255, m_folder.DrivePath("db.txt"));
    }

    TempFolder m_folder;
    const std::string m_path = oFSO().HostPath(m_folder.DrivePath("db.txt"));
    const std::string m_old = "[s]\r\nk=old\r\n";
    const std::string m_new = "[s]\r\nk=new\r\n";
    const std::vector<std::string> m_alone{"db.txt"};
};

TEST_F(ProfileFile, An_unchanged_value_writes_nothing) {
    const auto before = StampOf(m_path);
    EXPECT_TRUE(Put("old"));
    {
        const ProfileBatch batch(m_folder.DrivePath("db.txt"));
        EXPECT_TRUE(Put("old"));
    }
    EXPECT_EQ(StampOf(m_path), before);
}

TEST_F(ProfileFile, What_a_killed_save_has_left_is_gone_with_the_next) {
    m_folder.Write(".db.txt.new", "half");
    const std::vector<std::string> both{".db.txt.new", "db.txt"};
    ASSERT_EQ(Names(), both);
    ASSERT_TRUE(Put("new"));
    EXPECT_EQ(m_folder.Read("db.txt"), m_new);
    EXPECT_EQ(Names(), m_alone);
}

TEST_F(ProfileFile, A_file_beyond_the_limit_is_not_read) {
    std::string bytes;
    FileStamp stamp;
    EXPECT_TRUE(ReadHostFile(m_path, m_old.size(), bytes, stamp));
    EXPECT_EQ(bytes, m_old);
    EXPECT_FALSE(ReadHostFile(m_path, m_old.size() - 1, bytes, stamp));
}

TEST_F(ProfileFile, A_large_file_that_changes_under_the_same_size_is_read_again_at_once) {
    const std::string filling(100'000, ';');
    for (int i = 0; i < 200; ++i) {
        m_folder.Write("db.txt", (i % 2 == 0 ? m_new : m_old) + filling);
        ASSERT_EQ(Get(), i % 2 == 0 ? "new" : "old") << i;
    }
}

TEST_F(ProfileFile, A_large_file_is_written_and_reads_back) {
    const std::string filling(100'000, ';');
    m_folder.Write("db.txt", m_old + filling);
    for (int i = 0; i < 10; ++i) {
        ASSERT_TRUE(Put(std::to_string(i)));
        ASSERT_EQ(Get(), std::to_string(i));
    }
    EXPECT_EQ(m_folder.Read("db.txt"), "[s]\r\nk=9\r\n" + filling);
    EXPECT_EQ(Names(), m_alone);
}

TEST_F(ProfileFile, A_change_as_young_as_the_clock_may_go_on_unseen) {
    FileStamp stamp;
    const auto now = std::chrono::duration_cast<std::chrono::nanoseconds>(
        std::chrono::system_clock::now().time_since_epoch());
    constexpr std::int64_t second = 1'000'000'000;
    stamp.changed = now.count();
    EXPECT_TRUE(MayChangeUnseen(stamp));
    stamp.changed = (now.count() - second) | 1;
    EXPECT_FALSE(MayChangeUnseen(stamp));
    stamp.changed = (now.count() + 3600 * second) | 1;
    EXPECT_FALSE(MayChangeUnseen(stamp)) << "a clock that was set back";
    stamp.changed = (now.count() / second - 1) * second;
    EXPECT_TRUE(MayChangeUnseen(stamp)) << "a file system that counts whole seconds";
    stamp.changed -= 2 * second;
    EXPECT_FALSE(MayChangeUnseen(stamp));
}

TEST_F(ProfileFile, A_write_takes_effect_at_once_and_leaves_nothing_else) {
    ASSERT_TRUE(Put("new"));
    EXPECT_EQ(m_folder.Read("db.txt"), m_new);
    EXPECT_EQ(Get(), "new");
    EXPECT_EQ(Names(), m_alone);
}

TEST_F(ProfileFile, A_stamp_tells_one_state_from_another) {
    const auto before = StampOf(m_path);
    ASSERT_TRUE(before);
    EXPECT_EQ(before->size, m_old.size());
    EXPECT_EQ(StampOf(m_path), before);
    m_folder.Write("db.txt", m_old + m_new);
    EXPECT_NE(StampOf(m_path), before) << "another size";
    m_folder.Write("db.txt", m_old);
    fs::last_write_time(m_path, fs::last_write_time(m_path) - std::chrono::hours(1));
    EXPECT_NE(StampOf(m_path), before) << "another time";
    m_folder.Write("other.txt", m_old);
    EXPECT_NE(StampOf(oFSO().HostPath(m_folder.DrivePath("other.txt"))), StampOf(m_path));
}

TEST_F(ProfileFile, What_is_no_file_has_no_stamp_and_no_bytes) {
    fs::create_directory(m_folder.HostPath("folder"));
    for (const std::string& path : {m_folder.HostPath("folder"), m_folder.HostPath("none")}) {
        std::string bytes;
        FileStamp stamp;
        EXPECT_FALSE(StampOf(path)) << path;
        EXPECT_FALSE(ReadHostFile(path, 100, bytes, stamp)) << path;
    }
}

}  // namespace
}  // namespace tavel::test
