#include "media/TagMaker.h"
#include "media/TagReader.h"
#include "support/MemoryFile.h"
#include "support/Support.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavel::test {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using namespace std::string_literals;

struct Walk {
    unsigned char Version = 0;
    std::vector<std::string> Frames;  // "id=text"

    // Reads the tag behind `before` bytes.
    void Read(MemoryFile& raw, std::int64_t before = 0) {
        FileBytes file(raw);
        file.Seek(before + 3);
        ReadFrames(file, Version,
                   [&](const TagFrame& frame) { Frames.push_back(frame.Id + "=" + frame.Text); });
    }
};

std::vector<std::string> FramesOf(MemoryFile& raw) {
    Walk walk;
    walk.Read(raw);
    return walk.Frames;
}

std::vector<std::string> FramesOf(const std::string& bytes) {
    MemoryFile raw(bytes);
    return FramesOf(raw);
}

int VersionOf(const std::string& bytes) {
    MemoryFile raw(bytes);
    Walk walk;
    walk.Read(raw);
    return walk.Version;
}

}  // namespace

TEST(ReadFrames, Versions_2_to_4_are_read_and_no_other) {
    const std::string frames = Frame3("TIT2", "one");
    EXPECT_THAT(FramesOf(Tag(2, Frame2("TT2", "one"))), ElementsAre("TIT2=one"));
    EXPECT_THAT(FramesOf(Tag(3, frames)), ElementsAre("TIT2=one"));
    EXPECT_THAT(FramesOf(Tag(4, frames)), ElementsAre("TIT2=one"));
    for (const int version : {0, 1, 5, 255}) {
        EXPECT_THAT(FramesOf(Tag(version, frames)), IsEmpty());
        EXPECT_EQ(VersionOf(Tag(version, frames)), version);
    }
}

TEST(ReadFrames, The_revision_and_all_flags_are_read_past) {
    const std::string flagged = "TIT2"s + BigEndian(3, 4) + "\xFF\xFF"s + "one";
    for (std::string tag : {Tag(2, Frame2("TT2", "one")), Tag(3, flagged), Tag(4, flagged)}) {
        tag[4] = '\x07';
        tag[5] = '\xFF';
        EXPECT_THAT(FramesOf(tag), ElementsAre("TIT2=one")) << +tag[3];
    }
}

TEST(ReadFrames, An_extended_header_is_walked_as_if_it_were_a_frame) {
    const std::string extended = BigEndian(6, 4) + std::string(6, '\0');
    EXPECT_THAT(FramesOf(Tag(3, extended + Frame3("TIT2", "one"))),
                ElementsAre("\0\0\0\x06="s, "TIT2=one"));
}

TEST(ReadFrames, The_ids_of_version_2_become_the_newer_ones) {
    for (const auto& [older, newer] : {
             std::pair{"TP1", "TPE1"}, std::pair{"TT2", "TIT2"}, std::pair{"TAL", "TALB"},
             std::pair{"COM", "COMM"}, std::pair{"TRK", "TRCK"}, std::pair{"TEN", "TENC"},
             std::pair{"TYE", "TYER"}, std::pair{"TCO", "TCON"}, std::pair{"WXX", ""},
             std::pair{"PIC", ""},     std::pair{"tt2", ""},     std::pair{"TCM", ""},
             std::pair{"TOA", ""},     std::pair{"TP2", ""},     std::pair{"TCR", ""},
             std::pair{"TXX", ""},     std::pair{"ULT", ""},     std::pair{"CNT", ""},
             std::pair{"WAF", ""},     std::pair{"WAR", ""},     std::pair{"WCM", ""},
         }) {
        EXPECT_THAT(FramesOf(Tag(2, Frame2(older, "x"))), ElementsAre(newer + "=x"s)) << older;
    }
}

TEST(ReadFrames, The_ids_of_versions_3_and_4_stay_as_they_are) {
    EXPECT_THAT(FramesOf(Tag(4, Frame3("TT2\0"s, "a") + Frame3("tit2", "b"))),
                ElementsAre("TT2\0=a"s, "tit2=b"));
}

TEST(ReadFrames, Every_nul_of_a_body_goes_and_every_other_byte_stays) {
    for (const auto& [body, text] : {
             std::pair{"\0Latin"s, "Latin"s},
             std::pair{"\3utf-8"s, "\3utf-8"s},
             std::pair{"\1\xFF\xFEH\0i\0"s, "\1\xFF\xFEHi"s},
             std::pair{"\2\0H\0i"s, "\2Hi"s},
             std::pair{"\0eng\0comment\0"s, "engcomment"s},
             std::pair{"\0\0\0"s, ""s},
             std::pair{"\0two\r\nlines/parts\t"s, "two\r\nlines/parts\t"s},
         }) {
        EXPECT_THAT(FramesOf(Tag(3, Frame3("TIT2", body))), ElementsAre("TIT2=" + text));
    }
}

