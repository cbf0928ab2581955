#include "media/PartsOf.h"

#include <gtest/gtest.h>

namespace tavel::test {

namespace {

using namespace std::string_literals;

std::string BitmapStart(std::uint32_t headerSize, std::uint32_t width, std::uint32_t height,
                        std::uint32_t depth, std::uint32_t compression, std::uint32_t offset,
                        std::uint32_t colours = 0) {
    return "BM" + std::string(8, '\0') + LittleEndian(offset, 4) + LittleEndian(headerSize, 4) +
           LittleEndian(width, 4) + LittleEndian(height, 4) + LittleEndian(1, 2) +
           LittleEndian(depth, 2) + LittleEndian(compression, 4) + std::string(12, '\0') +
           LittleEndian(colours, 4) + std::string(4, '\0');
}

}  // namespace

TEST(BitmapParts, Behind_a_plain_header_stay_as_they_are) {
    for (const std::uint32_t depth : {1U, 4U, 8U, 16U, 24U, 32U}) {
        const std::string bitmap = BitmapStart(40, 40, 30, depth, 0, 54) + "colours and pixels";
        EXPECT_EQ(Parts(bitmap), bitmap) << depth;
    }
    const std::string core = "BM" + std::string(8, '\0') + LittleEndian(26, 4) +
                             LittleEndian(12, 4) + "\x28\0\x1E\0\1\0\x18\0pixels"s;
    EXPECT_EQ(Parts(core), core);
    const std::string topDown =
        BitmapStart(40, 40, static_cast<std::uint32_t>(-30), 24, 0, 54) + "pixels";
    EXPECT_EQ(Parts(topDown), topDown);
}

TEST(BitmapParts, Behind_a_longer_header_get_a_plain_one) {
    for (const std::uint32_t size : {52U, 56U, 64U, 108U, 124U}) {
        const std::string rest(size - 40, 'r');
        const std::uint32_t end24 = 14 + size + 7;
        EXPECT_EQ(Parts(BitmapStart(size, 40, 30, 24, 0, end24) + rest + "profile" + "pixels"),
                  BitmapStart(40, 40, 30, 24, 0, 54) + "pixels");
        EXPECT_EQ(
            Parts(BitmapStart(size, 40, 30, 4, 0, 14 + size + 8, 2) + rest + "colours." + "pixels"),
            BitmapStart(40, 40, 30, 4, 0, 62, 2) + "colours." + "pixels");
        EXPECT_EQ(Parts(BitmapStart(size, 40, 30, 16, 3, 14 + size) + "RRRRGGGGBBBB" +
                        rest.substr(12) + "pixels"),
                  BitmapStart(40, 40, 30, 16, 3, 66) + "RRRRGGGGBBBB" + "pixels");
    }
}

TEST(BitmapParts, Are_none_when_they_do_not_hang_together) {
    const std::string rest(84, 'r');
    EXPECT_EQ(Parts(BitmapStart(39, 40, 30, 24, 0, 54)), "") << "no such header";
    EXPECT_EQ(Parts(BitmapStart(40, 40, 30, 24, 0, 54).substr(0, 53)), "") << "cut off";
    EXPECT_EQ(Parts(BitmapStart(124, 40, 30, 24, 0, 138) + rest.substr(1)), "") << "cut off";
    EXPECT_EQ(Parts(BitmapStart(124, 40, 30, 24, 0, 139) + rest), "") << "no pixels";
    EXPECT_EQ(Parts(BitmapStart(124, 40, 30, 8, 0, 138 + 1023) + rest + std::string(2000, 'c')), "")
        << "pixels inside of its colours";
    EXPECT_EQ(Parts(BitmapStart(40, 40, 30, 1, 3, 54)), "") << "masks for a bit";
}

TEST(BitmapParts, Are_let_through_up_to_600_megabytes) {
    const auto isTrusted = [](std::uint32_t width, std::uint32_t height, std::uint32_t depth,
                              std::uint32_t compression = 0) {
        return !Parts(BitmapStart(40, width, height, depth, compression, 54) + "pixels").empty();
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
