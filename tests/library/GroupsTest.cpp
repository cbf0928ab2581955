#include "library/Groups.h"
#include "library/Identifiers.h"
#include "library/LibraryFixture.h"
#include "platform/Failure.h"

namespace tavel::test {
namespace {

// Each type of group with the type of its members.
struct Kind {
    MediaType group;
    std::string a, b, c;  // ids of items of its class
};

const Kind Kinds[] = {{mtMagazine, "ph_a", "ph_b", "ph_c"},
                      {mtPhotoAlbum, "ph_a", "ph_b", "ph_c"},
                      {mtVidSeries, "vd_a", "vd_b", "vd_c"},
                      {mtPlaylist, "mu_a", "mu_b", "mu_c"}};

class Groups : public LibraryTest {
  protected:
    Groups() {
        for (const char* sID : {"ph_a", "ph_b", "ph_c", "ph_d"}) Give(colPhoto, sID);
        for (const char* sID : {"vd_a", "vd_b", "vd_c"}) Give(colVideo, sID);
        for (const char* sID : {"mu_a", "mu_b", "mu_c"}) Give(colMusic, sID);
    }

    static Texts Members(const std::string& sGroupID) {
        return MembersOf(GroupOf(static_cast<MediaType>(GetDBIDType(sGroupID)), sGroupID));
    }

    // Its two ids, in every collection of items, and nothing else.
    static void GiveItemsAlone(const Kind& kind) {
        ReleaseCollections();
        for (const std::string& sID : {kind.a, kind.b}) {
            Give(colPhoto, sID);
            Give(colVideo, sID);
            Give(colMusic, sID);
        }
    }

