#include "media/PartsOf.h"

#include <gtest/gtest.h>

namespace tavel::test {

namespace {

using namespace std::string_literals;

const std::string screen = "GIF89a\x32\0\x28\0\x80\0\0abcdef"s;
const std::string control = "!\xF9\4\1\0\0\2\0"s;
const std::string image = ",\5\0\7\0\x25\0\x15\0\x80"s + "ghijkl\2\3abc\2de\0"s;

}  // namespace

TEST(GifParts, Are_the_screen_and_the_first_picture) {
    const std::string comment = "!\xFE\3abc\2de\0"s;
    const std::string loops = "!\xFF\x0BNETSCAPE2.0\3\1\0\0\0"s;
    EXPECT_EQ(Parts(screen + image + ";"), screen + image + ";");
    EXPECT_EQ(Parts(screen + comment + loops + control + comment + image + comment + image + ";"),
              screen + control + image + ";");
    EXPECT_EQ(Parts(screen + "!\xF9\5\1\0\0\2\0\0"s + image), screen + image + ";");
    EXPECT_EQ(Parts(screen + image + "what follows may be cut off"), screen + image + ";");
}

TEST(GifParts, Are_none_when_the_first_picture_is_cut_off_or_damaged) {
    const std::string whole = screen + control + image;
    for (std::size_t cut = 0; cut < whole.size(); ++cut)
        EXPECT_EQ(Parts(whole.substr(0, cut)), "") << cut;
    EXPECT_EQ(Parts(screen + ";"), "") << "no picture";
    EXPECT_EQ(Parts(screen + "?" + image), "") << "an unknown block";
    for (const char codeSize : {'\0', '\x9', '\xFF'}) {
        std::string damaged = whole;
        damaged[damaged.find("ghijkl") + 6] = codeSize;
        EXPECT_EQ(Parts(damaged), "");
    }
}

TEST(GifParts, Are_let_through_up_to_200_megapixels) {
    const auto isTrusted = [](std::uint32_t width, std::uint32_t height) {
        const std::string sides = LittleEndian(width, 2) + LittleEndian(height, 2);
        return !Parts(screen + ",\0\0\0\0"s + sides + "\0\2\1a\0"s).empty();
    };
    EXPECT_TRUE(isTrusted(20000, 10000));
    EXPECT_FALSE(isTrusted(20000, 10001));
    EXPECT_FALSE(isTrusted(65535, 65535));
    EXPECT_FALSE(isTrusted(0, 10));
}

}  // namespace tavel::test
