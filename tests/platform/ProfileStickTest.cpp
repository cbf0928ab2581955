#include "platform/ProfileService.h"
#include "support/HostDrives.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace tavel::test {
namespace {

namespace fs = std::filesystem;

class ProfileOnAStick : public HostDrives {
  protected:
    void SetUp() override {
        Link('e', "stick");
        temp.Write("stick/id.txt", m_old);
        Service<FileService>::Use(files.get());
    }
    void TearDown() override { Service<FileService>::Use(nullptr); }

    bool Put(const std::string& value) const {
        return WritePrivateProfileString("s", "k", value, m_path);
    }
    std::string Get() const { return GetPrivateProfileString("s", "k", "(none)", 255, m_path); }

    const std::string m_path = "e:\\id.txt";
    const std::string m_old = "[s]\r\nk=old\r\n";
};

TEST_F(ProfileOnAStick, Is_read_and_written) {
    EXPECT_TRUE(ProfileFileExists(m_path));
    EXPECT_EQ(Get(), "old");
    EXPECT_TRUE(Put("new"));
    EXPECT_EQ(temp.Read("stick/id.txt"), "[s]\r\nk=new\r\n");
    EXPECT_EQ(Get(), "new");
    EXPECT_EQ(std::distance(fs::directory_iterator(temp.HostPath("stick")), {}), 1);
}

TEST_F(ProfileOnAStick, Is_gone_with_the_stick) {
    Unlink('e');
    EXPECT_FALSE(ProfileFileExists(m_path));
    EXPECT_EQ(Get(), "(none)");
    EXPECT_FALSE(Put("new"));
    EXPECT_EQ(temp.Read("stick/id.txt"), m_old);
}

TEST_F(ProfileOnAStick, A_stick_pulled_during_a_batch_is_not_written) {
    {
        const ProfileBatch batch(m_path);
        EXPECT_TRUE(Put("new"));
        Unlink('e');
    }
    EXPECT_EQ(temp.Read("stick/id.txt"), m_old);
}

}  // namespace
}  // namespace tavel::test