    static Texts GroupsOfItem(const std::string& sItemID) {
        return GroupsOf(ItemOf(static_cast<MediaType>(GetDBIDType(sItemID)), sItemID));
    }
};

TEST_F(Groups, Making_one_links_both_sides) {
    for (const Kind& kind : Kinds) {
        GiveItemsAlone(kind);
        windows.calls.clear();
        const std::string sID = MakeGroup({kind.b, kind.a}, "Summer", kind.group);
        EXPECT_EQ(GetDBIDType(sID), kind.group);
        const Group& group = GroupOf(kind.group, sID);
        EXPECT_EQ(group.sName, "Summer");
        EXPECT_EQ(group.sDBID, sID);
        EXPECT_EQ(group.iSize, 0);
        EXPECT_EQ(MembersOf(group), (Texts{kind.b, kind.a}));
        EXPECT_EQ(GroupsOfItem(kind.a), Texts{sID});
        EXPECT_EQ(GroupsOfItem(kind.b), Texts{sID});
        EXPECT_EQ(windows.calls, Calls{"RefreshCats"});
    }
    EXPECT_FALSE(bDBChanged);
}

TEST_F(Groups, Making_one_sets_the_working_reference) {
    for (const Kind& kind : Kinds) {
        const std::string sID = MakeGroup({kind.a}, "Summer", kind.group);
        const Group* current[] = {curMagazine, curPhotoAlbum, curVidSeries, curPlaylist};
        EXPECT_EQ(current[&kind - Kinds], &GroupOf(kind.group, sID)) << kind.group;
    }
}

TEST_F(Groups, Making_one_refreshes_the_tree_behind_the_links) {
    class Tree : public Standing<CategoryTree> {
      public:
        void RefreshCats() override {
            links = MembersOf(colMagazine.Item(1)).back() + " " +
                    std::to_string(colPhoto.Item("ph_b").iNoGroups);
        }
        std::string links;
    } tree;
    MakeGroup({"ph_a", "ph_b"}, "Summer", mtMagazine);
    EXPECT_EQ(tree.links, "ph_b 1");
}

TEST_F(Groups, One_of_one_item_has_one_entry) {
    const Magazine& magazine = colMagazine.Item(MakeGroup({"ph_a"}, "Summer", mtMagazine));
    EXPECT_EQ(magazine.iPages, 1);
    EXPECT_EQ(magazine.Get_sPageID(0), "ph_a");
    EXPECT_EQ(FailureOf([&] { magazine.Get_sPageID(1); }), failure::SubscriptOutOfRange);
    EXPECT_EQ(FailureOf([] { colPhoto.Item("ph_a").Get_sGroups(1); }),
              failure::SubscriptOutOfRange);
}

TEST_F(Groups, An_item_keeps_its_groups_in_the_order_of_their_making) {
    const std::string sFirst = MakeGroup({"ph_a"}, "First", mtMagazine);
    const std::string sSecond = MakeGroup({"ph_a"}, "Second", mtPhotoAlbum);
    EXPECT_EQ(GroupsOfItem("ph_a"), (Texts{sFirst, sSecond}));
}

TEST_F(Groups, Making_one_does_not_look_for_an_id_that_comes_twice) {
    const std::string sID = MakeGroup({"ph_a", "ph_a"}, "Summer", mtMagazine);
    EXPECT_EQ(Members(sID), (Texts{"ph_a", "ph_a"}));
    EXPECT_EQ(GroupsOfItem("ph_a"), (Texts{sID, sID}));
}

TEST_F(Groups, A_second_playlist_fails) {
    EXPECT_EQ(MakeGroup({"mu_a"}, "One", mtPlaylist), "pl_");
    EXPECT_EQ(FailureOf([] { MakeGroup({"mu_b"}, "Two", mtPlaylist); }), failure::KeyAlreadyThere);
    EXPECT_EQ(GroupsOfItem("mu_b"), Texts{});
}

TEST_F(Groups, Making_one_of_an_item_that_is_not_there_fails) {
    EXPECT_EQ(FailureOf([] {
                  MakeGroup({"ph_a", "ph_x"}, "Summer", mtMagazine);
              }),
              failure::InvalidProcedureCall);
    EXPECT_EQ(FailureOf([] { MakeGroup({""}, "Summer", mtMagazine); }),
              failure::InvalidProcedureCall);
    EXPECT_EQ(FailureOf([] { MakeGroup({}, "Summer", mtMagazine); }), failure::SubscriptOutOfRange);
}

TEST_F(Groups, Making_one_of_another_type_only_makes_an_id_and_refreshes) {
    EXPECT_EQ(FailureOf([] { MakeGroup({"ph_a"}, "Summer", mtPhoto); }), failure::FileNotFound);
    EXPECT_EQ(windows.calls, Calls{});
    const std::string sPath = Write("abcde.jpg", "x");
    EXPECT_EQ(GetDBIDType(MakeGroup({"ph_a"}, sPath, mtVideo)), mtVideo);
    EXPECT_EQ(windows.calls, Calls{"RefreshCats"});
    EXPECT_EQ(MakeGroup({"ph_a"}, "Summer", 6), "_");
    EXPECT_EQ(windows.calls, (Calls{"RefreshCats", "RefreshCats"}));
    EXPECT_EQ(GroupsOfItem("ph_a"), Texts{});
    EXPECT_EQ(colMagazine.Count() + colPhotoAlbum.Count(), 0);
}

TEST_F(Groups, Adding_puts_the_new_ones_last_and_links_them) {
    for (const Kind& kind : Kinds) {
        const std::string sID = MakeGroup({kind.a}, "Summer", kind.group);
        windows.calls.clear();
        AddToGroup({kind.b, kind.c}, sID);
        EXPECT_EQ(windows.calls, Calls{});
        EXPECT_EQ(Members(sID), (Texts{kind.a, kind.b, kind.c}));
        EXPECT_EQ(GroupsOfItem(kind.c).back(), sID);
    }
    EXPECT_FALSE(bDBChanged);
}

TEST_F(Groups, Adding_skips_members_and_ids_that_come_twice) {
    const std::string sID = MakeGroup({"ph_a", "ph_b"}, "Summer", mtMagazine);
    AddToGroup({"ph_b", "ph_c", "ph_a", "ph_c", "ph_d"}, sID);
    EXPECT_EQ(Members(sID), (Texts{"ph_a", "ph_b", "ph_c", "ph_d"}));
    EXPECT_EQ(GroupsOfItem("ph_b"), Texts{sID});
    EXPECT_EQ(GroupsOfItem("ph_c"), Texts{sID});
    const Magazine& magazine = colMagazine.Item(sID);
    EXPECT_EQ(FailureOf([&] { magazine.Get_sPageID(4); }), failure::SubscriptOutOfRange);
}

TEST_F(Groups, Adding_members_alone_changes_nothing) {
    const std::string sID = MakeGroup({"ph_a", "ph_b"}, "Summer", mtMagazine);
    AddToGroup({"ph_b", "ph_a"}, sID);
    EXPECT_EQ(Members(sID), (Texts{"ph_a", "ph_b"}));
    const Magazine& magazine = colMagazine.Item(sID);
    EXPECT_EQ(FailureOf([&] { magazine.Get_sPageID(2); }), failure::SubscriptOutOfRange);
}

TEST_F(Groups, An_id_in_another_case_is_no_member_and_finds_its_item) {
    const std::string sID = MakeGroup({"ph_a"}, "Summer", mtMagazine);
    EXPECT_FALSE(IsInGroup("PH_A", sID));
    AddToGroup({"PH_A"}, sID);
    EXPECT_EQ(Members(sID), (Texts{"ph_a", "PH_A"}));
    EXPECT_EQ(GroupsOfItem("ph_a"), (Texts{sID, sID}));
}

TEST_F(Groups, Adding_to_what_is_no_group_does_nothing) {
    for (const char* sID : {"ph_b", "-1", "", "xx_b"}) AddToGroup({"ph_a"}, sID);
    EXPECT_EQ(GroupsOfItem("ph_a"), Texts{});
}

TEST_F(Groups, Adding_fails_on_ids_that_lead_nowhere) {
    const std::string sID = MakeGroup({"ph_a"}, "Summer", mtMagazine);
    EXPECT_EQ(FailureOf([&] { AddToGroup({"ph_x"}, sID); }), failure::InvalidProcedureCall);
    EXPECT_EQ(FailureOf([] { AddToGroup({"ph_a"}, "ma_x"); }), failure::InvalidProcedureCall);
}

TEST_F(Groups, Adding_beyond_an_Integer_of_members_overflows) {
    const std::string sID = MakeGroup({"ph_a"}, "Summer", mtMagazine);
    EXPECT_EQ(FailureOf([&] { AddToGroup(Texts(32767, "ph_b"), sID); }), failure::Overflow);
}

TEST_F(Groups, IsInGroup_looks_at_the_members_up_to_the_count) {
    for (const Kind& kind : Kinds) {
        const std::string sID = MakeGroup({kind.a, kind.b}, "Summer", kind.group);
        EXPECT_TRUE(IsInGroup(kind.b, sID));
        EXPECT_FALSE(IsInGroup(kind.c, sID));
        RemoveFromGroup(kind.b, sID);
        RemoveFromGroup(kind.a, sID);  // stays in the array behind the count
        EXPECT_FALSE(IsInGroup(kind.a, sID));
    }
    EXPECT_FALSE(IsInGroup("ph_a", "ph_a"));
    EXPECT_FALSE(IsInGroup("ph_a", "-1"));
    EXPECT_EQ(FailureOf([] { IsInGroup("ph_a", "ma_x"); }), failure::InvalidProcedureCall);
}

TEST_F(Groups, Removing_keeps_the_order_of_the_rest_on_both_sides) {
    const struct {
        std::string removed;
        Texts rest;
    } rows[] = {{"ph_a", {"ph_b", "ph_c"}}, {"ph_b", {"ph_a", "ph_c"}}, {"ph_c", {"ph_a", "ph_b"}}};
    for (const auto& row : rows) {
        const std::string sID = MakeGroup({"ph_a", "ph_b", "ph_c"}, "Summer", mtMagazine);
        RemoveFromGroup(row.removed, sID);
        EXPECT_EQ(Members(sID), row.rest);
        EXPECT_EQ(FailureOf([&] { colMagazine.Item(sID).Get_sPageID(2); }),
                  failure::SubscriptOutOfRange);
    }
    EXPECT_FALSE(bDBChanged);
}

TEST_F(Groups, Removing_an_item_from_one_of_its_groups_leaves_the_others_in_order) {
    const std::string sFirst = MakeGroup({"ph_a", "ph_b"}, "First", mtMagazine);
    const std::string sSecond = MakeGroup({"ph_a", "ph_b"}, "Second", mtPhotoAlbum);
    const std::string sThird = MakeGroup({"ph_a", "ph_b"}, "Third", mtMagazine);
    RemoveFromGroup("ph_a", sSecond);
    EXPECT_EQ(GroupsOfItem("ph_a"), (Texts{sFirst, sThird}));
    EXPECT_EQ(GroupsOfItem("ph_b"), (Texts{sFirst, sSecond, sThird}));
}

TEST_F(Groups, Removing_works_for_each_kind) {
    for (const Kind& kind : Kinds) {
        GiveItemsAlone(kind);
        const std::string sID = MakeGroup({kind.a, kind.b}, "Summer", kind.group);
        windows.calls.clear();
        RemoveFromGroup(kind.a, sID);
        EXPECT_EQ(Members(sID), Texts{kind.b});
        EXPECT_EQ(GroupsOfItem(kind.a), Texts{});
        EXPECT_EQ(GroupsOfItem(kind.b), Texts{sID});
        RemoveFromGroup(kind.b, sID);
        const Group& group = GroupOf(kind.group, sID);
        EXPECT_EQ(group.Count(), 0);
        EXPECT_EQ(group.Members().Get(0), kind.b);
        EXPECT_EQ(windows.calls, Calls{});
    }
}

TEST_F(Groups, Removing_takes_the_last_of_equal_entries_on_both_sides) {
    const std::string sID = MakeGroup({"ph_a", "ph_b", "ph_a", "ph_c"}, "Summer", mtMagazine);
    RemoveFromGroup("ph_a", sID);
    EXPECT_EQ(Members(sID), (Texts{"ph_a", "ph_b", "ph_c"}));
    const std::string sOther = MakeGroup({"ph_a"}, "Other", mtMagazine);
    Photo& photo = colPhoto.Item("ph_a");
    photo.Redim_sGroups(2, true);
    photo.Set_sGroups(2, sID);
    photo.iNoGroups = 3;
    RemoveFromGroup("ph_a", sID);
    EXPECT_EQ(GroupsOfItem("ph_a"), (Texts{sID, sOther}));
}

TEST_F(Groups, Removing_fails_on_ids_that_lead_nowhere) {
    EXPECT_EQ(FailureOf([] { RemoveFromGroup("ph_a", "ma_x"); }), failure::InvalidProcedureCall);
    const std::string sID = MakeGroup({"ph_a", "ph_b"}, "Summer", mtMagazine);
    EXPECT_EQ(FailureOf([&] { RemoveFromGroup("ph_x", sID); }), failure::InvalidProcedureCall);
    EXPECT_EQ(Members(sID), Texts{"ph_b"});
}

TEST_F(Groups, Removing_what_is_no_member_takes_the_first_on_both_sides) {
    const std::string sFirst = MakeGroup({"ph_a", "ph_b"}, "First", mtMagazine);
    const std::string sSecond = MakeGroup({"ph_c"}, "Second", mtMagazine);
    const std::string sThird = MakeGroup({"ph_c"}, "Third", mtMagazine);
    RemoveFromGroup("ph_c", sFirst);
    EXPECT_EQ(Members(sFirst), Texts{"ph_b"});
    EXPECT_EQ(GroupsOfItem("ph_c"), Texts{sThird});
    EXPECT_EQ(GroupsOfItem("ph_a"), Texts{sFirst});
}

TEST_F(Groups, Removing_the_last_member_leaves_its_entry_behind_a_count_of_0) {
    const std::string sID = MakeGroup({"ph_a"}, "Summer", mtMagazine);
    RemoveFromGroup("ph_a", sID);
    const Magazine& magazine = colMagazine.Item(sID);
    EXPECT_EQ(magazine.iPages, 0);
    EXPECT_EQ(magazine.Get_sPageID(0), "ph_a");
    EXPECT_EQ(colPhoto.Item("ph_a").iNoGroups, 0);
    EXPECT_EQ(colPhoto.Item("ph_a").Get_sGroups(0), sID);
}

TEST_F(Groups, An_emptied_group_takes_in_others_and_skips_its_old_item_while_that_entry_stands) {
    const struct {
        Texts added;
        Texts members;
    } rows[] = {{{"ph_b"}, {"ph_b"}},
                {{"ph_b", "ph_c"}, {"ph_b", "ph_c"}},
                {{"ph_a", "ph_b"}, {"ph_b"}},
                {{"ph_b", "ph_a"}, {"ph_b", "ph_a"}}};
    for (const auto& row : rows) {
        const std::string sID = MakeGroup({"ph_a"}, "Summer", mtMagazine);
        RemoveFromGroup("ph_a", sID);
        AddToGroup(row.added, sID);
        EXPECT_EQ(Members(sID), row.members);
        EXPECT_EQ(GroupsOfItem("ph_b").back(), sID);
    }
}

TEST_F(Groups, An_emptied_group_fails_on_the_item_that_it_held_last) {
    const std::string sID = MakeGroup({"ph_a"}, "Summer", mtMagazine);
    RemoveFromGroup("ph_a", sID);
    EXPECT_EQ(FailureOf([&] { AddToGroup({"ph_a"}, sID); }), failure::SubscriptOutOfRange);
}

TEST_F(Groups, Adding_the_empty_id_fails_in_an_emptied_group_and_is_passed_over_in_others) {
    const std::string sID = MakeGroup({"ph_a"}, "Summer", mtMagazine);
    AddToGroup({"", "ph_b"}, sID);
    EXPECT_EQ(Members(sID), (Texts{"ph_a", "ph_b"}));
    RemoveFromGroup("ph_a", sID);
    RemoveFromGroup("ph_b", sID);
    EXPECT_EQ(FailureOf([&] { AddToGroup({""}, sID); }), failure::InvalidProcedureCall);
}

TEST_F(Groups, More_members_than_an_Integer_counts_fail) {
    const auto make = [](std::size_t count) {
        MakeGroup(Texts(count, "ph_a"), "Crowd", mtMagazine);
    };
    EXPECT_EQ(FailureOf([&] { make(32768); }), failure::Overflow);
    EXPECT_EQ(FailureOf([&] { make(65537); }), failure::Overflow);
}

TEST_F(Groups, Removing_from_an_empty_group_fails) {
    const std::string sID = MakeGroup({"ph_a"}, "Summer", mtMagazine);
    RemoveFromGroup("ph_a", sID);
    EXPECT_EQ(FailureOf([&] { RemoveFromGroup("ph_a", sID); }), failure::SubscriptOutOfRange);
}

TEST_F(Groups, Removing_an_item_that_has_no_groups_fails_behind_the_groups_side) {
    const std::string sID = MakeGroup({"ph_a", "ph_b"}, "Summer", mtMagazine);
    EXPECT_EQ(FailureOf([&] { RemoveFromGroup("ph_c", sID); }), failure::SubscriptOutOfRange);
    EXPECT_EQ(Members(sID), Texts{"ph_b"});
}

TEST_F(Groups, Removing_from_what_is_no_group_does_nothing) {
    MakeGroup({"ph_a"}, "Summer", mtMagazine);
    for (const char* sID : {"ph_b", "-1", "", "xx_b"}) RemoveFromGroup("ph_a", sID);
    EXPECT_EQ(GroupsOfItem("ph_a").size(), 1U);
}

TEST_F(Groups, Removing_takes_ids_that_stand_in_the_lists_themselves) {
    const std::string sID = MakeGroup({"ph_a", "ph_b", "ph_c"}, "Summer", mtMagazine);
    RemoveFromGroup(colMagazine.Item(sID).Get_sPageID(0), colPhoto.Item("ph_a").Get_sGroups(0));
    EXPECT_EQ(Members(sID), (Texts{"ph_b", "ph_c"}));
    EXPECT_EQ(GroupsOfItem("ph_a"), Texts{});
    EXPECT_EQ(GroupsOfItem("ph_b"), Texts{sID});
}

}  // namespace
}  // namespace tavel::test
