#include "core/PublicStuff.h"
#include "ui/support/MainWindow.h"

#include <QLabel>
#include <QLineEdit>

namespace tavel::test {

namespace {

class ItemListTest : public MainWindowTest {
  protected:
    ItemListTest() {
        AddPhotosWithFiles();
        AddVideo("vd_a", "Film");
        AddSeries("vs_a", {"vd_a"});
    }

    // Types a new name for the first row.
    void Rename(const QString& name) {
        TypeName(name);
        auto* editor = grdItems().findChild<QLineEdit*>();
        ASSERT_NE(editor, nullptr);
        QTest::keyClick(editor, Qt::Key_Return);
        RunEvents();
    }
    void TypeName(const QString& name) {
        RightClickRow(1);
        Main().sSelected = {"ph_d"};  // the edit goes by the current row
        Pick({"mnuRMB", "mnuRename"});
        auto* editor = grdItems().findChild<QLineEdit*>();
        ASSERT_NE(editor, nullptr);
        QTest::keyClick(editor, Qt::Key_Delete);
        QTest::keyClicks(editor, name);
    }
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

TEST_F(ItemListTest, a_click_that_deselects_the_current_row_takes_its_id_all_the_same) {
    frmMain& window = Open();
    ClickNode("photoall");
    ClickRow(1);
    window.sSelected = {""};
    ClickRow(1, Qt::ControlModifier);
    EXPECT_FALSE(grdItems().Selected(1));
    EXPECT_EQ(window.sSelected, Ids{"ph_a"});
}

TEST_F(ItemListTest, a_double_click_on_a_group_goes_to_its_members) {
    frmMain& window = Open();
    ClickNode("videoseries");
    DoubleClickRow(1);
    EXPECT_EQ(trvCat().SelectedKey(), "vs_a");
    EXPECT_TRUE(trvCat().Node("videoseries").isExpanded());
    EXPECT_EQ(RowsOf(grdItems()), "Film");
    EXPECT_EQ(window.iListType, mtVidSeries);
}

TEST_F(ItemListTest, a_double_click_goes_to_a_group_of_any_kind) {
    AddMusic("mu_a", "Song", "Singer");
    AddMagazine("ma_a", {"ph_c", "ph_a"});
    AddAlbum("pa_a", {"ph_b"});
    AddPlaylist("pl_", {"mu_a"});
    Open();
    const struct {
        const char* node;
        const char* group;
        const char* members;
    } lists[] = {
        {"magazines", "ma_a", "c|a"}, {"photoalbums", "pa_a", "b"}, {"playlists", "pl_", "Song"}};
    for (const auto& list : lists) {
        ClickNode(list.node);
        DoubleClickRow(1);
        EXPECT_EQ(trvCat().SelectedKey(), list.group);
        EXPECT_EQ(RowsOf(grdItems()), list.members);
    }
}

TEST_F(ItemListTest, a_double_click_goes_by_the_current_row_and_not_by_the_selected_ids) {
    frmMain& window = Open();
    ClickNode("videoseries");
    ClickRow(1);
    window.sSelected = {"ph_a"};
    QTest::mouseDClick(grdItems().viewport(), Qt::LeftButton, {}, PointOfRow(1));
    EXPECT_EQ(trvCat().SelectedKey(), "vs_a");
}

TEST_F(ItemListTest, a_double_click_of_another_button_or_below_the_rows_jumps_nowhere) {
    AddSeries("vs_b", {"vd_a"});
    frmMain& window = Open();
    ClickNode("videoseries");
    ClickRow(1);
    QTest::mouseDClick(grdItems().viewport(), Qt::LeftButton, {}, {50, 200});
    EXPECT_EQ(trvCat().SelectedKey(), "videoseries");
    for (const Qt::MouseButton other : {Qt::MiddleButton, Qt::RightButton}) {
        for (const Long row : {1, 2}) {
            ClickRow(1);
            QTest::mouseDClick(grdItems().viewport(), other, {}, PointOfRow(row));
            QTest::mouseRelease(grdItems().viewport(), other, {}, PointOfRow(row));
            EXPECT_EQ(trvCat().SelectedKey(), "videoseries") << other;
            EXPECT_EQ(window.sSelected, Ids{row == 1 ? "vs_a" : "vs_b"}) << other;
            Find<QMenu>(window, "mnuRMB").close();
        }
    }
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
    QTest::mouseDClick(grdItems().viewport(), Qt::LeftButton, {}, PointOfRow(1));
    EXPECT_EQ(trvCat().SelectedKey(), "videoseries");
}

TEST_F(ItemListTest, a_jump_leaves_columns_thumbnail_and_selected_ids_as_they_were) {
    InstallPictures();
    frmMain& window = Open();
    auto& imgThumb = Find<QLabel>(window, "imgThumb");
    iVidThumbMode = 2;
    ClickNode("videoseries");
    window.LoadThumbnail("vd_a");
    DoubleClickRow(1);
    EXPECT_EQ(trvCat().SelectedKey(), "vs_a");
    EXPECT_TRUE(imgThumb.isVisible());
    EXPECT_EQ(window.sSelected, Ids{"vs_a"});
    window.SetupItemList(mtPhoto);
    window.JumpToGroup("vs_a");
    EXPECT_EQ(grdItems().model()->columnCount(), 5);

    AddMagazine("ma_a", {"ph_a"});
    window.RefreshCats();
    iVidThumbMode = 4;
    ClickNode("videoall");
    window.JumpToGroup("ma_a");
    EXPECT_TRUE(imgThumb.isVisible());
    EXPECT_EQ(PlaceOf("grdSync").Height, 4185);
}

TEST_F(ItemListTest, a_jump_brings_the_groups_node_into_view) {
    for (int i = 0; i < 60; ++i) AddMagazine("ma_" + std::to_string(i), {"ph_a"});
    Open();
    ClickNode("magazines");
    QTest::keyClick(&grdItems(), Qt::Key_End);
    DoubleClickRow(60);
    EXPECT_EQ(trvCat().SelectedKey(), "ma_59");
    EXPECT_TRUE(
        trvCat().viewport()->rect().contains(trvCat().visualItemRect(&trvCat().Node("ma_59"))));
}

TEST_F(ItemListTest, JumpToGroup_without_a_node_fails) {
    frmMain& window = Open();
    EXPECT_EQ(FailureOf([&] { window.JumpToGroup("ma_none"); }), failure::ListElementNotFound);
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
        Rename(QStringLiteral("New"));
        EXPECT_EQ(RecordOf(list.type, list.id).sName, "New") << list.id;
        EXPECT_EQ(grdItems().Cell(1, 0), "New");
        EXPECT_TRUE(bDBChanged);
    }
    EXPECT_EQ(TextOf(trvCat().Node("ma_a")), "Group ma_a");
    Main().RefreshCats();
    EXPECT_EQ(TextOf(trvCat().Node("ma_a")), "New");
}

TEST_F(ItemListTest, a_new_name_is_taken_as_it_was_typed) {
    Open();
    ClickNode("photoall");
    for (const char* name : {"  New", ""}) {
        Rename(QLatin1String(name));
        EXPECT_EQ(colPhoto.Item("ph_a").sName, name);
    }
}

TEST_F(ItemListTest, an_edit_left_by_a_click_on_another_row_renames_the_row_it_began_on) {
    frmMain& window = Open();
    ClickNode("photoall");
    TypeName(QStringLiteral("New"));
    ClickRow(3);
    EXPECT_EQ(colPhoto.Item("ph_a").sName, "New");
    EXPECT_EQ(colPhoto.Item("ph_c").sName, "c");
    EXPECT_EQ(window.sSelected, Ids{"ph_c"});
}

TEST_F(ItemListTest, an_edit_left_by_a_click_on_a_node_renames_the_row_it_began_on) {
    Open();
    ClickNode("photoall");
    TypeName(QStringLiteral("New"));
    ClickNode("videoall");
    EXPECT_EQ(colPhoto.Item("ph_a").sName, "New");
    EXPECT_EQ(RowsOf(grdItems()), "Film");
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

}  // namespace tavel::test
