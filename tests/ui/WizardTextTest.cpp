#include "platform/Failure.h"
#include "support/Support.h"
#include "ui/setup/WizardText.h"

namespace tavel::test {

TEST(WizardText, each_line_has_a_carriage_return_in_front) {
    EXPECT_EQ(WizardWords("//1\r\nOne\r\n\r\nTwo\r\n", 1), "\rOne\r\rTwo");
}

TEST(WizardText, lines_end_as_on_Windows_on_Unix_or_as_on_neither) {
    for (const char* text : {"//1\r\na\r\n\r\nb\r\n//2\r\nc", "//1\na\n\nb\n//2\nc",
                             "//1\ra\r\rb\r//2\rc", "//1\r\na\n\rb\n//2\r\nc"}) {
        EXPECT_EQ(WizardWords(text, 1), "\ra\r\rb") << text;
        EXPECT_EQ(WizardWords(text, 2), "\rc") << text;
    }
}

TEST(WizardText, the_last_line_needs_no_end) {
    EXPECT_EQ(WizardWords("//1\na", 1), "\ra");
    EXPECT_EQ(WizardWords("//1\na\n", 1), "\ra");
    EXPECT_EQ(WizardWords("//1\na\n\n", 1), "\ra\r");
}

TEST(WizardText, what_stands_before_the_first_header_or_under_another_is_skipped) {
    const char* text = "hello\n//2\ntwo\n//1\none\n//3\nthree\n";
    EXPECT_EQ(WizardWords(text, 1), "\rone");
    EXPECT_EQ(WizardWords(text, 2), "\rtwo");
    EXPECT_EQ(WizardWords(text, 4), "");
}

TEST(WizardText, the_number_of_a_header_is_compared_as_a_number) {
    for (const char* header :
         {"//1", "//01", "// 1", "//1 ", "//1.0", "//0001", "//+1", "//1d0", "//&H1", "//\t1"})
        EXPECT_EQ(WizardWords(header + std::string("\na\n"), 1), "\ra") << header;
    for (const char* header : {"//11", "//10", "//1.4", "//-1", "///1", " //1", "/1", "//1a"})
        EXPECT_EQ(WizardWords(header + std::string("\na\n"), 1), "") << header;
}

TEST(WizardText, a_header_without_a_number_belongs_to_no_page_and_ends_the_words_before_it) {
    for (const char* header : {"//", "//one", "// a remark", "//1 and more", "//1e999", "//&Hx"})
        EXPECT_EQ(WizardWords("//1\na\n" + std::string(header) + "\nb\n", 1), "\ra") << header;
}

TEST(WizardText, a_number_that_comes_twice_has_the_words_of_both) {
    EXPECT_EQ(WizardWords("//1\na\n//2\nb\n//1\nc\n", 1), "\ra\rc");
}

// The header that ends the words is used up.
TEST(WizardText, of_a_number_that_comes_twice_in_a_row_the_second_words_have_no_header) {
    EXPECT_EQ(WizardWords("//1\na\n//1\nb\n//1\nc\n", 1), "\ra\rc");
}

TEST(WizardText, a_page_without_a_line_is_none_and_one_empty_line_is_enough) {
    EXPECT_EQ(WizardWords("//1\n//2\nb\n", 1), "");
    EXPECT_EQ(WizardWords("//1\n\n//2\nb\n", 1), "\r");
}

TEST(WizardText, a_UTF8_mark_is_skipped_and_any_byte_is_kept) {
    EXPECT_EQ(WizardWords("\xEF\xBB\xBF//1\na\xC3\xA9\xE9\n", 1), "\ra\xC3\xA9\xE9");
}

TEST(WizardText, an_empty_file_ends_before_its_first_line) {
    for (const char* text : {"", "\xEF\xBB\xBF"})
        EXPECT_EQ(FullFailureOf([&] { WizardWords(text, 1); }), "62 Input past end of file Tavel");
}

TEST(WizardText, a_header_on_the_last_line_fails_for_its_own_page_alone) {
    for (const char* text : {"//1\na\n//2", "//1\na\n//2\n", "//1\r\na\r\n//2\r\n"}) {
        EXPECT_EQ(FailureOf([&] { WizardWords(text, 2); }), failure::InputPastEnd);
        EXPECT_EQ(WizardWords(text, 1), "\ra");
        EXPECT_EQ(WizardWords(text, 3), "");
    }
}

TEST(WizardText, ten_megabytes_are_read_at_once) {
    std::string words;
    while (words.size() < 10'000'000) words += "A line of words that goes on for a while.\n";
    EXPECT_EQ(WizardWords(words + "//2\nb\n", 2), "\rb");
    EXPECT_EQ(WizardWords("//1\n" + words, 1).size(), words.size());
    std::string headers;
    while (headers.size() < 10'000'000) headers += "//\n";
    EXPECT_EQ(WizardWords(headers + "//2\nb\n", 2), "\rb");
}

}  // namespace tavel::test
