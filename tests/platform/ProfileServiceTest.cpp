#include "platform/ProfileService.h"
#include "support/FaultyFileService.h"
#include "support/HostPlaces.h"
#include "support/Support.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace tavel::test {
namespace {

namespace fs = std::filesystem;

class ProfileService : public ::testing::Test {
  protected:
    std::string Get(const std::string& section, const std::string& key,
                    const std::string& defaultValue = "(none)") const {
        return GetPrivateProfileString(section, key, defaultValue, 255, m_path);
    }
    bool Put(const std::string& section, const std::string& key, const std::string& value) const {
        return WritePrivateProfileString(section, key, value, m_path);
    }
    void File(const std::string& bytes) const { m_folder.Write("db.txt", bytes); }
    std::string File() const { return m_folder.Read("db.txt"); }
    bool IsThere() const { return fs::exists(m_folder.HostPath("db.txt")); }

    TempFolder m_folder;
    std::string m_path = m_folder.DrivePath("db.txt");
};

TEST_F(ProfileService, A_missing_file_gives_defaults) {
    EXPECT_EQ(Get("s", "k", "default"), "default");
    EXPECT_EQ(GetPrivateProfileInt("s", "k", -7, m_path), static_cast<unsigned>(-7));
    EXPECT_FALSE(ProfileFileExists(m_path));
    EXPECT_FALSE(IsThere());
}

TEST_F(ProfileService, A_missing_section_or_key_gives_the_default) {
    File("[s]\r\nk=1\r\n");
    EXPECT_EQ(Get("t", "k", "d"), "d");
    EXPECT_EQ(Get("s", "l", "d"), "d");
    EXPECT_EQ(Get("", "k", "d"), "d");
    EXPECT_EQ(Get("s", "", "d"), "d");
    EXPECT_EQ(Get("S", "K", "d"), "1");
}

TEST_F(ProfileService, An_empty_value_is_a_value) {
    File("[s]\r\nk=\r\n");
    EXPECT_EQ(Get("s", "k", "d"), "");
}

TEST_F(ProfileService, Trailing_blanks_of_a_default_are_dropped) {
    EXPECT_EQ(Get("s", "k", " 'd' \t "), " 'd'");
    EXPECT_EQ(Get("s", "k", "  "), "");
}

TEST_F(ProfileService, A_value_is_cut_to_254_characters) {
    File("[s]\nk=" + std::string(254, 'a') + "\nl=" + std::string(255, 'b') + "\nq=\"" +
         std::string(254, 'c') + "\"\n");
    EXPECT_EQ(Get("s", "k"), std::string(254, 'a'));
    EXPECT_EQ(Get("s", "l"), std::string(254, 'b'));
    EXPECT_EQ(Get("s", "q"), std::string(254, 'c')) << "the quotes go before the cut";
}

TEST_F(ProfileService, The_cut_never_parts_a_character) {
    File("[s]\nk=" + std::string(253, 'a') + "\xC3\xA9\nl=" + std::string(253, 'a') +
         "\xC3\xA9x\n");
    EXPECT_EQ(Get("s", "k"), std::string(253, 'a') + "\xC3\xA9");
    EXPECT_EQ(Get("s", "l"), std::string(253, 'a') + "\xC3\xA9");
    EXPECT_EQ(Get("s", "none", std::string(253, 'd') + "\xC3\xA9\xC3\xA9"),
              std::string(253, 'd') + "\xC3\xA9");
}

TEST_F(ProfileService, The_size_counts_the_end_of_the_text) {
    File("[s]\nk=value\n");
    EXPECT_EQ(GetPrivateProfileString("s", "k", "d", 6, m_path), "value");
    EXPECT_EQ(GetPrivateProfileString("s", "k", "d", 5, m_path), "valu");
    EXPECT_EQ(GetPrivateProfileString("s", "k", "d", 1, m_path), "");
    EXPECT_EQ(GetPrivateProfileString("s", "k", "d", 0, m_path), "");
}

TEST_F(ProfileService, The_integer_read_takes_leading_sign_and_digits) {
    struct {
        const char* value;
        unsigned number;
    } const rows[] = {
        {"42", 42},     {"42A9", 42},      {"B4", 0},         {"+1", 1},
        {"-1", 0U - 1}, {"4294967296", 0}, {"4294967297", 1}, {"1.9", 1},
        {"", 7},        {"-", 0},          {" 5", 5},         {"2147483648", 2147483648U},
    };
    for (const auto& row : rows) {
        File(std::string("[s]\nk=") + row.value + "\n");
        EXPECT_EQ(GetPrivateProfileInt("s", "k", 7, m_path), row.number) << row.value;
    }
}

TEST_F(ProfileService, A_write_reaches_the_file_at_once) {
    File("[s]\r\nk=1\r\n");
    EXPECT_TRUE(Put("S", "K", "2"));
    EXPECT_EQ(File(), "[s]\r\nk=2\r\n");
    EXPECT_TRUE(Put("t", "k", "3"));
    EXPECT_EQ(File(), "[s]\r\nk=2\r\n[t]\r\nk=3\r\n");
    EXPECT_EQ(Get("t", "k"), "3");
}

TEST_F(ProfileService, A_write_creates_the_file_but_no_folder) {
    EXPECT_TRUE(Put("s", "k", "1"));
    EXPECT_EQ(File(), "[s]\r\nk=1\r\n");
    EXPECT_FALSE(WritePrivateProfileString("s", "k", "1", m_folder.DrivePath("none\\db.txt")));
    EXPECT_FALSE(fs::exists(m_folder.HostPath("none")));
}

TEST_F(ProfileService, A_name_that_could_not_be_found_again_creates_no_file) {
    EXPECT_FALSE(Put("s", "a=b", "1"));
    EXPECT_FALSE(Put("s]", "a", "1"));
    EXPECT_FALSE(IsThere());
}

TEST_F(ProfileService, A_folder_is_no_profile) {
    fs::create_directory(m_folder.HostPath("db.txt"));
    EXPECT_FALSE(ProfileFileExists(m_path));
    EXPECT_EQ(Get("s", "k", "d"), "d");
    EXPECT_FALSE(Put("s", "k", "1"));
    EXPECT_TRUE(fs::is_empty(m_folder.HostPath("db.txt")));
}

TEST_F(ProfileService, A_hidden_file_does_not_count_as_existing_but_reads) {
    m_folder.Write(".db.txt", "[s]\nk=1\n");
    Hide(AsHostPath(m_folder.HostPath(".db.txt")));
    const std::string path = m_folder.DrivePath(".db.txt");
    EXPECT_FALSE(ProfileFileExists(path));
    EXPECT_EQ(GetPrivateProfileString("s", "k", "d", 255, path), "1");
}

TEST_F(ProfileService, An_ordinary_file_exists_and_nonsense_does_not) {
    File("");
    EXPECT_TRUE(ProfileFileExists(m_path));
    EXPECT_TRUE(ProfileFileExists(m_folder.DrivePath("DB.TXT")));
    EXPECT_FALSE(ProfileFileExists(""));
    EXPECT_FALSE(ProfileFileExists("7:\\db.txt"));
    EXPECT_FALSE(ProfileFileExists(m_path + "\\"));
    EXPECT_FALSE(ProfileFileExists(m_folder.DrivePath("d?.txt")));
}

using ProfileBatching = ProfileService;

TEST_F(ProfileBatching, What_is_written_reaches_the_file_when_the_batch_ends) {
    const std::string before = "[s]\r\nk=1\r\n";
    File(before);
    {
        const ProfileBatch batch(m_path);
        EXPECT_TRUE(Put("s", "k", "2"));
        EXPECT_TRUE(Put("t", "k", "3"));
        EXPECT_EQ(File(), before);
        EXPECT_EQ(Get("s", "k"), "2");
        EXPECT_EQ(Get("T", "K"), "3");
    }
    EXPECT_EQ(File(), "[s]\r\nk=2\r\n[t]\r\nk=3\r\n");
    EXPECT_EQ(Get("t", "k"), "3");
}

TEST_F(ProfileBatching, A_failure_brings_what_was_written_to_the_file_too) {
    File("[s]\r\nk=1\r\n");
    try {
        const ProfileBatch batch(m_path);
        Put("s", "k", "2");
        Fail(failure::Overflow);
    } catch (const Failure&) {
        EXPECT_EQ(File(), "[s]\r\nk=2\r\n");
    }
    EXPECT_TRUE(Put("s", "k", "3"));
    EXPECT_EQ(File(), "[s]\r\nk=3\r\n") << "the batch is over";
}

TEST_F(ProfileBatching, The_file_is_looked_at_once) {
    File("[s]\r\nk=1\r\n");
    const ProfileBatch batch(m_path);
    File("[s]\r\nk=other\r\n");
    EXPECT_EQ(Get("s", "k"), "1");
    fs::remove(m_folder.HostPath("db.txt"));
    EXPECT_EQ(Get("s", "k"), "1");
    EXPECT_TRUE(ProfileFileExists(m_path));
}

TEST_F(ProfileBatching, A_missing_file_stays_missing_for_the_batch_and_is_not_made_by_it) {
    {
        const ProfileBatch batch(m_path);
        EXPECT_FALSE(ProfileFileExists(m_path));
        EXPECT_EQ(Get("s", "k", "d"), "d");
    }
    EXPECT_FALSE(IsThere());
}

TEST_F(ProfileBatching, A_missing_file_is_made_when_something_is_written) {
    {
        const ProfileBatch batch(m_path);
        EXPECT_TRUE(Put("s", "k", "1"));
        EXPECT_FALSE(IsThere());
        EXPECT_FALSE(ProfileFileExists(m_path));
    }
    EXPECT_EQ(File(), "[s]\r\nk=1\r\n");
}

TEST_F(ProfileBatching, A_file_that_went_meanwhile_is_not_made_anew) {
    File("[s]\r\nk=1\r\n");
    {
        const ProfileBatch batch(m_path);
        Put("s", "k", "2");
        fs::remove(m_folder.HostPath("db.txt"));
    }
    EXPECT_FALSE(IsThere());
}

TEST_F(ProfileBatching, Another_spelling_of_the_path_is_the_same_file) {
    File("[s]\r\nk=1\r\n");
    const ProfileBatch batch(m_path);
    EXPECT_TRUE(WritePrivateProfileString("s", "k", "2", m_folder.DrivePath("DB.txt")));
    EXPECT_EQ(Get("s", "k"), "2");
    EXPECT_EQ(File(), "[s]\r\nk=1\r\n");
}

TEST_F(ProfileBatching, Another_file_is_written_at_once) {
    File("[s]\r\nk=1\r\n");
    m_folder.Write("other.txt", "");
    const ProfileBatch batch(m_path);
    EXPECT_TRUE(WritePrivateProfileString("s", "k", "2", m_folder.DrivePath("other.txt")));
    EXPECT_EQ(m_folder.Read("other.txt"), "[s]\r\nk=2\r\n");
    EXPECT_EQ(Get("s", "k"), "1");
}

TEST_F(ProfileBatching, Another_file_that_cannot_be_looked_for_is_a_missing_one) {
    FaultyFileService files;
    const std::string other = m_folder.DrivePath("other.txt");
    m_folder.Write("other.txt", "");
    Service<FileService>::Use(&files);
    {
        const ProfileBatch batch(m_path);
        EXPECT_TRUE(ProfileFileExists(other));
        files.FailOn("HostPath " + other, failure::DeviceIO);
        EXPECT_FALSE(ProfileFileExists(other));
    }
    Service<FileService>::Use(nullptr);
}

TEST_F(ProfileBatching, A_failure_at_its_end_is_not_noticed) {
    const std::string before = "[s]\r\nk=1\r\n";
    File(before);
    FaultyFileService files;
    Service<FileService>::Use(&files);
    {
        const ProfileBatch batch(m_path);
        EXPECT_TRUE(Put("s", "k", "2"));
        files.FailOn("HostPath", failure::DeviceIO);
    }
    Service<FileService>::Use(nullptr);
    EXPECT_EQ(File(), before);
    EXPECT_EQ(Get("s", "k"), "1");
    EXPECT_TRUE(Put("s", "k", "3")) << "the batch is over";
    EXPECT_EQ(File(), "[s]\r\nk=3\r\n");
}

TEST_F(ProfileBatching, A_batch_within_joins_and_one_on_another_file_is_refused) {
    File("[s]\r\nk=1\r\n");
    const std::string other = m_folder.DrivePath("other.txt");
    {
        const ProfileBatch batch(m_path);
        {
            const ProfileBatch within(m_path);
            Put("s", "k", "2");
        }
        EXPECT_EQ(File(), "[s]\r\nk=1\r\n");
        EXPECT_EQ(FailureOf([&] { const ProfileBatch second(other); }),
                  failure::InvalidProcedureCall);
    }
    EXPECT_EQ(File(), "[s]\r\nk=2\r\n");
}

}  // namespace
}  // namespace tavel::test
