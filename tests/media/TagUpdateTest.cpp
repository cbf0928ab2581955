#include "media/TagMaker.h"
#include "media/cMP3ID3v2.h"
#include "platform/FileService.h"
#include "platform/ProfileFile.h"
#include "support/Support.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace tavel::test {

namespace {

using namespace std::string_literals;
namespace fs = std::filesystem;

const std::string audio = "\xFF\xFB" + std::string(10000, 'a') + "end";

std::string Zeros(std::size_t count) { return std::string(count, '\0'); }

// The bytes that are written of one title: so many, and a size in the header.
std::string TitleTag(std::size_t bytes, std::uint32_t size) {
    const std::size_t textSize = bytes - 10 - 10 - 1 - 4;
    return TagOfSize(3, size, Frame3("TIT2", "\0"s + std::string(textSize, 't')) + Zeros(4));
}

// An update of a file in a folder of its own.
class TagUpdate : public ::testing::Test {
  protected:
    void Load(const std::string& bytes) {
        folder.Write("one.mp3", bytes);
        tag.MP3File(path);
    }

    // Loads the file, leaves it a title alone of such a length that the tag has so many bytes, and
    // updates it; the bytes of the file then.
    std::string Updated(const std::string& bytes, std::size_t tagBytes) {
        Load(bytes);
        while (tag.FrameCount() > 0) tag.RemoveFrame(1);
        tag.Title(std::string(tagBytes - 25, 't'));
        tag.Update();
        return folder.Read("one.mp3");
    }

    std::string WhyNotUpdated() {
        return FullFailureOf([&] { tag.Update(); });
    }

    TempFolder folder;
    const std::string path = folder.DrivePath("one.mp3");
    cMP3ID3v2 tag;
};

}  // namespace

TEST_F(TagUpdate, A_file_without_a_tag_gets_one_and_room_in_front) {
    EXPECT_TRUE(Updated(audio, 30) == TitleTag(30, 2048) + Zeros(2048 - 30) + audio);
    EXPECT_TRUE(Updated(audio, 3000) == TitleTag(3000, 4096) + Zeros(4096 - 3000) + audio);
    EXPECT_TRUE(Updated(audio, 4200) == TitleTag(4200, 6144) + Zeros(6144 - 4200) + audio);
}

TEST_F(TagUpdate, A_multiple_of_2048_gets_room_as_well) {
    EXPECT_TRUE(Updated(audio, 2047) == TitleTag(2047, 2048) + Zeros(1) + audio);
    EXPECT_TRUE(Updated(audio, 2048) == TitleTag(2048, 4096) + Zeros(2048) + audio);
}

TEST_F(TagUpdate, A_list_without_frames_makes_an_empty_tag) {
    Load(audio);
    tag.Update();
    EXPECT_TRUE(folder.Read("one.mp3") == TagOfSize(3, 2048, Zeros(2038)) + audio);
    tag.MP3File(path);
    EXPECT_TRUE(tag.HasID3v2Tag());
    EXPECT_EQ(tag.FrameCount(), 0);
}

TEST_F(TagUpdate, Files_of_every_length_about_a_block_are_copied_whole) {
    for (const std::size_t size : {1u, 3u, 4u, 4095u, 4096u, 4097u, 8191u, 8192u, 8193u}) {
        const std::string bytes = std::string(size - 1, 'a') + "z";
        EXPECT_TRUE(Updated(bytes, 30) == TitleTag(30, 2048) + Zeros(2018) + bytes) << size;
    }
}

TEST_F(TagUpdate, A_smaller_tag_is_laid_over_the_old_one_and_keeps_its_size) {
    std::string old = TagOfSize(4, 1000, Frame3("TIT2", std::string(900, 'x')) + Zeros(80));
    old.replace(4, 2, "\1\xE0");  // its revision and flags, which make way
    ASSERT_EQ(old.size(), 1000u);
    EXPECT_TRUE(Updated(old + audio, 400) == TitleTag(400, 1000) + old.substr(400) + audio);
    EXPECT_TRUE(Updated(old + audio, 999) == TitleTag(999, 1000) + old.substr(999) + audio);
    EXPECT_EQ(tag.ID3v2TagVersion(), 4);  // as it was read
}

TEST_F(TagUpdate, A_tag_of_exactly_the_old_size_grows) {
    const std::string old = TagOfSize(3, 1000, Frame3("TIT2", "x") + Zeros(979));
    ASSERT_EQ(old.size(), 1000u);
    EXPECT_TRUE(Updated(old + audio, 1000) == TitleTag(1000, 2048) + Zeros(48) + old + audio);
}

TEST_F(TagUpdate, A_larger_tag_has_room_up_to_where_the_old_one_ended) {
    const std::string old = TagOfSize(3, 1000, Frame3("TIT2", "x") + Zeros(979));
    EXPECT_TRUE(Updated(old + audio, 3000) == TitleTag(3000, 4096) + Zeros(96) + old + audio);
    // Where the new tag reaches the old one, what it doesn't cover of that one stays.
    const std::string full = TagOfSize(3, 1000, Frame3("TIT2", std::string(980, 'x')));
    EXPECT_TRUE(Updated(full + audio, 1500) ==
                TitleTag(1500, 2048) + full.substr(1500 - 1048) + audio);
}

