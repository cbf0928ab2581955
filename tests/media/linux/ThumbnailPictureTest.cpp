#include "media/ThumbnailPicture.h"
#include "support/Support.h"

#include <FreeImage.h>
#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <utility>

namespace tavel::test {

namespace {

struct Unload {
    void operator()(FIBITMAP* bitmap) const { FreeImage_Unload(bitmap); }
    void operator()(FIMEMORY* memory) const { FreeImage_CloseMemory(memory); }
};
using Bitmap = std::unique_ptr<FIBITMAP, Unload>;
using Memory = std::unique_ptr<FIMEMORY, Unload>;

// The pixels of a JPEG; empty when it is none.
std::string Pixels(const std::string& jpeg) {
    std::string bytes = jpeg;
    const Memory memory(FreeImage_OpenMemory(reinterpret_cast<BYTE*>(bytes.data()),
                                             static_cast<DWORD>(bytes.size())));
    const Bitmap bitmap(FreeImage_LoadFromMemory(FIF_JPEG, memory.get(), 0));
    if (!bitmap) return {};
    const unsigned size = FreeImage_GetPitch(bitmap.get()) * FreeImage_GetHeight(bitmap.get());
    return {reinterpret_cast<const char*>(FreeImage_GetBits(bitmap.get())), size};
}

// What the picture library itself makes of the whole file.
std::string MadeOfAll(const std::string& hostPath) {
    const FREE_IMAGE_FORMAT format = FreeImage_GetFileType(hostPath.c_str(), 0);
    Bitmap bitmap(FreeImage_Load(format, hostPath.c_str(), 0));
    if (FreeImage_GetWidth(bitmap.get()) != 160 || FreeImage_GetHeight(bitmap.get()) != 120) {
        bitmap.reset(FreeImage_Rescale(bitmap.get(), 160, 120, FILTER_BICUBIC));
    }
    const Memory memory(FreeImage_OpenMemory());
    BYTE* bytes = nullptr;
    DWORD size = 0;
    if (!FreeImage_SaveToMemory(FIF_JPEG, bitmap.get(), memory.get(), 0)) return {};
    FreeImage_AcquireMemory(memory.get(), &bytes, &size);
    return {reinterpret_cast<const char*>(bytes), size};
}

std::string MadeOfTrustedParts(std::string file) {
    std::optional<TrustedPicture> picture = TrustedParts(std::move(file));
    return picture ? ThumbnailPicture(*std::move(picture)) : std::string();
}

std::string OutputOf(const std::string& command) {
    std::string output;
    FILE* pipe = popen(command.c_str(), "r");
    std::array<char, 256> line{};
    while (fgets(line.data(), line.size(), pipe) != nullptr) output += line.data();
    pclose(pipe);
    return output;
}

bool HasTool(const char* name) {
    return std::system(("command -v " + std::string(name) + " > /dev/null").c_str()) == 0;
}

struct Sample {
    const char* Arguments;  // of ImageMagick
    const char* Name;
};

// A picture of 200 by 90 pixels in the forms that become a thumbnail.
const Sample samples[] = {
    {"", "plain.jpg"},
    {"-interlace JPEG", "progressive.jpg"},
    {"-sampling-factor 4:2:0 -define jpeg:restart-interval=3", "subsampled.jpg"},
    {"-colorspace gray", "grey.jpg"},
    {"-colorspace CMYK", "cmyk.jpg"},
    {"-define jpeg:arithmetic-coding=true", "arithmetic.jpg"},
    {"-resize 160x120!", "of-that-size.jpg"},
    {"-resize 160x90!", "as-wide.jpg"},
    {"-resize 200x120!", "as-high.png"},
    {"-resize 160x120! -colors 200 -define png:color-type=3", "colours-of-that-size.png"},
    {"-resize 160x120! -colorspace gray -depth 8", "grey-of-that-size.png"},
    {"-resize 160x120! -colors 200", "colours-of-that-size.gif"},
    {"-resize 160x120! -colors 100 -fuzz 10% -transparent blue", "transparent-of-that-size.gif"},
    {"-depth 8", "plain.png"},
    {"-interlace PNG", "interlaced.png"},
    {"-gamma 0.6 -set gamma 0.7", "bright.png"},
    {"-colorspace gray -depth 8", "grey.png"},
    {"-colorspace gray -colors 4 -depth 2", "four-greys.png"},
    {"-monochrome", "black-and-white.png"},
    {"-colors 200 -define png:color-type=3", "colours.png"},
    {"-colors 12 -define png:color-type=3 -define png:bit-depth=4", "few-colours.png"},
    {"-colors 12", "colours.gif"},
    {"-colors 200 -interlace gif", "interlaced.gif"},
    {"( -size 9x8 canvas:blue ) -colors 9 -loop 0", "moving.gif"},
    {"-define bmp:format=bmp2 -type truecolor", "older.bmp"},
    {"-define bmp:format=bmp3 -type truecolor", "plain.bmp"},
    {"-define bmp:format=bmp3 -colors 100 -type palette -compress none", "colours.bmp"},
    {"-define bmp:format=bmp3 -monochrome", "black-and-white.bmp"},
    {"-compress none", "plain.tif"},
    {"-compress lzw -define tiff:predictor=2", "lzw.tif"},
    {"-compress zip -endian MSB", "other-order.tif"},
    {"-compress rle -define tiff:rows-per-strip=7", "strips.tif"},
    {"-compress jpeg", "jpeg.tif"},
    {"-compress jpeg -colorspace gray", "grey-jpeg.tif"},
    {"-colorspace gray -depth 8", "grey.tif"},
    {"-colors 12 -type palette -compress none", "colours.tif"},
    {"-monochrome -compress group4", "fax.tif"},
    {"-monochrome -compress fax -define tiff:fill-order=lsb", "older-fax.tif"},
    {"-colorspace CMYK -compress lzw", "cmyk.tif"},
    {"( -size 9x8 canvas:blue ) -compress none", "two-pages.tif"},
};

// Forms of which the library makes no JPEG, or that it isn't trusted with.
const Sample refused[] = {
    {"-alpha on -channel A -evaluate set 50%", "alpha.png"},
    {"-depth 16 -define png:bit-depth=16 -define png:color-type=2", "48-bits.png"},
    {"-colorspace gray -depth 16 -define png:bit-depth=16 -define png:color-type=0", "16-bits.png"},
    {"-colors 8 -fuzz 30% -transparent blue", "transparent.gif"},
    {"-alpha set -define png:color-type=6", "opaque.png"},
    {"-alpha set -resize 160x120! -define png:color-type=6", "opaque-of-that-size.png"},
    {"-resize 160x120! -monochrome", "black-and-white-of-that-size.png"},
    {"-resize 160x120! -monochrome -define bmp:format=bmp3", "black-and-white-of-that-size.bmp"},
    {"-resize 160x120! -monochrome -compress group4", "black-and-white-of-that-size.tif"},
    {"-resize 160x120! -monochrome", "black-and-white-of-that-size.gif"},
    {"-resize 160x120! -colors 12 -define png:color-type=3 -define png:bit-depth=4",
     "few-colours-of-that-size.png"},
    {"-resize 160x120! -colors 12", "few-colours-of-that-size.gif"},
    {"-resize 160x120! -define bmp:subtype=RGB565", "16-bits-of-that-size.bmp"},
    {"-alpha on -channel A -evaluate set 50% -define bmp:format=bmp4", "32-bits.bmp"},
    {"-depth 16", "48-bits.tif"},
    {"-alpha on -channel A -evaluate set 50%", "alpha.tif"},
    {"-define tiff:tile-geometry=64x64", "tiles.tif"},
    {"-interlace plane -compress lzw", "planes.tif"},
    {"-colorspace Lab", "lab.tif"},
};

}  // namespace

class ThumbnailPictures : public ::testing::Test {
  protected:
    void SetUp() override {
        if (!HasTool("convert")) GTEST_SKIP() << "ImageMagick is not installed";
    }

