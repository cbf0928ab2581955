#include "media/TagMaker.h"
#include "media/cMP3ID3v2.h"
#include "support/Support.h"

#include <gtest/gtest.h>

namespace tavel::test {

namespace {

using namespace std::string_literals;

struct Setter {
    const char* Id;
    const std::string& (cMP3ID3v2::*Get)() const;
    void (cMP3ID3v2::*Set)(const std::string&);
    std::string Before;  // in front of the value, in the body of the frame that is written
    std::string ReadBefore;
};

const Setter setters[] = {
    {"WOAR", &cMP3ID3v2::ArtistURL, &cMP3ID3v2::ArtistURL, "\0"s, ""},
    {"WCOM", &cMP3ID3v2::BuyURL, &cMP3ID3v2::BuyURL, "\0"s, ""},
    {"WOAF", &cMP3ID3v2::AudioURL, &cMP3ID3v2::AudioURL, "\0"s, ""},
    {"TCOP", &cMP3ID3v2::Copyright, &cMP3ID3v2::Copyright, "\0"s, ""},
    {"TCOM", &cMP3ID3v2::Composer, &cMP3ID3v2::Composer, "\0"s, ""},
    {"TOPE", &cMP3ID3v2::OriginalArtist, &cMP3ID3v2::OriginalArtist, "\0"s, ""},
    {"WXXX", &cMP3ID3v2::LinkTo, &cMP3ID3v2::LinkTo, "\0\0"s, ""},
    {"PCNT", &cMP3ID3v2::PlayCounter, &cMP3ID3v2::PlayCounter, "\0"s, ""},
    {"TENC", &cMP3ID3v2::EncodedBy, &cMP3ID3v2::EncodedBy, "\0"s, ""},
    {"TIT2", &cMP3ID3v2::Title, &cMP3ID3v2::Title, "\0"s, ""},
    {"TPE1", &cMP3ID3v2::Artist, &cMP3ID3v2::Artist, "\0"s, ""},
    {"TALB", &cMP3ID3v2::Album, &cMP3ID3v2::Album, "\0"s, ""},
    {"TYER", &cMP3ID3v2::Year, &cMP3ID3v2::Year, "\0"s, ""},
    {"COMM", &cMP3ID3v2::Comment, &cMP3ID3v2::Comment, "\0\0nt\0"s, "nt"},
    {"USLT", &cMP3ID3v2::Lyrics, &cMP3ID3v2::Lyrics, "\0\0"s, ""},
    {"TCON", &cMP3ID3v2::OtherGenreName, &cMP3ID3v2::OtherGenreName, "\0(255)"s, ""},
    {"TRCK", &cMP3ID3v2::Track, &cMP3ID3v2::Track, "\0"s, ""},
};

const std::string audio = "\xFF\xFB" + std::string(500, 'a');

class TagSetters : public ::testing::Test {
  protected:
    void Load(const std::string& bytes) {
        folder.Write("one.mp3", bytes);
        tag.MP3File(folder.DrivePath("one.mp3"));
    }

    // The frames in the file after an update, without the zero bytes behind them.
    std::string FramesWritten() {
        tag.Update();
        const std::string bytes = folder.Read("one.mp3");
        std::size_t at = 10;
        while (bytes[at] != '\0') {
            at += 10 + static_cast<unsigned char>(bytes[at + 6]) * 256u +
                  static_cast<unsigned char>(bytes[at + 7]);
        }
        return bytes.substr(10, at - 10);
    }

