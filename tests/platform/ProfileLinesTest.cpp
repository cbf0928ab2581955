#include "platform/ProfileLines.h"
#include "platform/ProfileText.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace tavel::test {
namespace {

using Pairs = std::vector<std::pair<std::string, std::string>>;

ProfileLines LinesOf(const Pairs& pairs) {
    ProfileLines lines;
    for (const auto& [key, value] : pairs) lines.Add(key, value);
    return lines;
}

const Pairs three = {{"A", "1"}, {"B", " two "}, {"C", "\"3\""}};
const std::string threeStored = "A=1\r\nB=\" two \"\r\nC=\"\"3\"\"\r\n";

const std::string files[] = {
    "",
    "[other]\r\nA=0\r\n",
    "[s]\r\n",
    "[s]",
    "[s]\r\n" + threeStored,
    "[s]\r\n" + threeStored + "[t]\r\nA=7\r\n",
    "[s]\r\nA=2\r\nB=\" two \"\r\nC=3\r\n[t]\r\nA=7\r\n",
    "[s]\r\nA=2\r\nB=x\r\nC=y",
    "[s]\nA=2\nB=x\nC=y\n[t]\n",
    "[s]\rA=2\rB=x\rC=y\r",
    "[S]\r\na=2\r\nB=x\r\nC=y\r\n",
    "[s]\r\nC=y\r\nB=x\r\nA=2\r\n",
    "[s]\r\nA=2\r\nB=x\r\nC=y\r\nD=z\r\n[t]\r\n",
    "[s]\r\nA=2\r\nB=x\r\n[t]\r\n",
    "[s]\r\nA=2\r\n;B=x\r\nC=y\r\n",
    "[s]\r\nA=2\r\n\r\nB=x\r\nC=y\r\n\r\n[t]\r\n",
    "[s]\r\nA=2\r\nA=3\r\nB=x\r\nC=y\r\n",
    "[s]\r\nA= 2\r\nB=x \r\nC=y\r\n",
    "[s]\r\nA=\"1\"\r\nB=x\r\nC=y\r\n",
    "[s]\r\nA=2\r\nB=x\r\n[s]\r\nC=y\r\n",
    "[s] \r\nA=2\r\nB=x\r\nC=y\r\n [t]\r\n",
};

void WriteOneByOne(ProfileText& profile, const Pairs& pairs) {
    for (const auto& [key, value] : pairs) profile.Write("s", key, value);
}

TEST(ProfileLines, Are_spelt_as_the_file_holds_them) {
    EXPECT_EQ(LinesOf(three).Bytes(), threeStored);
    EXPECT_EQ(LinesOf({{"A", "x\r\ny\nz"}, {"B", std::string("p\0q", 3)}, {"C", ""}}).Bytes(),
              "A=x y z\r\nB=p\r\nC=\r\n");
}

TEST(ProfileLines, A_break_is_found_wherever_it_stands) {
    for (std::size_t at = 0; at < 20; ++at) {
        std::string value(20, '\x1F');
        value[at] = '\n';
        std::string stored(20, '\x1F');
        stored[at] = ' ';
        if (at == 0 || at == 19) stored = '"' + stored + '"';
        EXPECT_EQ(LinesOf({{"A", value}}).Bytes(), "A=" + stored + "\r\n") << at;
    }
}

TEST(ProfileLines, Start_anew_when_cleared) {
    ProfileLines lines = LinesOf(three);
    lines.Clear();
    EXPECT_EQ(lines.Bytes(), "");
    lines.Add("A", "1");
    EXPECT_EQ(lines.Bytes(), "A=1\r\n");
}

TEST(ProfileLines, Written_in_one_go_are_what_single_keys_are) {
    for (const std::string& file : files) {
        ProfileText single(file);
        WriteOneByOne(single, three);
        ProfileText whole(file);
        EXPECT_TRUE(whole.Write("s", LinesOf(three)));
        EXPECT_EQ(whole.Bytes(), single.Bytes()) << file;
        EXPECT_EQ(whole.IsChanged(), single.IsChanged()) << file;
    }
}

TEST(ProfileLines, Written_again_and_edited_are_what_single_keys_are) {
    const Pairs later = {{"A", "9"}, {"B", "x"}, {"C", "y"}};
    const Pairs wider = {{"A", "9"}, {"E", "new"}, {"C", "z"}};
    for (const std::string& file : files) {
        ProfileText single(file);
        ProfileText whole(file);
        for (const Pairs& pairs : {three, later, later, wider, three}) {
            WriteOneByOne(single, pairs);
            EXPECT_TRUE(whole.Write("s", LinesOf(pairs)));
            EXPECT_EQ(whole.Bytes(), single.Bytes()) << file;
            single.Write("s", "B", "edited");
            whole.Write("s", "B", "edited");
            EXPECT_EQ(whole.Value("s", "b"), "edited") << file;
            EXPECT_EQ(whole.Value("S", "C"), single.Value("S", "C")) << file;
            EXPECT_EQ(whole.Bytes(), single.Bytes()) << file;
        }
    }
}

TEST(ProfileLines, Are_found_before_they_have_reached_a_file) {
    ProfileText profile("[t]\r\nA=0\r\n");
    profile.Write("s", LinesOf(three));
    EXPECT_EQ(profile.Value("s", "b"), " two ");
    EXPECT_EQ(profile.Value("s", "D"), std::nullopt);
    profile.Write("s", LinesOf({{"A", "8"}, {"B", "9"}, {"C", "0"}}));
    EXPECT_EQ(profile.Value("s", "b"), "9");
    EXPECT_EQ(profile.Value("t", "A"), "0");
}

TEST(ProfileLines, That_are_none_make_no_section) {
    ProfileText profile("");
    EXPECT_TRUE(profile.Write("s", ProfileLines()));
    EXPECT_FALSE(profile.IsChanged());
    EXPECT_EQ(profile.Bytes(), "");
}

TEST(ProfileLines, Of_a_section_that_could_not_be_found_again_are_not_written) {
    ProfileText profile("");
    EXPECT_FALSE(profile.Write("a]", LinesOf(three)));
    EXPECT_FALSE(profile.Write("", LinesOf(three)));
    EXPECT_FALSE(profile.IsChanged());
}

}  // namespace
}  // namespace tavel::test
