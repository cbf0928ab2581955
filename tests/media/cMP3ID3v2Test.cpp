#include "media/TagMaker.h"
#include "media/cMP3ID3v2.h"
#include "support/OneFileService.h"
#include "support/Support.h"

#include <gtest/gtest.h>

#include <algorithm>

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

using Texts = std::vector<std::string>;
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

void ExpectNoText(const cMP3ID3v2& tag) {
    for (const auto& [id, get] : textProperties) EXPECT_EQ((tag.*get)(), "") << id;
    EXPECT_EQ(tag.Genre(), cMP3ID3v2::NoGenre);
}

// What a load leaves of a tag with EveryFrame when it brings nothing of its own.
void ExpectLyricsAlone(const cMP3ID3v2& tag) {
    for (const auto& [id, get] : textProperties) {
        EXPECT_EQ((tag.*get)(), id == "USLT"s ? "text of USLT" : "") << id;
    }
    EXPECT_EQ(tag.Genre(), cMP3ID3v2::NoGenre);
    EXPECT_EQ(tag.TagVersion(), 0);
    EXPECT_FALSE(tag.HasID3v2Tag());
    EXPECT_EQ(tag.FrameCount(), 0);
    EXPECT_EQ(tag.TagsInFrame("USLT"), 0);
}

// A file of blanks with a tag's mark at an offset that no Long can tell.
class FarTagFile : public MemoryFile {
  public:
    FarTagFile() : MemoryFile("") {}

    std::int64_t Size() override { return tagOffset + 100; }
    bool Seek(std::int64_t position) override {
        m_position = position;
        return true;
    }
    bool Read(std::span<char> buffer, std::size_t& bytesRead) override {
        bytesRead = buffer.size();
        std::fill(buffer.begin(), buffer.end(), ' ');
        const std::int64_t toTag = tagOffset - m_position;
        m_position += std::ssize(buffer);
        if (toTag >= 0 && m_position > tagOffset + std::ssize(mark)) {
            std::copy(mark.begin(), mark.end(), buffer.begin() + toTag);
        }
        return true;
    }

  private:
    static constexpr std::int64_t tagOffset = std::int64_t{1} << 31;
    static constexpr std::string_view mark = "ID3";

    std::int64_t m_position = 0;
};

