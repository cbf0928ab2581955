#include "media/Pictures.h"
#include "support/Support.h"

#include <FreeImage.h>
#include <gtest/gtest.h>

#include <cstdlib>

// Pictures as ImageMagick makes them.

namespace tavel::test {

namespace {

std::string Text(std::int64_t width, std::int64_t height) {
    return std::to_string(width) + "x" + std::to_string(height);
}

// The size after decoding the whole file, as the picture library tells it.
std::string DecodedSize(const std::string& hostPath) {
    const FREE_IMAGE_FORMAT format = FreeImage_GetFileType(hostPath.c_str(), 0);
    FIBITMAP* bitmap = FreeImage_Load(format, hostPath.c_str(), 0);
    const std::string size = Text(FreeImage_GetWidth(bitmap), FreeImage_GetHeight(bitmap));
    FreeImage_Unload(bitmap);
    return size;
}

std::string SizeAt(const std::string& path) {
    const PictureSize size = SizeOfPicture(path);
    return Text(size.Width, size.Height);
}

bool HasImageMagick() { return std::system("convert -version > /dev/null 2>&1") == 0; }

struct Sample {
    const char* Arguments;  // of ImageMagick
    const char* Name;
};

const Sample samples[] = {
    {"", "plain.jpg"},
    {"-interlace JPEG", "progressive.jpg"},
    {"-colorspace gray", "grey.jpg"},
    {"-colorspace CMYK", "cmyk.jpg"},
    {"-sampling-factor 4:2:0 -orient right-top", "turned.jpg"},
    {"-define jpeg:arithmetic-coding=true", "arithmetic.jpg"},
    {"-depth 8", "plain.png"},
    {"-depth 16 -interlace PNG", "interlaced.png"},
    {"-alpha on", "alpha.png"},
    {"-monochrome", "black-and-white.png"},
    {"-colors 12", "colours.gif"},
    {"-interlace gif", "interlaced.gif"},
    {"( -size 9x8 canvas:blue -page 50x40+5+7 ) -delete 0", "part-of-screen.gif"},
    {"( -size 9x8 canvas:blue ) -loop 0", "moving.gif"},
    {"-define bmp:format=bmp2", "older.bmp"},
    {"-define bmp:format=bmp3 -depth 8", "plain.bmp"},
    {"-define bmp:format=bmp3 -monochrome", "black-and-white.bmp"},
};

// The picture library writes pages of complaints about any of these, so it is not asked.
const Sample tiffSamples[] = {
    {"-compress none", "plain.tif"},
    {"-compress lzw -endian MSB", "other-order.tif"},
    {"-compress jpeg", "jpeg.tif"},
    {"-monochrome -compress group4", "fax.tif"},
    {"-define tiff:tile-geometry=16x16 -orient right-top", "tiles.tif"},
    {"( -size 9x8 canvas:blue )", "two-pages.tif"},
};

}  // namespace

class PictureSizes : public ::testing::Test {
  protected:
    void Make(const Sample& sample) {
        std::string make = "convert -size 37x21 plasma:blue-green ";
        for (const char* c = sample.Arguments; *c != '\0'; ++c) {
            if (*c == '(' || *c == ')') make += '\\';
            make += *c;
        }
        make += " " + folder.HostPath(sample.Name);
        ASSERT_EQ(std::system(make.c_str()), 0) << make;
    }

    TempFolder folder;
};

TEST_F(PictureSizes, Sizes_are_those_that_decoding_the_whole_picture_gives) {
    if (!HasImageMagick()) GTEST_SKIP() << "ImageMagick is not installed";
    for (const Sample& sample : samples) {
        ASSERT_NO_FATAL_FAILURE(Make(sample));
        const std::string size = SizeAt(folder.DrivePath(sample.Name));
        EXPECT_EQ(size, DecodedSize(folder.HostPath(sample.Name))) << sample.Name;
        EXPECT_NE(size, "0x0") << sample.Name;
    }
}

TEST_F(PictureSizes, Sizes_of_tiff_pictures_are_those_they_were_made_with) {
    if (!HasImageMagick()) GTEST_SKIP() << "ImageMagick is not installed";
    for (const Sample& sample : tiffSamples) {
        ASSERT_NO_FATAL_FAILURE(Make(sample));
        EXPECT_EQ(SizeAt(folder.DrivePath(sample.Name)), "37x21") << sample.Name;
    }
}

TEST_F(PictureSizes, The_kind_is_told_by_content_and_not_by_name) {
    if (!HasImageMagick()) GTEST_SKIP() << "ImageMagick is not installed";
    const std::string make = "convert -size 37x21 canvas:red PNG:" + folder.HostPath("really.jpg");
    ASSERT_EQ(std::system(make.c_str()), 0);
    EXPECT_EQ(SizeAt(folder.DrivePath("really.jpg")), "37x21");
    EXPECT_EQ(SizeAt(folder.DrivePath("REALLY.JPG")), "37x21") << "names match without case";
}

}  // namespace tavel::test
