#include "media/cMP3ID3v2.h"
#include "support/Support.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

namespace tavel::test {

namespace {

namespace fs = std::filesystem;

// A sound that ffmpeg makes and hears.
class TagUpdateAudio : public ::testing::Test {
  protected:
    void SetUp() override {
        if (std::system("ffmpeg -version > /dev/null 2>&1") != 0)
            GTEST_SKIP() << "ffmpeg is not installed";
    }

    // `options`: what ffmpeg is told of the tag. A player that finds the encoder's own frame leaves
    // out the silence that it tells of. The plain sizes of our tags lead players to zero bytes in
    // front of it, and ffmpeg does not look for it any further.
    void Make(const std::string& options, bool hasEncodersFrame = false) {
        Run("ffmpeg -v error -y -f lavfi -i 'aevalsrc=sin(t*(2000+300*t)):d=2' -b:a 64k " +
            options + (hasEncodersFrame ? " " : " -write_xing 0 ") + path);
        before = Heard();
        tag.MP3File(folder.DrivePath("one.mp3"));
    }

    static void Run(const std::string& command) {
        ASSERT_EQ(std::system(command.c_str()), 0) << command;
    }

    // All samples that are heard.
    std::string Heard() {
        Run("ffmpeg -v fatal -y -i " + path + " -f s16le " + folder.HostPath("samples"));
        return folder.Read("samples");
    }

    void UpdateAndListen() {
        tag.Update();
        EXPECT_TRUE(Heard() == before);
        EXPECT_GT(before.size(), 2u * 44100 * 2);
    }

    std::uintmax_t Size() const { return fs::file_size(path); }

    TempFolder folder;
    const std::string path = folder.HostPath("one.mp3");
    std::string before;
    cMP3ID3v2 tag;
};

}  // namespace

TEST_F(TagUpdateAudio, Is_the_same_when_a_file_without_a_tag_gets_one) {
    Make("-id3v2_version 0");
    EXPECT_FALSE(tag.HasID3v2Tag());
    const std::uintmax_t size = Size();
    tag.Title("title");
    UpdateAndListen();
    EXPECT_EQ(Size(), size + 2048);
    tag.Lyrics(std::string(20000, 'x'));
    UpdateAndListen();
    EXPECT_EQ(Size(), size + 20480);
}

TEST_F(TagUpdateAudio, Is_the_same_when_a_tag_outgrows_the_old_one) {
    for (const char* version : {"3", "4"}) {
        Make("-metadata title=Title -metadata artist=Artist -id3v2_version " +
             std::string(version));
        EXPECT_EQ(tag.TagsInFrame("TIT2"), 1);
        const std::uintmax_t size = Size();
        tag.Album(std::string(3000, 'a'));
        UpdateAndListen();
        EXPECT_GT(Size(), size);
    }
}

TEST_F(TagUpdateAudio, Is_the_same_when_a_tag_is_written_in_place) {
    Make("-id3v2_version 0");
    tag.Title("title");
    UpdateAndListen();
    tag.MP3File(folder.DrivePath("one.mp3"));
    const std::uintmax_t size = Size();
    tag.Album(std::string(1000, 'a'));
    UpdateAndListen();
    tag.RemoveFrame("TALB");
    UpdateAndListen();
    EXPECT_EQ(Size(), size);
}

TEST_F(TagUpdateAudio, Is_the_same_when_a_tag_of_other_programs_is_written_over) {
    Make("-metadata title='" + std::string(600, 't') + "' -id3v2_version 3");
    const std::uintmax_t size = Size();
    tag.Title("short");
    UpdateAndListen();
    EXPECT_EQ(Size(), size);
    tag.MP3File(folder.DrivePath("one.mp3"));
    EXPECT_EQ(tag.Title(), "short");
}

TEST_F(TagUpdateAudio, Has_all_its_samples_behind_the_silence_that_the_encoder_tells_of) {
    Make("-id3v2_version 0", true);
    tag.Title("title");
    tag.Update();
    EXPECT_NE(Heard().find(before), std::string::npos);
}

TEST_F(TagUpdateAudio, Is_the_same_behind_a_tag_that_does_not_begin_the_file) {
    Make("-metadata title='" + std::string(600, 't') + "' -id3v2_version 3");
    folder.Write("one.mp3", std::string(100, '\0') + folder.Read("one.mp3"));
    tag.MP3File(folder.DrivePath("one.mp3"));
    ASSERT_TRUE(tag.HasID3v2Tag());
    tag.Title("short");
    UpdateAndListen();
    tag.Title(std::string(3000, 't'));
    UpdateAndListen();
}

}  // namespace tavel::test