class FarTagService : public OneFileService {
  public:
    FarTagService() : OneFileService("") {}
    std::unique_ptr<RawFile> OpenRaw(std::string_view, RawMode, Long& error) override {
        error = 0;
        return std::make_unique<FarTagFile>();
    }
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

TEST(cMP3ID3v2, Language_and_description_stay_in_the_text) {
    const cMP3ID3v2 tag =
        Loaded(Tag(3, Frame3("USLT", "\0engdesc\0words"s) + Frame3("WXXX", "\0desc\0http://x"s)));
    EXPECT_EQ(tag.Lyrics(), "engdescwords");
    EXPECT_EQ(tag.LinkTo(), "deschttp://x");
}

TEST(cMP3ID3v2, A_frame_of_any_other_id_is_in_the_list_alone) {
    const Texts others = {"TPE2", "TPE3", "TIT1", "TIT3", "TXXX", "WOAS",
                          "APIC", "TDRC", "TEXT", "TSSE", "WCOP", "TOAL"};
    std::string frames;
    for (const std::string& id : others) frames += Frame3(id, "x");
    for (const char* id : {"TCM", "TOA", "CNT", "WAF", "WAR", "WCM", "TCR", "ULT", "WXX"}) {
        ExpectNoText(Loaded(Tag(2, Frame2(id, "x"))));
    }
    for (const int version : {3, 4}) {
        const cMP3ID3v2 tag = Loaded(Tag(version, frames));
        ExpectNoText(tag);
        ASSERT_EQ(tag.FrameCount(), static_cast<Long>(others.size()));
        for (Long i = 1; i <= tag.FrameCount(); ++i) {
            EXPECT_EQ(tag.Frame(i), others[static_cast<std::size_t>(i) - 1]);
            EXPECT_EQ(tag.TagsInFrame(tag.Frame(i)), 1);
        }
    }
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
    EXPECT_EQ(cMP3ID3v2::GenreName(tag.Genre()), "");
    ExpectNoText(tag);
}

TEST(cMP3ID3v2, A_tag_behind_other_bytes_is_read) {
    // The tag's size is taken as a position in the file, so that it must reach beyond the tag.
    const std::string frames = Frame3("TIT2", "title") + std::string(100, '\0');
    const cMP3ID3v2 tag = Loaded(std::string(5000, 'x') + TagOfSize(3, 6000, frames));
    EXPECT_TRUE(tag.HasID3v2Tag());
    EXPECT_EQ(tag.Title(), "title");
}

TEST(cMP3ID3v2, A_tag_beyond_2_GiB_overflows) {
    const FarTagService files;
    cMP3ID3v2 tag;
    EXPECT_EQ(FullFailureOf([&] { tag.MP3File("c:\\far.mp3"); }), "6 Overflow Tavel.cMP3ID3v2");
    EXPECT_FALSE(tag.HasID3v2Tag());
    EXPECT_EQ(tag.FrameCount(), 0);
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
    ExpectLyricsAlone(tag);

    Load(tag, Tag(3, Frame3("USLT", "new")));
    EXPECT_EQ(tag.Lyrics(), "new");
    EXPECT_EQ(tag.FrameCount(), 1);
    EXPECT_EQ(tag.Frame(1), "USLT");
}

TEST(cMP3ID3v2, Before_the_first_load_there_is_no_frame_list) {
    const cMP3ID3v2 tag;
    const std::string failure = "91 Object variable or With block variable not set Tavel.cMP3ID3v2";
    EXPECT_EQ(FullFailureOf([&] { tag.FrameCount(); }), failure);
    EXPECT_EQ(FullFailureOf([&] { tag.Frame(1); }), failure);
    EXPECT_EQ(tag.TagsInFrame("TIT2"), 0);
    EXPECT_EQ(tag.TagsInFrame(1), 0);
    EXPECT_FALSE(tag.HasID3v2Tag());
    EXPECT_EQ(tag.MP3File(), "");
}

TEST(cMP3ID3v2, A_position_outside_the_frames_fails_as_the_collection_does) {
    const cMP3ID3v2 tag = Loaded(Tag(3, Frame3("TIT2", "title")));
    for (const Long index : {0, 2, -1}) {
        EXPECT_EQ(FullFailureOf([&] { tag.Frame(index); }),
                  "9 Subscript out of range Tavel.cMP3ID3v2");
    }
    EXPECT_EQ(tag.TagsInFrame(2), 0);
}

TEST(cMP3ID3v2, A_file_that_does_not_open_fails_under_the_older_label_and_leaves_an_empty_tag) {
    cMP3ID3v2 tag = Loaded(Tag(3, EveryFrame() + Frame3("TCON", "(17)")));
    for (const Long error : {failure::FileNotFound, failure::PermissionDenied}) {
        const OneFileService files("", error);
        EXPECT_EQ(
            FullFailureOf([&] { tag.MP3File("e:\\gone.mp3"); }),
            std::to_string(error) + " " + std::string(FailureText(error)) + " Tavel.cMP3ID3v1");
        EXPECT_EQ(tag.MP3File(), "e:\\gone.mp3");
        ExpectLyricsAlone(tag);

        cMP3ID3v2 fresh;
        EXPECT_EQ(FailureOf([&] { fresh.MP3File("e:\\gone.mp3"); }), error);
        EXPECT_EQ(fresh.FrameCount(), 0);
    }
}

TEST(cMP3ID3v2, An_empty_file_fails_without_the_label_of_the_class_and_leaves_an_empty_tag) {
    cMP3ID3v2 tag = Loaded(Tag(3, EveryFrame() + Frame3("TCON", "(17)")));
    const OneFileService files("");
    EXPECT_EQ(FullFailureOf([&] { tag.MP3File("c:\\empty.mp3"); }),
              "5 Invalid procedure call or argument Tavel");
    ExpectLyricsAlone(tag);

    cMP3ID3v2 fresh;
    EXPECT_EQ(FailureOf([&] { fresh.MP3File("c:\\empty.mp3"); }), failure::InvalidProcedureCall);
    EXPECT_EQ(fresh.FrameCount(), 0);
}

// The number that keeps a file from being written; 0 for none.
Long WhyNotWritten(const std::string& path) {
    Long error = 0;
    oFSO().OpenRaw(path, RawMode::Create, error);
    return error;
}

TEST(cMP3ID3v2, No_file_stays_open_behind_a_load) {
    const TempFolder folder;
    const std::string path = folder.DrivePath("one.mp3");
    cMP3ID3v2 tag;
    for (const std::string& bytes : {Tag(3, Frame3("TIT2", "title")), "no tag"s}) {
        folder.Write("one.mp3", bytes);
        tag.MP3File(path);
        EXPECT_EQ(WhyNotWritten(path), 0);
    }
}

TEST(cMP3ID3v2, An_empty_file_stays_open_until_the_next_load_or_the_end_of_the_object) {
    const TempFolder folder;
    folder.Write("empty.mp3", "");
    folder.Write("other.mp3", "no tag");
    const std::string path = folder.DrivePath("empty.mp3");
    {
        cMP3ID3v2 tag;
        EXPECT_EQ(FailureOf([&] { tag.MP3File(path); }), failure::InvalidProcedureCall);
        EXPECT_EQ(WhyNotWritten(path), failure::PermissionDenied);
        tag.MP3File(folder.DrivePath("other.mp3"));
        EXPECT_EQ(WhyNotWritten(path), 0);
        EXPECT_EQ(FailureOf([&] { tag.MP3File(path); }), failure::InvalidProcedureCall);
        EXPECT_EQ(WhyNotWritten(path), failure::PermissionDenied);
    }
    EXPECT_EQ(WhyNotWritten(path), 0);
}

TEST(cMP3ID3v2, A_close_that_fails_is_not_noticed) {
    OneFileService files(Tag(3, Frame3("TIT2", "title")));
    files.FailClose = true;
    cMP3ID3v2 tag;
    tag.MP3File("e:\\a.mp3");
    EXPECT_EQ(tag.Title(), "title");
    EXPECT_EQ(tag.FrameCount(), 1);
}

TEST(cMP3ID3v2, A_file_that_goes_away_while_it_is_read_fails_and_leaves_what_was_read) {
    cMP3ID3v2 tag;
    OneFileService files(Tag(4, Frame3("TPE1", "artist") + Frame3("COMM", "one") +
                                    Frame3("TIT2", std::string(9000, 'x'))));
    files.FailAt = 1;
    EXPECT_EQ(FullFailureOf([&] { tag.MP3File("e:\\a.mp3"); }),
              "57 Device I/O error Tavel.cMP3ID3v2");
    EXPECT_TRUE(tag.HasID3v2Tag());
    EXPECT_EQ(tag.TagVersion(), 4);
    EXPECT_EQ(tag.FrameCount(), 2);
    EXPECT_EQ(tag.TagsInFrame("TPE1"), 1);
    EXPECT_EQ(tag.Artist(), "artist");
    EXPECT_EQ(tag.Comment(), "one");
    EXPECT_EQ(tag.Title(), "");

    files.FailAt = 0;
    EXPECT_EQ(FullFailureOf([&] { tag.MP3File("e:\\a.mp3"); }),
              "57 Device I/O error Tavel.cMP3ID3v2");
    ExpectNoText(tag);
    EXPECT_FALSE(tag.HasID3v2Tag());
    EXPECT_EQ(tag.TagVersion(), 0);
}

}  // namespace tavel::test
