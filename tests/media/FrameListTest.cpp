#include "media/FrameList.h"
#include "support/Support.h"

#include <gtest/gtest.h>

namespace tavel::test {

TEST(FrameList, Ids_stand_once_in_order_of_first_appearance) {
    const FrameList list({{"TIT2", "a"}, {"TPE1", "b"}, {"TIT2", "c"}, {"", "d"}});
    ASSERT_EQ(list.FrameCount(), 3);
    EXPECT_EQ(list.Frame(1), "TIT2");
    EXPECT_EQ(list.Frame(2), "TPE1");
    EXPECT_EQ(list.Frame(3), "");
    EXPECT_EQ(FailureOf([&] { list.Frame(0); }), failure::SubscriptOutOfRange);
    EXPECT_EQ(FailureOf([&] { list.Frame(4); }), failure::SubscriptOutOfRange);
}

TEST(FrameList, Instances_are_numbered_from_1) {
    const FrameList list({{"TIT2", "a"}, {"", "b"}, {"TIT2", "c"}, {"", "d"}});
    EXPECT_EQ(list.FrameText("TIT2", 1), "a");
    EXPECT_EQ(list.FrameText("TIT2", 2), "c");
    EXPECT_EQ(list.FrameText("", 1), "b");
    EXPECT_EQ(list.FrameText("", 2), "d");
    EXPECT_EQ(FailureOf([&] { list.FrameText("TIT2", 3); }), failure::InvalidProcedureCall);
}

TEST(FrameList, Counts_are_told_by_id_and_are_0_for_what_is_not_there) {
    const FrameList list({{"TIT2", ""}, {"", ""}, {"TIT2", ""}, {"", ""}, {"", ""}});
    EXPECT_EQ(list.TagsInFrame("TIT2"), 2);
    EXPECT_EQ(list.TagsInFrame(""), 3);
    EXPECT_EQ(list.TagsInFrame("TALB"), 0);
}

TEST(FrameList, A_further_instance_moves_its_count_to_the_end) {
    const FrameList list(
        {{"AAAA", ""}, {"BBBB", ""}, {"CCCC", ""}, {"BBBB", ""}, {"AAAA", ""}, {"BBBB", ""}});
    EXPECT_EQ(list.TagsInFrame(1), 1);  // CCCC
    EXPECT_EQ(list.TagsInFrame(2), 2);  // AAAA
    EXPECT_EQ(list.TagsInFrame(3), 3);  // BBBB
    EXPECT_EQ(list.TagsInFrame(0), 0);
    EXPECT_EQ(list.TagsInFrame(4), 0);
    EXPECT_EQ(list.TagsInFrame(-1), 0);
}

TEST(FrameList, Ids_that_differ_in_case_only_are_one) {
    const FrameList list({{"tit2", "a"}, {"TIT2", "b"}});
    EXPECT_EQ(list.FrameCount(), 1);
    EXPECT_EQ(list.Frame(1), "tit2");
    EXPECT_EQ(list.TagsInFrame("Tit2"), 2);
    EXPECT_EQ(list.FrameText("TIT2", 1), "a");
}

TEST(FrameList, Ids_may_hold_any_bytes) {
    using namespace std::string_literals;
    const FrameList list({{"A:1\0"s, "a"}, {"\xFF\0\xC3\x1"s, "b"}, {"A:1\0"s, "c"}});
    EXPECT_EQ(list.FrameCount(), 2);
    EXPECT_EQ(list.FrameText("A:1\0"s, 2), "c");
    EXPECT_EQ(list.TagsInFrame("\xFF\0\xC3\x1"s), 1);
}

TEST(FrameList, Fifty_thousand_ids_twice_each_stand_once_with_two_instances) {
    std::vector<TagFrame> frames;
    for (int round = 0; round < 2; ++round) {
        for (int i = 0; i < 50000; ++i) frames.push_back({std::to_string(50000 + i), ""});
    }
    const FrameList list(std::move(frames));
    EXPECT_EQ(list.FrameCount(), 50000);
    EXPECT_EQ(list.TagsInFrame("50000"), 2);
    EXPECT_EQ(list.TagsInFrame(50000), 2);
}

}  // namespace tavel::test
