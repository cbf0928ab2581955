#include "media/PartsOf.h"

#include <gtest/gtest.h>

namespace tavel::test {

namespace {

using namespace std::string_literals;

std::string Segment(char marker, const std::string& content) {
    return "\xFF"s + marker + BigEndian(static_cast<std::uint32_t>(content.size()) + 2, 2) +
           content;
}

std::string Frame(char marker, std::uint32_t width, std::uint32_t height, int components = 3,
                  const std::string& sampling = "\x22\x11\x11\x11"s) {
    std::string content = "\x8"s + BigEndian(height, 2) + BigEndian(width, 2);
    content += static_cast<char>(components);
    for (int i = 0; i < components; ++i) content += {static_cast<char>(i + 1), sampling[i], '\0'};
    return Segment(marker, content);
}

const std::string start = "\xFF\xD8";
const std::string end = "\xFF\xD9";
const std::string scan = "\xFF\xDA\0\4\0\0data\xFF\0more\xFF\xD3more\xFF\xFF\0more"s;
const std::string frame = Frame('\xC0', 40, 30);
const std::string tables = Segment('\xDB', "table") + Segment('\xC4', "table") +
                           Segment('\xCC', "table") + Segment('\xDD', "\0\1"s);

}  // namespace

TEST(JpegParts, Are_frame_tables_and_scans) {
    const std::string plain = start + tables + frame + scan + end;
    EXPECT_EQ(Parts(plain), plain);
    for (int marker = 0xC0; marker < 0xFF; ++marker) {
        const std::string kept = "\xC0\xC1\xC2\xC4\xC9\xCA\xCC\xD8\xD9\xDA\xDB\xDD";
        if (kept.find(static_cast<char>(marker)) != std::string::npos) continue;
        if (marker >= 0xD0 && marker <= 0xD7) continue;  // these belong to the data
        const std::string other = Segment(static_cast<char>(marker), std::string(300, 'x'));
        EXPECT_EQ(Parts(start + other + tables + frame + other + scan + other + end), plain)
            << marker;
    }
}

TEST(JpegParts, That_tell_what_the_components_are_come_without_the_rest) {
    const std::string jfif = Segment('\xE0', "JFIF\0\1\2\1\0\x48\0\x48\1\1"s + "RGB");
    const std::string adobe = Segment('\xEE', "Adobe\0\x64\1\2\3\4\2more"s);
    EXPECT_EQ(Parts(start + jfif + adobe + frame + scan + end),
              start + Segment('\xE0', "JFIF\0\1\1\0\0\1\0\1\0\0"s) +
                  Segment('\xEE', "Adobe\0\x64\0\0\0\0\2"s) + frame + scan + end);
    EXPECT_EQ(Parts(start + Segment('\xE0', "JFXX\0\x10" + std::string(50, 'x')) + frame + scan),
              start + frame + scan + end);
    EXPECT_EQ(Parts(start + Segment('\xEE', "Adobe\0\x64"s) + frame + scan),
              start + frame + scan + end);
}

TEST(JpegParts, End_with_the_end_of_the_picture) {
    const std::string plain = start + frame + scan + end;
    EXPECT_EQ(Parts(plain + "more" + plain), plain);
    EXPECT_EQ(Parts(start + frame + scan), plain) << "cut off in its data";
    EXPECT_EQ(Parts(start + "x\xFF\0y\xFF\xFF"s + frame.substr(1) + scan + end), plain);
}

TEST(JpegParts, Are_none_when_they_do_not_hang_together) {
    EXPECT_EQ(Parts(start + frame + end), "") << "no scan";
    EXPECT_EQ(Parts(start + scan + frame + end), "") << "the scan comes first";
    EXPECT_EQ(Parts(start + frame + frame + scan + end), "") << "two frames";
    EXPECT_EQ(Parts(start + frame + scan + frame + end), "") << "two frames";
    EXPECT_EQ(Parts(start + frame + scan + start + scan), "") << "two pictures in one";
    EXPECT_EQ(Parts(start + "\xFF\xE1\0\1" + frame + scan), "") << "a length that is none";
    EXPECT_EQ(Parts(start + frame + scan + "\xFF\xE1\x10\0"s), "") << "a length beyond the end";
    EXPECT_EQ(Parts(start + Segment('\xC0', "\x8\0\x15\0\x25"s) + scan), "");
    EXPECT_EQ(Parts(start + Segment('\xC0', "\x8\0\x15\0\x25\2\1\x11\0"s) + scan), "");
    EXPECT_EQ(Parts(start + Segment('\xC0', "\x8\0\x15\0\x25\0"s) + scan), "");
    for (const char kind : "\xC3\xC5\xC6\xC7\xC8\xCB\xCD\xCE\xCF"s) {
        EXPECT_EQ(Parts(start + Frame(kind, 40, 30) + scan), "");
    }
}

TEST(JpegParts, Are_let_through_up_to_200_megapixels) {
    const auto isTrusted = [](char kind, std::uint32_t width, std::uint32_t height,
                              int components = 3, const std::string& scans = scan) {
        return !Parts(start + Frame(kind, width, height, components) + scans).empty();
    };
    EXPECT_TRUE(isTrusted('\xC0', 20000, 10000));
    EXPECT_FALSE(isTrusted('\xC0', 20000, 10001));
    EXPECT_TRUE(isTrusted('\xC0', 65500, 3000));
    EXPECT_FALSE(isTrusted('\xC0', 65500, 65500));
    EXPECT_FALSE(isTrusted('\xC0', 20000, 10000, 4)) << "more than 600 MB";
    EXPECT_TRUE(isTrusted('\xC2', 10000, 10000)) << "its coefficients are kept: 6 bytes a pixel";
    EXPECT_FALSE(isTrusted('\xC2', 10000, 10001));
    EXPECT_FALSE(isTrusted('\xC0', 10000, 10001, 3, scan + scan)) << "and here as well";
    EXPECT_FALSE(isTrusted('\xC0', 0, 10));
    EXPECT_FALSE(isTrusted('\xC0', 10, 0));
}

// Each goes over all of the picture.
TEST(JpegParts, With_thousands_of_scans_are_let_through_when_the_picture_is_small) {
    std::string scans;
    for (int i = 0; i < 2000; ++i) scans += "\xFF\xDA\0\4\0\0"s;
    EXPECT_NE(Parts(start + Frame('\xC2', 1000, 1000) + scans), "");
    EXPECT_EQ(Parts(start + Frame('\xC2', 1000, 1001) + scans), "");
}

}  // namespace tavel::test
