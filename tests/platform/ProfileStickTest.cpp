#include "platform/ProfileService.h"
#include "support/Support.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace tavel::test {
namespace {

namespace fs = std::filesystem;

// A letter of its own for each test, since tests run side by side.
std::string LetterOfThisTest() {
    const auto* const suite = ::testing::UnitTest::GetInstance()->current_test_suite();
    const auto* const test = ::testing::UnitTest::GetInstance()->current_test_info();
    char letter = 'q';
    for (int i = 0; suite->GetTestInfo(i) != test; ++i) ++letter;
    return {letter};
}

// A profile on a stick: a folder that is linked as a drive beside the program.
class ProfileOnAStick : public ::testing::Test {
  protected:
    void SetUp() override {
        m_stick.Write("id.txt", m_old);
        fs::create_directories(m_link.parent_path());
        fs::remove(m_link);
        fs::create_directory_symlink(m_stick.HostPath(), m_link);
    }
    void TearDown() override { fs::remove(m_link); }

    bool Put(const std::string& value) const {
        return WritePrivateProfileString("s", "k", value, m_path);
    }
    std::string Get() const { return GetPrivateProfileString("s", "k", "(none)", 255, m_path); }

    TempFolder m_stick;
    const std::string m_letter = LetterOfThisTest();
    const fs::path m_link = fs::read_symlink("/proc/self/exe").parent_path() / "drives" / m_letter;
    const std::string m_path = m_letter + ":\\id.txt";
    const std::string m_old = "[s]\r\nk=old\r\n";
};

TEST_F(ProfileOnAStick, Is_read_and_written) {
    EXPECT_TRUE(ProfileFileExists(m_path));
    EXPECT_EQ(Get(), "old");
    EXPECT_TRUE(Put("new"));
    EXPECT_EQ(m_stick.Read("id.txt"), "[s]\r\nk=new\r\n");
    EXPECT_EQ(Get(), "new");
    EXPECT_EQ(std::distance(fs::directory_iterator(m_stick.HostPath()), {}), 1);
}

TEST_F(ProfileOnAStick, Is_gone_with_the_stick) {
    fs::remove(m_link);
    EXPECT_FALSE(ProfileFileExists(m_path));
    EXPECT_EQ(Get(), "(none)");
    EXPECT_FALSE(Put("new"));
    EXPECT_EQ(m_stick.Read("id.txt"), m_old);
}

TEST_F(ProfileOnAStick, A_stick_pulled_during_a_batch_is_not_written) {
    {
        const ProfileBatch batch(m_path);
        EXPECT_TRUE(Put("new"));
        fs::remove(m_link);
    }
    EXPECT_EQ(m_stick.Read("id.txt"), m_old);
}

// Whoever made the stick could have any file of the user's written otherwise.
TEST_F(ProfileOnAStick, A_link_that_leads_out_of_the_stick_is_no_profile) {
    const TempFolder outside;
    outside.Write("own.txt", m_old);
    fs::remove(m_stick.HostPath("id.txt"));
    fs::create_symlink(outside.HostPath("own.txt"), m_stick.HostPath("id.txt"));
    EXPECT_FALSE(ProfileFileExists(m_path));
    EXPECT_EQ(Get(), "(none)");
    EXPECT_FALSE(Put("new"));
    EXPECT_EQ(outside.Read("own.txt"), m_old);
    EXPECT_TRUE(fs::is_symlink(m_stick.HostPath("id.txt")));
}

}  // namespace
}  // namespace tavel::test
