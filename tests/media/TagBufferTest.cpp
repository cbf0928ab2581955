#include "media/TagBuffer.h"
#include "media/TagMaker.h"
#include "support/Support.h"

#include <gtest/gtest.h>

namespace tavel::test {

namespace {

using namespace std::string_literals;

// A tag of the size that it has.
std::string WholeTag(const std::string& frames) {
    return TagOfSize(3, static_cast<std::uint32_t>(10 + frames.size() + 4), frames + "\0\0\0\0"s);
}

std::string SizeBytes(Long value) {
    std::string buffer = "......";
    PutSize(buffer, 1, value);
    EXPECT_EQ(buffer.front(), '.');
    EXPECT_EQ(buffer.back(), '.');
    return buffer.substr(1, 4);
}

// A list of one frame.
FrameList ListOf(TagFrame frame) { return FrameList(std::vector{std::move(frame)}); }

// A list of one frame whose body has so many bytes.
FrameList WithBodyOf(std::size_t bytes) {
    return FrameList({TagFrame{"TIT2", std::string(bytes - 1, 'x')}});
}

}  // namespace

TEST(TagBuffer, A_size_is_a_plain_number_with_its_most_significant_byte_first) {
    EXPECT_EQ(SizeBytes(0), "\0\0\0\0"s);
    EXPECT_EQ(SizeBytes(127), "\0\0\0\x7F"s);
    EXPECT_EQ(SizeBytes(128), "\0\0\0\x80"s);
    EXPECT_EQ(SizeBytes(255), "\0\0\0\xFF"s);
    EXPECT_EQ(SizeBytes(256), "\0\0\1\0"s);
    EXPECT_EQ(SizeBytes(0x1234), "\0\0\x12\x34"s);
    EXPECT_EQ(SizeBytes(65535), "\0\0\xFF\xFF"s);
}

TEST(TagBuffer, A_size_that_two_bytes_do_not_hold_overflows) {
    for (const Long value : {65536, 65537, 0x7FFFFFFF, -1, -65536, -0x7FFFFFFF - 1})
        EXPECT_EQ(FailureOf([&] { SizeBytes(value); }), failure::Overflow) << value;
}

TEST(TagBuffer, Room_is_the_next_multiple_of_2048_and_never_nothing) {
    EXPECT_EQ(SizeWithRoom(14), 2048);
    EXPECT_EQ(SizeWithRoom(2047), 2048);
    EXPECT_EQ(SizeWithRoom(2048), 4096);
    EXPECT_EQ(SizeWithRoom(3000), 4096);
    EXPECT_EQ(SizeWithRoom(4096), 6144);
    EXPECT_EQ(SizeWithRoom(63487), 63488);
    EXPECT_EQ(SizeWithRoom(63488), 65536);
}

TEST(TagBuffer, A_list_without_frames_is_a_header_and_four_zero_bytes) {
    EXPECT_EQ(TagBuffer(FrameList()), "ID3\3\0\0\0\0\0\x0E\0\0\0\0"s);
}

TEST(TagBuffer, A_frame_is_id_length_flags_and_a_zero_byte_in_front_of_the_text) {
    EXPECT_EQ(TagBuffer(ListOf({"TIT2", "Title"})),
              "ID3\3\0\0\0\0\0\x1E"
              "TIT2\0\0\0\6\0\0\0Title"
              "\0\0\0\0"s);
}

TEST(TagBuffer, Every_frame_has_the_zero_byte_urls_and_counters_too) {
    std::vector<TagFrame> frames;
    std::string bytes;
    for (const char* id : {"WOAF", "PCNT", "APIC", "zzzz"}) {
        frames.push_back({id, "text"});
        bytes += Frame3(id, "\0text"s);
    }
    EXPECT_EQ(TagBuffer(FrameList(std::move(frames))), WholeTag(bytes));
}

TEST(TagBuffer, An_empty_text_is_a_frame_all_the_same) {
    EXPECT_EQ(TagBuffer(ListOf({"TALB", ""})), WholeTag(Frame3("TALB", "\0"s)));
}

TEST(TagBuffer, Texts_are_written_byte_by_byte) {
    std::string text;
    for (int byte = 0; byte < 256; ++byte) text += static_cast<char>(byte);
    EXPECT_EQ(TagBuffer(FrameList({TagFrame{"TIT2", text}})),
              WholeTag(Frame3("TIT2", "\0"s + text)));
}

TEST(TagBuffer, Instances_stand_together_in_the_order_of_their_ids) {
    EXPECT_EQ(TagBuffer(FrameList({{"TIT2", "a"}, {"TPE1", "b"}, {"TIT2", "c"}})),
              WholeTag(Frame3("TIT2", "\0a"s) + Frame3("TIT2", "\0c"s) + Frame3("TPE1", "\0b"s)));
}

TEST(TagBuffer, A_frame_with_ID3_in_its_id_is_left_out) {
    const FrameList list({{"TID3", "a"}, {"TIT2", "b"}, {"ID3x", "c"}, {"xID3", "d"}, {"ID3", ""}});
    EXPECT_EQ(TagBuffer(list), WholeTag(Frame3("TIT2", "\0b"s)));
    EXPECT_EQ(TagBuffer(ListOf({"tid3", "a"})), WholeTag(Frame3("tid3", "\0a"s)));
}

TEST(TagBuffer, A_frame_with_ID3_in_its_id_may_be_too_large_or_lack_its_text) {
    EXPECT_EQ(TagBuffer(FrameList({{"TID3", std::string(70000, 'x')}, {"TIT2", "b"}})),
              WholeTag(Frame3("TIT2", "\0b"s)));
    FrameList lost({{"TIT2", "a"}, {"xID3", "b"}, {"TIT2", "c"}});
    lost.RemoveTag("TIT2", 1);
    EXPECT_EQ(TagBuffer(lost), WholeTag(Frame3("TIT2", "\0c"s)));
}

TEST(TagBuffer, Of_a_longer_id_the_first_four_characters_are_written) {
    FrameList list;
    list.AddTag("TITLE", "a");
    EXPECT_EQ(TagBuffer(list), WholeTag(Frame3("TITL", "\0a"s)));
}

TEST(TagBuffer, An_id_of_fewer_than_four_characters_fails) {
    for (const char* id : {"", "T", "TT2"}) {
        const FrameList list({{"TIT2", "a"}, {id, "b"}});
        EXPECT_EQ(FailureOf([&] { TagBuffer(list); }), failure::InvalidProcedureCall) << id;
    }
}

TEST(TagBuffer, The_first_thing_that_is_wrong_is_the_one_that_fails) {
    const std::string large(65535, 'x');
    for (const auto& [id, number] :
         {std::pair{"TT2", failure::InvalidProcedureCall}, std::pair{"TIT2", failure::Overflow}}) {
        const FrameList list({{id, large}, {"TPE", ""}, {"TALB", large}});
        EXPECT_EQ(FailureOf([&] { TagBuffer(list); }), number) << id;
    }
}

TEST(TagBuffer, A_frame_that_lacks_its_texts_or_its_count_fails) {
    FrameList lost({{"TIT2", "a"}, {"TPE1", "b"}, {"TIT2", "c"}});
    lost.RemoveTag("TIT2", 1);
    EXPECT_EQ(FailureOf([&] { TagBuffer(lost); }), failure::InvalidProcedureCall);
    lost.RemoveFrame("TPE1");
    EXPECT_EQ(TagBuffer(lost), WholeTag(Frame3("TIT2", "\0c"s)));

    FrameList uncounted({{"AAAA", "1"}, {"BBBB", "2"}, {"AAAA", "3"}});
    uncounted.RemoveFrame(1);
    EXPECT_EQ(FailureOf([&] { TagBuffer(uncounted); }), failure::InvalidProcedureCall);
}

TEST(TagBuffer, A_frame_with_ID3_in_its_id_may_lack_its_count) {
    FrameList list({{"AAAA", "1"}, {"xID3", "2"}, {"AAAA", "3"}});
    list.RemoveFrame(1);  // the count that goes is that of xID3
    EXPECT_EQ(TagBuffer(list), WholeTag(""));
}

TEST(TagBuffer, A_text_beyond_the_count_of_its_frame_is_not_written) {
    FrameList list({{"AAAA", ""}, {"BBBB", "a"}, {"BBBB", "b"}, {"AAAA", ""}});
    list.RemoveFrame(1);  // the count that goes is that of BBBB, whose texts so stay behind it
    EXPECT_EQ(FailureOf([&] { list.RemoveFrame("BBBB"); }), failure::InvalidProcedureCall);
    EXPECT_EQ(FailureOf([&] { list.AddTag("BBBB", ""); }), failure::KeyAlreadyThere);
    EXPECT_EQ(TagBuffer(list), WholeTag(Frame3("BBBB", "\0a"s)));
}

TEST(TagBuffer, A_body_of_65536_bytes_overflows) {
    EXPECT_EQ(FailureOf([&] { TagBuffer(WithBodyOf(65536)); }), failure::Overflow);
}

TEST(TagBuffer, A_tag_of_65536_bytes_overflows) {
    const std::size_t rest = 10 + 10 + 4;
    EXPECT_EQ(TagBuffer(WithBodyOf(65535 - rest)).size(), 65535u);
    EXPECT_EQ(FailureOf([&] { TagBuffer(WithBodyOf(65536 - rest)); }), failure::Overflow);
    std::vector<TagFrame> frames;
    for (int i = 0; i < 10000; ++i) frames.push_back({std::to_string(10000 + i), "x"});
    EXPECT_EQ(FailureOf([&] { TagBuffer(FrameList(std::move(frames))); }), failure::Overflow);
}

}  // namespace tavel::test
