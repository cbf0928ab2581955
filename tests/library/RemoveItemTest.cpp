#include "library/Groups.h"
#include "library/Identifiers.h"
#include "library/LibraryFixture.h"
#include "platform/Failure.h"

#include <filesystem>

namespace tavel::test {
namespace {

class RemoveItemTest : public LibraryTest {
  protected:
    RemoveItemTest() {
        for (const char* sID : {"ph_a", "ph_b", "ph_c"}) Give(colPhoto, sID);
        for (const char* sID : {"vd_a", "vd_b"}) Give(colVideo, sID);
        for (const char* sID : {"mu_a", "mu_b"}) Give(colMusic, sID);
    }

    static bool Remove(const std::string& sID, bool bDeleteFile = false) {
        RemoveItem(sID, bDeleteFile);
        return bDeleteFile;
    }
    bool IsThere(const std::string& name) const {
        return std::filesystem::exists(temp.HostPath(name));
    }
};

TEST_F(RemoveItemTest, An_item_goes_and_its_file_stays) {
    colPhoto.Item("ph_a").sPath(Write("a.jpg", "x"));
    Remove("ph_a");
    EXPECT_FALSE(colPhoto.Has("ph_a"));
    EXPECT_EQ(colPhoto.Count(), 2);
    EXPECT_TRUE(IsThere("a.jpg"));
    EXPECT_TRUE(bDBChanged);
}

TEST_F(RemoveItemTest, Each_kind_of_item_goes_with_its_file_when_told) {
    colPhoto.Item("ph_a").sPath(Write("a.jpg", "x"));
    colVideo.Item("vd_a").sPath(Write("a.mp4", "x"));
    colVideo.Item("vd_a").sThumbPath = Write("a.THM", "x");
    colMusic.Item("mu_a").sPath(Write("a.mp3", "x"));
    for (const char* sID : {"ph_a", "vd_a", "mu_a"}) EXPECT_TRUE(Remove(sID, true));
    EXPECT_FALSE(IsThere("a.jpg") || IsThere("a.mp4") || IsThere("a.mp3"));
    EXPECT_TRUE(IsThere("a.THM"));
    EXPECT_FALSE(colPhoto.Has("ph_a") || colVideo.Has("vd_a") || colMusic.Has("mu_a"));
}

TEST_F(RemoveItemTest, A_read_only_file_goes_too) {
    colPhoto.Item("ph_a").sPath(Write("a.jpg", "x"));
    std::filesystem::permissions(temp.HostPath("a.jpg"), std::filesystem::perms::owner_read);
    Remove("ph_a", true);
    EXPECT_FALSE(IsThere("a.jpg"));
}

TEST_F(RemoveItemTest, A_file_that_has_gone_fails_behind_the_record) {
    colPhoto.Item("ph_a").sPath(temp.DrivePath("none.jpg"));
    EXPECT_EQ(FailureOf([] { Remove("ph_a", true); }), failure::FileNotFound);
    EXPECT_FALSE(colPhoto.Has("ph_a"));
    EXPECT_FALSE(bDBChanged);
}

TEST_F(RemoveItemTest, An_item_of_one_group_leaves_it) {
    const std::string sID = MakeGroup({"ph_a", "ph_b"}, "Summer", mtMagazine);
    Remove("ph_a");
    EXPECT_EQ(MembersOf(colMagazine.Item(sID)), Texts{"ph_b"});
    Remove("ph_b");
    EXPECT_EQ(colMagazine.Item(sID).iPages, 0);  // an emptied group stays
}

TEST_F(RemoveItemTest, Each_kind_of_item_leaves_its_group_and_goes_with_its_file) {
    const struct {
        const char* sID;
        const char* other;
        MediaType group;
    } rows[] = {{"ph_a", "ph_b", mtPhotoAlbum},
                {"ph_c", "ph_b", mtMagazine},
                {"vd_a", "vd_b", mtVidSeries},
                {"mu_a", "mu_b", mtPlaylist}};
    for (const auto& row : rows) {
        const auto type = static_cast<MediaType>(GetMediaClass(row.group));
        ItemOf(type, row.sID).sPath(Write(row.sID, "x"));
        const std::string sGroupID = MakeGroup({row.sID, row.other}, "Summer", row.group);
        windows.calls.clear();
        EXPECT_TRUE(Remove(row.sID, true));
        EXPECT_EQ(windows.calls, Calls{});
        EXPECT_EQ(MembersOf(GroupOf(row.group, sGroupID)), Texts{row.other});
        EXPECT_EQ(FailureOf([&] { ItemOf(type, row.sID); }), failure::InvalidProcedureCall);
        EXPECT_FALSE(IsThere(row.sID));
    }
}

TEST_F(RemoveItemTest, An_item_whose_group_is_missing_fails_and_stays) {
    Photo& photo = colPhoto.Item("ph_a");
    photo.iNoGroups = 1;
    photo.Redim_sGroups(0, false);
    photo.Set_sGroups(0, "ma_gone");
    EXPECT_EQ(FailureOf([] { Remove("ph_a"); }), failure::InvalidProcedureCall);
    EXPECT_EQ(GroupsOf(colPhoto.Item("ph_a")), Texts{"ma_gone"});
    EXPECT_FALSE(bDBChanged);
}

TEST_F(RemoveItemTest, A_group_whose_member_is_missing_fails_and_stays_without_it) {
    const std::string sID = MakeGroup({"ph_a", "ph_b"}, "Summer", mtMagazine);
    colPhoto.Remove("ph_a");
    bool bDeleteFile = true;
    EXPECT_EQ(FailureOf([&] { RemoveItem(sID, bDeleteFile); }), failure::InvalidProcedureCall);
    EXPECT_EQ(MembersOf(colMagazine.Item(sID)), Texts{"ph_b"});
    EXPECT_TRUE(bDeleteFile);
    EXPECT_FALSE(bDBChanged);
}

TEST_F(RemoveItemTest, An_item_of_two_groups_fails_with_the_first_unlinked) {
    const std::string sFirst = MakeGroup({"ph_a", "ph_b"}, "First", mtMagazine);
    const std::string sSecond = MakeGroup({"ph_a", "ph_b"}, "Second", mtMagazine);
    EXPECT_EQ(FailureOf([] { Remove("ph_a"); }), failure::SubscriptOutOfRange);
    EXPECT_EQ(GroupsOf(colPhoto.Item("ph_a")), Texts{sSecond});
    EXPECT_EQ(MembersOf(colMagazine.Item(sFirst)), Texts{"ph_b"});
    EXPECT_EQ(MembersOf(colMagazine.Item(sSecond)), (Texts{"ph_a", "ph_b"}));
    EXPECT_FALSE(bDBChanged);
}

TEST_F(RemoveItemTest, An_item_of_three_groups_loses_two_of_them_before_it_fails) {
    Texts ids;
    for (const char* sName : {"First", "Second", "Third"})
        ids.push_back(MakeGroup({"ph_a", "ph_b"}, sName, mtMagazine));
    EXPECT_EQ(FailureOf([] { Remove("ph_a"); }), failure::SubscriptOutOfRange);
    EXPECT_EQ(GroupsOf(colPhoto.Item("ph_a")), Texts{ids[1]});
}

TEST_F(RemoveItemTest, Groups_that_give_their_first_member_go_cleanly_at_any_size) {
    const struct {
        MediaType type;
        Texts members;
    } rows[] = {{mtMagazine, {"ph_a", "ph_b", "ph_c"}},
                {mtVidSeries, {"vd_a", "vd_b"}},
                {mtPlaylist, {"mu_a", "mu_b"}}};
    for (const auto& row : rows) {
        bDBChanged = false;
        for (const std::string& sItemID : row.members)
            ItemOf(static_cast<MediaType>(GetMediaClass(row.type)), sItemID)
                .sPath(Write(sItemID, "x"));
        const std::string sID = MakeGroup(row.members, "Summer", row.type);
        windows.calls.clear();
        EXPECT_FALSE(Remove(sID, true));
        for (const std::string& sItemID : row.members) EXPECT_TRUE(IsThere(sItemID)) << sItemID;
        EXPECT_EQ(windows.calls, Calls{});
        EXPECT_EQ(FailureOf([&] { GroupOf(row.type, sID); }), failure::InvalidProcedureCall);
        EXPECT_TRUE(bDBChanged);
    }
    for (const char* sID : {"ph_a", "ph_b", "ph_c"}) EXPECT_EQ(colPhoto.Item(sID).iNoGroups, 0);
    for (const char* sID : {"vd_a", "vd_b"}) EXPECT_EQ(colVideo.Item(sID).iNoGroups, 0);
    for (const char* sID : {"mu_a", "mu_b"}) EXPECT_EQ(colMusic.Item(sID).iNoGroups, 0);
}

TEST_F(RemoveItemTest, A_groups_removal_deletes_no_file_and_tells_its_caller) {
    colPhoto.Item("ph_a").sPath(Write("a.jpg", "x"));
    const std::string sID = MakeGroup({"ph_a"}, "Summer", mtPhotoAlbum);
    EXPECT_FALSE(Remove(sID, true));
    EXPECT_TRUE(IsThere("a.jpg"));
    EXPECT_TRUE(colPhoto.Has("ph_a"));
}

TEST_F(RemoveItemTest, Only_the_links_to_the_removed_group_go) {
    const std::string sFirst = MakeGroup({"ph_a"}, "First", mtMagazine);
    const std::string sSecond = MakeGroup({"ph_a"}, "Second", mtMagazine);
    Remove(sFirst);
    EXPECT_EQ(GroupsOf(colPhoto.Item("ph_a")), Texts{sSecond});
}

TEST_F(RemoveItemTest, An_album_of_one_page_goes_cleanly) {
    const std::string sID = MakeGroup({"ph_a"}, "Album", mtPhotoAlbum);
    Remove(sID);
    EXPECT_EQ(colPhotoAlbum.Count(), 0);
    EXPECT_EQ(colPhoto.Item("ph_a").iNoGroups, 0);
}

TEST_F(RemoveItemTest, An_album_of_two_pages_fails_with_the_first_unlinked) {
    const std::string sID = MakeGroup({"ph_a", "ph_b"}, "Album", mtPhotoAlbum);
    bool bDeleteFile = true;
    EXPECT_EQ(FailureOf([&] { RemoveItem(sID, bDeleteFile); }), failure::SubscriptOutOfRange);
    EXPECT_EQ(MembersOf(colPhotoAlbum.Item(sID)), Texts{"ph_b"});
    EXPECT_EQ(colPhoto.Item("ph_a").iNoGroups, 0);
    EXPECT_FALSE(bDBChanged);
    EXPECT_TRUE(bDeleteFile);
}

TEST_F(RemoveItemTest, An_empty_group_goes) {
    const struct {
        MediaType type;
        const char* member;
    } rows[] = {
        {mtMagazine, "ph_a"}, {mtPhotoAlbum, "ph_a"}, {mtVidSeries, "vd_a"}, {mtPlaylist, "mu_a"}};
    for (const auto& row : rows) {
        const std::string sID = MakeGroup({row.member}, "Summer", row.type);
        RemoveFromGroup(row.member, sID);
        Remove(sID);
        EXPECT_EQ(FailureOf([&] { GroupOf(row.type, sID); }), failure::InvalidProcedureCall);
    }
    EXPECT_TRUE(bDBChanged);
}

TEST_F(RemoveItemTest, A_thumbnail_stays_whatever_goes) {
    colVideo.Item("vd_a").sThumbPath = Write("a.THM", "x");
    const std::string sID = MakeGroup({"vd_a", "vd_b"}, "Series", mtVidSeries);
    RemoveFromGroup("vd_a", sID);
    AddToGroup({"vd_a"}, sID);
    Remove(sID, true);
    EXPECT_TRUE(IsThere("a.THM"));
    EXPECT_EQ(colVideo.Item("vd_a").sThumbPath, temp.DrivePath("a.THM"));
}

TEST_F(RemoveItemTest, A_removed_record_is_no_working_reference_any_more) {
    curPhoto = &colPhoto.Item("ph_a");
    Remove("ph_a");
    EXPECT_EQ(curPhoto, nullptr);
}

TEST_F(RemoveItemTest, An_id_that_leads_nowhere_fails) {
    for (const char* sID : {"ph_x", "ma_x", "pa_x", "vd_x", "vs_x", "mu_x", "pl_", "xx_x"})
        EXPECT_EQ(FailureOf([&] { Remove(sID); }), failure::InvalidProcedureCall) << sID;
    EXPECT_FALSE(bDBChanged);
}

TEST_F(RemoveItemTest, What_is_no_id_removes_nothing_and_marks_the_library_as_changed) {
    Remove("-1");
    EXPECT_EQ(colPhoto.Count(), 3);
    EXPECT_TRUE(bDBChanged);
}

// The Delete key with nothing selected comes here; it is the row that it fails at.
TEST_F(RemoveItemTest, What_is_no_id_has_no_file_to_delete) {
    bool bDeleteFile = true;
    RemoveItem("", bDeleteFile);
    EXPECT_TRUE(bDBChanged);
}

}  // namespace
}  // namespace tavel::test