    TempFolder folder;
    cMP3ID3v2 tag;
};

}  // namespace

TEST_F(TagSetters, Each_sets_its_property_and_one_frame_of_its_own) {
    for (const Setter& setter : setters) {
        tag = cMP3ID3v2();
        Load(audio);
        (tag.*setter.Set)("value");
        EXPECT_EQ((tag.*setter.Get)(), "value");
        EXPECT_EQ(tag.FrameCount(), 1) << setter.Id;
        EXPECT_EQ(tag.Frame(1), setter.Id);
        EXPECT_EQ(tag.TagsInFrame(setter.Id), 1);
        EXPECT_TRUE(folder.Read("one.mp3") == audio);
        EXPECT_EQ(FramesWritten(), Frame3(setter.Id, setter.Before + "value")) << setter.Id;
        for (const Setter& other : setters) {
            const bool isSet = other.Id == setter.Id;
            EXPECT_EQ((tag.*other.Get)(), isSet ? "value" : "") << other.Id;
        }
    }
}

TEST_F(TagSetters, What_is_written_is_read_back_the_same) {
    Load(audio);
    for (const Setter& setter : setters) (tag.*setter.Set)("value of "s + setter.Id);
    tag.Update();
    cMP3ID3v2 again;
    again.MP3File(folder.DrivePath("one.mp3"));
    for (const Setter& setter : setters) {
        const std::string expected = setter.ReadBefore + "value of " + setter.Id;
        EXPECT_EQ((again.*setter.Get)(), expected) << setter.Id;
        EXPECT_EQ(again.TagsInFrame(setter.Id), 1);
    }
    EXPECT_EQ(again.ID3v2TagVersion(), 3);
    EXPECT_EQ(again.FrameCount(), static_cast<Long>(std::size(setters)));
}

// The reader counts six bytes more for a frame than there are.
TEST_F(TagSetters, The_last_frame_of_a_tag_that_leaves_little_room_is_not_read_back) {
    std::size_t rest = 14;
    for (const Setter& setter : setters) rest += 10 + setter.Before.size();
    for (const std::size_t bytes : {1960u, 1961u, 2047u}) {
        Load(audio);
        tag.Update();  // makes the room
        for (const Setter& setter : setters) {
            const bool isFirst = setter.Id == setters[0].Id;
            (tag.*setter.Set)(isFirst ? std::string(bytes - rest, 'x') : "");
        }
        tag.Update();
        ASSERT_EQ(folder.Read("one.mp3").size(), 2048 + audio.size());
        tag.MP3File(folder.DrivePath("one.mp3"));
        EXPECT_EQ(tag.FrameCount() == 17, bytes == 1960) << bytes;
        EXPECT_TRUE(tag.FrameCount() == 16 || bytes != 1961);
        EXPECT_EQ(tag.TagsInFrame("TRCK"), bytes == 1960 ? 1 : 0);
        EXPECT_EQ(tag.ArtistURL().size(), bytes - rest);
    }
}

TEST_F(TagSetters, An_empty_value_still_makes_a_frame) {
    for (const Setter& setter : setters) {
        Load(audio);
        (tag.*setter.Set)("");
        EXPECT_EQ(FramesWritten(), Frame3(setter.Id, setter.Before));
    }
}

TEST_F(TagSetters, A_value_that_a_property_has_already_makes_its_frame_anew) {
    Load(audio);
    for (const Setter& setter : setters) {
        (tag.*setter.Set)("value");
        tag.RemoveFrame(setter.Id);
        (tag.*setter.Set)("value");
        EXPECT_EQ(tag.TagsInFrame(setter.Id), 1) << setter.Id;
    }
    tag.RemoveFrame("TCON");
    tag.Genre(tag.Genre());
    EXPECT_EQ(tag.TagsInFrame("TCON"), 1);
}

TEST_F(TagSetters, A_value_may_hold_zero_bytes) {
    Load(audio);
    const std::string value = "one\0\r\ntwo"s;
    tag.Comment(value);
    tag.OtherGenreName(value);
    EXPECT_EQ(tag.Comment(), value);
    EXPECT_EQ(tag.OtherGenreName(), value);
    EXPECT_EQ(FramesWritten(),
              Frame3("COMM", "\0\0nt\0"s + value) + Frame3("TCON", "\0(255)"s + value));
}

TEST_F(TagSetters, All_instances_that_were_there_make_way_for_one_at_the_end) {
    Load(Tag(3, Frame3("TIT2", "one") + Frame3("TPE1", "artist") + Frame3("TIT2", "two")) + audio);
    tag.Title("new");
    EXPECT_EQ(tag.TagsInFrame("TIT2"), 1);
    EXPECT_EQ(FramesWritten(), Frame3("TPE1", "\0artist"s) + Frame3("TIT2", "\0new"s));
    tag.Title("newer");
    tag.Title(tag.Title() + "!");
    EXPECT_EQ(FramesWritten(), Frame3("TPE1", "\0artist"s) + Frame3("TIT2", "\0newer!"s));
}

TEST_F(TagSetters, The_genre_is_its_number_in_brackets_and_the_other_name) {
    Load(audio);
    tag.Genre(17);
    EXPECT_EQ(tag.Genre(), 17);
    EXPECT_EQ(FramesWritten(), Frame3("TCON", "\0(17)"s));
    tag.OtherGenreName("Rock & Roll");
    EXPECT_EQ(FramesWritten(), Frame3("TCON", "\0(17)Rock & Roll"s));
    tag.Genre(8);
    EXPECT_EQ(tag.OtherGenreName(), "Rock & Roll");
    EXPECT_EQ(FramesWritten(), Frame3("TCON", "\0(8)Rock & Roll"s));
    tag.Genre(cMP3ID3v2::NoGenre);
    EXPECT_EQ(FramesWritten(), Frame3("TCON", "\0(255)Rock & Roll"s));
    tag.OtherGenreName("");
    EXPECT_EQ(FramesWritten(), Frame3("TCON", "\0(255)"s));
    EXPECT_EQ(tag.TagsInFrame("TCON"), 1);
}

// The reader cuts the number in the brackets one digit short.
TEST_F(TagSetters, A_genres_number_comes_back_without_its_last_digit) {
    Load(audio);
    tag.Genre(123);
    tag.OtherGenreName("House");
    tag.Update();
    tag.MP3File(folder.DrivePath("one.mp3"));
    EXPECT_EQ(tag.Genre(), 12);
    EXPECT_EQ(tag.OtherGenreName(), "House");
}

TEST_F(TagSetters, Before_a_load_the_property_is_set_and_the_frame_fails) {
    const std::string failure = "91 Object variable or With block variable not set Tavel.cMP3ID3v2";
    for (const Setter& setter : setters) {
        EXPECT_EQ(FullFailureOf([&] { (tag.*setter.Set)("value"); }), failure) << setter.Id;
        EXPECT_EQ((tag.*setter.Get)(), "value");
    }
    EXPECT_EQ(FullFailureOf([&] { tag.Genre(17); }), failure);
    EXPECT_EQ(tag.Genre(), 17);
    EXPECT_EQ(FullFailureOf([&] { tag.RemoveFrame("TIT2"); }), failure);
    EXPECT_EQ(FullFailureOf([&] { tag.RemoveFrame(1); }), failure);
    EXPECT_EQ(FullFailureOf([&] { tag.AddTag("TIT2", "x"); }), failure);
    EXPECT_EQ(FullFailureOf([&] { tag.RemoveTag("TIT2", 1); }), failure);
    EXPECT_EQ(FullFailureOf([&] { tag.Update(); }), failure);
}

TEST_F(TagSetters, Frames_are_added_and_removed_and_fail_under_the_class_label) {
    Load(Tag(3, Frame3("TIT2", "title")) + audio);
    tag.AddTag("TPE2", "band");
    tag.AddTag("TPE2", "lost");
    EXPECT_EQ(FramesWritten(),
              Frame3("TIT2", "\0title"s) + Frame3("TPE2", "\0band"s) + Frame3("TPE2", "\0TPE2"s));
    const std::string written = folder.Read("one.mp3");
    tag.RemoveFrame(1);
    tag.RemoveTag("TPE2", 1);
    EXPECT_TRUE(folder.Read("one.mp3") == written);
    EXPECT_EQ(FramesWritten(), Frame3("TPE2", "\0TPE2"s));

    const std::string noKey = "5 Invalid procedure call or argument Tavel.cMP3ID3v2";
    EXPECT_EQ(FullFailureOf([&] { tag.RemoveFrame("TIT2"); }), noKey);
    EXPECT_EQ(FullFailureOf([&] { tag.RemoveTag("TPE2", 2); }), noKey);
    for (const Long position : {0, 2})
        EXPECT_EQ(FullFailureOf([&] { tag.RemoveFrame(position); }),
                  "9 Subscript out of range Tavel.cMP3ID3v2");
}

TEST_F(TagSetters, What_is_added_and_removed_as_a_frame_leaves_the_properties_alone) {
    Load(Tag(3, Frame3("TIT2", "title") + Frame3("TALB", "album") + Frame3("TYER", "2006")) +
         audio);
    tag.AddTag("TPE1", "artist");
    tag.RemoveFrame("TALB");
    tag.RemoveFrame(2);
    tag.RemoveTag("TIT2", 1);
    EXPECT_EQ(tag.FrameCount(), 1);
    EXPECT_EQ(tag.Artist(), "");
    EXPECT_EQ(tag.Album(), "album");
    EXPECT_EQ(tag.Year(), "2006");
    EXPECT_EQ(tag.Title(), "title");
}

TEST_F(TagSetters, What_removing_left_at_odds_fails_the_addition_and_not_the_removal) {
    Load(Tag(3, Frame3("TIT2", "a") + Frame3("TPE1", "b") + Frame3("TIT2", "c")) + audio);
    tag.RemoveFrame(1);  // takes the count of TPE1 along
    EXPECT_EQ(FullFailureOf([&] { tag.Artist("new"); }),
              "457 This key is already associated with an element of this collection "
              "Tavel.cMP3ID3v2");
    EXPECT_EQ(tag.Artist(), "new");
}

TEST_F(TagSetters, A_load_drops_what_was_set_and_not_written) {
    Load(audio);
    tag.Title("x");
    Load(audio);
    EXPECT_EQ(tag.Title(), "");
    EXPECT_EQ(tag.FrameCount(), 0);
}

}  // namespace tavel::test
