#include "platform/ProfileFile.h"
#include "platform/ProfileService.h"
#include "support/Support.h"
#include "support/linux/FileSizeLimit.h"
#include "support/linux/PlainUser.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace tavel::test {
namespace {

namespace fs = std::filesystem;

// How many bytes the process has read so far.
unsigned long long BytesRead() {
    std::ifstream counters("/proc/self/io");
    std::string name;
    unsigned long long value = 0;
    counters >> name >> value;
    EXPECT_EQ(name, "rchar:");
    return value;
}

class ProfileFileOnLinux : public ::testing::Test {
  protected:
    void SetUp() override {
        chmod(m_folder.HostPath().c_str(), 0755);
        m_folder.Write("db.txt", m_old);
    }

    struct stat Status(const std::string& name) const {
        struct stat status {};
        EXPECT_EQ(lstat(m_folder.HostPath(name).c_str(), &status), 0);
        return status;
    }
    std::vector<std::string> Names() const {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(m_folder.HostPath())) {
            names.push_back(entry.path().filename());
        }
        std::sort(names.begin(), names.end());
        return names;
    }
    bool Put(const std::string& value, const std::string& name = "db.txt") const {
        return WritePrivateProfileString("s", "k", value, m_folder.DrivePath(name));
    }
    std::string Get(const std::string& name = "db.txt") const {
        return GetPrivateProfileString("s", "k", "(none)", 255, m_folder.DrivePath(name));
    }

    TempFolder m_folder;
    const std::string m_old = "[s]\r\nk=old\r\n";
    const std::string m_new = "[s]\r\nk=new\r\n";
    const std::vector<std::string> m_alone{"db.txt"};
};

TEST_F(ProfileFileOnLinux, Another_file_takes_the_place_of_the_old_one) {
    const std::string path = m_folder.HostPath("db.txt");
    std::ifstream reader(path);
    const auto before = Status("db.txt").st_ino;
    ASSERT_TRUE(Put("new"));
    EXPECT_NE(Status("db.txt").st_ino, before);
    EXPECT_EQ(m_folder.Read("db.txt"), m_new);
    EXPECT_EQ(Names(), m_alone);
    const std::string seen{std::istreambuf_iterator<char>(reader), {}};
    EXPECT_EQ(seen, m_old) << "who has the file open still sees all of the old bytes";
}

TEST_F(ProfileFileOnLinux, Mode_and_owner_are_kept) {
    const std::string path = m_folder.HostPath("db.txt");
    if (geteuid() == 0) {
        ASSERT_EQ(chown(path.c_str(), 1234, 2345), 0);
    }
    ASSERT_EQ(chmod(path.c_str(), 0646), 0);
    const struct stat before = Status("db.txt");
    ASSERT_TRUE(Put("new"));
    const struct stat after = Status("db.txt");
    EXPECT_EQ(after.st_mode, before.st_mode);
    EXPECT_EQ(after.st_uid, before.st_uid);
    EXPECT_EQ(after.st_gid, before.st_gid);
}

TEST_F(ProfileFileOnLinux, A_link_stays_a_link_and_its_file_is_written) {
    fs::create_directory(m_folder.HostPath("kept"));
    fs::rename(m_folder.HostPath("db.txt"), m_folder.HostPath("kept/real.txt"));
    fs::create_symlink("kept/real.txt", m_folder.HostPath("db.txt"));
    ASSERT_TRUE(Put("new"));
    EXPECT_TRUE(S_ISLNK(Status("db.txt").st_mode));
    EXPECT_EQ(m_folder.Read("kept/real.txt"), m_new);
    EXPECT_EQ(Get(), "new");
}

TEST_F(ProfileFileOnLinux, Where_the_folder_cannot_be_written_the_file_is_written_in_place) {
    for (const mode_t mode : {mode_t{0555}, mode_t{01777}}) {
        m_folder.Write("db.txt", "[s]\r\nk=a value longer than the new one\r\n");
        chmod(m_folder.HostPath("db.txt").c_str(), 0666);
        chmod(m_folder.HostPath().c_str(), mode);
        const auto before = Status("db.txt").st_ino;
        {
            const PlainUser nobody;
            EXPECT_TRUE(Put("new"));
        }
        chmod(m_folder.HostPath().c_str(), 0755);
        EXPECT_EQ(m_folder.Read("db.txt"), m_new);
        EXPECT_EQ(Names(), m_alone);
        // In a folder like /tmp the owner may replace a file, and nobody else.
        if (geteuid() == 0 || mode == 0555) {
            EXPECT_EQ(Status("db.txt").st_ino, before);
        }
    }
}

TEST_F(ProfileFileOnLinux, Nothing_that_lies_under_the_name_of_the_temporary_file_is_written) {
    const TempFolder outside;
    outside.Write("own.txt", "own");
    fs::create_symlink(outside.HostPath("own.txt"), m_folder.HostPath(".db.txt.new"));
    ASSERT_TRUE(Put("new"));
    fs::create_hard_link(outside.HostPath("own.txt"), m_folder.HostPath(".db.txt.new"));
    ASSERT_TRUE(Put("newer"));
    ASSERT_EQ(mkfifo(m_folder.HostPath(".db.txt.new").c_str(), 0600), 0);
    ASSERT_TRUE(Put("new"));
    EXPECT_EQ(outside.Read("own.txt"), "own");
    EXPECT_EQ(m_folder.Read("db.txt"), m_new);
    EXPECT_TRUE(S_ISREG(Status("db.txt").st_mode));
    EXPECT_EQ(Names(), m_alone);
}