TEST(ReadFrames, A_frame_of_size_0_has_an_empty_text) {
    EXPECT_THAT(FramesOf(Tag(3, Frame3("TIT2", "") + Frame3("TALB", "a"))),
                ElementsAre("TIT2=", "TALB=a"));
    EXPECT_THAT(FramesOf(Tag(2, Frame2("TT2", "") + Frame2("TAL", "a"))),
                ElementsAre("TIT2=", "TALB=a"));
}

TEST(ReadFrames, Padding_ends_the_walk_of_either_kind) {
    const std::string padding(20, '\0');
    EXPECT_THAT(FramesOf(Tag(2, Frame2("TT2", "a") + padding + Frame2("TAL", "b"))),
                ElementsAre("TIT2=a"));
    EXPECT_THAT(FramesOf(Tag(3, Frame3("TIT2", "a") + padding + Frame3("TALB", "b"))),
                ElementsAre("TIT2=a"));
}

// A header counts for 16 bytes in the walk though it takes 10, and for 9 though it takes 6.
TEST(ReadFrames, A_frame_needs_16_bytes_and_its_body_within_the_size_of_the_tag) {
    const std::string frame = Frame3("TIT2", "title");
    EXPECT_THAT(FramesOf(TagOfSize(3, 21, frame)), ElementsAre("TIT2=title"));
    EXPECT_THAT(FramesOf(TagOfSize(3, 20, frame)), IsEmpty());
    EXPECT_THAT(FramesOf(TagOfSize(3, 15, frame)), IsEmpty()) << "what a plain writer would tell";

    const std::string older = Frame2("TT2", "title");
    EXPECT_THAT(FramesOf(TagOfSize(2, 14, older)), ElementsAre("TIT2=title"));
    EXPECT_THAT(FramesOf(TagOfSize(2, 13, older)), IsEmpty());
}

TEST(ReadFrames, The_counts_of_several_frames_add_up) {
    const std::string frames = Frame3("TIT2", "a") + Frame3("TPE1", "b");
    EXPECT_THAT(FramesOf(TagOfSize(3, 34, frames)), ElementsAre("TIT2=a", "TPE1=b"));
    EXPECT_THAT(FramesOf(TagOfSize(3, 33, frames)), ElementsAre("TIT2=a"));
    const std::string older = Frame2("TT2", "a") + Frame2("TP1", "b");
    EXPECT_THAT(FramesOf(TagOfSize(2, 20, older)), ElementsAre("TIT2=a", "TPE1=b"));
    EXPECT_THAT(FramesOf(TagOfSize(2, 19, older)), ElementsAre("TIT2=a"));
}

// A tag far behind the start of a file: what is read lies beyond its size, taken as a position.
TEST(ReadFrames, The_walk_stops_behind_the_position_that_the_size_of_the_tag_tells) {
    const std::string frames = Frame3("TIT2", "a") + Frame3("TPE1", "b");
    const std::string older = Frame2("TT2", "a") + Frame2("TP1", "b");
    const auto framesBehind = [&](std::size_t before, int version) {
        MemoryFile raw(std::string(before, 'x') +
                       TagOfSize(version, 100, (version == 2 ? older : frames) + "rest"));
        Walk walk;
        walk.Read(raw, static_cast<std::int64_t>(before));
        return walk.Frames.size();
    };
    // Behind the first frame the position, from 1, is `before` + 10 + 11 + 1.
    EXPECT_EQ(framesBehind(78, 3), 2u);
    EXPECT_EQ(framesBehind(79, 3), 1u);
    EXPECT_EQ(framesBehind(5000, 3), 1u);
    // Here it is `before` + 10 + 7 + 1.
    EXPECT_EQ(framesBehind(82, 2), 2u);
    EXPECT_EQ(framesBehind(83, 2), 1u);
}

TEST(ReadFrames, A_sync_safe_size_is_read_as_a_larger_plain_number) {
    // 128 bytes are written as 01 00: 256. The walk goes on inside the next frame or stops.
    const std::string first = Frame3("TIT2", std::string(128, 'a'), 0x100);
    const std::string second = Frame3("TPE1", std::string(60, 'b'));
    const std::string third = Frame3("TALB", std::string(200, 'c'));
    const auto frames = FramesOf(Tag(4, first + second + third));
    ASSERT_FALSE(frames.empty());
    EXPECT_EQ(frames[0].size(), 5 + 128 + (8 - 3) + 60 + (10 - 5) + 48);
    EXPECT_EQ(FramesOf(TagOfSize(4, 200, first)).size(), 0u);
}

