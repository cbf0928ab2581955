#include "core/PublicStuff.h"
#include "media/PartsOf.h"
#include "media/Pictures.h"
#include "media/Thumbnail.h"
#include "platform/Text.h"
#include "support/FaultyFileService.h"
#include "support/OneFileService.h"
#include "support/Support.h"

#include <FreeImage.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <memory>
#include <tuple>
#include <utility>

namespace tavel::test {

namespace {

using namespace std::string_literals;

// A bitmap whose right half is white.
std::string HalfWhite(std::uint32_t width, std::uint32_t height) {
    std::string file = "BM" + std::string(8, '\0') + LittleEndian(54, 4) + LittleEndian(40, 4) +
                       LittleEndian(width, 4) + LittleEndian(height, 4) + LittleEndian(1, 2) +
                       LittleEndian(24, 2) + std::string(24, '\0');
    for (std::uint32_t y = 0; y < height; ++y) {
        std::string row(3 * width / 2, '\0');
        row.resize(3 * width, '\xFF');
        row.resize((row.size() + 3) / 4 * 4, '\0');
        file += row;
    }
    return file;
}

// The share of red, green and blue together at a place of a picture on the host, from 0 to 765.
int Brightness(const std::string& hostPath, unsigned x, unsigned y) {
    const std::unique_ptr<FIBITMAP, void (*)(FIBITMAP*)> bitmap(
        FreeImage_Load(FIF_JPEG, hostPath.c_str(), 0), FreeImage_Unload);
    RGBQUAD colour{};
    EXPECT_TRUE(FreeImage_GetPixelColor(bitmap.get(), x, y, &colour));
    return colour.rgbRed + colour.rgbGreen + colour.rgbBlue;
}

// Every file is there, and none opens.
class FullFolder : public OneFileService {
  public:
    FullFolder() : OneFileService("", failure::FileNotFound) {}
    bool FileExists(std::string_view) override { return true; }
};

class Thumbnails : public ::testing::Test {
  protected:
    Thumbnails() {
        Service<FileService>::Use(&files);
        std::filesystem::create_directories(folder.HostPath("library/Videos/Thumbnails"));
        sDefaultDBPath = folder.DrivePath("library");
        folder.Write("source.bmp", HalfWhite(320, 120));
    }
    ~Thumbnails() override { ResetPublicStuff(); }

    static std::string Name(const std::string& file) { return "library/Videos/Thumbnails/" + file; }
    std::string Path(const std::string& file) const { return folder.DrivePath(Name(file)); }
    std::string Host(const std::string& file) const { return folder.HostPath(Name(file)); }
    std::string Converted(const std::string& source = "source.bmp") const {
        return ConvertToTHM(folder.DrivePath(source));
    }

    // "WxH" of a thumbnail, by its header.
    std::string SizeOf(const std::string& file) const {
        const PictureSize size = SizeOfPicture(Path(file));
        return std::to_string(size.Width) + "x" + std::to_string(size.Height);
    }

    // How many of the calls to the file service begin so.
    std::ptrdiff_t Calls(const std::string& start) const {
        return std::ranges::count_if(
            files.calls, [&](const std::string& call) { return call.starts_with(start); });
    }

    // A conversion that leaves no file, but tells the path that it would have had.
    void ExpectNoFile(const std::string& source = "source.bmp") const {
        EXPECT_EQ(Converted(source), Path("1.THM")) << source;
        EXPECT_TRUE(std::filesystem::is_empty(Host(""))) << source;
    }