TEST_F(ProfileFileOnLinux,
       Where_a_folder_has_the_name_of_the_temporary_file_it_is_written_in_place) {
    m_folder.Write(".db.txt.new/a.txt", "own");
    const auto before = Status("db.txt").st_ino;
    ASSERT_TRUE(Put("new"));
    EXPECT_EQ(m_folder.Read("db.txt"), m_new);
    EXPECT_EQ(Status("db.txt").st_ino, before);
    EXPECT_EQ(m_folder.Read(".db.txt.new/a.txt"), "own");
}

TEST_F(ProfileFileOnLinux, A_save_that_another_one_overtakes_leaves_that_ones_file_alone) {
    const bool isReplaced = ReplaceHostFile(
        m_folder.HostPath("db.txt"),
        [&](const ByteSink& sink) {
            sink("mine");
            fs::remove(m_folder.HostPath(".db.txt.new"));
            m_folder.Write(".db.txt.new", "half of the other one's");
        },
        false);
    EXPECT_FALSE(isReplaced);
    EXPECT_EQ(m_folder.Read("db.txt"), m_old);
    EXPECT_EQ(m_folder.Read(".db.txt.new"), "half of the other one's");
}

TEST_F(ProfileFileOnLinux, A_write_protected_file_is_not_written) {
    chmod(m_folder.HostPath().c_str(), 0777);
    chmod(m_folder.HostPath("db.txt").c_str(), 0444);
    {
        const PlainUser nobody;
        EXPECT_FALSE(Put("new"));
    }
    EXPECT_EQ(m_folder.Read("db.txt"), m_old);
    EXPECT_EQ(Names(), m_alone);
    EXPECT_EQ(Get(), "old") << "what could not be written is not in memory either";
}

TEST_F(ProfileFileOnLinux, A_file_that_cannot_be_read_gives_defaults_and_is_not_overwritten) {
    chmod(m_folder.HostPath().c_str(), 0777);
    chmod(m_folder.HostPath("db.txt").c_str(), 0222);
    {
        const PlainUser nobody;
        EXPECT_EQ(Get(), "(none)");
        EXPECT_FALSE(Put("new"));
        const ProfileBatch batch(m_folder.DrivePath("db.txt"));
        EXPECT_EQ(Get(), "(none)");
        EXPECT_FALSE(Put("new"));
    }
    chmod(m_folder.HostPath("db.txt").c_str(), 0644);
    EXPECT_EQ(m_folder.Read("db.txt"), m_old);
}

TEST_F(ProfileFileOnLinux, A_full_disk_leaves_the_old_bytes_and_nothing_else) {
    bool isWritten = true;
    {
        const FileSizeLimit limit(100);
        isWritten = Put(std::string(200, 'x'));
    }
    EXPECT_FALSE(isWritten);
    EXPECT_EQ(m_folder.Read("db.txt"), m_old);
    EXPECT_EQ(Names(), m_alone);
    EXPECT_EQ(Get(), "old");
}

TEST_F(ProfileFileOnLinux, A_full_disk_at_the_end_of_a_batch_leaves_the_old_bytes) {
    {
        const FileSizeLimit limit(100);
        const ProfileBatch batch(m_folder.DrivePath("db.txt"));
        Put(std::string(200, 'x'));
    }
    EXPECT_EQ(m_folder.Read("db.txt"), m_old);
    EXPECT_EQ(Names(), m_alone);
    EXPECT_EQ(Get(), "old");
}

TEST_F(ProfileFileOnLinux, A_pipe_is_no_profile_and_stops_nobody) {
    ASSERT_EQ(mkfifo(m_folder.HostPath("pipe").c_str(), 0600), 0);
    std::string bytes;
    FileStamp stamp;
    EXPECT_FALSE(ReadHostFile(m_folder.HostPath("pipe"), 100, bytes, stamp));
    EXPECT_FALSE(StampOf(m_folder.HostPath("pipe")));
    EXPECT_EQ(Get("pipe"), "(none)");
}

TEST_F(ProfileFileOnLinux, A_large_file_that_has_not_changed_is_not_read_again) {
    const std::string large = m_old + std::string(200'000, ';');
    m_folder.Write("db.txt", large);
    const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    unsigned long long spent = 0;
    do {
        const unsigned long long before = BytesRead();
        for (int i = 0; i < 100; ++i) ASSERT_EQ(Get(), "old");
        spent = BytesRead() - before;
    } while (spent >= large.size() && std::chrono::steady_clock::now() < limit);
    EXPECT_LT(spent, large.size());
    m_folder.Write("db.txt", m_new + std::string(200'000, ';'));
    EXPECT_EQ(Get(), "new");
}

}  // namespace
}  // namespace tavel::test
