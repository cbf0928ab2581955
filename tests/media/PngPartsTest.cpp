#include "media/PartsOf.h"

#include <gtest/gtest.h>

namespace tavel::test {

namespace {

using namespace std::string_literals;

std::string Chunk(const std::string& type, const std::string& content) {
    return BigEndian(static_cast<std::uint32_t>(content.size()), 4) + type + content + "sum!";
}

std::string PngHeader(std::uint32_t width, std::uint32_t height, char depth = 8, char type = 2) {
    return "\x89PNG\r\n\x1A\n" +
           Chunk("IHDR", BigEndian(width, 4) + BigEndian(height, 4) + depth + type + "\0\0\0"s);
}

const std::string pixels = Chunk("IDAT", "pixels");
const std::string pngEnd = Chunk("IEND", "");

}  // namespace

TEST(PngParts, Are_the_chunks_that_pixels_need) {
    const std::string kept = PngHeader(40, 30) + Chunk("gAMA", "1234") + Chunk("PLTE", "abc") +
                             Chunk("tRNS", "abc") + pixels + pixels + pngEnd;
    EXPECT_EQ(Parts(kept), kept);
    std::string dressed = kept + "more" + kept;
    for (const char* type :
         {"tEXt", "zTXt", "iTXt", "iCCP", "eXIf", "tIME", "pHYs", "bKGD", "sBIT", "hIST", "sPLT",
          "cHRM", "sRGB", "acTL", "fcTL", "fdAT", "oFFs", "ABCD"}) {
        dressed.insert(PngHeader(40, 30).size(), Chunk(type, "something"));
        dressed.insert(dressed.find(pngEnd), Chunk(type, "something"));
    }
    EXPECT_EQ(Parts(dressed), kept);
}

TEST(PngParts, Are_none_when_they_do_not_hang_together) {
    const std::string whole = PngHeader(40, 30) + pixels + pngEnd;
    for (std::size_t cut = 0; cut < whole.size(); ++cut)
        EXPECT_EQ(Parts(whole.substr(0, cut)), "") << cut;
    EXPECT_EQ(Parts("\x89PNG\r\n\x1A\n" + pixels + PngHeader(40, 30).substr(8) + pngEnd), "");
    EXPECT_EQ(Parts(PngHeader(40, 30) + PngHeader(40, 30).substr(8) + pixels + pngEnd), "");
    EXPECT_EQ(Parts("\x89PNG\r\n\x1A\n" + Chunk("IHDR", "short") + pixels + pngEnd), "");
    EXPECT_EQ(Parts(PngHeader(40, 30) + "\xFF\xFF\xFF\xFFIDAT" + pngEnd), "");
}

TEST(PngParts, Are_let_through_up_to_600_megabytes) {
    const auto isTrusted = [](std::uint32_t width, std::uint32_t height, char depth, char type,
                              bool hasTransparency = false) {
        return !Parts(PngHeader(width, height, depth, type) +
                      (hasTransparency ? Chunk("tRNS", "ab") : "") + pixels + pngEnd)
                    .empty();
    };
    EXPECT_TRUE(isTrusted(20000, 10000, 8, 2));
    EXPECT_FALSE(isTrusted(20000, 10001, 8, 2));
    EXPECT_FALSE(isTrusted(20000, 10001, 1, 0)) << "200 megapixels";
    EXPECT_TRUE(isTrusted(15000, 10000, 8, 2, true)) << "alpha";
    EXPECT_FALSE(isTrusted(15000, 10001, 8, 2, true));
    EXPECT_TRUE(isTrusted(20000, 10000, 8, 3, true)) << "a palette has room for alpha";
    EXPECT_TRUE(isTrusted(10000, 10000, 16, 2)) << "16 bits";
    EXPECT_FALSE(isTrusted(10000, 10001, 16, 2));
    EXPECT_FALSE(isTrusted(10000, 10001, 16, 0, true)) << "16 bits of grey with alpha";
    EXPECT_FALSE(isTrusted(10000, 10001, 16, 4)) << "16 bits of grey with alpha";
    EXPECT_FALSE(isTrusted(10000, 10001, 16, 6));
    EXPECT_TRUE(isTrusted(65535, 3000, 8, 2));
    EXPECT_FALSE(isTrusted(65536, 1, 8, 2)) << "a side that a rescaling has no room for";
    EXPECT_FALSE(isTrusted(1, 65536, 8, 2));
}

}  // namespace tavel::test
