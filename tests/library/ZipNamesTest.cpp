#include "library/ZipNames.h"

#include <gtest/gtest.h>

namespace tavel::test {

TEST(ZipNames, Slashes_count_as_backslashes) {
    EXPECT_EQ(ZipEntryName("a.jpg"), "a.jpg");
    EXPECT_EQ(ZipEntryName("in/deep\\a.jpg"), "in\\deep\\a.jpg");
    EXPECT_EQ(ZipEntryName("in/"), "in\\");
    EXPECT_EQ(ZipEntryName("in\\"), "in\\");
    EXPECT_EQ(ZipEntryName("/abs.jpg"), "\\abs.jpg");
    EXPECT_EQ(ZipEntryName(""), "");
}

TEST(ZipNames, A_part_that_is_a_dot_counts_as_nothing) {
    EXPECT_EQ(ZipEntryName("./a.jpg"), "a.jpg");
    EXPECT_EQ(ZipEntryName("in/./a.jpg"), "in\\a.jpg");
    EXPECT_EQ(ZipEntryName("./././in/a.jpg"), "in\\a.jpg");
    EXPECT_EQ(ZipEntryName(".a.jpg"), ".a.jpg");
    EXPECT_EQ(ZipEntryName("in/../a.jpg"), "in\\..\\a.jpg");
}

TEST(ZipNames, What_ends_in_a_dot_alone_is_a_folder) {
    EXPECT_EQ(ZipEntryName("./"), "\\");
    EXPECT_EQ(ZipEntryName("."), "\\");
    EXPECT_EQ(ZipEntryName("in/."), "in\\");
    EXPECT_EQ(ZipEntryName("in/./"), "in\\");
}

TEST(ZipNames, UTF_8_is_taken_as_such) {
    EXPECT_EQ(ZipEntryName("\xC3\xA4/\xD0\x96.jpg"), "ä\\Ж.jpg");
    EXPECT_EQ(ZipEntryName("\xF0\x9F\x93\xB7.jpg"), "📷.jpg");
}

TEST(ZipNames, Anything_else_is_code_page_437) {
    EXPECT_EQ(ZipEntryName("Stra\xE1"
                           "e\\\x81"
                           "bung.jpg"),
              "Straße\\übung.jpg");
    EXPECT_EQ(ZipEntryName("\x80\xB0\xC4\xFE\xFF.jpg"), "Ç░─■\u00A0.jpg");
    // No shortest form, so that it's no UTF-8 either: a separator in disguise stays harmless.
    EXPECT_EQ(ZipEntryName("..\xC0\xAFx.jpg"), "..└»x.jpg");
}

TEST(ZipNames, Every_byte_of_code_page_437_is_one_character) {
    for (int byte = 0x80; byte < 0x100; ++byte) {
        const std::string name = ZipEntryName(std::string(1, static_cast<char>(byte)));
        EXPECT_GE(name.size(), 2u) << byte;
        EXPECT_LE(name.size(), 3u) << byte;
    }
}

TEST(ZipNames, Names_below_the_folder_stay_below_it) {
    for (const char* sName : {"a.jpg", "in\\a.jpg", "..a\\b..jpg", ".a", "a\\\\b.jpg", "..."})
        EXPECT_TRUE(StaysBelow(sName)) << sName;
}

TEST(ZipNames, Names_that_lead_out_or_are_none_do_not) {
    for (const char* sName : {"", "\\a.jpg", "..\\a.jpg", "in\\..\\a.jpg", "in\\..", "..",
                              "C:\\a.jpg", "C:a.jpg", "in\\C:\\a.jpg", "\\\\host\\a.jpg"})
        EXPECT_FALSE(StaysBelow(sName)) << sName;
}

}  // namespace tavel::test
