#include "library/Adding.h"
#include "library/Identifiers.h"
#include "library/LibraryFixture.h"
#include "media/TagMaker.h"
#include "platform/Failure.h"

#include <filesystem>

namespace tavel::test {
namespace {

class AddFileTest : public LibraryTest {};

std::string Latin1(const std::string& text) { return std::string(1, '\0') + text; }

TEST_F(AddFileTest, GetFileType_goes_by_the_lists_of_extensions) {
    EXPECT_EQ(GetFileType("C:\\a.MP3"), mtMusic);
    EXPECT_EQ(GetFileType("C:\\a.mp4"), mtVideo);
    EXPECT_EQ(GetFileType("C:\\a.Jpg"), mtPhoto);
    EXPECT_EQ(GetFileType("C:\\a.txt"), -1);
    EXPECT_EQ(FailureOf([] { GetFileType("C:\\README"); }), failure::Overflow);
}

TEST_F(AddFileTest, GetFileType_takes_music_before_video_and_video_before_photos) {
    sMusicSupport = {"a"};
    sVideoSupport = {"a", "b"};
    sPhotoSupport = {"a", "b", "c"};
    EXPECT_EQ(GetFileType("x.a"), mtMusic);
    EXPECT_EQ(GetFileType("x.b"), mtVideo);
    EXPECT_EQ(GetFileType("x.c"), mtPhoto);
}

TEST_F(AddFileTest, GetFileType_compares_with_an_entry_as_it_stands) {
    sPhotoSupport = {"JPG", ".png", ""};
    EXPECT_EQ(GetFileType("x.JPG"), -1);
    EXPECT_EQ(GetFileType("x.png"), -1);
    EXPECT_EQ(GetFileType("x."), mtPhoto);
}

TEST_F(AddFileTest, A_video_gets_its_fields_and_stays_where_it_lies) {
    const std::string sPath = Write("My Film.MP4", "12345678");
    const std::string sID = AddFile(sPath);
    EXPECT_EQ(GetDBIDType(sID), mtVideo);
    const Video& video = colVideo.Item(sID);
    EXPECT_EQ(video.sDBID, sID);
    EXPECT_EQ(video.sName, "My Film");
    EXPECT_EQ(video.sPath(), sPath);
    EXPECT_EQ(video.sFormat, "mp4");
    EXPECT_EQ(video.iSize, 8);
    EXPECT_EQ(video.sThumbPath, "");
    EXPECT_EQ(video.iNoGroups, 0);
    EXPECT_EQ(curVideo, &video);
    EXPECT_TRUE(bDBChanged);
    EXPECT_EQ(temp.Read("My Film.MP4"), "12345678");
}

TEST_F(AddFileTest, Music_is_named_by_its_tag) {
    const std::string sID = AddFile(Write(
        "track01.mp3", Tag(3, Frame3("TIT2", Latin1("Song")) + Frame3("TPE1", Latin1("Band")) +
                                  Frame3("TALB", Latin1("Record")))));
    const Music& music = colMusic.Item(sID);
    EXPECT_EQ(music.sDBID, sID);
    EXPECT_EQ(music.sName + "|" + music.sArtist + "|" + music.sAlbum, "Song|Band|Record");
    EXPECT_EQ(music.sFormat, "mp3");
    EXPECT_EQ(music.sPath(), temp.DrivePath("track01.mp3"));
    EXPECT_EQ(static_cast<std::uintmax_t>(music.iSize),
              std::filesystem::file_size(temp.HostPath("track01.mp3")));
    EXPECT_EQ(curMusic, &music);
}

TEST_F(AddFileTest, Music_without_a_tag_has_no_name) {
    const Music& music = colMusic.Item(AddFile(Write("track01.mp3", "no tag in here")));
    EXPECT_EQ(music.sName + music.sArtist + music.sAlbum, "");
}

TEST_F(AddFileTest, Every_music_extension_is_read_for_a_tag) {
    const std::string sPath = Write("a.wav", Tag(3, Frame3("TIT2", Latin1("Song"))));
    EXPECT_EQ(colMusic.Item(AddFile(sPath)).sName, "Song");
}

TEST_F(AddFileTest, An_empty_music_file_fails_with_its_record_half_made) {
    const std::string sPath = Write("a.mp3", "");
    EXPECT_EQ(FailureOf([&] { AddFile(sPath); }), failure::InvalidProcedureCall);
    ASSERT_EQ(colMusic.Count(), 1);
    EXPECT_EQ(colMusic.Item(1).sFormat, "mp3");
    EXPECT_EQ(colMusic.Item(1).sPath(), "");
}

TEST_F(AddFileTest, A_photo_gets_its_sides_the_right_way_round) {
    const std::string sID = AddFile(Write("Holiday 2.BMP", Bitmap(640, 480)));
    const Photo& photo = colPhoto.Item(sID);
    EXPECT_EQ(photo.sDBID, sID);
    EXPECT_EQ(photo.sPath(), temp.DrivePath("Holiday 2.BMP"));
    EXPECT_EQ(photo.sName, "Holiday 2");
    EXPECT_EQ(photo.sFormat, "bmp");
    EXPECT_EQ(photo.iSizeW, 640);
    EXPECT_EQ(photo.iSizeH, 480);
    EXPECT_EQ(photo.iSize, static_cast<Long>(Bitmap(640, 480).size()));
    EXPECT_EQ(curPhoto, &photo);
}

TEST_F(AddFileTest, Every_file_stays_where_it_lies) {
    sDefaultDBPath = temp.DrivePath("library");
    std::filesystem::create_directories(temp.HostPath("library"));
    for (const char* name : {"in/a.bmp", "in/a.mp3", "in/a.mp4"}) {
        AddFile(Write(name, "bytes of a file"));
        EXPECT_EQ(temp.Read(name), "bytes of a file");
    }
    EXPECT_TRUE(std::filesystem::is_empty(temp.HostPath("library")));
}

TEST_F(AddFileTest, A_name_is_cut_at_its_last_dot_and_not_in_its_folder) {
    const std::string sPath = Write("some.folder/a.b.mp4", "x");
    EXPECT_EQ(colVideo.Item(AddFile(sPath)).sName, "a.b");
}

TEST_F(AddFileTest, A_picture_that_cannot_be_read_is_0_by_0) {
    const Photo& photo = colPhoto.Item(AddFile(Write("a.jpg", "not a picture")));
    EXPECT_EQ(photo.iSizeW, 0);
    EXPECT_EQ(photo.iSizeH, 0);
}

TEST_F(AddFileTest, A_side_beyond_an_Integer_fails_with_the_record_in_its_collection) {
    const std::string sWide = Write("wide.bmp", Bitmap(40000, 10));
    const std::string sHigh = Write("high.bmp", Bitmap(10, 40000));
    const std::string sBoth = Write("both.bmp", Bitmap(65536, 65536));
    EXPECT_EQ(FailureOf([&] { AddFile(sWide); }), failure::Overflow);
    EXPECT_EQ(colPhoto.Item(1).iSizeH, 10);
    EXPECT_EQ(FailureOf([&] { AddFile(sHigh); }), failure::Overflow);
    EXPECT_EQ(colPhoto.Item(2).iSizeW, 0);
    EXPECT_EQ(colPhoto.Item(2).sName, "high");
    EXPECT_EQ(FailureOf([&] { AddFile(sBoth); }), failure::Overflow);
}

TEST_F(AddFileTest, A_size_beyond_a_Long_fails_with_what_comes_before_it_assigned) {
    constexpr std::uintmax_t size = 2147483648U;
    const auto large = [&](const char* name, const std::string& bytes) {
        const std::string sPath = Write(name, bytes);
        std::filesystem::resize_file(temp.HostPath(name), size);
        return sPath;
    };
    const auto read = [](const Item& item) {
        return item.sDBID.substr(0, 2) + "|" + item.sName + "|" + item.sFormat + "|" + item.sPath();
    };
    const std::string sVideo = large("large.mp4", "");
    const std::string sMusic = large("large.mp3", Tag(3, Frame3("TIT2", Latin1("Song"))));
    const std::string sPhoto = large("large.bmp", Bitmap(10, 10));
    for (const std::string& sPath : {sVideo, sMusic, sPhoto})
        EXPECT_EQ(FailureOf([&] { AddFile(sPath); }), failure::Overflow) << sPath;
    EXPECT_EQ(read(colVideo.Item(1)), "vd||mp4|" + sVideo);
    EXPECT_EQ(read(colMusic.Item(1)), "mu|Song|mp3|" + sMusic);
    EXPECT_EQ(read(colPhoto.Item(1)), "ph||bmp|" + sPhoto);
    std::filesystem::resize_file(temp.HostPath("large.mp4"), size - 1);
    EXPECT_EQ(colVideo.Item(AddFile(sVideo)).iSize, 2147483647);
}

TEST_F(AddFileTest, An_unsupported_file_changes_nothing) {
    EXPECT_EQ(AddFile(Write("a.txt", "x")), "-1");
    EXPECT_EQ(AddFile(temp.DrivePath("none.txt")), "-1");
    EXPECT_FALSE(bDBChanged);
    EXPECT_EQ(colPhoto.Count() + colVideo.Count() + colMusic.Count(), 0);
}

TEST_F(AddFileTest, A_hidden_file_is_passed_over_but_marks_the_library_as_changed) {
    EXPECT_EQ(AddFile(WriteHidden(".hidden.jpg")), "");
    EXPECT_TRUE(bDBChanged);
    EXPECT_EQ(colPhoto.Count(), 0);
}

TEST_F(AddFileTest, A_hidden_file_enters_when_hidden_files_may) {
    bAddHiddenFiles = true;
    EXPECT_EQ(colPhoto.Item(AddFile(WriteHidden(".hidden.jpg"))).sName, ".hidden");
}

TEST_F(AddFileTest, A_missing_file_fails_and_marks_the_library_as_changed) {
    for (const bool bHidden : {false, true}) {
        bAddHiddenFiles = bHidden;
        bDBChanged = false;
        EXPECT_EQ(FailureOf([&] { AddFile(temp.DrivePath("none.jpg")); }), failure::FileNotFound);
        EXPECT_TRUE(bDBChanged);
    }
    EXPECT_EQ(colPhoto.Count(), 0);
}

TEST_F(AddFileTest, The_same_file_twice_makes_two_records) {
    const std::string sPath = Write("a.jpg", "x");
    EXPECT_NE(AddFile(sPath), AddFile(sPath));
    EXPECT_EQ(colPhoto.Count(), 2);
}

}  // namespace
}  // namespace tavel::test
