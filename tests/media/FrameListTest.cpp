#include "media/FrameList.h"
#include "support/Support.h"

#include <gtest/gtest.h>

namespace tavel::test {

namespace {

using Texts = std::vector<std::string>;

Texts IdsOf(const FrameList& list) {
    Texts ids;
    for (Long i = 1; i <= list.FrameCount(); ++i) ids.push_back(list.Frame(i));
    return ids;
}

// No frame is listed, and three texts of BBBB have stayed behind.
FrameList WithTextsBehind() {
    FrameList list({{"AAAA", ""}, {"BBBB", "b1"}, {"BBBB", "b2"}, {"BBBB", "b3"}, {"AAAA", ""}});
    list.RemoveFrame(1);  // the count that goes is that of BBBB
    EXPECT_EQ(FailureOf([&] { list.RemoveFrame("BBBB"); }), failure::InvalidProcedureCall);
    return list;
}

}  // namespace

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

TEST(FrameList, A_frame_is_removed_by_id_with_all_its_instances) {
    FrameList list({{"TIT2", "a"}, {"TPE1", "b"}, {"TIT2", "c"}, {"TALB", "d"}});
    list.RemoveFrame("tit2");
    EXPECT_EQ(IdsOf(list), (Texts{"TPE1", "TALB"}));
    EXPECT_EQ(list.TagsInFrame("TIT2"), 0);
    for (const Long number : {1, 2})
        EXPECT_EQ(FailureOf([&] { list.FrameText("TIT2", number); }), 5);
    EXPECT_EQ(list.FrameText("TALB", 1), "d");
    EXPECT_EQ(FailureOf([&] { list.RemoveFrame("TIT2"); }), failure::InvalidProcedureCall);
    EXPECT_EQ(IdsOf(list), (Texts{"TPE1", "TALB"}));
}

TEST(FrameList, A_frame_is_removed_by_the_id_that_the_list_itself_gave) {
    const std::string longId(100, 'x');
    FrameList list({{longId, "a"}, {"TPE1", "b"}, {longId, "c"}});
    list.RemoveFrame(list.Frame(1));
    EXPECT_EQ(IdsOf(list), Texts{"TPE1"});
    EXPECT_EQ(list.TagsInFrame(longId), 0);
    EXPECT_EQ(FailureOf([&] { list.FrameText(longId, 1); }), failure::InvalidProcedureCall);
}

TEST(FrameList, A_frame_is_removed_by_position) {
    FrameList list({{"TIT2", "a"}, {"TPE1", "b"}, {"TALB", "c"}});
    list.RemoveFrame(2);
    EXPECT_EQ(IdsOf(list), (Texts{"TIT2", "TALB"}));
    EXPECT_EQ(list.TagsInFrame("TPE1"), 0);
    EXPECT_EQ(list.InstanceCount("TALB"), 1);
    EXPECT_EQ(FailureOf([&] { list.FrameText("TPE1", 1); }), failure::InvalidProcedureCall);
    for (const Long position : {0, 3, -1})
        EXPECT_EQ(FailureOf([&] { list.RemoveFrame(position); }), failure::SubscriptOutOfRange);
}

TEST(FrameList, By_position_the_count_at_that_position_goes_whosever_it_is) {
    FrameList list({{"AAAA", "1"}, {"BBBB", "2"}, {"AAAA", "3"}});  // the counts: BBBB, AAAA
    list.RemoveFrame(1);
    EXPECT_EQ(IdsOf(list), Texts{"BBBB"});
    EXPECT_EQ(list.TagsInFrame("AAAA"), 2);
    EXPECT_EQ(list.TagsInFrame("BBBB"), 0);
    EXPECT_EQ(FailureOf([&] { list.InstanceCount("BBBB"); }), failure::InvalidProcedureCall);
    for (const Long number : {1, 2})
        EXPECT_EQ(FailureOf([&] { list.FrameText("AAAA", number); }), 5) << "all, by the numbers";
    EXPECT_EQ(list.FrameText("BBBB", 1), "2");

    EXPECT_EQ(FailureOf([&] { list.AddTag("BBBB", "x"); }), failure::InvalidProcedureCall);
    EXPECT_EQ(FailureOf([&] { list.AddTag("AAAA", "x"); }), failure::KeyAlreadyThere);
    EXPECT_EQ(FailureOf([&] { list.RemoveFrame("BBBB"); }), failure::InvalidProcedureCall);
}

TEST(FrameList, By_position_a_place_without_a_count_loses_its_frame_and_keeps_the_texts) {
    FrameList list({{"AAAA", "1"}, {"BBBB", "2"}, {"AAAA", "3"}});
    list.RemoveFrame(1);  // BBBB has lost its count
    EXPECT_EQ(FailureOf([&] { list.AddTag("AAAA", "x"); }), failure::KeyAlreadyThere);
    list.AddTag("CCCC", "4");  // the third frame has the second count
    EXPECT_EQ(FailureOf([&] { list.RemoveFrame(3); }), failure::SubscriptOutOfRange);
    EXPECT_EQ(IdsOf(list), (Texts{"BBBB", "AAAA"}));
    EXPECT_EQ(list.TagsInFrame("CCCC"), 1);
    EXPECT_EQ(list.FrameText("CCCC", 1), "4");
}

TEST(FrameList, Texts_of_a_removed_frame_go_as_far_as_they_are_numbered_without_a_gap) {
    FrameList list({{"AAAA", "1"}, {"BBBB", "2"}, {"AAAA", "3"}});
    list.RemoveTag("AAAA", 2);  // the text of BBBB is lost, its count is not
    list.AddTag("BBBB", "x");
    EXPECT_EQ(list.FrameText("BBBB", 2), "BBBB");
    list.RemoveFrame("BBBB");
    EXPECT_EQ(list.FrameText("BBBB", 2), "BBBB");
    list.AddTag("BBBB", "y");
    EXPECT_EQ(list.FrameText("BBBB", 1), "y");
    EXPECT_EQ(FailureOf([&] { list.AddTag("BBBB", "z"); }), failure::KeyAlreadyThere);
    EXPECT_EQ(list.TagsInFrame("BBBB"), 2) << "counted, and the text is the one that stayed";
}

TEST(FrameList, A_frame_whose_texts_stayed_behind_is_listed_with_them_though_adding_it_fails) {
    FrameList list = WithTextsBehind();
    EXPECT_EQ(FailureOf([&] { list.AddTag("BBBB", "new"); }), failure::KeyAlreadyThere);
    EXPECT_EQ(IdsOf(list), Texts{"BBBB"});
    EXPECT_EQ(list.TagsInFrame("BBBB"), 1);
    EXPECT_EQ(list.FrameText("BBBB", 1), "b1");
}

TEST(FrameList, A_tag_of_a_new_id_is_its_frames_first_instance) {
    FrameList list(std::vector<TagFrame>{{"TIT2", "a"}});
    list.AddTag("TPE1", "b");
    EXPECT_EQ(IdsOf(list), (Texts{"TIT2", "TPE1"}));
    EXPECT_EQ(list.TagsInFrame("TPE1"), 1);
    EXPECT_EQ(list.FrameText("TPE1", 1), "b");
}

TEST(FrameList, A_further_tag_of_an_id_has_the_id_for_a_text) {
    FrameList list({{"TIT2", "a"}, {"TPE1", "b"}});
    list.AddTag("tit2", "lost");
    EXPECT_EQ(list.FrameCount(), 2);
    EXPECT_EQ(list.TagsInFrame("TIT2"), 2);
    EXPECT_EQ(list.FrameText("TIT2", 1), "a");
    EXPECT_EQ(list.FrameText("TIT2", 2), "TIT2");
    EXPECT_EQ(list.TagsInFrame(2), 2);  // the count has gone to the end
}

TEST(FrameList, The_only_instance_takes_its_frame_along_and_leaves_all_others) {
    FrameList list({{"TIT2", "a"}, {"TPE1", "b"}, {"TALB", "c"}});
    list.RemoveTag("tpe1", 1);
    EXPECT_EQ(IdsOf(list), (Texts{"TIT2", "TALB"}));
    EXPECT_EQ(list.TagsInFrame("TPE1"), 0);
    EXPECT_EQ(list.FrameText("TIT2", 1), "a");
    EXPECT_EQ(list.FrameText("TALB", 1), "c");
}

TEST(FrameList, A_removed_instance_leaves_the_others_of_its_frame_renumbered_and_no_other_text) {
    FrameList list({{"TIT2", "a"}, {"TPE1", "b"}, {"TIT2", "c"}, {"TIT2", "d"}});
    list.RemoveTag("TIT2", 2);
    EXPECT_EQ(IdsOf(list), (Texts{"TIT2", "TPE1"}));
    EXPECT_EQ(list.TagsInFrame("TIT2"), 2);
    EXPECT_EQ(list.FrameText("TIT2", 1), "a");
    EXPECT_EQ(list.FrameText("TIT2", 2), "d");
    EXPECT_EQ(FailureOf([&] { list.FrameText("TIT2", 3); }), failure::InvalidProcedureCall);
    EXPECT_EQ(list.TagsInFrame("TPE1"), 1);
    EXPECT_EQ(FailureOf([&] { list.FrameText("TPE1", 1); }), failure::InvalidProcedureCall);
}

TEST(FrameList, A_removed_instance_moves_its_frames_count_to_the_end) {
    FrameList list({{"AAAA", "1"}, {"AAAA", "2"}, {"AAAA", "3"}, {"BBBB", "4"}});
    ASSERT_EQ(list.TagsInFrame(1), 3);
    list.RemoveTag("AAAA", 1);
    EXPECT_EQ(list.TagsInFrame(1), 1);
    EXPECT_EQ(list.TagsInFrame(2), 2);
}

// Removing an instance of AAAA renumbers BBBB, and its first text is lost.
TEST(FrameList, A_removed_instance_leaves_the_number_of_a_missing_text_free) {
    for (const Long number : {1, 2}) {
        const bool first = number == 1;
        FrameList list(
            {{"AAAA", "1"}, {first ? "AAAA" : "BBBB", "2"}, {first ? "BBBB" : "AAAA", "3"}});
        list.RemoveTag("AAAA", number);
        list.AddTag("BBBB", "x");
        list.AddTag("BBBB", "y");
        list.RemoveTag("BBBB", 3);
        EXPECT_EQ(list.TagsInFrame("BBBB"), 2) << number;
        EXPECT_EQ(FailureOf([&] { list.FrameText("BBBB", 1); }), failure::InvalidProcedureCall)
            << number;
        EXPECT_EQ(list.FrameText("BBBB", 2), "BBBB") << number;
    }
}

TEST(FrameList, The_first_or_last_instance_can_be_removed_until_none_is_left) {
    for (const Long number : {1, 3}) {
        FrameList list({{"TIT2", "a"}, {"TIT2", "b"}, {"TIT2", "c"}});
        list.RemoveTag("TIT2", number);
        EXPECT_EQ(list.FrameText("TIT2", 1), number == 1 ? "b" : "a");
        EXPECT_EQ(list.FrameText("TIT2", 2), number == 1 ? "c" : "b");
        list.RemoveTag("TIT2", 2);
        list.RemoveTag("TIT2", 1);
        EXPECT_EQ(list.FrameCount(), 0);
        EXPECT_EQ(list.TagsInFrame("TIT2"), 0);
    }
}

TEST(FrameList, An_instance_that_is_not_there_cannot_be_removed) {
    FrameList list({{"TIT2", "a"}, {"TPE1", "b"}});
    EXPECT_EQ(FailureOf([&] { list.RemoveTag("TIT2", 2); }), failure::InvalidProcedureCall);
    EXPECT_EQ(FailureOf([&] { list.RemoveTag("TIT2", 0); }), failure::InvalidProcedureCall);
    EXPECT_EQ(FailureOf([&] { list.RemoveTag("TALB", 1); }), failure::InvalidProcedureCall);
    EXPECT_EQ(list.FrameCount(), 2);
    EXPECT_EQ(list.FrameText("TPE1", 1), "b");
}

TEST(FrameList, An_instance_whose_count_is_gone_takes_its_frame_along) {
    FrameList list({{"AAAA", "1"}, {"BBBB", "2"}, {"AAAA", "3"}});
    list.RemoveFrame(1);
    list.RemoveTag("BBBB", 1);
    EXPECT_EQ(list.FrameCount(), 0);
    EXPECT_EQ(FailureOf([&] { list.FrameText("BBBB", 1); }), failure::InvalidProcedureCall);
}

TEST(FrameList, An_instance_beyond_a_count_of_1_takes_the_frame_along_and_leaves_the_other_texts) {
    FrameList list = WithTextsBehind();
    EXPECT_EQ(FailureOf([&] { list.AddTag("BBBB", ""); }), failure::KeyAlreadyThere);
    list.RemoveTag("BBBB", 2);
    EXPECT_EQ(list.FrameCount(), 0);
    EXPECT_EQ(list.TagsInFrame("BBBB"), 0);
    EXPECT_EQ(list.FrameText("BBBB", 1), "b1");
    EXPECT_EQ(list.FrameText("BBBB", 3), "b3");
}

TEST(FrameList, A_removed_instance_leaves_as_many_texts_as_the_count_reaches) {
    for (const Long number : {1, 3}) {
        FrameList list = WithTextsBehind();
        for (int count = 1; count <= 2; ++count)
            EXPECT_EQ(FailureOf([&] { list.AddTag("BBBB", ""); }), failure::KeyAlreadyThere);
        list.RemoveTag("BBBB", number);
        EXPECT_EQ(IdsOf(list), Texts{"BBBB"});
        EXPECT_EQ(list.TagsInFrame("BBBB"), 1);
        EXPECT_EQ(list.FrameText("BBBB", 1), number == 1 ? "b2" : "b1");
        const Long why = FailureOf([&] { EXPECT_EQ(list.FrameText("BBBB", 2), "b2"); });
        EXPECT_EQ(why, number == 1 ? failure::InvalidProcedureCall : 0);
    }
}

TEST(FrameList, Ten_thousand_frames_go_by_position_one_by_one) {
    std::vector<TagFrame> frames;
    for (int i = 0; i < 10000; ++i) frames.push_back({std::to_string(10000 + i), "x"});
    FrameList list(std::move(frames));
    while (list.FrameCount() > 1) list.RemoveFrame(list.FrameCount() / 2);
    EXPECT_EQ(IdsOf(list), Texts{"19999"});
}

}  // namespace tavel::test
