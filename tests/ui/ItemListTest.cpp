#include "core/PublicStuff.h"
#include "ui/support/MainWindow.h"
#include "ui/toolkit/Strings.h"

#include <QLabel>
#include <QLineEdit>

namespace tavel::test {

namespace {

const QString deleteTitle = QStringLiteral("Delete Group?");
const QString fromComputer = QStringLiteral(
    "This will remove the file(s) from the DB and from your computer, are you sure?");

class ItemListTest : public MainWindowTest {
  protected:
    // Photos ph_a to ph_d, each with a file, and a video in a series.
    ItemListTest() {
        for (const char* name : {"a", "b", "c", "d"}) {
            temp.Write(std::string(name) + ".jpg", name);
            AddPhoto(std::string("ph_") + name, name).sPath =
                temp.DrivePath(std::string(name) + ".jpg");
        }
        AddVideo("vd_a", "Film");
        AddSeries("vs_a", {"vd_a"});
    }

    bool FileIsThere(const char* name) const {
        return !temp.Read(std::string(name) + ".jpg").empty();
    }

    static constexpr const char* always = "mnuAddToTransfer mnuSep7 mnuRename ";
};

using Ids = std::vector<std::string>;

}  // namespace

TEST_F(ItemListTest, a_click_on_a_row_takes_its_id) {
    frmMain& window = Open();
    ClickNode("photoall");
    EXPECT_EQ(window.sSelected, Ids{""});
    ClickRow(3);
    EXPECT_EQ(window.sSelected, Ids{"ph_c"});
}

TEST_F(ItemListTest, moving_by_keyboard_takes_the_id_too) {
    frmMain& window = Open();
    ClickNode("photoall");
    ClickRow(1);
    QTest::keyClick(&grdItems(), Qt::Key_Down);
    EXPECT_EQ(window.sSelected, Ids{"ph_b"});
}

TEST_F(ItemListTest, a_selection_of_several_rows_gives_the_current_ones_id_alone) {
    frmMain& window = Open();
    ClickNode("photoall");
    ClickRow(1);
    ClickRow(3, Qt::ShiftModifier);
    EXPECT_EQ(window.sSelected, Ids{"ph_c"});
}

TEST_F(ItemListTest, GetSelectedDBIDs_of_an_empty_list_is_one_empty_text) {
    frmMain& window = Open();
    Ids ids{"x", "y"};
    window.GetSelectedDBIDs(ids);
    EXPECT_EQ(ids, Ids{""});
}

TEST_F(ItemListTest, a_double_click_on_a_group_goes_to_its_members) {
    frmMain& window = Open();
    ClickNode("videoseries");
    DoubleClickRow(1);
    EXPECT_EQ(trvCat().SelectedKey(), "vs_a");
    EXPECT_TRUE(trvCat().Node("videoseries").isExpanded());
    EXPECT_EQ(RowsOf(grdItems()), "Film");
    EXPECT_EQ(window.iListType, mtVidSeries);
    // The pop-up menu takes the members for groups until the next click in the tree.
    RightClickRow(1);
    EXPECT_EQ(EntriesOf("mnuRMB"), std::string(always) + "mnuSep3 mnuRemFromGroup mnuDelGroup ");
}

TEST_F(ItemListTest, a_double_click_on_an_item_does_nothing) {
    frmMain& window = Open();
    ClickNode("photoall");
    DoubleClickRow(2);
    EXPECT_EQ(trvCat().SelectedKey(), "photoall");
    EXPECT_EQ(window.iListType, mtPhoto);
}

TEST_F(ItemListTest, a_double_click_with_nothing_selected_does_nothing) {
    frmMain& window = Open();
    ClickNode("videoseries");
    ClickRow(1);
    window.sSelected = {""};
    QTest::mouseDClick(grdItems().viewport(), Qt::LeftButton, {},
                       grdItems().visualRect(grdItems().model()->index(0, 0)).center());
    EXPECT_EQ(trvCat().SelectedKey(), "videoseries");
}

TEST_F(ItemListTest, JumpToGroup_without_a_node_fails) {
    frmMain& window = Open();
    EXPECT_EQ(FailureOf([&] { window.JumpToGroup("ma_none"); }), failure::ListElementNotFound);
}

TEST_F(ItemListTest, the_Delete_key_removes_the_current_item_of_several_with_its_file) {
    Open();
    ClickNode("photoall");
    ClickRow(1);
    ClickRow(3, Qt::ShiftModifier);
    prompts.ExpectMsgBox(fromComputer, MsgBoxButtons::YesNo, MsgBoxAnswer::Yes, deleteTitle);
    QTest::keyClick(&grdItems(), Qt::Key_Delete);
    EXPECT_EQ(RowsOf(grdItems()), "a|b|d");
    EXPECT_FALSE(colPhoto.Has("ph_c"));
    EXPECT_FALSE(FileIsThere("c"));
    EXPECT_TRUE(FileIsThere("a"));
    EXPECT_TRUE(bDBChanged);
}

TEST_F(ItemListTest, No_to_the_Delete_key_removes_nothing_and_other_keys_ask_nothing) {
    Open();
    ClickNode("photoall");
    ClickRow(1);
    QTest::keyClick(&grdItems(), Qt::Key_Backspace);
    QTest::keyClick(&grdItems(), Qt::Key_X);
    prompts.ExpectMsgBox(fromComputer, MsgBoxButtons::YesNo, MsgBoxAnswer::No, deleteTitle);
    QTest::keyClick(&grdItems(), Qt::Key_Delete);
    EXPECT_EQ(RowsOf(grdItems()), "a|b|c|d");
}

TEST_F(ItemListTest, the_Delete_key_again_acts_on_the_old_selection_and_fails) {
    Open();
    ClickNode("photoall");
    ClickRow(2);
    prompts.ExpectMsgBox(fromComputer, MsgBoxButtons::YesNo, MsgBoxAnswer::Yes, deleteTitle);
    QTest::keyClick(&grdItems(), Qt::Key_Delete);
    EXPECT_EQ(Main().sSelected, Ids{"ph_b"});
    prompts.ExpectMsgBox(fromComputer, MsgBoxButtons::YesNo, MsgBoxAnswer::Yes, deleteTitle);
    EXPECT_NE(FatalOf([&] { QTest::keyClick(&grdItems(), Qt::Key_Delete); }), 0);
    EXPECT_EQ(RowsOf(grdItems()), "a|c|d");
}

TEST_F(ItemListTest, the_Delete_key_with_nothing_selected_fails_at_the_row) {
    Open();
    ClickNode("photoall");
    prompts.ExpectMsgBox(fromComputer, MsgBoxButtons::YesNo, MsgBoxAnswer::Yes, deleteTitle);
    EXPECT_EQ(FatalOf([&] { QTest::keyClick(&grdItems(), Qt::Key_Delete); }),
              failure::ListElementNotFound);
    EXPECT_EQ(colPhoto.Count(), 4);
}

TEST_F(ItemListTest, a_label_edit_renames_the_record_of_any_kind) {
    AddMusic("mu_a", "Song", "Singer");
    AddMagazine("ma_a", {"ph_a"});
    AddAlbum("pa_a", {"ph_a"});
    AddPlaylist("pl_", {"mu_a"});
    Open();
    const struct {
        const char* node;
        const char* id;
        MediaType type;
    } lists[] = {{"photoall", "ph_a", mtPhoto},         {"magazines", "ma_a", mtMagazine},
                 {"photoalbums", "pa_a", mtPhotoAlbum}, {"videoall", "vd_a", mtVideo},
                 {"videoseries", "vs_a", mtVidSeries},  {"musicall", "mu_a", mtMusic},
                 {"playlists", "pl_", mtPlaylist}};
    for (const auto& list : lists) {
        bDBChanged = false;
        ClickNode(list.node);
        RightClickRow(1);
        Pick({"mnuRMB", "mnuRename"});
        auto* editor = grdItems().findChild<QLineEdit*>();
        ASSERT_NE(editor, nullptr) << list.id;
        QTest::keyClicks(editor, QStringLiteral("New"));
        QTest::keyClick(editor, Qt::Key_Return);
        RunEvents();
        EXPECT_EQ(RecordOf(list.type, list.id).sName, "New");
        EXPECT_EQ(grdItems().Cell(1, 0), "New");
        EXPECT_TRUE(bDBChanged);
    }
    EXPECT_EQ(trvCat().Node("ma_a").Text(), "Group ma_a");
}

TEST_F(ItemListTest, the_pop_up_menu_offers_what_the_list_can_take) {
    AddMusic("mu_a", "Song", "Singer");
    AddMagazine("ma_a", {"ph_a"});
    AddAlbum("pa_a", {"ph_a"});
    AddPlaylist("pl_", {"mu_a"});
    Open();
    const struct {
        const char* node;
        const char* entries;
    } lists[] = {
        {"photoall", "mnuSep2 mnuPhotoGroup mnuSep3 mnuRemoveTop "},
        {"magazines", "mnuSep3 mnuDelGroup "},
        {"photoalbums", "mnuSep3 mnuDelGroup "},
        {"videoall", "mnuThumbnail mnuSep2 mnuVideoGroup mnuSep3 mnuRemoveTop "},
        {"videoseries", "mnuSep3 mnuDelGroup "},
        {"musicall", "mnuSep2 mnuMusicGroup mnuSep3 mnuRemoveTop "},
        {"playlists", "mnuSep3 mnuDelGroup "},
        {"ma_a", "mnuSep2 mnuPhotoGroup mnuSep3 mnuRemFromGroup mnuRemoveTop "},
        {"vs_a", "mnuThumbnail mnuSep2 mnuVideoGroup mnuSep3 mnuRemFromGroup mnuRemoveTop "},
        {"pl_", "mnuSep2 mnuMusicGroup mnuSep3 mnuRemFromGroup mnuRemoveTop "},
    };
    for (const auto& list : lists) {
        ClickNode(list.node);
        RightClickRow(1);
        EXPECT_TRUE(Shows("mnuRMB"));
        EXPECT_EQ(EntriesOf("mnuRMB"), std::string(always) + list.entries) << list.node;
        Find<QMenu>(Main(), "mnuRMB").close();
    }
}

TEST_F(ItemListTest, a_list_type_outside_the_table_leaves_the_entries_as_they_were) {
    frmMain& window = Open();
    ClickNode("videoall");
    RightClickRow(1);
    const std::string sEntries = EntriesOf("mnuRMB");
    for (const Integer iType : std::initializer_list<Integer>{-1, 6, 7}) {
        window.iListType = iType;
        RightClickRow(1);
        EXPECT_EQ(EntriesOf("mnuRMB"), sEntries);
    }
}

TEST_F(ItemListTest, a_right_click_on_empty_space_opens_no_menu) {
    Open();
    ClickNode("photoall");
    const QPoint below(10, grdItems().viewport()->height() - 5);
    QTest::mouseClick(grdItems().viewport(), Qt::RightButton, {}, below);
    EXPECT_FALSE(Shows("mnuRMB"));
}

TEST_F(ItemListTest, a_right_click_selects_the_row_that_its_menu_acts_on) {
    frmMain& window = Open();
    ClickNode("photoall");
    ClickRow(1);
    RightClickRow(3);
    EXPECT_EQ(window.sSelected, Ids{"ph_c"});
    EXPECT_TRUE(grdItems().Selected(3));
    EXPECT_FALSE(grdItems().Selected(1));
}

TEST_F(ItemListTest, a_release_of_another_button_clears_bListDrag_and_nothing_more) {
    frmMain& window = Open();
    ClickNode("photoall");
    window.bListDrag = true;
    ClickRow(1);
    EXPECT_FALSE(window.bListDrag);
    EXPECT_FALSE(Shows("mnuRMB"));
}

TEST_F(ItemListTest, below_thumbnail_mode_2_a_click_on_a_video_shows_nothing) {
    frmMain& window = Open();
    for (const Integer iMode : std::initializer_list<Integer>{-1, 0, 1}) {
        iVidThumbMode = iMode;
        ClickNode("videoall");
        ClickRow(1);
        EXPECT_EQ(window.sSelected, Ids{"vd_a"});
        EXPECT_FALSE(Find<QLabel>(window, "imgThumb").isVisible());
    }
}

TEST_F(ItemListTest, a_listed_series_opens_the_slot_in_thumbnail_mode_4) {
    InstallPictures();
    frmMain& window = Open();
    iVidThumbMode = 4;
    window.SetupItemList(mtVideo);
    window.FillListFromGroup("vs_a");
    EXPECT_EQ(window.Layout().grdSync.Height, 4185);
}

TEST_F(ItemListTest, FillListFromGroup_leaves_bPSPView_alone_and_FillList_clears_it) {
    frmMain& window = Open();
    window.SetupItemList(mtVideo);
    window.bPSPView = true;
    window.FillListFromGroup("vs_a");
    EXPECT_TRUE(window.bPSPView);
    window.FillList(6);
    EXPECT_FALSE(window.bPSPView);
    EXPECT_EQ(grdItems().Count(), 0);
}

TEST_F(ItemListTest, only_the_sizes_stand_at_the_right) {
    frmMain& window = Open();
    window.SetupItemList(mtMusic);
    const QAbstractItemModel& model = *grdItems().model();
    std::string rightAligned;
    for (int column = 0; column < model.columnCount(); ++column) {
        const QVariant alignment = model.headerData(column, Qt::Horizontal, Qt::TextAlignmentRole);
        if ((alignment.toInt() & Qt::AlignRight) != 0) {
            rightAligned +=
                FromQString(model.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString());
        }
    }
    EXPECT_EQ(rightAligned, "Size");
}

}  // namespace tavel::test
