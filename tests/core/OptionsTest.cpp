#include "core/Options.h"
#include "core/PublicStuff.h"
#include "core/UsefulFunctions.h"
#include "core/modRegistry.h"
#include "platform/Failure.h"
#include "support/Support.h"

#include <filesystem>

namespace tavel::test {
namespace {

using Texts = std::vector<std::string>;

class Options : public ::testing::Test {
  protected:
    Options() { sDBFile = temp.DrivePath("db.txt"); }
    ~Options() override { ResetPublicStuff(); }

    void Contain(const std::string& text) const { temp.Write("db.txt", text); }

    TempFolder temp;
};

// The keys in the order in which they are read, each with a value and what it is read as.
constexpr const char* Keys[][2] = {{"bFirstTime", "1"},
                                   {"bGroupZip", "1"},
                                   {"bAutoGroup", "1"},
                                   {"bScanOnAppStart", "1"},
                                   {"bAddHiddenFiles", "1"},
                                   {"iVidThumbMode", "2"},
                                   {"sDefaultDBPath", "c:\\Media"}};

// What the options hold, in the same order.
Texts Values() {
    return {std::to_string(bFirstTime),
            std::to_string(bGroupZip),
            std::to_string(bAutoGroup),
            std::to_string(bScanOnAppStart),
            std::to_string(bAddHiddenFiles),
            std::to_string(iVidThumbMode),
            sDefaultDBPath};
}

TEST_F(Options, LoadOptions_reads_each_key_into_its_own_variable) {
    std::string all = "[options]\r\n";
    Texts allValues;
    for (std::size_t i = 0; i < std::size(Keys); ++i) {
        const std::string line = std::string(Keys[i][0]) + "=" + Keys[i][1] + "\r\n";
        all += line;
        allValues.push_back(Keys[i][1]);
        Contain("[options]\r\n" + line);
        LoadOptions();
        Texts expected(std::size(Keys), "0");
        expected[i] = Keys[i][1];
        EXPECT_EQ(Values(), expected) << line;
    }
    Contain(all);
    LoadOptions();
    EXPECT_EQ(Values(), allValues);
}

TEST_F(Options, LoadOptions_takes_0_for_every_missing_key_and_for_all_without_the_file) {
    for (const bool isThere : {false, true}) {
        if (isThere) Contain("");
        bFirstTime = bGroupZip = bAutoGroup = bScanOnAppStart = bAddHiddenFiles = true;
        iVidThumbMode = 7;
        sDefaultDBPath = "before";
        LoadOptions();
        EXPECT_EQ(Values(), Texts(std::size(Keys), "0"));
    }
}

TEST_F(Options, LoadOptions_fails_on_text_that_does_not_convert) {
    for (const char* line :
         {"bFirstTime=", "bFirstTime=yes", "bGroupZip=x", "bAutoGroup=", "bScanOnAppStart=on",
          "bAddHiddenFiles=", "iVidThumbMode=", "iVidThumbMode=two"}) {
        Contain(std::string("[options]\r\n") + line + "\r\n");
        EXPECT_EQ(FailureOf(LoadOptions), failure::TypeMismatch) << line;
    }
    Contain("[options]\r\niVidThumbMode=40000\r\n");
    EXPECT_EQ(FailureOf(LoadOptions), failure::Overflow);
}

TEST_F(Options, LoadOptions_reads_in_its_fixed_order_up_to_a_failure) {
    for (std::size_t bad = 0; bad + 1 < std::size(Keys); ++bad) {
        ResetPublicStuff();
        sDBFile = temp.DrivePath("db.txt");
        Texts expected = Values();
        std::string text;
        for (std::size_t i = 0; i < std::size(Keys); ++i) {
            const std::string value = i == bad ? "bad" : Keys[i][1];
            text = std::string(Keys[i][0]) + "=" + value + "\r\n" + text;  // the last one first
            if (i < bad) expected[i] = value;
        }
        Contain("[options]\r\n" + text);
        EXPECT_EQ(FailureOf(LoadOptions), failure::TypeMismatch);
        EXPECT_EQ(Values(), expected) << Keys[bad][0];
    }
}

TEST_F(Options, LoadSupportedExts_reads_each_list) {
    Contain(
        "[musicsupport]\r\nno=2\r\n0=mp3\r\n1=wav\r\n"
        "[videosupport]\r\nno=1\r\n0=mp4\r\n1=unread\r\n"
        "[photosupport]\r\nno=1\r\n0=jpg\r\n");
    LoadSupportedExts();
    EXPECT_EQ(sMusicSupport, (std::vector<std::string>{"mp3", "wav"}));
    EXPECT_EQ(sVideoSupport, (std::vector<std::string>{"mp4"}));
    EXPECT_EQ(sPhotoSupport, (std::vector<std::string>{"jpg"}));
}

TEST_F(Options, A_missing_extension_is_one_that_no_file_has) {
    Contain(
        "[musicsupport]\r\nno=3\r\n0=mp3\r\n2=wav\r\n[videosupport]\r\nno=1\r\n0=mp4\r\n"
        "[photosupport]\r\nno=1\r\n0=\r\n");
    LoadSupportedExts();
    EXPECT_EQ(sMusicSupport, (std::vector<std::string>{"mp3", "XYZXYZ", "wav"}));
    EXPECT_EQ(sPhotoSupport, (std::vector<std::string>{""}));
}

TEST_F(Options, A_list_without_entries_fails) {
    for (const char* count : {"no=0\r\n", "", "no=many\r\n", "no=-3\r\n"}) {
        Contain(std::string("[musicsupport]\r\nno=1\r\n0=mp3\r\n[videosupport]\r\n") + count);
        EXPECT_EQ(FailureOf(LoadSupportedExts), failure::SubscriptOutOfRange) << count;
        EXPECT_EQ(sMusicSupport, (std::vector<std::string>{"mp3"}));
    }
    Contain("[musicsupport]\r\nno=-32768\r\n");
    EXPECT_EQ(FailureOf(LoadSupportedExts), failure::Overflow);
}

TEST_F(Options, The_lists_are_read_music_first_and_photos_last_up_to_a_failure) {
    Contain(
        "[photosupport]\r\nno=1\r\n0=jpg\r\n[musicsupport]\r\nno=1\r\n0=mp3\r\n"
        "[videosupport]\r\nno=0\r\n");
    EXPECT_EQ(FailureOf(LoadSupportedExts), failure::SubscriptOutOfRange);
    EXPECT_EQ(sMusicSupport, (std::vector<std::string>{"mp3"}));
    EXPECT_TRUE(sPhotoSupport.empty());
}

// An extension in another spelling would never match a file's, and one too few in the count would
// keep a kind of file out.
TEST_F(Options, The_installed_file_has_full_lists_of_lower_case_extensions_and_no_watch_folders) {
    std::filesystem::copy_file(SourceFile("data/db.txt"), temp.HostPath("db.txt"));
    LoadOptions();
    LoadSupportedExts();
    const struct {
        const char* section;
        const std::vector<std::string>& list;
    } rows[] = {{"musicsupport", sMusicSupport},
                {"videosupport", sVideoSupport},
                {"photosupport", sPhotoSupport}};
    for (const auto& row : rows) {
        for (const std::string& extension : row.list) {
            EXPECT_EQ(GetFileExt("a." + extension), extension) << row.section;
            EXPECT_NE(extension, "XYZXYZ") << row.section;
        }
        std::string beyond;
        ReadValue(sDBFile, row.section, std::to_string(row.list.size()), "s", "none", beyond);
        EXPECT_EQ(beyond, "none") << row.section;
    }
    Integer folders = -1;
    ReadValue(sDBFile, "watch", "noofflds", "s", "-1", folders);
    EXPECT_EQ(folders, 0);
}

}  // namespace
}  // namespace tavel::test
