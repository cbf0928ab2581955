#include "platform/Text.h"

#include <gtest/gtest.h>

#include <random>

namespace tavel::test {
namespace {

TEST(Text, Utf8_reads_as_itself) {
    EXPECT_EQ(ToUnicode("a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x8E\xB5"), u"a\u00E9\u20AC\U0001F3B5");
}

TEST(Text, A_byte_outside_a_sequence_is_its_Windows_1252_character) {
    EXPECT_EQ(ToUnicode("caf\xE9 \x80 \x92"), u"caf\u00E9 \u20AC \u2019");
    EXPECT_EQ(ToUtf8("caf\xE9 \x80"), "caf\xC3\xA9 \xE2\x82\xAC");
}

TEST(Text, The_five_undefined_bytes_become_the_control_codes_of_their_number) {
    EXPECT_EQ(ToUnicode("\x81\x8D\x8F\x90\x9D"), u"\u0081\u008D\u008F\u0090\u009D");
}

TEST(Text, Every_lone_byte_has_a_character_of_its_own) {
    std::u16string seen;
    for (int byte = 0; byte < 256; ++byte) {
        const std::u16string character = ToUnicode(std::string(1, static_cast<char>(byte)));
        ASSERT_EQ(character.size(), 1u);
        EXPECT_EQ(seen.find(character), std::u16string::npos) << byte;
        seen += character;
    }
}

TEST(Text, Malformed_sequences_are_lone_bytes) {
    for (const char* text : {"\xC3", "\xC0\x80", "\xC1\xBF", "\xE0\x9F\xBF", "\xED\xA0\x80",
                             "\xE2\x82", "\xF0\x8F\xBF\xBF", "\xF4\x90\x80\x80", "\xF5\x80\x80\x80",
                             "\x80", "\xE2\x28\xA1", "\xF0\x9F\x8E"}) {
        EXPECT_EQ(CharacterLength(text, 0), 1u) << text;
    }
    EXPECT_EQ(CharacterLength("\xC3\xA9", 0), 2u);
    EXPECT_EQ(CharacterLength("\xED\x9F\xBF", 0), 3u);
    EXPECT_EQ(CharacterLength("\xF4\x8F\xBF\xBF", 0), 4u);
}

TEST(Text, Unicode_goes_back_to_UTF_8) {
    EXPECT_EQ(FromUnicode(u"a\u00E9\u20AC\U0001F3B5"), "a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x8E\xB5");
    EXPECT_EQ(FromUnicode(u"\u07FF\u0800\uFFFF"), "\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBF");
}

TEST(Text, A_lone_surrogate_becomes_the_replacement_character) {
    const char16_t high[] = {u'a', 0xD83C, u'b'};
    const char16_t low[] = {0xDFB5};
    EXPECT_EQ(FromUnicode({high, 3}),
              "a\xEF\xBF\xBD"
              "b");
    EXPECT_EQ(FromUnicode({high, 2}), "a\xEF\xBF\xBD");
    EXPECT_EQ(FromUnicode({low, 1}), "\xEF\xBF\xBD");
}

TEST(Text, Any_bytes_pass_to_Unicode_and_keep_their_characters) {
    std::mt19937 random(7);
    for (int round = 0; round < 2000; ++round) {
        std::string text(random() % 12, '\0');
        for (char& c : text) c = static_cast<char>(random() % 4 == 0 ? random() : 0x80 + random());
        EXPECT_EQ(FromUnicode(ToUnicode(text)), ToUtf8(text));
        EXPECT_EQ(ToUnicode(ToUtf8(text)), ToUnicode(text));
        std::string joined;
        for (const std::string_view character : Characters(text)) joined += character;
        EXPECT_EQ(joined, text);
    }
}

TEST(Text, Characters_are_sequences_and_lone_bytes) {
    const std::vector<std::string_view> expected{"a", "\xC3\xA9", "\xE9", "\xE2\x82\xAC"};
    EXPECT_EQ(Characters("a\xC3\xA9\xE9\xE2\x82\xAC"), expected);
    EXPECT_EQ(CharacterCount("a\xC3\xA9\xE9\xE2\x82\xAC"), 4u);
    EXPECT_TRUE(Characters("").empty());
    EXPECT_EQ(CharacterCount(""), 0u);
}

TEST(Text, Lone_bytes_have_the_lower_case_of_their_characters) {
    for (int byte = 0; byte < 256; ++byte) {
        const std::string text(1, static_cast<char>(byte));
        EXPECT_EQ(ToUnicode(LowerCase(text)), ToUnicode(LowerCase(ToUtf8(text)))) << byte;
    }
}

TEST(Text, IsAscii_and_AsciiLower_know_no_other_letters) {
    EXPECT_TRUE(IsAscii("\x7F@Az"));
    EXPECT_FALSE(IsAscii("A\xC3\x89"));
    EXPECT_EQ(AsciiLower('Z'), 'z');
    for (const char c : {'z', '@', '[', '\xC9'}) EXPECT_EQ(AsciiLower(c), c);
}

TEST(Text, CutAt_counts_characters_and_cuts_none_in_two) {
    const std::string text = "\xC3\xA9\xE9\xF0\x9F\x8E\xB5z";
    EXPECT_EQ(CutAt(text, 5), text);
    EXPECT_EQ(CutAt(text, 4), text);
    EXPECT_EQ(CutAt(text, 3), "\xC3\xA9\xE9\xF0\x9F\x8E\xB5");
    EXPECT_EQ(CutAt(text, 2), "\xC3\xA9\xE9");
    EXPECT_EQ(CutAt(text, 1), "\xC3\xA9");
    EXPECT_EQ(CutAt(text, 0), "");
    EXPECT_EQ(CutAt("abc", 2), "ab");
}

TEST(Text, LowerCase_maps_each_character) {
    struct {
        const char* text;
        const char* lower;
    } const rows[] = {
        {"", ""},
        {"AbZ@[`{19", "abz@[`{19"},
        {"\xC3\x89", "\xC3\xA9"},                  // E acute
        {"\xC3\x97", "\xC3\x97"},                  // multiplication sign
        {"\xCE\xA3", "\xCF\x83"},                  // sigma
        {"\xD0\x96", "\xD0\xB6"},                  // zhe
        {"\xC4\xB0", "i"},                         // I with dot
        {"\xC4\x80\xC4\x81", "\xC4\x81\xC4\x81"},  // pairs of capital and small
        {"\xF0\x90\x90\x80", "\xF0\x90\x90\xA8"},  // Deseret
        {"\xE1\xBA\x9E", "\xC3\x9F"},              // capital sharp s
        {"\xC9 \xD7 \xDE \xDF", "\xE9 \xD7 \xFE \xDF"},
        {"\x8A\x8C\x8E\x9F", "\x9A\x9C\x9E\xFF"},
    };
    for (const auto& row : rows) EXPECT_EQ(LowerCase(row.text), row.lower) << row.text;
}

TEST(Text, EqualsIgnoringCase_goes_by_lower_case) {
    EXPECT_TRUE(EqualsIgnoringCase("NoOfItems", "noofitems"));
    EXPECT_TRUE(EqualsIgnoringCase("\xC3\x89t\xC3\xA9", "\xC3\xA9T\xC3\x89"));
    EXPECT_TRUE(EqualsIgnoringCase("\xC9", "\xE9"));
    EXPECT_TRUE(EqualsIgnoringCase("", ""));
    EXPECT_FALSE(EqualsIgnoringCase("ab", "abc"));
    EXPECT_FALSE(EqualsIgnoringCase("[", "{"));
}

TEST(Text, Trim_drops_blanks_only) {
    EXPECT_EQ(Trim("  a b  "), "a b");
    EXPECT_EQ(Trim("\t a\t"), "\t a\t");
    EXPECT_EQ(Trim("   "), "");
    EXPECT_EQ(Trim(""), "");
}

TEST(Text, Split_gives_the_parts_between_separators) {
    EXPECT_EQ(Split("a;b;;c", ';'), (std::vector<std::string>{"a", "b", "", "c"}));
    EXPECT_EQ(Split("", ';'), (std::vector<std::string>{""}));
    EXPECT_EQ(Split("a;", ';'), (std::vector<std::string>{"a", ""}));
}

}  // namespace
}  // namespace tavel::test
