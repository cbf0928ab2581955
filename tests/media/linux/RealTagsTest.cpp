#include "media/cMP3ID3v2.h"
#include "support/Support.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace tavel::test {

namespace {

// An MP3 file with a tag as the world writes it.
class RealTags : public ::testing::Test {
  protected:
    void Make(int version, const std::string& title) {
        if (std::system("ffmpeg -version > /dev/null 2>&1") != 0) {
            GTEST_SKIP() << "ffmpeg is not installed";
        }
        const std::string make =
            "ffmpeg -v error -y -f lavfi -i sine=duration=0.2 -metadata artist='The Artist' "
            "-metadata album='The Album' -metadata genre=Rock -metadata track=3/9 -metadata "
            "title='" +
            title + "' -id3v2_version " + std::to_string(version) + " " +
            folder.HostPath("one.mp3");
        ASSERT_EQ(std::system(make.c_str()), 0) << make;
        tag.MP3File(folder.DrivePath("one.mp3"));
    }

    TempFolder folder;
    cMP3ID3v2 tag;
};

}  // namespace

TEST_F(RealTags, Version_4_texts_keep_their_encoding_byte_in_front) {
    ASSERT_NO_FATAL_FAILURE(Make(4,
                                 "Stra\xC3\x9F"
                                 "e"));
    if (IsSkipped()) return;
    EXPECT_EQ(tag.ID3v2TagVersion(), 4);
    EXPECT_EQ(tag.Title(),
              "\x03Stra\xC3\x9F"
              "e");
    EXPECT_EQ(tag.Artist(), "\x03The Artist");
    EXPECT_EQ(tag.Album(), "\x03The Album");
    EXPECT_EQ(tag.OtherGenreName(), "\x03Rock");
    EXPECT_EQ(tag.Genre(), cMP3ID3v2::NoGenre);
    EXPECT_EQ(tag.Track(),
              "\x03"
              "3/9");
}

TEST_F(RealTags, Version_3_texts_in_plain_letters_stand_alone) {
    ASSERT_NO_FATAL_FAILURE(Make(3, "Title"));
    if (IsSkipped()) return;
    EXPECT_EQ(tag.ID3v2TagVersion(), 3);
    EXPECT_EQ(tag.Title(), "Title");
    EXPECT_EQ(tag.Artist(), "The Artist");
    EXPECT_EQ(tag.Album(), "The Album");
    EXPECT_EQ(tag.TagsInFrame("TIT2"), 1);
}

TEST_F(RealTags, Version_3_texts_with_other_letters_are_readable_behind_three_characters) {
    ASSERT_NO_FATAL_FAILURE(Make(3,
                                 "Stra\xC3\x9F"
                                 "e"));
    if (IsSkipped()) return;
    EXPECT_EQ(tag.Title(),
              "\x01\xFF\xFEStra\xDF"
              "e");
}

// Writers count 10 bytes for a frame's header where the walk counts 16, and this one leaves no
// padding behind its last frame.
TEST_F(RealTags, A_tag_without_padding_loses_its_last_frame) {
    ASSERT_NO_FATAL_FAILURE(Make(3, "Title"));
    if (IsSkipped()) return;
    EXPECT_NE(folder.Read("one.mp3").find("TSSE"), std::string::npos);
    EXPECT_EQ(tag.TagsInFrame("TSSE"), 0);
}

}  // namespace tavel::test
