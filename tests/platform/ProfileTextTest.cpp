#include "platform/ProfileText.h"

#include <gtest/gtest.h>

#include <cctype>
#include <string>

namespace tavel::test {
namespace {

std::string ValueIn(const std::string& bytes, const std::string& section, const std::string& key) {
    return std::string(ProfileText(bytes).Value(section, key).value_or("(none)"));
}

std::string BytesOf(const ProfileText& profile) {
    std::string bytes;
    profile.Tell([&](std::string_view piece) { bytes += piece; });
    return bytes;
}

std::string Written(const std::string& bytes, const std::string& section, const std::string& key,
                    const std::string& value) {
    ProfileText profile(bytes);
    EXPECT_TRUE(profile.Write(section, key, value));
    return BytesOf(profile);
}

// A row's own words as the name of its test.
template <class Row>
std::string NameOf(const ::testing::TestParamInfo<Row>& row) {
    std::string name = row.param.what;
    for (char& c : name) {
        if (!std::isalnum(static_cast<unsigned char>(c))) c = '_';
    }
    return name;
}

struct Reading {
    const char* what;
    std::string bytes;
    std::string value;  // of key "key" in section "s"
};

class ProfileReading : public ::testing::TestWithParam<Reading> {};

TEST_P(ProfileReading, Keeps_the_classic_rules) {
    EXPECT_EQ(ValueIn(GetParam().bytes, "s", "key"), GetParam().value) << GetParam().what;
}

const Reading readings[] = {
    {"plain", "[s]\r\nkey=value\r\n", "value"},
    {"lines end with LF", "[s]\nkey=value\n", "value"},
    {"lines end with CR", "[s]\rother=1\rkey=value\r", "value"},
    {"mixed line ends", "[s]\r\r\n\n\rkey=value\n\r", "value"},
    {"unfinished last line", "[s]\r\nkey=value", "value"},
    {"section in another case", "[S]\r\nkey=value", "value"},
    {"key in another case", "[s]\r\nKEY=value", "value"},
    {"first of equal keys", "[s]\r\nkey=1\r\nKey=2", "1"},
    {"first of equal sections", "[s]\r\nkey=1\r\n[S]\r\nkey=2", "1"},
    {"first of equal sections even if empty", "[s]\r\n[S]\r\nkey=2", "(none)"},
    {"keys behind the next header are its own", "[s]\r\n[t]\r\nkey=2", "(none)"},
    {"a header ends at its first bracket", "[s]x]=[y]\r\nkey=1", "1"},
    {"what follows a header is ignored", "[s] key=0\r\nkey=1", "1"},
    {"blanks before a header", " \t[s]\r\nkey=1", "1"},
    {"a header without its end is none", "[s]\r\n[t\r\nkey=1", "1"},
    {"a header without an end is no key", "[s]\r\n[key=1\r\n", "(none)"},
    {"a header without a name hides its keys", "[s]\r\n[]\r\nkey=1", "(none)"},
    {"blanks around a section name", "[ \t s\t]\r\nkey=1", "1"},
    {"blanks inside a section name", "[s s]\r\nkey=1\r\n", "(none)"},
    {"first of sections that blanks tell apart", "[s ]\r\nkey=1\r\n[s]\r\nkey=2", "1"},
    {"a header of blanks hides its keys", "[s]\r\n[ ]\r\nkey=1", "(none)"},
    {"a comment is no key", "[s]\r\n;key=1\r\n", "(none)"},
    {"a comment after blanks is no key", "[s]\r\n \t;key=1\r\n", "(none)"},
    {"a comment is no header", ";[s]\r\nkey=1\r\n", "(none)"},
    {"a mark inside a value is no comment", "[s]\r\nkey=1;2#3", "1;2#3"},
    {"# is an ordinary character", "[s]\r\n#key=1\r\nkey=2", "2"},
    {"a line without = is no key", "[s]\r\nkey\r\nkey=2", "2"},
    {"a line without a name is no key", "[s]\r\n=1\r\n", "(none)"},
    {"keys before any header", "key=1\r\n[s]\r\n", "(none)"},
    {"UTF-8 mark", "\xEF\xBB\xBF[s]\r\nkey=1", "1"},
    {"UTF-8 mark only at the start", "\r\n\xEF\xBB\xBF[s]\r\nkey=1", "(none)"},
    {"blanks around name and value", "[s]\r\n \t key\t = \t a b \t\r\n", "a b"},
    {"empty value", "[s]\r\nkey=\r\n", ""},
    {"value of blanks", "[s]\r\nkey=  \t\r\n", ""},
    {"the first = divides", "[s]\r\nkey=a=b", "a=b"},
    {"double quotes", "[s]\r\nkey=\"a b\"", "a b"},
    {"single quotes", "[s]\r\nkey='a b'", "a b"},
    {"blanks inside quotes stay", "[s]\r\nkey= \" a \" ", " a "},
    {"one pair only", "[s]\r\nkey=\"\"a\"\"", "\"a\""},
    {"unequal quotes stay", "[s]\r\nkey=\"a'", "\"a'"},
    {"one quote alone stays", "[s]\r\nkey=\"", "\""},
    {"empty quotes", "[s]\r\nkey=''", ""},
    {"quotes inside stay", "[s]\r\nkey=a\"b\"", "a\"b\""},
    {"NUL ends a value", std::string("[s]\r\nkey=a \0b\r\n", 15), "a"},
    {"non-ASCII case is told apart", "[s]\r\nk\xC3\x89y=1\r\nkey=2", "2"},
    {"backslashes are ordinary", "[s]\r\nkey=C:\\new\\table, x", "C:\\new\\table, x"},
    {"empty file", "", "(none)"},
    {"mark alone", "\xEF\xBB\xBF", "(none)"},
    {"half a mark", "\xEF\xBB[s]\r\nkey=1", "(none)"},
};

INSTANTIATE_TEST_SUITE_P(ProfileText, ProfileReading, ::testing::ValuesIn(readings),
                         NameOf<Reading>);

TEST(ProfileText, Only_ASCII_letters_match_without_case) {
    ProfileText profile("[\xC3\x89]\nk\xC3\x89=1\n[@]\n`=2\n");
    EXPECT_TRUE(profile.Value("\xC3\x89", "K\xC3\x89"));
    EXPECT_FALSE(profile.Value("\xC3\xA9", "k\xC3\x89"));
    EXPECT_FALSE(profile.Value("\xC3\x89", "k\xC3\xA9"));
    EXPECT_FALSE(profile.Value("`", "`"));
    EXPECT_FALSE(profile.Value("@", "@"));
    EXPECT_TRUE(profile.Value("@", "`"));
}

TEST(ProfileText, Blanks_around_an_asked_key_do_not_count) {
    EXPECT_EQ(ValueIn("[s]\nkey=1\n", "s", " key\t"), "1");
    EXPECT_EQ(Written("[s]\nkey=1\n", "s", " KEY ", "2"), "[s]\nkey=2\n");
    EXPECT_EQ(Written("", "s", " a b ", "2"), "[s]\r\na b=2\r\n");
}

TEST(ProfileText, Blanks_around_an_asked_section_do_not_count) {
    EXPECT_EQ(ValueIn("[s]\nkey=1\n", " s\t", "key"), "1");
    EXPECT_EQ(ValueIn("[ s]\nkey=1\n", "S ", "key"), "1");
    EXPECT_EQ(Written("[s\t]\nkey=1\n", " S ", "key", "2"), "[s\t]\nkey=2\n");
    EXPECT_EQ(Written("", " a b ", "key", "2"), "[a b]\r\nkey=2\r\n");
    EXPECT_EQ(ValueIn("[ ]\nkey=1\n", " ", "key"), "(none)");
}

TEST(ProfileText, Reading_leaves_every_byte) {
    for (const Reading& reading : readings)
        EXPECT_EQ(BytesOf(ProfileText(reading.bytes)), reading.bytes);
}

struct Writing {
    const char* what;
    std::string before;
    std::string after;  // `value` written to key "key" of section "s"
    std::string value = "new";
};

class ProfileWriting : public ::testing::TestWithParam<Writing> {};

TEST_P(ProfileWriting, Keeps_every_other_byte_and_reads_back) {
    const Writing& row = GetParam();
    EXPECT_EQ(Written(row.before, "s", "key", row.value), row.after) << row.what;
    EXPECT_EQ(BytesOf(ProfileText(row.after)), row.after);
}

const Writing writings[] = {
    {"in place", "[s]\r\nkey=old\r\nb=1\r\n", "[s]\r\nkey=new\r\nb=1\r\n"},
    {"spelling is kept", "[S]\r\nKEY=old\r\n", "[S]\r\nKEY=new\r\n"},
    {"blanks in a header are kept", "[ s\t] x\nkey=old\n", "[ s\t] x\nkey=new\n"},
    {"blanks around are kept", "[s]\n  key =\told  \n", "[s]\n  key =\tnew  \n"},
    {"into an empty value", "[s]\nkey=\n", "[s]\nkey=new\n"},
    {"into a value of blanks", "[s]\nkey=  \n", "[s]\nkey=new  \n"},
    {"an empty value", "[s]\nkey=old\n", "[s]\nkey=\n", ""},
    {"quotes are part of the old value", "[s]\nkey=\"old\"\n", "[s]\nkey=new\n"},
    {"into an empty value at the very end", "[s]\nkey=", "[s]\nkey=new"},
    {"into blanks at the very end", "[s]\nkey= ", "[s]\nkey=new "},
    {"unfinished line in place", "[s]\nkey=old", "[s]\nkey=new"},
    {"first of equal keys", "[s]\nkey=1\nkey=2\n", "[s]\nkey=new\nkey=2\n"},
    {"first of equal sections", "[s]\nkey=1\n[s]\nkey=2\n", "[s]\nkey=new\n[s]\nkey=2\n"},
    {"first of equal sections, empty", "[s]\n[t]\n[s]\nkey=2\n",
     "[s]\nkey=new\r\n[t]\n[s]\nkey=2\n"},
    {"behind the last key", "[s]\r\na=1\r\nb=2\r\n\r\n; c\r\n[t]\r\n",
     "[s]\r\na=1\r\nb=2\r\nkey=new\r\n\r\n; c\r\n[t]\r\n"},
    {"behind the last key though it is a repeated one", "[s]\na=1\nb=2\nA=3\n;\n",
     "[s]\na=1\nb=2\nA=3\nkey=new\r\n;\n"},
    {"behind the last key though comments stand between keys", "[s]\na=1\n;c\n\nb=2\n;d\n",
     "[s]\na=1\n;c\n\nb=2\nkey=new\r\n;d\n"},
    {"keys that cannot be reached stay where they are", "k=0\n[s]\na=1\n[]\nb=2\n[S]\nc=3\n",
     "k=0\n[s]\na=1\nkey=new\r\n[]\nb=2\n[S]\nc=3\n"},
    {"a line without = is no last key", "[s]\na=1\nword\n", "[s]\na=1\nkey=new\r\nword\n"},
    {"behind the header", "[s]\r\n; c\r\n[t]\r\n", "[s]\r\nkey=new\r\n; c\r\n[t]\r\n"},
    {"behind a header that other text follows", "[s] x\n;c", "[s] x\nkey=new\r\n;c"},
    {"new section at the end", "[t]\r\na=1\r\n", "[t]\r\na=1\r\n[s]\r\nkey=new\r\n"},
    {"new section in an empty file", "", "[s]\r\nkey=new\r\n"},
    {"new section behind a mark", "\xEF\xBB\xBF", "\xEF\xBB\xBF[s]\r\nkey=new\r\n"},
    {"unfinished key line is finished first", "[s]\na=1", "[s]\na=1\r\nkey=new\r\n"},
    {"unfinished header is finished first", "[s]", "[s]\r\nkey=new\r\n"},
    {"unfinished line before a new section", "[t]\na=1", "[t]\na=1\r\n[s]\r\nkey=new\r\n"},
    {"an unfinished line elsewhere stays", "[s]\na=1\n;end", "[s]\na=1\nkey=new\r\n;end"},
    {"a commented key is no key", "[s]\n;key=1\n", "[s]\nkey=new\r\n;key=1\n"},
    {"outer blanks get quotes", "[s]\nkey=1\n", "[s]\nkey=\" a \"\n", " a "},
    {"an outer tab gets quotes", "[s]\nkey=1\n", "[s]\nkey=\"a\t\"\n", "a\t"},
    {"outer quotes get a pair more", "[s]\nkey=1\n", "[s]\nkey=\"\"a\"\"\n", "\"a\""},
    {"single ones too", "[s]\nkey=1\n", "[s]\nkey=\"'a'\"\n", "'a'"},
    {"unequal quotes need none", "[s]\nkey=1\n", "[s]\nkey=\"a'\n", "\"a'"},
    {"one quote alone needs none", "[s]\nkey=1\n", "[s]\nkey=\"\n", "\""},
    {"two quotes alone", "[s]\nkey=1\n", "[s]\nkey=\"\"\"\"\n", "\"\""},
    {"a line break is one blank", "[s]\nkey=1\n", "[s]\nkey=a b c d  e\n", "a\nb\rc\r\nd\n\re"},
    {"a line break at the end", "[s]\nkey=1\n", "[s]\nkey=\"a \"\n", "a\r\n"},
    {"NUL ends it", "[s]\nkey=1\n", "[s]\nkey=a\n", std::string("a\0b", 3)},
    {"no header can come in", "[s]\nkey=1\n", "[s]\nkey=x [t] k=v\n", "x\r\n[t]\r\nk=v"},
    {"marks inside a value", "[s]\nkey=1\n", "[s]\nkey=;[#=]\n", ";[#=]"},
};

INSTANTIATE_TEST_SUITE_P(ProfileText, ProfileWriting, ::testing::ValuesIn(writings),
                         NameOf<Writing>);

TEST(ProfileText, A_value_that_reads_the_same_changes_nothing) {
    struct {
        const char* bytes;
        std::string value;
    } const rows[] = {
        {"[s]\nkey= a \n", "a"},       {"[s]\nkey=\"a\"\n", "a"},    {"[s]\nkey=' a '\n", " a "},
        {"[s]\nkey=a b\n", "a\r\nb"},  {"[s]\nkey=\n", ""},          {"[s]\nkey=''\n", ""},
        {"[s]\nkey=a\n", {"a\0b", 3}}, {"[s]\nkey=\"a \"\n", "a\n"},
    };
    for (const auto& row : rows) {
        ProfileText profile(row.bytes);
        EXPECT_TRUE(profile.Write("S", "KEY", row.value));
        EXPECT_FALSE(profile.IsChanged()) << row.bytes;
        EXPECT_EQ(BytesOf(profile), row.bytes);
    }
}

TEST(ProfileText, A_break_is_found_wherever_it_stands) {
    for (std::size_t at = 0; at < 20; ++at) {
        std::string value(20, '\x1F');
        std::string stored = value;
        value[at] = '\n';
        stored[at] = ' ';
        if (at == 0 || at == 19) stored = '"' + stored + '"';
        EXPECT_EQ(Written("[s]\nkey=1\n", "s", "key", value), "[s]\nkey=" + stored + "\n") << at;
    }
}

TEST(ProfileText, What_differs_in_case_only_is_another_value) {
    EXPECT_EQ(Written("[s]\nkey=A\n", "s", "key", "a"), "[s]\nkey=a\n");
}

TEST(ProfileText, A_long_value_is_compared_beyond_what_reading_gives) {
    const std::string old(300, 'x');
    EXPECT_EQ(Written("[s]\nkey=" + old + "\n", "s", "key", old + "y"), "[s]\nkey=" + old + "y\n");
}

TEST(ProfileText, Names_that_could_not_be_found_again_write_nothing) {
    for (const std::string& name :
         {std::string(), std::string("a=b"), std::string("a\nb"), std::string("a\rb"),
          std::string(";a"), std::string("[a"), std::string("a\0b", 3)}) {
        ProfileText profile("[s]\nk=1\n");
        EXPECT_FALSE(profile.Write("s", name, "v")) << name;
        EXPECT_FALSE(profile.Write(name, "k", "v")) << name;
        EXPECT_FALSE(profile.IsChanged());
        EXPECT_EQ(BytesOf(profile), "[s]\nk=1\n");
    }
    ProfileText profile("");
    EXPECT_FALSE(profile.Write("s", " \t", "v"));
    EXPECT_FALSE(profile.Write("s", " ;a", "v"));
    EXPECT_FALSE(profile.Write("a]b", "k", "v"));
    EXPECT_FALSE(profile.Write(" ;a", "k", "v"));
    EXPECT_FALSE(profile.Write("\t", "k", "v"));
    EXPECT_TRUE(profile.Write("s", "a]b;[", "v"));
    EXPECT_EQ(BytesOf(profile), "[s]\r\na]b;[=v\r\n");
}

TEST(ProfileText, Many_edits_stand_in_order) {
    ProfileText profile("[a]\nx=1\ny=2\n[b]\nz=3");
    EXPECT_TRUE(profile.Write("c", "k1", "1"));
    EXPECT_TRUE(profile.Write("b", "n1", "1"));
    EXPECT_TRUE(profile.Write("a", "y", "22"));
    EXPECT_TRUE(profile.Write("a", "n1", "1"));
    EXPECT_TRUE(profile.Write("a", "x", "11"));
    EXPECT_TRUE(profile.Write("c", "k2", "2"));
    EXPECT_TRUE(profile.Write("a", "N1", "one"));
    EXPECT_TRUE(profile.Write("b", "z", "33"));
    EXPECT_TRUE(profile.Write("a", "n2", "2"));
    EXPECT_EQ(profile.Value("C", "K1"), "1");
    EXPECT_EQ(BytesOf(profile),
              "[a]\nx=11\ny=22\nn1=one\r\nn2=2\r\n[b]\nz=33\r\nn1=1\r\n[c]\r\nk1=1\r\nk2=2\r\n");
}

TEST(ProfileText, Thousands_of_sections_and_keys_are_told_apart) {
    ProfileText profile("");
    for (int i = 0; i < 3000; ++i) {
        const std::string number = std::to_string(i);
        ASSERT_TRUE(profile.Write(number, "NoOfGroupsAndMore", number));
        ASSERT_TRUE(profile.Write("one", "a key longer than eight " + number, number));
    }
    ProfileText again(BytesOf(profile));
    for (int i = 0; i < 3000; ++i) {
        const std::string number = std::to_string(i);
        for (ProfileText* text : {&again, &profile}) {
            ASSERT_EQ(text->Value(number, "noofgroupsANDMORE"), number);
            ASSERT_EQ(text->Value("ONE", "A KEY LONGER THAN EIGHT " + number), number);
        }
    }
}

TEST(ProfileText, What_was_written_is_edited_again) {
    ProfileText profile("[t]\nx=1");
    for (const char* value : {"one", " two ", "3"}) {
        EXPECT_TRUE(profile.Write("s", "a", value));
        EXPECT_TRUE(profile.Write("T", "X", value));
        EXPECT_TRUE(profile.Write("t", "y", value));
        EXPECT_EQ(profile.Value("S", "A"), value);
    }
    EXPECT_EQ(BytesOf(profile), "[t]\nx=3\r\ny=3\r\n[s]\r\na=3\r\n");
}

TEST(ProfileText, An_emptied_value_is_filled_as_if_the_file_had_been_read_again) {
    ProfileText profile("[s]\na= x \n");
    EXPECT_TRUE(profile.Write("s", "a", ""));
    const std::string emptied = BytesOf(profile);
    EXPECT_TRUE(profile.Write("s", "a", "new"));
    EXPECT_EQ(BytesOf(profile), Written(emptied, "s", "a", "new"));
}

// A line whose end is missing is finished once, whoever comes first behind it.
TEST(ProfileText, An_unfinished_end_is_finished_once) {
    ProfileText sectionFirst("[s]");
    EXPECT_TRUE(sectionFirst.Write("t", "a", "1"));
    EXPECT_TRUE(sectionFirst.Write("s", "b", "2"));
    EXPECT_EQ(BytesOf(sectionFirst), "[s]\r\nb=2\r\n[t]\r\na=1\r\n");
    ProfileText behindComment("[s]\n;end");
    EXPECT_TRUE(behindComment.Write("s", "b", "2"));
    EXPECT_TRUE(behindComment.Write("t", "a", "1"));
    EXPECT_EQ(BytesOf(behindComment), "[s]\nb=2\r\n;end\r\n[t]\r\na=1\r\n");
}

TEST(ProfileText, In_a_section_of_many_keys_the_first_of_equal_ones_counts) {
    std::string bytes = "[s]\n";
    for (const char* round : {"first", "second"}) {
        for (int i = 0; i < 100; ++i) {
            bytes += "Key" + std::to_string(i) + "=" + round + "\n;comment\n";
        }
    }
    ProfileText profile(bytes);
    for (int i = 100; i < 200; ++i) {
        EXPECT_EQ(profile.Value("s", "key" + std::to_string(i)), std::nullopt);
        EXPECT_TRUE(profile.Write("s", "kEY" + std::to_string(i), "first"));
    }
    for (int i = 0; i < 200; ++i) {
        const std::string key = "KEY" + std::to_string(i);
        EXPECT_EQ(profile.Value("s", key), "first");
        EXPECT_TRUE(profile.Write("s", key, "written"));
        EXPECT_EQ(profile.Value("s", key), "written");
    }
    ProfileText again(BytesOf(profile));
    for (int i = 0; i < 200; ++i) EXPECT_EQ(again.Value("s", "key" + std::to_string(i)), "written");
    EXPECT_EQ(again.Value("s", ""), std::nullopt);
}

TEST(ProfileText, Sections_are_found_in_any_order) {
    std::string bytes;
    for (int i = 0; i < 300; ++i) {
        const std::string number = std::to_string(i * 7919 % 300);
        bytes += "[" + number + "]\nn=" + number + "\n";
    }
    ProfileText profile(bytes);
    for (int i = 0; i < 300; ++i) {
        const std::string number = std::to_string(i * 101 % 300);
        EXPECT_EQ(profile.Value(number, "n"), number);
        EXPECT_EQ(profile.Value(number + "x", "n"), std::nullopt);
        EXPECT_TRUE(profile.Write("new" + number, "n", number));
    }
    for (int i = 299; i >= 0; --i) {
        const std::string number = std::to_string(i);
        EXPECT_EQ(profile.Value("NEW" + number, "N"), number);
        EXPECT_EQ(profile.Value(number, "N"), number);
    }
    EXPECT_EQ(BytesOf(profile).substr(0, bytes.size()), bytes);
}

}  // namespace
}  // namespace tavel::test
