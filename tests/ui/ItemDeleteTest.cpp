#include "core/PublicStuff.h"
#include "ui/support/MainWindow.h"
#include "ui/support/Questions.h"

namespace tavel::test {

namespace {

using Ids = std::vector<std::string>;

class ItemDeleteTest : public MainWindowTest {
  protected:
    ItemDeleteTest() { AddPhotosWithFiles(); }

    void Expect(const QString& question, MsgBoxAnswer answer) {
        prompts.ExpectMsgBox(question, ButtonsOf(question), answer, deleteTitle);
    }
    void PressDelete(MsgBoxAnswer answer, Qt::KeyboardModifiers keys = Qt::NoModifier) {
        Expect(fromComputer, answer);
        QTest::keyClick(&grdItems(), Qt::Key_Delete, keys);
    }
    void PickFromDB(MsgBoxAnswer answer) {
        Expect(fromDB, answer);
        Pick({"mnuRMB", "mnuRemoveTop", "mnuRemoveDB"});
    }
    void PickFromComputer(MsgBoxAnswer answer) {
        Expect(fromComputer, answer);
        Pick({"mnuRMB", "mnuRemoveTop", "mnuRemoveComp"});
    }
};

}  // namespace

TEST_F(ItemDeleteTest, the_Delete_key_removes_the_current_item_of_several_with_its_file) {
    Open();
    ClickNode("photoall");
    ClickRow(1);
    ClickRow(3, Qt::ShiftModifier);
    PressDelete(MsgBoxAnswer::Yes);
    EXPECT_EQ(RowsOf(grdItems()), "a|b|d");
    EXPECT_FALSE(colPhoto.Has("ph_c"));
    EXPECT_FALSE(FileIsThere("c"));
    EXPECT_TRUE(FileIsThere("a"));
    EXPECT_TRUE(bDBChanged);
}

TEST_F(ItemDeleteTest, No_to_the_Delete_key_removes_nothing_and_other_keys_ask_nothing) {
    Open();
    ClickNode("photoall");
    ClickRow(1);
    QTest::keyClick(&grdItems(), Qt::Key_Backspace);
    QTest::keyClick(&grdItems(), Qt::Key_X);
    PressDelete(MsgBoxAnswer::No);
    PressDelete(MsgBoxAnswer::No, Qt::ShiftModifier);
    PressDelete(MsgBoxAnswer::No, Qt::ControlModifier);
    EXPECT_EQ(RowsOf(grdItems()), "a|b|c|d");
    EXPECT_EQ(colPhoto.Count(), 4);
}

TEST_F(ItemDeleteTest, the_Delete_key_again_acts_on_the_old_selection_and_fails_at_the_record) {
    Open();
    ClickNode("photoall");
    ClickRow(2);
    PressDelete(MsgBoxAnswer::Yes);
    EXPECT_EQ(Main().sSelected, Ids{"ph_b"});
    EXPECT_EQ(FatalOf([&] { PressDelete(MsgBoxAnswer::Yes); }), failure::InvalidProcedureCall);
    EXPECT_EQ(RowsOf(grdItems()), "a|c|d");
}

TEST_F(ItemDeleteTest, a_click_on_another_row_makes_the_Delete_key_good_again) {
    Open();
    ClickNode("photoall");
    ClickRow(2);
    PressDelete(MsgBoxAnswer::Yes);
    ClickRow(1);
    PressDelete(MsgBoxAnswer::Yes);
    EXPECT_EQ(RowsOf(grdItems()), "c|d");
    EXPECT_EQ(colPhoto.Count(), 2);
}

TEST_F(ItemDeleteTest, the_Delete_key_with_nothing_selected_fails_at_the_row) {
    Open();
    ClickNode("photoall");
    EXPECT_EQ(FatalOf([&] { PressDelete(MsgBoxAnswer::Yes); }), failure::ListElementNotFound);
    EXPECT_EQ(colPhoto.Count(), 4);
}

TEST_F(ItemDeleteTest, the_Delete_key_on_a_groups_row_removes_the_group_and_no_file) {
    AddVideo("vd_a", "Film");
    AddMusic("mu_a", "Song", "Singer");
    AddMagazine("ma_a", {"ph_a", "ph_b"});
    AddAlbum("pa_a", {"ph_c"});
    AddSeries("vs_a", {"vd_a"});
    AddPlaylist("pl_", {"mu_a"});
    Open();
    for (const auto& [node, id] :
         std::initializer_list<std::pair<const char*, const char*>>{{"magazines", "ma_a"},
                                                                    {"photoalbums", "pa_a"},
                                                                    {"videoseries", "vs_a"},
                                                                    {"playlists", "pl_"}}) {
        ClickNode(node);
        ClickRow(1);
        PressDelete(MsgBoxAnswer::Yes);
        EXPECT_EQ(grdItems().Count(), 0) << id;
        EXPECT_NE(trvCat().Find(id), nullptr) << id;  // until the tree is refreshed
    }
    EXPECT_EQ(
        colMagazine.Count() + colPhotoAlbum.Count() + colVidSeries.Count() + colPlaylist.Count(),
        0);
    EXPECT_EQ(colPhoto.Count(), 4);
    EXPECT_EQ(colVideo.Count(), 1);
    EXPECT_EQ(colMusic.Count(), 1);
    for (const char* name : {"a", "b", "c"}) EXPECT_TRUE(FileIsThere(name)) << name;
}

TEST_F(ItemDeleteTest, from_DB_removes_the_current_item_and_keeps_its_file) {
    Open();
    ClickNode("photoall");
    ClickRow(1);
    ClickRow(3, Qt::ShiftModifier);
    RightClickRow(2);
    PickFromDB(MsgBoxAnswer::No);
    EXPECT_EQ(colPhoto.Count(), 4);
    RightClickRow(2);
    PickFromDB(MsgBoxAnswer::Yes);
    EXPECT_EQ(RowsOf(grdItems()), "a|c|d");
    EXPECT_FALSE(colPhoto.Has("ph_b"));
    EXPECT_TRUE(FileIsThere("b"));
    EXPECT_EQ(Main().sSelected, Ids{"ph_b"});
}

TEST_F(ItemDeleteTest,
       from_Computer_removes_the_current_item_with_its_file_and_no_copy_on_a_stick) {
    PlugStick();
    temp.Write("stick/psp/photo/b.jpg", "b");
    Open();
    ClickNode("photoall");
    ClickRow(1);
    ClickRow(3, Qt::ShiftModifier);
    RightClickRow(2);
    PickFromComputer(MsgBoxAnswer::No);
    EXPECT_EQ(colPhoto.Count(), 4);
    EXPECT_TRUE(FileIsThere("b"));
    RightClickRow(2);
    PickFromComputer(MsgBoxAnswer::Yes);
    EXPECT_EQ(RowsOf(grdItems()), "a|c|d");
    EXPECT_FALSE(FileIsThere("b"));
    EXPECT_TRUE(FileIsThere("a"));
    EXPECT_EQ(temp.Read("stick/psp/photo/b.jpg"), "b");
    EXPECT_EQ(Main().sSelected, Ids{"ph_b"});
}

TEST_F(ItemDeleteTest, each_command_goes_from_the_last_id_to_the_first) {
    frmMain& window = Open();
    ClickNode("photoall");
    window.sSelected = {"ph_none", "ph_a"};
    EXPECT_EQ(FatalOf([&] { PressDelete(MsgBoxAnswer::Yes); }), failure::InvalidProcedureCall);
    EXPECT_EQ(RowsOf(grdItems()), "b|c|d");
    EXPECT_EQ(colPhoto.Count(), 3);

    RightClickRow(1);
    window.sSelected = {"ph_none", "ph_b"};
    EXPECT_EQ(FatalOf([&] { PickFromDB(MsgBoxAnswer::Yes); }), failure::InvalidProcedureCall);
    EXPECT_EQ(RowsOf(grdItems()), "c|d");

    RightClickRow(1);
    window.sSelected = {"ph_none", "ph_c"};
    EXPECT_EQ(FatalOf([&] { PickFromComputer(MsgBoxAnswer::Yes); }), failure::InvalidProcedureCall);
    EXPECT_EQ(RowsOf(grdItems()), "d");
}

TEST_F(ItemDeleteTest, a_deletion_does_not_fill_the_list_anew) {
    Open();
    ClickNode("photoall");
    ClickRow(1);
    AddPhoto("ph_e", "e");
    PressDelete(MsgBoxAnswer::Yes);
    EXPECT_EQ(RowsOf(grdItems()), "b|c|d");
}

}  // namespace tavel::test
