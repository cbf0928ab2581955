#include "media/PartsOf.h"

#include <gtest/gtest.h>

namespace tavel::test {

namespace {

using namespace std::string_literals;

// The headers of a bitmap, with a plain picture header unless it is to be longer.
std::string Start(std::uint32_t headerSize, std::uint32_t width, std::uint32_t height,
                  std::uint32_t depth, std::uint32_t compression, std::uint32_t pixels,
                  std::uint32_t colours = 0, std::uint32_t resolution = 1234) {
    return "BM" + std::string(8, '\0') + LittleEndian(pixels, 4) + LittleEndian(headerSize, 4) +
           LittleEndian(width, 4) + LittleEndian(height, 4) + LittleEndian(1, 2) +
           LittleEndian(depth, 2) + LittleEndian(compression, 4) + std::string(4, '\0') +
           LittleEndian(resolution, 4) + LittleEndian(resolution, 4) + LittleEndian(colours, 4) +
           std::string(4, '\0') + std::string(headerSize > 40 ? headerSize - 40 : 0, 'r');
}

// What is let through of a picture of 40 by 30.
std::string Plain(std::uint32_t depth, std::uint32_t compression, std::uint32_t pixels,
                  std::uint32_t colours = 0) {
    return Start(40, 40, 30, depth, compression, pixels, colours, 2835);
}

const std::string masks = "RRRRGGGGBBBB";

}  // namespace

TEST(BitmapParts, Are_headers_colours_and_pixels) {
    for (const std::uint32_t size : {40U, 52U, 56U, 64U, 108U, 124U}) {
        const std::uint32_t end = 14 + size;
        EXPECT_EQ(Parts(Start(size, 40, 30, 24, 0, end + 7) + "profile" + "pixels"),
                  Plain(24, 0, 54) + "pixels");
        EXPECT_EQ(Parts(Start(size, 40, 30, 16, 0, end) + "pixels"), Plain(16, 0, 54) + "pixels");
        EXPECT_EQ(Parts(Start(size, 40, 30, 4, 2, end + 8, 2) + "BGR-bgr-" + "pixels"),
                  Plain(4, 2, 62, 2) + "BGR\0bgr\0pixels"s);
        EXPECT_EQ(Parts(Start(size, 40, 30, 1, 0, end + 8) + "BGR-bgr-" + "pixels"),
                  Plain(1, 0, 62, 2) + "BGR\0bgr\0pixels"s);
        EXPECT_EQ(Parts(Start(size, 40, 30, 8, 1, end + 1024, 999) + std::string(1024, '\0')),
                  Plain(8, 1, 54 + 1024, 256) + std::string(1024, '\0'));
    }
}

TEST(BitmapParts, Are_masks_of_colours_behind_the_plain_header_or_in_a_longer_one) {
    const std::string expected = Plain(16, 3, 66) + masks + "pixels";
    EXPECT_EQ(Parts(Start(40, 40, 30, 16, 3, 66) + masks + "pixels"), expected);
    std::string longer = Start(124, 40, 30, 16, 3, 14 + 124) + "pixels";
    EXPECT_EQ(Parts(longer.replace(54, masks.size(), masks)), expected);
}

TEST(BitmapParts, Come_from_the_oldest_form_too) {
    const std::string sides = "\x28\0\x1E\0\1\0"s;
    const auto core = [&](char depth, std::uint32_t pixels) {
        return "BM" + std::string(8, '\0') + LittleEndian(pixels, 4) + LittleEndian(12, 4) + sides +
               depth + '\0';
    };
    EXPECT_EQ(Parts(core(24, 26) + "pixels"), Plain(24, 0, 54) + "pixels");
    EXPECT_EQ(Parts(core(1, 32) + "BGRbgr" + "pixels"), Plain(1, 0, 62, 2) + "BGR\0bgr\0pixels"s);
    EXPECT_EQ(Parts(core(1, 26) + "BGRbg"), "") << "the file ends in its colours";
}

TEST(BitmapParts, Keep_the_order_of_their_rows) {
    const auto topDown = static_cast<std::uint32_t>(-30);
    EXPECT_EQ(Parts(Start(40, 40, topDown, 24, 0, 54) + "pixels"),
              Start(40, 40, topDown, 24, 0, 54, 0, 2835) + "pixels");
}

TEST(BitmapParts, Are_none_when_they_do_not_hang_together) {
    EXPECT_EQ(Parts(Start(39, 40, 30, 24, 0, 54)), "") << "no such header";
    EXPECT_EQ(Parts(Start(40, 40, 30, 24, 0, 54).substr(0, 53)), "") << "cut off";
    EXPECT_EQ(Parts(Start(124, 40, 30, 24, 0, 137).substr(0, 137)), "") << "cut off";
    EXPECT_EQ(Parts(Start(40, 40, 30, 24, 0, 55)), "") << "no pixels";
    EXPECT_EQ(Parts(Start(40, 40, 30, 8, 0, 54) + std::string(1023, 'c')), "") << "no colours";
    EXPECT_EQ(Parts(Start(40, 40, 30, 16, 3, 54) + masks.substr(1)), "") << "no masks";
    EXPECT_EQ(Parts(Start(40, 40, 30, 2, 0, 54) + std::string(99, 'c')), "") << "a depth of none";
    EXPECT_EQ(Parts(Start(40, 40, 30, 0, 0, 54) + std::string(99, 'c')), "") << "a depth of none";
}

TEST(BitmapParts, Have_one_of_the_compressions_of_their_depth) {
    for (const std::uint32_t depth : {1U, 4U, 8U, 16U, 24U, 32U}) {
        for (std::uint32_t compression = 1; compression < 12; ++compression) {
            const bool isKnown = (depth == 8 && compression == 1) ||
                                 (depth == 4 && compression == 2) ||
                                 ((depth == 16 || depth == 32) && compression == 3);
            const std::string file =
                Start(40, 40, 30, depth, compression, 54) + std::string(2000, 'p');
            EXPECT_EQ(!Parts(file).empty(), isKnown) << depth << " " << compression;
        }
    }
}

TEST(BitmapParts, Are_let_through_up_to_600_megabytes) {
    const auto isTrusted = [](std::uint32_t width, std::uint32_t height, std::uint32_t depth,
                              std::uint32_t compression = 0) {
        return !Parts(Start(40, width, height, depth, compression, 54) + std::string(64, 'c'))
                    .empty();
    };
    EXPECT_TRUE(isTrusted(20000, 10000, 24));
    EXPECT_TRUE(isTrusted(20000, static_cast<std::uint32_t>(-10000), 24));
    EXPECT_FALSE(isTrusted(20000, 10001, 24));
    EXPECT_FALSE(isTrusted(30000, 30000, 24)) << "2.6 GB in a file of 60 bytes";
    EXPECT_FALSE(isTrusted(20000, 10001, 1)) << "200 megapixels";
    EXPECT_TRUE(isTrusted(15000, 10000, 32));
    EXPECT_FALSE(isTrusted(15000, 10001, 32));
    EXPECT_TRUE(isTrusted(20000, 10000, 4, 2));
    EXPECT_FALSE(isTrusted(65536, 1, 24));
    EXPECT_FALSE(isTrusted(0, 10, 24));
    EXPECT_FALSE(isTrusted(static_cast<std::uint32_t>(-10), 10, 24));
    EXPECT_FALSE(isTrusted(1, 0x80000000, 24));
}

}  // namespace tavel::test