TEST(ReadFrames, A_size_of_three_bytes_is_a_plain_number_too) {
    for (const std::size_t size : {127, 128, 300, 70000}) {
        const std::string text(size, 'a');
        EXPECT_THAT(FramesOf(Tag(2, Frame2("TT2", text) + Frame2("TAL", "b"))),
                    ElementsAre("TIT2=" + text, "TALB=b"));
    }
}

TEST(ReadFrames, The_size_of_a_tag_is_a_plain_number_in_every_version) {
    // Sync-safe, 0x0100 would be 128 and too little.
    const std::string text(140, 'a');
    for (const int version : {2, 3, 4}) {
        const std::string frame = version == 2 ? Frame2("TT2", text) : Frame3("TIT2", text);
        EXPECT_EQ(FramesOf(TagOfSize(version, 0x100, frame)).size(), 1u) << version;
    }
}

TEST(ReadFrames, A_size_beyond_the_tag_or_below_nothing_ends_the_walk_with_what_there_is) {
    for (const std::uint32_t size : {2000u, 0x7FFFFFFFu, 0x80000000u, 0xFFFFFFFFu, 0xFFFFFFF0u}) {
        const std::string frames = Frame3("TIT2", "a") + Frame3("TPE1", "b", size);
        EXPECT_THAT(FramesOf(Tag(3, frames)), ElementsAre("TIT2=a")) << size;
    }
    EXPECT_THAT(FramesOf(Tag(2, Frame2("TT2", "a") + "TAL\xFF\xFF\xFFxx")), ElementsAre("TIT2=a"));
}

TEST(ReadFrames, A_negative_size_of_the_tag_gives_no_frames) {
    EXPECT_THAT(FramesOf(TagOfSize(3, 0x80000000u, Frame3("TIT2", "a"))), IsEmpty());
    EXPECT_THAT(FramesOf(TagOfSize(3, 0, Frame3("TIT2", "a"))), IsEmpty());
}

TEST(ReadFrames, A_body_cut_off_by_the_end_of_the_file_is_what_there_is_of_it) {
    const std::string cut = Frame3("TIT2", "half", 0x7FFFFF00u);
    MemoryFile raw(TagOfSize(3, 0x7FFFFFFFu, cut));
    EXPECT_THAT(FramesOf(raw), ElementsAre("TIT2=half"));
    EXPECT_LE(raw.Reads, 2);
}

TEST(ReadFrames, A_header_cut_off_by_the_end_of_the_file_goes_on_in_nul_bytes) {
    EXPECT_THAT(FramesOf(TagOfSize(3, 1000, "TIT")), ElementsAre("TIT\0="s));
    EXPECT_THAT(FramesOf(TagOfSize(2, 1000, "TT2")), ElementsAre("TIT2="));
    EXPECT_EQ(VersionOf("ID3"), 0);
    EXPECT_EQ(VersionOf("ID3\3"), 3);
    EXPECT_THAT(FramesOf("ID3\3\0\0\0"s), IsEmpty());
}

TEST(ReadFrames, A_file_full_of_empty_frames_ends_with_the_file) {
    std::string frames;
    for (int i = 0; i < 10000; ++i) frames += Frame3("TIT2", "");
    EXPECT_EQ(FramesOf(TagOfSize(3, 0x7FFFFFFFu, frames)).size(), 10000u);
}

TEST(ReadFrames, A_large_body_is_read_whole_and_the_walk_goes_on_behind_it) {
    std::string picture;
    for (int i = 0; i < 200000; ++i) picture += static_cast<char>(i % 251);
    std::string kept = picture;
    std::erase(kept, '\0');
    const std::string tag = Tag(3, Frame3("APIC", picture) + Frame3("TIT2", "title"));
    MemoryFile raw(tag + std::string(100000, 'x'));
    const auto frames = FramesOf(raw);
    ASSERT_EQ(frames.size(), 2u);
    EXPECT_TRUE(frames[0] == "APIC=" + kept);
    EXPECT_EQ(frames[1], "TIT2=title");
    EXPECT_LE(raw.Reads, 6);
}

TEST(ReadFrames, A_file_that_goes_away_fails_behind_what_was_read) {
    MemoryFile raw(Tag(3, Frame3("TIT2", "one") + Frame3("APIC", std::string(10000, 'x'))));
    raw.FailAt = 1;
    Walk walk;
    EXPECT_EQ(FailureOf([&] { walk.Read(raw); }), failure::DeviceIO);
    EXPECT_EQ(walk.Version, 3);
    EXPECT_THAT(walk.Frames, ElementsAre("TIT2=one"));
}

}  // namespace tavel::test
