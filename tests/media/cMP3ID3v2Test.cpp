#include "media/TagMaker.h"
#include "media/cMP3ID3v2.h"
#include "support/OneFileService.h"
#include "support/Support.h"

#include <gtest/gtest.h>

namespace tavel::test {

namespace {

using namespace std::string_literals;

void Load(cMP3ID3v2& tag, const std::string& bytes) {
    const OneFileService files(bytes);
    tag.MP3File("c:\\music\\one.mp3");
}

cMP3ID3v2 Loaded(const std::string& bytes) {
    cMP3ID3v2 tag;
    Load(tag, bytes);
    return tag;
}

using Property = const std::string& (cMP3ID3v2::*)() const;

struct TextProperty {
    const char* Id;
    Property Get;
};

const TextProperty textProperties[] = {
    {"TIT2", &cMP3ID3v2::Title},          {"TPE1", &cMP3ID3v2::Artist},
    {"TALB", &cMP3ID3v2::Album},          {"TYER", &cMP3ID3v2::Year},
    {"TRCK", &cMP3ID3v2::Track},          {"PCNT", &cMP3ID3v2::PlayCounter},
    {"TENC", &cMP3ID3v2::EncodedBy},      {"WXXX", &cMP3ID3v2::LinkTo},
    {"TCOP", &cMP3ID3v2::Copyright},      {"TOPE", &cMP3ID3v2::OriginalArtist},
    {"TCOM", &cMP3ID3v2::Composer},       {"WOAF", &cMP3ID3v2::AudioURL},
    {"WOAR", &cMP3ID3v2::ArtistURL},      {"WCOM", &cMP3ID3v2::BuyURL},
    {"USLT", &cMP3ID3v2::Lyrics},         {"COMM", &cMP3ID3v2::Comment},
    {"TCON", &cMP3ID3v2::OtherGenreName},
};

std::string EveryFrame() {
    std::string frames;
    for (const auto& [id, get] : textProperties) frames += Frame3(id, "\0text of "s + id);
    return frames;
}

}  // namespace

TEST(cMP3ID3v2, Every_frame_sets_the_property_of_its_own) {
    const cMP3ID3v2 tag = Loaded(Tag(3, EveryFrame()));
    for (const auto& [id, get] : textProperties) EXPECT_EQ((tag.*get)(), "text of "s + id);
    EXPECT_EQ(tag.FrameCount(), static_cast<Long>(std::size(textProperties)));
    EXPECT_EQ(tag.Genre(), 255);
}

TEST(cMP3ID3v2, Each_frame_alone_leaves_all_other_properties_empty) {
    for (const auto& [id, get] : textProperties) {
        const cMP3ID3v2 tag = Loaded(Tag(3, Frame3(id, "x")));
        for (const auto& other : textProperties) {
            EXPECT_EQ((tag.*other.Get)(), id == std::string(other.Id) ? "x" : "") << id << other.Id;
        }
    }
}

TEST(cMP3ID3v2, The_last_frame_of_an_id_wins_but_for_the_comment) {
    for (const auto& [id, get] : textProperties) {
        const cMP3ID3v2 tag = Loaded(Tag(3, Frame3(id, "first") + Frame3(id, "second")));
        const std::string expected = id == "COMM"s ? "first\0\r\nsecond"s : "second"s;
        EXPECT_EQ((tag.*get)(), expected);
        EXPECT_EQ(tag.TagsInFrame(id), 2);
        EXPECT_EQ(tag.FrameCount(), 1);
    }
}

TEST(cMP3ID3v2, Comments_follow_each_other_with_nul_and_line_break_between_them) {
    const auto comment = [](const std::string& text) { return Frame3("COMM", "\0eng\0"s + text); };
    EXPECT_EQ(Loaded(Tag(3, comment("one") + comment("two") + comment("three"))).Comment(),
              "engone\0\r\nengtwo\0\r\nengthree"s);
    EXPECT_EQ(Loaded(Tag(3, Frame3("COMM", "") + comment("two"))).Comment(), "engtwo");
    EXPECT_EQ(Loaded(Tag(3, comment("one") + Frame3("COMM", ""))).Comment(), "engone\0\r\n"s);
}

TEST(cMP3ID3v2, A_genre_that_does_not_convert_leaves_the_number_of_the_frame_before) {
    const cMP3ID3v2 tag = Loaded(Tag(3, Frame3("TCON", "(17)") + Frame3("TCON", "Rock")));
    EXPECT_EQ(tag.Genre(), 1);
    EXPECT_EQ(tag.OtherGenreName(), "Rock");
}

TEST(cMP3ID3v2, An_id_in_another_case_is_the_same_frame_and_sets_nothing) {
    const cMP3ID3v2 tag = Loaded(Tag(3, Frame3("TIT2", "title") + Frame3("tit2", "other")));
    EXPECT_EQ(tag.Title(), "title");
    EXPECT_EQ(tag.FrameCount(), 1);
    EXPECT_EQ(tag.TagsInFrame("TIT2"), 2);
}

TEST(cMP3ID3v2, A_frame_of_version_2_is_reported_under_its_newer_id) {
    const cMP3ID3v2 tag = Loaded(Tag(2, Frame2("TP1", "artist")));
    EXPECT_EQ(tag.Artist(), "artist");
    EXPECT_EQ(tag.Frame(1), "TPE1");
    EXPECT_EQ(tag.TagsInFrame("TPE1"), 1);
    EXPECT_EQ(tag.TagsInFrame("TP1"), 0);
    EXPECT_EQ(tag.ID3v2TagVersion(), 2);
}

TEST(cMP3ID3v2, Frames_of_version_2_without_a_newer_id_are_one_frame_of_the_empty_id) {
    const cMP3ID3v2 tag = Loaded(Tag(2, Frame2("TCR", "a") + Frame2("ULT", "b")));
    EXPECT_EQ(tag.FrameCount(), 1);
    EXPECT_EQ(tag.Frame(1), "");
    EXPECT_EQ(tag.TagsInFrame(""), 2);
    EXPECT_EQ(tag.TagsInFrame(1), 2);
}

TEST(cMP3ID3v2, A_tag_of_a_version_that_is_not_read_is_reported_without_frames) {
    const cMP3ID3v2 tag = Loaded(Tag(5, Frame3("TIT2", "title")));
    EXPECT_TRUE(tag.HasID3v2Tag());
    EXPECT_EQ(tag.ID3v2TagVersion(), 5);
    EXPECT_EQ(tag.TagVersion(), 5);
    EXPECT_EQ(tag.FrameCount(), 0);
    EXPECT_EQ(tag.Title(), "");
}

TEST(cMP3ID3v2, A_file_without_a_tag_has_nothing) {
    const cMP3ID3v2 tag = Loaded(std::string(10000, 'x'));
    EXPECT_FALSE(tag.HasID3v2Tag());
    EXPECT_EQ(tag.ID3v2TagVersion(), 0);
    EXPECT_EQ(tag.FrameCount(), 0);
    EXPECT_EQ(tag.Genre(), cMP3ID3v2::NoGenre);
    EXPECT_EQ(cMP3ID3v2::GenreName(tag.Genre()), "");
    for (const auto& [id, get] : textProperties) EXPECT_EQ((tag.*get)(), "");
}

TEST(cMP3ID3v2, A_tag_behind_other_bytes_is_read) {
    // The tag's size is taken as a position in the file, so that it must reach beyond the tag.
    const std::string frames = Frame3("TIT2", "title") + std::string(100, '\0');
    const cMP3ID3v2 tag = Loaded(std::string(5000, 'x') + TagOfSize(3, 6000, frames));
    EXPECT_TRUE(tag.HasID3v2Tag());
    EXPECT_EQ(tag.Title(), "title");
}

TEST(cMP3ID3v2, The_old_tag_at_the_end_of_a_file_is_not_looked_at) {
    const cMP3ID3v2 tag =
        Loaded("\xFF\xFB"s + std::string(500, 'x') + "TAGtitle" + std::string(120, '\0'));
    EXPECT_FALSE(tag.HasID3v2Tag());
    EXPECT_EQ(tag.Title(), "");
}

TEST(cMP3ID3v2, A_second_load_drops_all_but_the_lyrics) {
    cMP3ID3v2 tag = Loaded(Tag(3, EveryFrame() + Frame3("TCON", "(17)")));
    Load(tag, std::string(100, 'x'));
    for (const auto& [id, get] : textProperties) {
        EXPECT_EQ((tag.*get)(), id == "USLT"s ? "text of USLT" : "") << id;
    }
    EXPECT_EQ(tag.Genre(), 255);
    EXPECT_FALSE(tag.HasID3v2Tag());
    EXPECT_EQ(tag.TagVersion(), 0);
    EXPECT_EQ(tag.FrameCount(), 0);
    EXPECT_EQ(tag.TagsInFrame("USLT"), 0);

    Load(tag, Tag(3, Frame3("USLT", "new")));
    EXPECT_EQ(tag.Lyrics(), "new");
}

TEST(cMP3ID3v2, Before_the_first_load_there_is_no_frame_list) {
    const cMP3ID3v2 tag;
    EXPECT_EQ(FailureOf([&] { tag.FrameCount(); }), failure::ObjectNotSet);
    EXPECT_EQ(FailureOf([&] { tag.Frame(1); }), failure::ObjectNotSet);
    EXPECT_EQ(tag.TagsInFrame("TIT2"), 0);
    EXPECT_EQ(tag.TagsInFrame(1), 0);
    EXPECT_FALSE(tag.HasID3v2Tag());
    EXPECT_EQ(tag.MP3File(), "");
}

TEST(cMP3ID3v2, A_position_outside_the_frames_fails_as_the_collection_does) {
    const cMP3ID3v2 tag = Loaded(Tag(3, Frame3("TIT2", "title")));
    EXPECT_EQ(FailureOf([&] { tag.Frame(0); }), failure::SubscriptOutOfRange);
    EXPECT_EQ(FailureOf([&] { tag.Frame(2); }), failure::SubscriptOutOfRange);
    EXPECT_EQ(tag.TagsInFrame(2), 0);
}

TEST(cMP3ID3v2, A_file_that_does_not_open_fails_under_the_older_label_and_leaves_an_empty_tag) {
    cMP3ID3v2 tag = Loaded(Tag(3, EveryFrame() + Frame3("TCON", "(17)")));
    for (const Long error : {failure::FileNotFound, failure::PermissionDenied}) {
        const OneFileService files("", error);
        try {
            tag.MP3File("e:\\gone.mp3");
            FAIL() << "it loaded";
        } catch (const Failure& failure) {
            EXPECT_EQ(failure.Number(), error);
            EXPECT_EQ(failure.Description(), FailureText(error));
            EXPECT_EQ(failure.Source(), "Tavel.cMP3ID3v1");
        }
        EXPECT_EQ(tag.MP3File(), "e:\\gone.mp3");
        for (const auto& [id, get] : textProperties) {
            EXPECT_EQ((tag.*get)(), id == "USLT"s ? "text of USLT" : "") << id;
        }
        EXPECT_EQ(tag.Genre(), cMP3ID3v2::NoGenre);
        EXPECT_EQ(tag.TagVersion(), 0);
        EXPECT_FALSE(tag.HasID3v2Tag());
        EXPECT_EQ(tag.FrameCount(), 0);
    }
}

TEST(cMP3ID3v2, An_empty_file_fails_without_the_label_of_the_class) {
    cMP3ID3v2 tag;
    const OneFileService files("");
    try {
        tag.MP3File("c:\\empty.mp3");
        FAIL() << "it loaded";
    } catch (const Failure& failure) {
        EXPECT_EQ(failure.Number(), 5);
        EXPECT_EQ(failure.Source(), "Tavel");
    }
    EXPECT_EQ(tag.FrameCount(), 0);
}

TEST(cMP3ID3v2, No_file_stays_open_behind_a_load) {
    const TempFolder folder;
    const std::string path = folder.DrivePath("one.mp3");
    cMP3ID3v2 tag;
    for (const std::string& bytes : {Tag(3, Frame3("TIT2", "title")), "no tag"s, ""s}) {
        folder.Write("one.mp3", bytes);
        EXPECT_EQ(FailureOf([&] { tag.MP3File(path); }), bytes.empty() ? 5 : 0);
        Long error = 0;
        EXPECT_NE(HostFileService().OpenRaw(path, RawMode::Create, error), nullptr) << error;
    }
}

TEST(cMP3ID3v2, A_file_that_goes_away_while_it_is_read_fails) {
    cMP3ID3v2 tag;
    OneFileService files(Tag(3, Frame3("TIT2", std::string(9000, 'x'))));
    files.FailAt = 1;
    EXPECT_EQ(FailureOf([&] { tag.MP3File("e:\\a.mp3"); }), failure::DeviceIO);
}

}  // namespace tavel::test
