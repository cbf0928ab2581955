#include "core/PublicStuff.h"
#include "ui/support/MainWindow.h"

namespace tavel::test {

namespace {

using Ids = std::vector<std::string>;

class ItemMenuTest : public MainWindowTest {
  protected:
    ItemMenuTest() {
        AddPhotosWithFiles();
        AddVideo("vd_a", "Film");
        AddMusic("mu_a", "Song", "Singer");
        AddMagazine("ma_a", {"ph_a"});
        AddAlbum("pa_a", {"ph_a"});
        AddSeries("vs_a", {"vd_a"});
        AddPlaylist("pl_", {"mu_a"});
    }

    std::string EntriesForRow1() {
        RightClickRow(1);
        EXPECT_TRUE(Shows("mnuRMB"));
        const std::string entries = EntriesOf("mnuRMB");
        Find<QMenu>(Main(), "mnuRMB").close();
        return entries;
    }

    static constexpr const char* always = "mnuAddToTransfer mnuSep7 mnuRename ";
    static constexpr const char* ofVideos =
        "mnuThumbnail mnuSep2 mnuVideoGroup mnuSep3 mnuRemoveTop ";
    static constexpr const char* ofGroups = "mnuSep3 mnuDelGroup ";
};

}  // namespace

TEST_F(ItemMenuTest, the_pop_up_menu_offers_what_the_list_can_take) {
    Open();
    const struct {
        const char* node;
        const char* entries;
    } lists[] = {
        {"photoall", "mnuSep2 mnuPhotoGroup mnuSep3 mnuRemoveTop "},
        {"magazines", ofGroups},
        {"photoalbums", ofGroups},
        {"videoall", ofVideos},
        {"videoseries", ofGroups},
        {"musicall", "mnuSep2 mnuMusicGroup mnuSep3 mnuRemoveTop "},
        {"playlists", ofGroups},
        {"ma_a", "mnuSep2 mnuPhotoGroup mnuSep3 mnuRemFromGroup mnuRemoveTop "},
        {"pa_a", "mnuSep2 mnuPhotoGroup mnuSep3 mnuRemFromGroup mnuRemoveTop "},
        {"vs_a", "mnuThumbnail mnuSep2 mnuVideoGroup mnuSep3 mnuRemFromGroup mnuRemoveTop "},
        {"pl_", "mnuSep2 mnuMusicGroup mnuSep3 mnuRemFromGroup mnuRemoveTop "},
    };
    for (const auto& list : lists) {
        ClickNode(list.node);
        EXPECT_EQ(EntriesForRow1(), std::string(always) + list.entries) << list.node;
    }
}

TEST_F(ItemMenuTest, Remove_From_Group_goes_by_the_selected_node_whatever_the_list_shows) {
    Open();
    ClickNode("photoall");
    RightClickNode("ma_a");
    EXPECT_NE(EntriesForRow1().find("mnuRemFromGroup"), std::string::npos);
}

TEST_F(ItemMenuTest, after_a_jump_members_are_taken_for_groups_until_the_next_click_in_the_tree) {
    frmMain& window = Open();
    ClickNode("videoseries");
    DoubleClickRow(1);
    EXPECT_EQ(window.iListType, mtVidSeries);
    EXPECT_EQ(EntriesForRow1(), std::string(always) + "mnuSep3 mnuRemFromGroup mnuDelGroup ");
    ClickNode("videoall");
    EXPECT_EQ(EntriesForRow1(), std::string(always) + ofVideos);
}

TEST_F(ItemMenuTest, a_list_type_outside_the_table_leaves_the_entries_as_they_were) {
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

TEST_F(ItemMenuTest, the_menu_opens_at_the_pointer) {
    Open();
    ClickNode("photoall");
    RightClickRow(2);
    EXPECT_EQ(Find<QMenu>(Main(), "mnuRMB").pos(),
              grdItems().viewport()->mapToGlobal(PointOfRow(2)));
}

TEST_F(ItemMenuTest, the_Menu_key_and_Shift_F10_open_the_menu_of_the_current_row_beside_it) {
    frmMain& window = Open();
    ClickNode("ma_a");
    for (const auto& [key, modifiers] :
         {std::pair(Qt::Key_Menu, Qt::NoModifier), {Qt::Key_F10, Qt::ShiftModifier}}) {
        QTest::keyClick(&grdItems(), key, modifiers);
        ASSERT_TRUE(Shows("mnuRMB")) << key;
        EXPECT_EQ(
            EntriesOf("mnuRMB"),
            std::string(always) + "mnuSep2 mnuPhotoGroup mnuSep3 mnuRemFromGroup mnuRemoveTop ");
        const QRect row = grdItems().visualRect(grdItems().model()->index(0, 0));
        EXPECT_EQ(Find<QMenu>(window, "mnuRMB").pos(),
                  grdItems().viewport()->mapToGlobal(row.bottomLeft()));
        Find<QMenu>(window, "mnuRMB").close();
    }
}

// On Windows the system takes Shift+F10 for itself, and the Menu key too once it has been told.
TEST_F(ItemMenuTest, what_the_desktop_asks_with_Shift_for_opens_the_menu_once) {
    frmMain& window = Open();
    ClickNode("ma_a");
    const auto ask = [this](Qt::KeyboardModifiers modifiers) {
        QContextMenuEvent event(QContextMenuEvent::Keyboard, {}, {}, modifiers);
        QApplication::sendEvent(&grdItems(), &event);
    };
    ask(Qt::NoModifier);
    EXPECT_FALSE(Shows("mnuRMB"));
    ask(Qt::ShiftModifier);
    ASSERT_TRUE(Shows("mnuRMB"));
    const QRect row = grdItems().visualRect(grdItems().model()->index(0, 0));
    EXPECT_EQ(Find<QMenu>(window, "mnuRMB").pos(),
              grdItems().viewport()->mapToGlobal(row.bottomLeft()));
    Find<QMenu>(window, "mnuRMB").close();
}

TEST_F(ItemMenuTest, the_Menu_key_selects_the_row_that_its_menu_acts_on) {
    frmMain& window = Open();
    ClickNode("photoall");
    EXPECT_FALSE(grdItems().Selected(1));
    QTest::keyClick(&grdItems(), Qt::Key_Menu);
    EXPECT_TRUE(grdItems().Selected(1));
    EXPECT_EQ(window.sSelected, Ids{"ph_a"});
    Find<QMenu>(window, "mnuRMB").close();

    QTest::keyClick(&grdItems(), Qt::Key_Down, Qt::ShiftModifier);
    QTest::keyClick(&grdItems(), Qt::Key_Menu);
    EXPECT_TRUE(grdItems().Selected(1) && grdItems().Selected(2)) << "it is part of the selection";
    Find<QMenu>(window, "mnuRMB").close();
}

TEST_F(ItemMenuTest, the_Menu_key_brings_the_current_row_into_view) {
    for (int i = 0; i < 100; ++i) AddPhoto("ph_" + std::to_string(i), std::to_string(i));
    Open();
    ClickNode("photoall");
    ClickRow(1);
    grdItems().scrollToBottom();
    QTest::keyClick(&grdItems(), Qt::Key_Menu);
    EXPECT_EQ(grdItems().indexAt({5, 5}).row(), 0);
    EXPECT_TRUE(grdItems().viewport()->rect().contains(
        grdItems().viewport()->mapFromGlobal(Find<QMenu>(Main(), "mnuRMB").pos())));
}

TEST_F(ItemMenuTest, over_an_empty_list_the_Menu_key_opens_nothing) {
    Open();
    QTest::keyClick(&grdItems(), Qt::Key_Menu);
    EXPECT_FALSE(Shows("mnuRMB"));
}

TEST_F(ItemMenuTest, a_video_is_put_on_the_transfer_list_by_keyboard_alone) {
    Open();
    trvCat().setFocus();
    while (trvCat().SelectedKey() != "videoall") {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
    }
    while (QApplication::focusWidget() != &grdItems()) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_F10, Qt::ShiftModifier);
    auto& menu = Find<QMenu>(Main(), "mnuRMB");
    ASSERT_TRUE(menu.isVisible());
    QTest::keyClick(&menu, Qt::Key_Down);
    QTest::keyClick(&menu, Qt::Key_Return);
    EXPECT_EQ(grdSync().Key(1), "IDvd_a");
}

TEST_F(ItemMenuTest, a_right_click_on_empty_space_opens_no_menu) {
    Open();
    ClickNode("photoall");
    const QPoint below(10, grdItems().viewport()->height() - 5);
    QTest::mouseClick(grdItems().viewport(), Qt::RightButton, {}, below);
    EXPECT_FALSE(Shows("mnuRMB"));
}

TEST_F(ItemMenuTest, a_right_click_selects_the_row_that_its_menu_acts_on) {
    frmMain& window = Open();
    ClickNode("photoall");
    ClickRow(1);
    RightClickRow(3);
    EXPECT_EQ(window.sSelected, Ids{"ph_c"});
    EXPECT_TRUE(grdItems().Selected(3));
    EXPECT_FALSE(grdItems().Selected(1));
}

TEST_F(ItemMenuTest, a_right_press_beside_the_rows_opens_the_menu_of_the_row_it_ends_on) {
    frmMain& window = Open();
    ClickNode("photoall");
    ClickRow(1);
    QTest::mousePress(grdItems().viewport(), Qt::RightButton, {},
                      QPoint(10, grdItems().viewport()->height() - 5));
    QTest::mouseRelease(grdItems().viewport(), Qt::RightButton, {}, PointOfRow(3));
    EXPECT_TRUE(Shows("mnuRMB"));
    EXPECT_EQ(window.sSelected, Ids{"ph_c"});
    EXPECT_FALSE(grdItems().Selected(1));
}

TEST_F(ItemMenuTest, a_release_of_another_button_clears_bListDrag_and_nothing_more) {
    frmMain& window = Open();
    ClickNode("photoall");
    for (const Qt::MouseButton button : {Qt::LeftButton, Qt::MiddleButton}) {
        window.bListDrag = true;
        ClickRow(grdItems(), 1, Qt::NoModifier, button);
        EXPECT_FALSE(window.bListDrag) << button;
        EXPECT_FALSE(Shows("mnuRMB")) << button;
    }
}

}  // namespace tavel::test
