#include "media/PictureHeaders.h"
#include "media/TagMaker.h"
#include "support/MemoryFile.h"

#include <gtest/gtest.h>

namespace tavel::test {

namespace {

using namespace std::string_literals;

std::string SizeOf(const std::string& bytes) {
    MemoryFile raw(bytes);
    FileBytes file(raw);
    const PictureSize size = SizeByContent(file);
    return std::to_string(size.Width) + "x" + std::to_string(size.Height);
}

std::string LittleEndian(std::uint32_t value, int bytes) {
    const std::string text = BigEndian(value, bytes);
    return {text.rbegin(), text.rend()};
}

std::string Bitmap(std::uint32_t headerSize, std::uint32_t width, std::uint32_t height,
                   std::uint32_t depth = 24) {
    const int side = headerSize == 12 ? 2 : 4;
    std::string header = LittleEndian(headerSize, 4) + LittleEndian(width, side) +
                         LittleEndian(height, side) + LittleEndian(1, 2) + LittleEndian(depth, 2);
    header.resize(headerSize);
    return "BM" + std::string(12, '\0') + header;
}

const std::string scan = "\xFF\xDA\0\4\0\0data\xFF\xD9"s;

std::string Segment(char marker, const std::string& content) {
    return "\xFF"s + marker + BigEndian(static_cast<std::uint32_t>(content.size()) + 2, 2) +
           content;
}

std::string JpegFrame(char marker, std::uint32_t width, std::uint32_t height) {
    return Segment(marker, "\x8"s + BigEndian(height, 2) + BigEndian(width, 2) + "\1\1\x11\0"s);
}

std::string Jpeg(const std::string& segments) { return "\xFF\xD8" + segments + scan; }

// The header of a picture of 37 by 21 pixels, 8 bits of grey, with its check sum.
const std::string pngStart = "\x89PNG\r\n\x1A\n\0\0\0\x0DIHDR\0\0\0\x25\0\0\0\x15\x08\0\0\0\0"s;
const std::string pngHeader = pngStart + "\xE4\x8F\x78\x72";
const std::string pngData = "\0\0\0\4IDATdata\0\0\0\0"s;
const std::string pngEnd = "\0\0\0\0IEND\xAE\x42\x60\x82"s;

const std::string gifScreen = "GIF89a\x32\0\x28\0\0\0\0"s;
const std::string gifPicture = ",\5\0\7\0\x25\0\x15\0\0\2\3abc\0"s;

std::string Tiff(const std::string& entries, int count) {
    return "II*\0\x8\0\0\0"s + LittleEndian(static_cast<std::uint32_t>(count), 2) + entries +
           std::string(4, '\0');
}

std::string TiffEntry(std::uint32_t tag, std::uint32_t type, std::uint32_t value,
                      std::uint32_t count = 1) {
    return LittleEndian(tag, 2) + LittleEndian(type, 2) + LittleEndian(count, 4) +
           LittleEndian(value, 4);
}

const std::string tiffSides = TiffEntry(256, 3, 37) + TiffEntry(257, 4, 21);

}  // namespace

TEST(SizeByContent, What_is_no_picture_has_no_size) {
    for (const std::string& bytes :
         {""s, "x"s, "BM"s, "\xFF\xD8"s, "GIF89a"s, "II*\0"s, "\x89PNG\r\n\x1A\n"s,
          std::string(100, '\0'), "BMW is the name of a car and of a long text, not a picture"s,
          "P6 3 2 255 0123456789012345678"s}) {
        EXPECT_EQ(SizeOf(bytes), "0x0") << bytes;
    }
}

TEST(BitmapSize, Every_form_of_the_header_tells_it) {
    for (const std::uint32_t form : {12u, 40u, 52u, 56u, 64u, 108u, 124u}) {
        EXPECT_EQ(SizeOf(Bitmap(form, 37, 21)), "37x21") << form;
    }
}

TEST(BitmapSize, Rows_from_the_top_down_have_a_negative_height) {
    EXPECT_EQ(SizeOf(Bitmap(40, 37, static_cast<std::uint32_t>(-21))), "37x21");
}

TEST(BitmapSize, A_header_that_makes_no_sense_tells_none) {
    EXPECT_EQ(SizeOf(Bitmap(41, 37, 21)), "0x0");
    EXPECT_EQ(SizeOf(Bitmap(40, 37, 21, 7)), "0x0");
    EXPECT_EQ(SizeOf(Bitmap(12, 37, 21, 0)), "0x0");
    EXPECT_EQ(SizeOf(Bitmap(40, static_cast<std::uint32_t>(-37), 21)), "0x0");
    EXPECT_EQ(SizeOf(Bitmap(40, 37, 0)), "0x0");
    EXPECT_EQ(SizeOf(Bitmap(40, 0x7FFFFFFF, 0x80000000)), "0x0");
    EXPECT_EQ(SizeOf(Bitmap(40, 37, 21).substr(0, 53)), "0x0");
}

TEST(SizeByContent, A_side_of_more_than_an_Integer_is_told) {
    EXPECT_EQ(SizeOf(Bitmap(40, 40000, 1)), "40000x1");
    EXPECT_EQ(SizeOf(Bitmap(40, 65535, 32767)), "65535x32767");
    EXPECT_EQ(SizeOf(Bitmap(40, 65536, 32769)), "65536x32769");
    EXPECT_EQ(SizeOf(Bitmap(40, 131072, 131072)), "131072x131072");
    EXPECT_EQ(SizeOf(Bitmap(40, 131072, 131073)), "0x0") << "more than a decoder can hold";
}

TEST(JpegSize, Frames_of_every_kind_with_a_decoder_tell_it) {
    for (const char kind : "\xC0\xC1\xC2\xC9\xCA"s) {
        EXPECT_EQ(SizeOf(Jpeg(JpegFrame(kind, 37, 21))), "37x21");
    }
    for (const char kind : "\xC3\xC5\xC6\xC7\xC8\xCB\xCD\xCE\xCF"s) {
        EXPECT_EQ(SizeOf(Jpeg(JpegFrame(kind, 37, 21))), "0x0");
    }
}

TEST(JpegSize, Other_segments_and_what_lies_between_them_are_passed_over) {
    const std::string frame = JpegFrame('\xC0', 37, 21);
    const std::string thumbnail = Segment('\xE1', "Exif" + Jpeg(JpegFrame('\xC0', 1, 1)));
    const std::string tables = Segment('\xC4', "table") + Segment('\xCC', "table");
    EXPECT_EQ(SizeOf(Jpeg(thumbnail + tables + frame + tables)), "37x21");
    EXPECT_EQ(SizeOf(Jpeg(std::string(9000, 'x') + "\xFF\0\xFF\xFF"s + frame.substr(1))), "37x21");
    EXPECT_EQ(SizeOf(Jpeg("\xFF\x01\xFF\xD3"s + frame)), "37x21");
    EXPECT_EQ(SizeOf(Jpeg(Segment('\xFE', std::string(65000, 'c')) + frame)), "37x21");
}

TEST(JpegSize, A_frame_that_decoders_refuse_tells_none) {
    const std::string frame = JpegFrame('\xC0', 37, 21);
    EXPECT_EQ(SizeOf(Jpeg(frame + frame)), "0x0") << "two frames";
    EXPECT_EQ(SizeOf(Jpeg(JpegFrame('\xC0', 0, 21))), "0x0");
    EXPECT_EQ(SizeOf(Jpeg(JpegFrame('\xC0', 37, 0))), "0x0");
    EXPECT_EQ(SizeOf(Jpeg(JpegFrame('\xC0', 65501, 21))), "0x0");
    EXPECT_EQ(SizeOf(Jpeg(JpegFrame('\xC0', 65500, 21))), "65500x21");
    EXPECT_EQ(SizeOf(Jpeg(Segment('\xC0', "\x8\0\x15\0\x25\2\1\x11\0"s))), "0x0") << "components";
    EXPECT_EQ(SizeOf(Jpeg(Segment('\xC0', "\x8\0\x15\0\x25\0"s))), "0x0") << "no components";
    EXPECT_EQ(SizeOf(Jpeg(Segment('\xC0', "\xC\0\x15\0\x25\1\1\x11\0"s))), "0x0") << "12 bits";
}

TEST(JpegSize, A_file_without_a_scan_tells_none) {
    const std::string frame = JpegFrame('\xC0', 37, 21);
    EXPECT_EQ(SizeOf("\xFF\xD8" + frame), "0x0");
    EXPECT_EQ(SizeOf("\xFF\xD8" + frame + "\xFF\xD9" + scan), "0x0");
    EXPECT_EQ(SizeOf("\xFF\xD8" + frame + "\xFF\xD8" + scan), "0x0");
    EXPECT_EQ(SizeOf("\xFF\xD8" + frame + "\xFF\xE0\0\1"s + scan), "0x0");
    EXPECT_EQ(SizeOf("\xFF\xD8" + scan), "0x0");
    for (std::size_t cut = 0; cut < 2 + frame.size() + 6; ++cut) {
        EXPECT_EQ(SizeOf(Jpeg(frame).substr(0, cut)), "0x0") << cut;
    }
}

TEST(PngSize, A_whole_picture_tells_it) {
    EXPECT_EQ(SizeOf(pngHeader + pngData + pngEnd), "37x21");
    EXPECT_EQ(SizeOf(pngHeader + "\0\0\0\2tEXtab\0\0\0\0"s + pngData + pngData + pngEnd), "37x21");
    EXPECT_EQ(SizeOf(pngHeader + pngData + pngEnd + "something behind it"), "37x21");
}

TEST(PngSize, A_picture_that_is_cut_off_or_damaged_tells_none) {
    const std::string whole = pngHeader + pngData + pngEnd;
    for (std::size_t cut = 0; cut < whole.size(); ++cut) {
        EXPECT_EQ(SizeOf(whole.substr(0, cut)), "0x0") << cut;
    }
    EXPECT_EQ(SizeOf(pngHeader + pngEnd), "0x0") << "no data";
    EXPECT_EQ(SizeOf(pngHeader + "\xFF\xFF\xFF\xFFIDAT" + pngEnd), "0x0") << "a chunk too long";
    for (std::size_t place = 8; place < pngHeader.size(); ++place) {
        std::string damaged = whole;
        damaged[place] = static_cast<char>(damaged[place] ^ 1);
        EXPECT_EQ(SizeOf(damaged), "0x0") << place;
    }
}

TEST(GifSize, The_first_picture_tells_it_and_not_the_screen) {
    const std::string other = ",\0\0\0\0\1\0\1\0\0\2\0"s;
    EXPECT_EQ(SizeOf(gifScreen + gifPicture + ";"), "37x21");
    EXPECT_EQ(SizeOf(gifScreen + gifPicture + other + ";"), "37x21");
    EXPECT_EQ(SizeOf(gifScreen + "!\xFE\3abc\2de\0"s + gifPicture + ";"), "37x21");
    EXPECT_EQ(SizeOf("GIF87a" + gifScreen.substr(6) + gifPicture + ";"), "37x21");
}

TEST(GifSize, Colour_tables_are_passed_over) {
    std::string screen = gifScreen;
    screen[10] = '\x81';
    std::string picture = gifPicture;
    picture[9] = '\x87';
    picture.insert(10, std::string(3 * 256, ','));
    EXPECT_EQ(SizeOf(screen + std::string(12, ';') + picture + ";"), "37x21");
}

TEST(GifSize, A_picture_that_is_cut_off_or_damaged_tells_none) {
    const std::string whole = gifScreen + gifPicture + ";";
    for (std::size_t cut = 0; cut < whole.size(); ++cut) {
        EXPECT_EQ(SizeOf(whole.substr(0, cut)), "0x0") << cut;
    }
    EXPECT_EQ(SizeOf(gifScreen + "?" + gifPicture + ";"), "0x0") << "an unknown block";
    EXPECT_EQ(SizeOf(gifScreen + ";"), "0x0") << "no picture";
}

TEST(TiffSize, Either_byte_order_and_either_form_tells_it) {
    EXPECT_EQ(SizeOf(Tiff(tiffSides, 2)), "37x21");
    EXPECT_EQ(SizeOf("MM\0*\0\0\0\x8\0\2\1\0\0\3\0\0\0\1\0\x25\0\0\1\1\0\4\0\0\0\1\0\0\0\x15"s),
              "37x21");
    const std::string big = "II+\0\x8\0\0\0\x10\0\0\0\0\0\0\0"s + "\2\0\0\0\0\0\0\0"s +
                            "\0\1\3\0\1\0\0\0\0\0\0\0\x25\0\0\0\0\0\0\0"s +
                            "\1\1\4\0\1\0\0\0\0\0\0\0\x15\0\0\0\0\0\0\0"s;
    EXPECT_EQ(SizeOf(big), "37x21");
}

TEST(TiffSize, A_directory_that_makes_no_sense_tells_none) {
    EXPECT_EQ(SizeOf(Tiff(TiffEntry(256, 3, 37), 1)), "0x0");
    EXPECT_EQ(SizeOf(Tiff(TiffEntry(256, 2, 37) + TiffEntry(257, 3, 21), 2)), "0x0");
    EXPECT_EQ(SizeOf(Tiff(TiffEntry(256, 3, 37, 2) + TiffEntry(257, 3, 21), 2)), "0x0");
    EXPECT_EQ(SizeOf(Tiff(tiffSides, 9)), "0x0") << "fewer entries than told";
    EXPECT_EQ(SizeOf("II*\0\xFF\xFF\xFF\xFF"s + std::string(20, 'x')), "0x0");
    EXPECT_EQ(SizeOf("II+\0\x8\0\0\0\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF"s), "0x0");
    EXPECT_EQ(SizeOf("II+\0\x8\0\0\0\0\0\0\0\0\0\0\x80"s), "0x0");
}

}  // namespace tavel::test
