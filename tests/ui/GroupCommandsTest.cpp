#include "core/PublicStuff.h"
#include "library/Groups.h"
#include "ui/support/MainWindow.h"
#include "ui/support/Questions.h"

namespace tavel::test {

namespace {

using Ids = std::vector<std::string>;

class GroupCommandsTest : public MainWindowTest {
  protected:
    GroupCommandsTest() {
        AddPhotosWithFiles();
        for (const char* name : {"a", "b", "c", "d"}) {
            AddVideo(std::string("vd_") + name, std::string("Film ") + name);
            AddMusic(std::string("mu_") + name, std::string("Song ") + name, "Singer");
        }
    }

    void Expect(const QString& question, MsgBoxAnswer answer) {
        prompts.ExpectMsgBox(question, ButtonsOf(question), answer, deleteTitle);
    }
    void ExpectName(const char* answer) {
        prompts.ExpectInputBox(QStringLiteral("What would you like to call your new group?"),
                               QStringLiteral("Name Group"), QStringLiteral("New Group"),
                               QString::fromUtf8(answer));
    }
};

}  // namespace

TEST_F(GroupCommandsTest, each_Create_Group_command_makes_a_group_of_its_type) {
    Open();
    ClickNode("photoall");
    ClickRow(1);
    ClickRow(2, Qt::ShiftModifier);
    RightClickRow(2);
    ExpectName("Album");
    Pick({"mnuRMB", "mnuPhotoGroup", "mnuPhotoAlbumGroup"});
    EXPECT_TRUE(grdItems().Selected(1) && grdItems().Selected(2));
    RightClickRow(2);
    ExpectName("Weekly");
    Pick({"mnuRMB", "mnuPhotoGroup", "mnuPhotoMagazineGroup"});
    ClickNode("musicall");
    RightClickRow(1);
    ExpectName("Hits");
    Pick({"mnuRMB", "mnuMusicGroup"});
    EXPECT_EQ(colPhotoAlbum.Item(1).sName, "Album");
    EXPECT_EQ(Members(colPhotoAlbum.Item(1)), "ph_a ph_b ");
    EXPECT_EQ(colMagazine.Item(1).sName, "Weekly");
    EXPECT_EQ(Members(colMagazine.Item(1)), "ph_a ph_b ");
    EXPECT_EQ(colPlaylist.Item(1).sName, "Hits");
    EXPECT_EQ(Members(colPlaylist.Item(1)), "mu_a ");
    EXPECT_EQ(TextOf(trvCat().Node(colPhotoAlbum.Item(1).sDBID)), "Album");
    EXPECT_EQ(RowsOf(grdItems()), "Song a|Song b|Song c|Song d");
    EXPECT_FALSE(bDBChanged);
}

TEST_F(GroupCommandsTest, four_selected_videos_make_a_series_of_four_in_row_order) {
    Open();
    ClickNode("videoall");
    ClickRow(4);
    ClickRow(1, Qt::ShiftModifier);
    RightClickRow(2);
    ExpectName("  Season one");
    Pick({"mnuRMB", "mnuVideoGroup"});
    EXPECT_EQ(colVidSeries.Item(1).sName, "  Season one");
    EXPECT_EQ(Members(colVidSeries.Item(1)), "vd_a vd_b vd_c vd_d ");
}

TEST_F(GroupCommandsTest, an_empty_name_makes_no_group) {
    Open();
    ClickNode("videoall");
    for (const char* name : {"   ", ""}) {
        RightClickRow(1);
        ExpectName(name);
        Pick({"mnuRMB", "mnuVideoGroup"});
    }
    EXPECT_EQ(colVidSeries.Count(), 0);
}

TEST_F(GroupCommandsTest, a_group_of_no_selected_row_is_named_and_then_fails) {
    Open();
    ClickNode("videoall");
    RightClickRow(1);
    grdItems().clearSelection();
    ExpectName("Season one");
    EXPECT_EQ(FatalOf([&] { Pick({"mnuRMB", "mnuVideoGroup"}); }), failure::InvalidProcedureCall);
}

TEST_F(GroupCommandsTest, Remove_From_Group_asks_nothing_and_takes_the_row_out) {
    AddMagazine("ma_a", {"ph_a", "ph_b", "ph_c"});
    Open();
    ClickNode("ma_a");
    RightClickRow(2);
    Pick({"mnuRMB", "mnuRemFromGroup"});
    EXPECT_EQ(RowsOf(grdItems()), "a|c");
    EXPECT_EQ(Members(colMagazine.Item("ma_a")), "ph_a ph_c ");
    EXPECT_EQ(colPhoto.Item("ph_b").iNoGroups, 0);
    EXPECT_TRUE(colPhoto.Has("ph_b"));
    EXPECT_TRUE(FileIsThere("b"));
    EXPECT_EQ(Main().sSelected, Ids{"ph_b"});
    EXPECT_FALSE(bDBChanged);
}

TEST_F(GroupCommandsTest, Remove_From_Group_takes_one_of_several_selected_rows) {
    AddMagazine("ma_a", {"ph_a", "ph_b", "ph_c"});
    Open();
    ClickNode("ma_a");
    ClickRow(1);
    ClickRow(3, Qt::ShiftModifier);
    RightClickRow(2);
    Pick({"mnuRMB", "mnuRemFromGroup"});
    EXPECT_EQ(RowsOf(grdItems()), "a|c");
    EXPECT_EQ(Members(colMagazine.Item("ma_a")), "ph_a ph_c ");
}

TEST_F(GroupCommandsTest, Remove_From_Group_goes_from_the_first_id_to_the_last) {
    AddMagazine("ma_a", {"ph_a", "ph_b", "ph_c"});
    frmMain& window = Open();
    ClickNode("ma_a");
    RightClickRow(2);
    window.sSelected = {"ph_a", "ph_none"};
    EXPECT_EQ(FatalOf([&] { Pick({"mnuRMB", "mnuRemFromGroup"}); }), failure::InvalidProcedureCall);
    EXPECT_EQ(RowsOf(grdItems()), "b|c");
    EXPECT_EQ(colPhoto.Item("ph_a").iNoGroups, 0);
}

TEST_F(GroupCommandsTest, Remove_From_Group_goes_by_the_selected_node_whatever_the_list_shows) {
    AddMagazine("ma_a", {"ph_a", "ph_b"});
    AddMagazine("ma_b", {"ph_a", "ph_c"});
    Open();
    ClickNode("ma_a");
    RightClickNode("ma_b");
    RightClickRow(1);
    Pick({"mnuRMB", "mnuRemFromGroup"});
    EXPECT_EQ(Members(colMagazine.Item("ma_a")), "ph_a ph_b ");
    EXPECT_EQ(Members(colMagazine.Item("ma_b")), "ph_c ");
    EXPECT_EQ(RowsOf(grdItems()), "b");
}

TEST_F(GroupCommandsTest, groups_of_every_kind_lose_a_member_and_are_deleted) {
    AddMagazine("ma_a", {"ph_a"});
    AddAlbum("pa_a", {"ph_a"});
    AddSeries("vs_a", {"vd_a"});
    AddPlaylist("pl_", {"mu_a"});
    Open();
    const struct {
        const char* parent;
        const char* id;
        MediaType type;
    } groups[] = {{"magazines", "ma_a", mtMagazine},
                  {"photoalbums", "pa_a", mtPhotoAlbum},
                  {"videoseries", "vs_a", mtVidSeries},
                  {"playlists", "pl_", mtPlaylist}};
    for (const auto& group : groups) {
        ClickNode(group.id);
        RightClickRow(1);
        Pick({"mnuRMB", "mnuRemFromGroup"});
        EXPECT_EQ(grdItems().Count(), 0) << group.id;
        EXPECT_EQ(GroupOf(group.type, group.id).Count(), 0) << group.id;
        ClickNode(group.parent);
        RightClickRow(1);
        Expect(theGroup, MsgBoxAnswer::Yes);
        Pick({"mnuRMB", "mnuDelGroup"});
        EXPECT_EQ(grdItems().Count(), 0) << group.id;
        EXPECT_EQ(trvCat().Find(group.id), nullptr) << group.id;
    }
}

TEST_F(GroupCommandsTest, Delete_Group_of_the_list_removes_the_group_its_row_and_its_node) {
    AddMagazine("ma_a", {"ph_a"});
    AddMagazine("ma_b", {"ph_a", "ph_b"});
    Open();
    ClickNode("magazines");
    RightClickRow(2);
    Expect(theGroup, MsgBoxAnswer::No);
    Pick({"mnuRMB", "mnuDelGroup"});
    EXPECT_EQ(colMagazine.Count(), 2);
    RightClickRow(2);
    Expect(theGroup, MsgBoxAnswer::Yes);
    Pick({"mnuRMB", "mnuDelGroup"});
    EXPECT_EQ(RowsOf(grdItems()), "Group ma_a");
    EXPECT_FALSE(colMagazine.Has("ma_b"));
    EXPECT_EQ(trvCat().Find("ma_b"), nullptr);
    EXPECT_EQ(colPhoto.Count(), 4);
    EXPECT_EQ(Main().sSelected, Ids{"ma_b"});
}

TEST_F(GroupCommandsTest, Delete_Group_of_the_list_takes_the_current_row_alone) {
    for (const char* id : {"ma_a", "ma_b", "ma_c"}) AddMagazine(id, {});
    frmMain& window = Open();
    ClickNode("magazines");
    ClickRow(1);
    ClickRow(3, Qt::ShiftModifier);
    RightClickRow(2);
    window.sSelected = {"ma_c"};
    Expect(theGroup, MsgBoxAnswer::Yes);
    Pick({"mnuRMB", "mnuDelGroup"});
    EXPECT_EQ(RowsOf(grdItems()), "Group ma_a|Group ma_c");
    EXPECT_EQ(colMagazine.Count(), 2);
    EXPECT_FALSE(colMagazine.Has("ma_b"));
}

TEST_F(GroupCommandsTest, Delete_Group_on_a_member_after_a_jump_removes_its_record_and_no_file) {
    AddMagazine("ma_a", {"ph_a", "ph_b"});
    Open();
    ClickNode("magazines");
    DoubleClickRow(1);
    RightClickRow(2);
    Expect(theGroup, MsgBoxAnswer::Yes);
    Pick({"mnuRMB", "mnuDelGroup"});
    EXPECT_EQ(RowsOf(grdItems()), "a");
    EXPECT_FALSE(colPhoto.Has("ph_b"));
    EXPECT_TRUE(FileIsThere("b"));
    EXPECT_EQ(Members(colMagazine.Item("ma_a")), "ph_a ");
}

TEST_F(GroupCommandsTest, Delete_Group_of_the_tree_takes_the_lists_current_row_whatever_it_is) {
    AddMagazine("ma_a", {"ph_a"});
    Open();
    ClickNode("musicall");
    ClickRow(3);
    RightClickNode("ma_a");
    Expect(theGroup, MsgBoxAnswer::No);
    Pick({"mnuCats", "mnuDelGroup_Cat"});
    EXPECT_TRUE(colMagazine.Has("ma_a"));
    EXPECT_NE(trvCat().Find("ma_a"), nullptr);
    EXPECT_EQ(grdItems().Count(), 4);
    RightClickNode("ma_a");
    Expect(theGroup, MsgBoxAnswer::Yes);
    Pick({"mnuCats", "mnuDelGroup_Cat"});
    EXPECT_FALSE(colMagazine.Has("ma_a"));
    EXPECT_EQ(trvCat().Find("ma_a"), nullptr);
    EXPECT_EQ(trvCat().SelectedKey(), "master");
    EXPECT_EQ(RowsOf(grdItems()), "Song a|Song b|Song d");
    EXPECT_TRUE(colMusic.Has("mu_c"));
    EXPECT_EQ(Main().sSelected, Ids{"mu_c"});
    ClickNode("musicall");
    EXPECT_EQ(RowsOf(grdItems()), "Song a|Song b|Song c|Song d");
}

TEST_F(GroupCommandsTest, Delete_Group_of_the_tree_leaves_the_groups_other_members_listed) {
    AddMagazine("ma_a", {"ph_a", "ph_b"});
    Open();
    ClickNode("ma_a");
    RightClickNode("ma_a");
    Expect(theGroup, MsgBoxAnswer::Yes);
    Pick({"mnuCats", "mnuDelGroup_Cat"});
    EXPECT_EQ(RowsOf(grdItems()), "b");
    EXPECT_EQ(colPhoto.Count(), 4);
}

TEST_F(GroupCommandsTest, Delete_Group_of_the_tree_fails_over_an_empty_list_with_the_group_gone) {
    AddMagazine("ma_a", {"ph_a"});
    Open();
    RightClickNode("ma_a");
    Expect(theGroup, MsgBoxAnswer::Yes);
    EXPECT_EQ(FatalOf([&] { Pick({"mnuCats", "mnuDelGroup_Cat"}); }), failure::ObjectNotSet);
    EXPECT_FALSE(colMagazine.Has("ma_a"));
    EXPECT_NE(trvCat().Find("ma_a"), nullptr);  // not refreshed
}

}  // namespace tavel::test