    TempFolder folder;
    FaultyFileService files;
};

TEST_F(Thumbnails, Are_stretched_to_160_by_120) {
    EXPECT_EQ(Converted(), Path("1.THM"));
    EXPECT_EQ(SizeOf("1.THM"), "160x120");
    EXPECT_LT(Brightness(Host("1.THM"), 70, 60), 40);
    EXPECT_GT(Brightness(Host("1.THM"), 90, 60), 725);
}

TEST_F(Thumbnails, Are_made_of_smaller_pictures_too) {
    folder.Write("small.bmp", HalfWhite(2, 1));
    EXPECT_EQ(Converted("small.bmp"), Path("1.THM"));
    EXPECT_EQ(SizeOf("1.THM"), "160x120");
}

TEST_F(Thumbnails, A_picture_of_that_size_is_not_rescaled) {
    folder.Write("fits.bmp", HalfWhite(160, 120));
    EXPECT_EQ(Converted("fits.bmp"), Path("1.THM"));
    EXPECT_EQ(SizeOf("1.THM"), "160x120");
    EXPECT_LT(Brightness(Host("1.THM"), 79, 60), 60) << "a sharp edge";
    EXPECT_GT(Brightness(Host("1.THM"), 80, 60), 705) << "a sharp edge";
}

TEST_F(Thumbnails, A_thumbnail_is_compressed_again_under_a_new_number) {
    Converted();
    const std::string thumbnail = folder.Read(Name("1.THM"));
    const std::string source = thumbnail.substr(0, 2) +
                               "\xFF\xFE\0\x9"
                               "comment"s +
                               thumbnail.substr(2);
    folder.Write("picked.thm", source);
    EXPECT_EQ(Converted("picked.thm"), Path("2.THM"));
    EXPECT_EQ(SizeOf("2.THM"), "160x120");
    EXPECT_EQ(folder.Read(Name("2.THM")).find("comment"), std::string::npos);
    EXPECT_EQ(folder.Read(Name("1.THM")), thumbnail);
    EXPECT_EQ(folder.Read("picked.thm"), source);
}

TEST_F(Thumbnails, The_source_is_told_by_its_content) {
    for (const char* name : {"picture.jpg", "picture.thm", "picture", "picture.doc"}) {
        folder.Write(name, HalfWhite(320, 120));
        const std::string path = Converted(name);
        EXPECT_TRUE(files.FileExists(path)) << name;
    }
}

TEST_F(Thumbnails, The_first_free_number_is_taken) {
    EXPECT_EQ(GetNextFreeThumbName(), "1.THM");
    folder.Write(Name("1.THM"), "a");
    folder.Write(Name("3.THM"), "c");
    EXPECT_EQ(GetNextFreeThumbName(), "2.THM");
    EXPECT_EQ(Converted(), Path("2.THM"));
    EXPECT_EQ(Converted(), Path("4.THM"));
    std::filesystem::remove(Host("1.THM"));
    EXPECT_EQ(GetNextFreeThumbName(), "1.THM");
    EXPECT_EQ(folder.Read(Name("3.THM")), "c");
}

TEST_F(Thumbnails, A_number_is_taken_under_a_name_in_lower_case_too) {
    folder.Write(Name("1.thm"), "a");
    EXPECT_EQ(GetNextFreeThumbName(), "2.THM");
}

TEST_F(Thumbnails, Each_number_that_is_taken_costs_one_look) {
    for (int n = 1; n <= 5; ++n) folder.Write(Name(std::to_string(n) + ".THM"), "a");
    Converted();
    EXPECT_EQ(Calls("FileExists"), 6);
    EXPECT_EQ(Calls("OpenRaw Create " + Path("6.THM")), 1);
}

TEST_F(Thumbnails, There_are_no_more_than_32767) {
    const FullFolder full;
    EXPECT_EQ(FailureOf([] { GetNextFreeThumbName(); }), failure::Overflow);
    EXPECT_EQ(FailureOf([] { ConvertToTHM("c:\\a.jpg"); }), failure::Overflow);
}

TEST_F(Thumbnails, A_source_that_cannot_be_read_leaves_no_file_and_takes_no_number) {
    folder.Write("text.jpg", "no picture at all");
    folder.Write("empty.jpg", "");
    folder.Write("cut.bmp", HalfWhite(320, 120).substr(0, 40));
    std::filesystem::create_directory(folder.HostPath("folder.jpg"));
    for (const char* name : {"text.jpg", "empty.jpg", "cut.bmp", "folder.jpg", "missing.jpg"}) {
        ExpectNoFile(name);
    }
    EXPECT_EQ(ConvertToTHM(""), Path("1.THM"));
    EXPECT_EQ(ConvertToTHM("q:\\no such drive.jpg"), Path("1.THM"));
    EXPECT_EQ(Converted(), Path("1.THM"));
    EXPECT_EQ(SizeOf("1.THM"), "160x120");
}

TEST_F(Thumbnails, A_source_that_goes_while_it_is_read_leaves_no_file) {
    files.FailOn("ReadWhole", failure::DeviceIO);
    ExpectNoFile();
}

TEST_F(Thumbnails, A_source_of_which_no_jpeg_is_made_leaves_no_file) {
    std::string with32Bits = HalfWhite(320, 120);
    with32Bits[28] = 32;
    folder.Write("alpha.bmp", with32Bits + std::string(320 * 120, 'a'));
    ExpectNoFile("alpha.bmp");
}

TEST_F(Thumbnails, A_source_that_is_larger_than_any_picture_is_not_read) {
    folder.Write("large.bmp", HalfWhite(320, 120));
    std::filesystem::resize_file(folder.HostPath("large.bmp"), 250'000'001);
    ExpectNoFile("large.bmp");
    EXPECT_EQ(Calls("ReadWhole"), 0);
}

// As long as its path may be at most, and one character longer.
TEST_F(Thumbnails, A_path_that_db_txt_would_not_give_back_whole_takes_no_file) {
    for (const std::size_t excess : {0u, 1u}) {
        const std::size_t end = std::string("\\Videos\\Thumbnails\\1.THM").size();
        std::string name;
        while (CharacterCount(folder.DrivePath(name)) + end < MaxPathCharacters + excess)
            name += name.size() % 61 == 60 ? "\\" : "ä";
        std::string onHost = name;
        std::ranges::replace(onHost, '\\', '/');
        std::filesystem::create_directories(
            AsHostPath(folder.HostPath(onHost + "/Videos/Thumbnails")));
        sDefaultDBPath = folder.DrivePath(name);
        const std::string path = Converted();
        EXPECT_EQ(CharacterCount(path), MaxPathCharacters + excess);
        EXPECT_EQ(files.FileExists(path), excess == 0);
    }
}

TEST_F(Thumbnails, A_missing_folder_is_not_made) {
    std::filesystem::remove(Host(""));
    EXPECT_EQ(Converted(), Path("1.THM"));
    EXPECT_FALSE(std::filesystem::exists(Host("")));
}

TEST_F(Thumbnails, A_disk_that_is_full_or_fails_keeps_no_part_of_a_file) {
    files.FailWriteAfter("1.THM", 100);
    ExpectNoFile();
    files.FailWriteAfter("1.THM", FakeDrive::plenty);
    files.At('c').bytesUntilFull = 500;
    ExpectNoFile();
    files.At('c').bytesUntilFull = FakeDrive::plenty;
    files.FailClose("1.THM");
    ExpectNoFile();
}

TEST_F(Thumbnails, A_disk_that_takes_no_file_at_all_is_no_failure) {
    files.Refuse("1.THM");
    ExpectNoFile();
}

TEST_F(Thumbnails, A_stick_that_is_pulled_while_a_file_is_written_is_no_failure) {
    files.Plug('e', folder.HostPath("library")).bytesUntilGone = 100;
    sDefaultDBPath = "e:";
    EXPECT_EQ(Converted(), "e:\\Videos\\Thumbnails\\1.THM");
    EXPECT_TRUE(files.At('e').isGone);
}

// A picture like any other before the first library folder was told.
TEST_F(Thumbnails, Without_a_library_folder_there_is_no_file) {
    sDefaultDBPath.clear();
    EXPECT_EQ(Converted(), "\\Videos\\Thumbnails\\1.THM");
    EXPECT_FALSE(std::filesystem::exists("/Videos"));
}

TEST_F(Thumbnails, The_metadata_of_the_source_stays_behind) {
    Converted();
    const std::string jpeg = folder.Read(Name("1.THM"));
    std::string dressed = jpeg.substr(0, 20);
    for (const std::string& kind : {"\xE1"
                                    "Exif\0\0II*\0"s,
                                    "\xE1http://ns.adobe.com/xap/1.0/\0"s, "\xE2ICC_PROFILE\0\1\1"s,
                                    "\xEDPhotoshop 3.0\0"s, "\xFE"s, "\xE0JFXX\0\x10"s}) {
        const std::string content = kind.substr(1) + "SECRET";
        dressed += "\xFF" + kind.substr(0, 1) +
                   BigEndian(static_cast<std::uint32_t>(content.size()) + 2, 2) + content;
    }
    folder.Write("dressed.jpg", dressed + jpeg.substr(20));
    Converted("dressed.jpg");
    EXPECT_EQ(SizeOf("2.THM"), "160x120");
    EXPECT_EQ(folder.Read(Name("2.THM")).find("SECRET"), std::string::npos);
}

TEST_F(Thumbnails, Damaged_metadata_harms_nobody) {
    Converted();
    const std::string jpeg = folder.Read(Name("1.THM"));
    folder.Write("plain.jpg", jpeg);
    Converted("plain.jpg");
    int number = 2;
    // Directories that lead beyond the segment, in a circle, and with more entries than there are.
    for (const std::string& notes :
         {"MM\0*\xFF\xFF\xFF\xF0"s, "II*\0\x08\0\0\0\0\0\x08\0\0\0"s,
          "II*\0\x08\0\0\0\xFF\xFF\x7C\x92\7\0\xFF\xFF\xFF\xFF\x1A\0\0\0Nikon\0\2"s}) {
        const std::string content = "Exif\0\0"s + notes;
        folder.Write("notes.jpg", jpeg.substr(0, 2) + "\xFF\xE1" +
                                      BigEndian(static_cast<std::uint32_t>(content.size()) + 2, 2) +
                                      content + jpeg.substr(2));
        EXPECT_EQ(Converted("notes.jpg"), Path(std::to_string(++number) + ".THM"));
        EXPECT_EQ(folder.Read(Name(std::to_string(number) + ".THM")), folder.Read(Name("2.THM")));
    }
}

TEST_F(Thumbnails, Metadata_that_is_longer_than_its_file_hides_the_picture) {
    folder.Write("cut.jpg",
                 "\xFF\xD8\xFF\xE1\xFF\xFF"
                 "Exif\0\0MM"s);
    ExpectNoFile("cut.jpg");
}

TEST_F(Thumbnails, Are_made_of_pictures_that_are_65500_pixels_wide) {
    folder.Write("wide.bmp", HalfWhite(65500, 2));
    const std::unique_ptr<FIBITMAP, void (*)(FIBITMAP*)> wide(
        FreeImage_Load(FIF_BMP, folder.HostPath("wide.bmp").c_str(), 0), FreeImage_Unload);
    for (const auto& [format, name] : {std::pair(FIF_BMP, "a.bmp"),
                                       {FIF_JPEG, "a.jpg"},
                                       {FIF_PNG, "a.png"},
                                       {FIF_TIFF, "a.tif"}}) {
        ASSERT_TRUE(FreeImage_Save(format, wide.get(), folder.HostPath(name).c_str(), 0)) << name;
        EXPECT_EQ(Converted(name), Path("1.THM"));
        EXPECT_EQ(SizeOf("1.THM"), "160x120") << name;
        EXPECT_LT(Brightness(Host("1.THM"), 70, 60), 40) << name;
        EXPECT_GT(Brightness(Host("1.THM"), 90, 60), 725) << name;
        std::filesystem::remove(Host("1.THM"));
    }
}

TEST_F(Thumbnails, Are_not_made_of_pictures_with_a_side_beyond_65535) {
    folder.Write("wide.bmp", HalfWhite(65536, 1));
    ExpectNoFile("wide.bmp");
    folder.Write("high.bmp", HalfWhite(2, 65536));
    ExpectNoFile("high.bmp");
    folder.Write("widest.bmp", HalfWhite(65535, 1));
    Converted("widest.bmp");
    EXPECT_EQ(SizeOf("1.THM"), "160x120");
}

// What cannot be decoded is told to nobody.
TEST_F(Thumbnails, Nothing_is_written_about_damaged_pictures) {
    const std::unique_ptr<FIBITMAP, void (*)(FIBITMAP*)> sound(
        FreeImage_Load(FIF_BMP, folder.HostPath("source.bmp").c_str(), 0), FreeImage_Unload);
    const std::unique_ptr<FIBITMAP, void (*)(FIBITMAP*)> with256Colours(
        FreeImage_ColorQuantize(sound.get(), FIQ_WUQUANT), FreeImage_Unload);
    for (const auto& [format, bitmap, name] : {std::tuple(FIF_JPEG, sound.get(), "a.jpg"),
                                               {FIF_PNG, sound.get(), "a.png"},
                                               {FIF_GIF, with256Colours.get(), "a.gif"},
                                               {FIF_BMP, sound.get(), "a.bmp"}}) {
        ASSERT_TRUE(FreeImage_Save(format, bitmap, folder.HostPath(name).c_str(), 0)) << name;
        std::string bytes = folder.Read(name);
        ASSERT_NE(Parts(bytes), "") << name;
        for (std::size_t i = bytes.size() / 2; i < bytes.size() - 40; i += 2) bytes[i] ^= 0x55;
        folder.Write(name, bytes);
    }
    std::string file = "II*\0\x14\0\0\0damaged data"s + LittleEndian(8, 2);
    for (const auto& [tag, value] : std::vector<std::pair<std::uint32_t, std::uint32_t>>{
             {256, 40}, {257, 30}, {258, 8}, {259, 5}, {262, 1}, {273, 8}, {278, 30}, {279, 12}}) {
        file +=
            LittleEndian(tag, 2) + LittleEndian(3, 2) + LittleEndian(1, 4) + LittleEndian(value, 4);
    }
    folder.Write("damaged.tif", file + std::string(4, '\0'));
    ASSERT_NE(Parts(file + std::string(4, '\0')), "");
    ::testing::internal::CaptureStderr();
    ::testing::internal::CaptureStdout();
    for (const char* name : {"damaged.tif", "a.jpg", "a.png", "a.gif", "a.bmp"}) Converted(name);
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(::testing::internal::GetCapturedStdout(), "");
}

}  // namespace

}  // namespace tavel::test