TEST_F(TagUpdate, Room_that_was_made_is_used_without_copying) {
    Load(audio);
    tag.Title("one");
    tag.Update();
    const auto before = StampOf(oFSO().HostPath(path))->inode;
    tag.Album(std::string(1500, 'a'));
    tag.Update();
    EXPECT_EQ(StampOf(oFSO().HostPath(path))->inode, before);
    EXPECT_EQ(folder.Read("one.mp3").size(), 2048 + audio.size());
    tag.MP3File(path);
    EXPECT_EQ(tag.Title(), "one");
    EXPECT_EQ(tag.Album(), std::string(1500, 'a'));
}

TEST_F(TagUpdate, A_smaller_tag_that_does_not_begin_the_file_is_overwritten_where_it_is) {
    const std::string before(5000, 'b');
    const std::string old = TagOfSize(3, 6000, Frame3("TIT2", "x") + Zeros(979));
    EXPECT_TRUE(Updated(before + old + audio, 400) ==
                before + TitleTag(400, 6000) + old.substr(400) + audio);
}

// The room is counted from the old size, and the new tag is laid over the beginning of the file,
// wherever the old one lies.
TEST_F(TagUpdate, A_larger_tag_is_laid_over_the_beginning_where_the_old_one_does_not_begin_it) {
    const std::string before(5000, 'b');
    const std::string old = TagOfSize(3, 1500, Frame3("TIT2", "x") + Zeros(979));
    const std::string file = before + old + audio;
    EXPECT_TRUE(Updated(file, 1600) == TitleTag(1600, 2048) + file.substr(1600 - 548));
}

TEST_F(TagUpdate, The_old_size_counts_as_it_is_told_true_or_not) {
    const std::string small = TagOfSize(3, 0, Frame3("TIT2", "x"));
    EXPECT_TRUE(Updated(small + audio, 30) == TitleTag(30, 2048) + Zeros(2018) + small + audio);
    const std::string negative = TagOfSize(3, 0xFFFFFF00, Frame3("TIT2", "x"));
    EXPECT_TRUE(Updated(negative + audio, 30) ==
                TitleTag(30, 2048) + Zeros(2018 + 256) + negative + audio);
    // One that goes beyond the end of the file.
    EXPECT_TRUE(Updated(TagOfSize(3, 60000, "x"), 30) == TitleTag(30, 60000));
    EXPECT_TRUE(Updated("ID3\3\0\0"s, 30) == TitleTag(30, 2048) + Zeros(2018) + "ID3\3\0\0"s);
}

TEST_F(TagUpdate, A_tag_of_a_version_that_is_not_read_is_replaced_all_the_same) {
    const std::string old = TagOfSize(5, 1000, std::string(990, 'x'));
    EXPECT_TRUE(Updated(old + audio, 400) == TitleTag(400, 1000) + old.substr(400) + audio);
}

TEST_F(TagUpdate, Frames_of_any_version_are_written_as_those_of_version_3) {
    Load(Tag(2, Frame2("TP1", "\0artist"s) + Frame2("TT2", "\1title")) + audio);
    tag.Update();
    const std::string frames = Frame3("TPE1", "\0artist"s) + Frame3("TIT2", "\0\1title"s);
    EXPECT_EQ(folder.Read("one.mp3").substr(10, frames.size() + 4), frames + Zeros(4));
}

TEST_F(TagUpdate, A_comment_that_was_read_is_written_without_the_end_of_its_description) {
    Load(Tag(3, Frame3("COMM", "\0eng\0text"s)) + audio);
    tag.Update();
    const std::string frame = Frame3("COMM", "\0engtext"s);
    EXPECT_EQ(folder.Read("one.mp3").substr(10, frame.size() + 4), frame + Zeros(4));
}

TEST_F(TagUpdate, Frames_without_an_id_keep_the_file_from_being_opened) {
    Load(Tag(2, Frame2("TCR", "copyright")) + audio);
    fs::remove(folder.HostPath("one.mp3"));
    EXPECT_EQ(WhyNotUpdated(), "5 Invalid procedure call or argument Tavel.cMP3ID3v2");
    tag.RemoveFrame("");
    EXPECT_EQ(WhyNotUpdated(), "53 File not found Tavel.cMP3ID3v2");
    EXPECT_FALSE(fs::exists(folder.HostPath("one.mp3")));
}

TEST_F(TagUpdate, A_body_or_a_tag_too_large_keeps_the_file_from_being_opened) {
    Load(audio);
    fs::remove(folder.HostPath("one.mp3"));
    for (const std::size_t size : {65535u, 65535u - 25u + 1u}) {
        tag.Title(std::string(size, 't'));
        EXPECT_EQ(WhyNotUpdated(), "6 Overflow Tavel.cMP3ID3v2");
    }
    tag.Title(std::string(65535u - 25u, 't'));
    EXPECT_EQ(WhyNotUpdated(), "53 File not found Tavel.cMP3ID3v2");
}