    void Run(const std::string& command) {
        std::string quoted;
        for (const char c : command) {
            if (c == '(' || c == ')') quoted += '\\';
            quoted += c;
        }
        ASSERT_EQ(std::system(quoted.c_str()), 0) << quoted;
    }

    std::string Make(const Sample& sample) {
        Run("convert -size 200x90 -seed 1 plasma:blue-green -depth 8 " +
            std::string(sample.Arguments) + " " + folder.HostPath(sample.Name));
        return folder.Read(sample.Name);
    }

    void Keep(const std::string& thumbnail) {
        folder.Write("made/" + std::to_string(m_kept++) + ".thm", thumbnail);
    }

    // Whether ImageMagick takes each thumbnail that was kept for a JPEG of that size.
    void ExpectThumbnailsAreJpegs() {
        const std::string seen = OutputOf("cd " + folder.HostPath("made") +
                                          " && for file in *.thm; do echo JPEG:$file; done | "
                                          "xargs identify -format '%m %w %h\n'");
        std::string expected;
        for (int i = 0; i < m_kept; ++i) expected += "JPEG 160 120\n";
        EXPECT_EQ(seen, expected);
    }

    TempFolder folder;

  private:
    int m_kept = 0;
};

TEST_F(ThumbnailPictures, Have_the_pixels_that_the_whole_file_would_give) {
    for (const Sample& sample : samples) {
        const std::string made = MadeOfTrustedParts(Make(sample));
        Keep(made);
        EXPECT_TRUE(Pixels(made) == Pixels(MadeOfAll(folder.HostPath(sample.Name)))) << sample.Name;
    }
    ExpectThumbnailsAreJpegs();
}

TEST_F(ThumbnailPictures, Have_the_colour_depth_of_their_source) {
    const auto depth = [&](const Sample& sample) {
        folder.Write("made.thm", MadeOfTrustedParts(Make(sample)));
        return OutputOf("identify -format '%[channels]' JPEG:" + folder.HostPath("made.thm"));
    };
    EXPECT_EQ(depth({"-colorspace gray", "grey.jpg"}), "gray");
    EXPECT_EQ(depth({"-monochrome", "black-and-white.png"}), "gray");
    EXPECT_EQ(depth({"", "colour.jpg"}), "srgb");
    EXPECT_EQ(depth({"-colors 12", "colours.gif"}), "srgb");
    EXPECT_EQ(depth({"-colorspace CMYK", "cmyk.jpg"}), "srgb");
}

TEST_F(ThumbnailPictures, Are_not_made_of_what_is_no_picture_that_a_jpeg_takes) {
    for (const Sample& sample : refused) {
        EXPECT_TRUE(MadeOfTrustedParts(Make(sample)).empty()) << sample.Name;
    }
}

// The library itself reads none of these.
TEST_F(ThumbnailPictures, Are_made_of_bitmaps_with_the_headers_of_today) {
    for (const std::string form :
         {"-type truecolor", "-monochrome", "-colors 100 -type palette -compress none"}) {
        const std::string older = form + " -define bmp:format=bmp3";
        const std::string today = form + " -define bmp:format=bmp4";
        const std::string made = MadeOfTrustedParts(Make({today.c_str(), "today.bmp"}));
        const std::string plain = MadeOfTrustedParts(Make({older.c_str(), "older.bmp"}));
        EXPECT_TRUE(Pixels(made) == Pixels(plain)) << form;
        Keep(made);
    }
    ExpectThumbnailsAreJpegs();
}

TEST_F(ThumbnailPictures, Are_made_of_single_pictures_that_ffmpeg_writes) {
    if (!HasTool("ffmpeg")) GTEST_SKIP() << "ffmpeg is not installed";
    for (const std::string name :
         {"a.jpg", "a.png", "a.gif", "a.bmp", "-pix_fmt rgb565le b.bmp", "-pix_fmt rgb555le c.bmp",
          "-pix_fmt pal8 d.bmp", "a.tif", "-pix_fmt gray b.tif", "-pix_fmt monob c.tif",
          "-compression_algo lzw d.tif", "-compression_algo deflate e.tif"}) {
        const std::size_t blank = name.rfind(' ') + 1;
        const std::string path = folder.HostPath(name.substr(blank));
        Run("ffmpeg -loglevel error -f lavfi -i testsrc=size=320x240 -frames:v 1 " +
            name.substr(0, blank) + path);
        const std::string made = MadeOfTrustedParts(folder.Read(name.substr(blank)));
        Keep(made);
        EXPECT_TRUE(Pixels(made) == Pixels(MadeOfAll(path))) << name;
    }
    ExpectThumbnailsAreJpegs();
}

}  // namespace tavel::test
