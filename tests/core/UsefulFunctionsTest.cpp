#include "core/UsefulFunctions.h"
#include "platform/Failure.h"
#include "platform/FileService.h"
#include "support/FaultyFileService.h"
#include "support/Recorders.h"
#include "support/Support.h"

#include <filesystem>
#include <set>

namespace tavel::test {
namespace {

TEST(UsefulFunctions, GetFileExt_takes_what_follows_the_last_dot_in_lower_case) {
    const struct {
        const char* path;
        const char* extension;
        const char* stripped;
    } rows[] = {
        {"C:\\a\\Photo.JPG", "jpg", "C:\\a\\Photo"},
        {"a.b.c", "c", "a.b"},
        {"C:\\a.b\\c", "b\\c", "C:\\a"},
        {"a.", "", "a"},
        {".mp3", "mp3", ""},
        {".", "", ""},
        {"..", "", "."},
        {"x.\xC3\x84\xC3\x96", "\xC3\xA4\xC3\xB6", "x"},  // letters beyond ASCII
        {"x.\xC4", "\xE4", "x"},                          // a lone byte is a Latin-1 letter
        {"x.\xE2\x84\xAA", "k", "x"},  // a lower-case form that is shorter in bytes
    };
    for (const auto& row : rows) {
        EXPECT_EQ(GetFileExt(row.path), row.extension) << row.path;
        EXPECT_EQ(StripExt(row.path), row.stripped) << row.path;
    }
}

TEST(UsefulFunctions, GetFileExt_of_a_name_without_a_dot_overflows) {
    for (const char* name : {"", "README", "C:\\a\\b"}) {
        EXPECT_EQ(FailureOf([&] { GetFileExt(name); }), failure::Overflow) << name;
        EXPECT_EQ(FailureOf([&] { StripExt(name); }), failure::Overflow) << name;
    }
}

TEST(UsefulFunctions, GetFileExt_counts_the_characters_of_its_walk_in_an_Integer) {
    std::string umlauts;  // two bytes each, one character
    for (int i = 0; i < 32766; ++i) umlauts += "\xC3\xA4";
    for (const std::string& letters : {std::string(32766, 'x'), umlauts}) {
        EXPECT_EQ(GetFileExt("a." + letters), letters);
        EXPECT_EQ(StripExt("a." + letters), "a");
        const std::string longer = "a." + letters + "x";
        EXPECT_EQ(FailureOf([&] { GetFileExt(longer); }), failure::Overflow);
        EXPECT_EQ(FailureOf([&] { StripExt(longer); }), failure::Overflow);
    }
}

TEST(UsefulFunctions, PadZeros_fills_up_to_the_width_and_cuts_nothing) {
    EXPECT_EQ(PadZeros("123", 5), "00123");
    EXPECT_EQ(PadZeros("12345", 5), "12345");
    EXPECT_EQ(PadZeros("123456", 5), "123456");
    EXPECT_EQ(PadZeros("", 3), "000");
    EXPECT_EQ(PadZeros("7", 0), "7");
    EXPECT_EQ(PadZeros("7", -1), "7");
    EXPECT_EQ(PadZeros("\xC3\xA4", 2), "0\xC3\xA4");
}

TEST(UsefulFunctions, RandomLetters_gives_one_letter_more_than_asked_for) {
    EXPECT_EQ(RandomLetters(0).size(), 1U);
    EXPECT_EQ(RandomLetters(10).size(), 11U);
    EXPECT_EQ(RandomLetters(-1), "");
    EXPECT_EQ(RandomLetters(2000).find_first_not_of("abcdefghijklmnopqrstuvwxyz"),
              std::string::npos);
}

TEST(UsefulFunctions, RandomLetters_draws_every_letter) {
    const std::string letters = RandomLetters(4999);
    EXPECT_EQ(std::set<char>(letters.begin(), letters.end()).size(), 26U);
}

TEST(UsefulFunctions, RandomLetters_differ_while_the_timer_stands_still) {
    const FixedClock clock;
    std::set<std::string> texts;
    for (int i = 0; i < 1000; ++i) texts.insert(RandomLetters(10));
    EXPECT_EQ(texts.size(), 1000U);
}

class CountingClock : public FixedClock {
  public:
    int asked = 0;
    double Timer() override { return timer + ++asked; }
};

TEST(UsefulFunctions, Each_random_number_takes_a_seed_from_the_timer) {
    CountingClock clock;
    RandomInt(5, 1);
    EXPECT_EQ(clock.asked, 1);
    RandomLetters(10);
    EXPECT_EQ(clock.asked, 12);
}

TEST(UsefulFunctions, RandomInt_gives_both_ends_and_nothing_beyond) {
    std::set<Integer> seen;
    for (int i = 0; i < 1000; ++i) seen.insert(RandomInt(7, 5));
    EXPECT_EQ(seen, (std::set<Integer>{5, 6, 7}));
    EXPECT_EQ(RandomInt(5, 5), 5);
    seen.clear();
    for (int i = 0; i < 1000; ++i) seen.insert(RandomInt(-5, -7));
    EXPECT_EQ(seen, (std::set<Integer>{-7, -6, -5}));
    for (int i = 0; i < 100; ++i) EXPECT_EQ(RandomInt(-3, -3), -3);
}

TEST(UsefulFunctions, RandomInt_over_more_than_an_Integer_counts_overflows) {
    EXPECT_EQ(FailureOf([] { RandomInt(32767, 0); }), failure::Overflow);
    EXPECT_EQ(FailureOf([] { RandomInt(32767, -1); }), failure::Overflow);
    EXPECT_EQ(FailureOf([] { RandomInt(32766, 0); }), 0);
}

TEST(UsefulFunctions, GetFileName_is_what_follows_the_last_backslash) {
    EXPECT_EQ(GetFileName("C:\\a\\b.jpg"), "b.jpg");
    EXPECT_EQ(GetFileName("C:\\a\\"), "");
    EXPECT_EQ(GetFileName("b.jpg"), "b.jpg");
    EXPECT_EQ(GetFileName("a/b.jpg"), "a/b.jpg");
    EXPECT_EQ(GetFileName(""), "");
}

TEST(UsefulFunctions, GetAppPath_is_the_programs_folder_with_one_backslash) {
    const std::string path = GetAppPath();
    EXPECT_EQ(path.back(), '\\');
    EXPECT_NE(path[path.size() - 2], '\\');
    EXPECT_TRUE(oFSO().FileExists(path + ProgramHostName()));
}

TEST(UsefulFunctions, GetAppPath_of_a_program_in_the_root_of_a_drive_has_one_backslash) {
    FaultyFileService files;
    files.Plug('e', ProgramHostFolder());
    Service<FileService>::Use(&files);
    EXPECT_EQ(GetAppPath(), "e:\\");
    Service<FileService>::Use(nullptr);
}

}  // namespace
}  // namespace tavel::test