TEST_F(TagUpdate, Room_beyond_65535_overflows_with_the_file_unchanged) {
    EXPECT_EQ(Updated(audio, 63487).size(), 63488 + audio.size());
    const std::string large = folder.Read("one.mp3");
    EXPECT_EQ(FullFailureOf([&] { Updated(audio, 63488); }), "6 Overflow Tavel.cMP3ID3v2");
    EXPECT_TRUE(folder.Read("one.mp3") == audio);
    EXPECT_EQ(FullFailureOf([&] { Updated(large, 63488); }), "6 Overflow Tavel.cMP3ID3v2");
    EXPECT_TRUE(folder.Read("one.mp3") == large);
}

TEST_F(TagUpdate, An_old_size_beyond_65535_overflows_with_the_file_unchanged) {
    for (const std::uint32_t size : {65536u, 0x7FFFFFFFu}) {
        const std::string file = TagOfSize(3, size, Frame3("TIT2", "x")) + audio;
        EXPECT_EQ(FullFailureOf([&] { Updated(file, 30); }), "6 Overflow Tavel.cMP3ID3v2");
        EXPECT_TRUE(folder.Read("one.mp3") == file);
    }
    const std::string negative = TagOfSize(3, 0x80000000u, Frame3("TIT2", "x")) + audio;
    EXPECT_EQ(FullFailureOf([&] { Updated(negative, 30); }), "6 Overflow Tavel.cMP3ID3v2");
    EXPECT_TRUE(folder.Read("one.mp3") == negative);
}

TEST_F(TagUpdate, The_object_stays_as_it_is) {
    Load(audio);
    tag.Title("title");
    tag.Update();
    EXPECT_FALSE(tag.HasID3v2Tag());
    EXPECT_EQ(tag.ID3v2TagVersion(), 0);
    EXPECT_EQ(tag.Title(), "title");
    EXPECT_EQ(tag.FrameCount(), 1);
    const std::string once = folder.Read("one.mp3");
    tag.Update();
    EXPECT_TRUE(folder.Read("one.mp3") == once);
}

TEST_F(TagUpdate, A_file_that_was_never_loaded_well_can_be_written_all_the_same) {
    EXPECT_EQ(FailureOf([&] { tag.MP3File(path); }), failure::FileNotFound);
    folder.Write("one.mp3", audio);
    tag.Title("title");
    tag.Update();
    tag.MP3File(path);
    EXPECT_EQ(tag.Title(), "title");
}

TEST_F(TagUpdate, An_empty_file_cannot_be_written) {
    EXPECT_EQ(FailureOf([&] { Load(""); }), failure::InvalidProcedureCall);
    EXPECT_EQ(WhyNotUpdated(), "70 Permission denied Tavel.cMP3ID3v2");  // still open
    tag = cMP3ID3v2();
    Load(audio);
    folder.Write("one.mp3", "");
    EXPECT_EQ(WhyNotUpdated(), "5 Invalid procedure call or argument Tavel.cMP3ID3v2");
    EXPECT_EQ(fs::file_size(folder.HostPath("one.mp3")), 0u);
}

TEST_F(TagUpdate, A_read_only_file_and_one_that_is_open_stay_as_they_are) {
    Load(audio);
    tag.Title("title");
    {
        Long error = 0;
        const auto reader = oFSO().OpenRaw(path, RawMode::Read, error);
        EXPECT_EQ(WhyNotUpdated(), "70 Permission denied Tavel.cMP3ID3v2");
    }
    fs::permissions(folder.HostPath("one.mp3"), fs::perms(0444));
    EXPECT_EQ(WhyNotUpdated(), "70 Permission denied Tavel.cMP3ID3v2");
    EXPECT_TRUE(folder.Read("one.mp3") == audio);
}

TEST_F(TagUpdate, An_update_that_fails_leaves_the_file_closed_and_the_object_as_it_is) {
    const std::string old = TagOfSize(4, 65536, Frame3("TIT2", "x") + Zeros(979));
    for (const std::size_t tagBytes : {30u, 65535u}) {  // the old size, the new one
        EXPECT_EQ(FailureOf([&] { Updated(old + audio, tagBytes); }), failure::Overflow);
        Long error = 0;
        EXPECT_TRUE(oFSO().OpenRaw(path, RawMode::ReadWrite, error));
        EXPECT_EQ(tag.ID3v2TagVersion(), 4);
        EXPECT_EQ(tag.Title().size(), tagBytes - 25);
        EXPECT_EQ(tag.TagsInFrame("TIT2"), 1);
    }
}

TEST_F(TagUpdate, No_file_is_left_over_or_open) {
    Load(audio);
    tag.Title("title");
    tag.Update();
    EXPECT_EQ(std::distance(fs::directory_iterator(folder.HostPath()), {}), 1);
    Long error = 0;
    EXPECT_TRUE(oFSO().OpenRaw(path, RawMode::ReadWrite, error));
}

}  // namespace tavel::test
