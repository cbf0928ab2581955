#include "core/PublicStuff.h"
#include "ui/support/CategoryTree.h"

namespace tavel::test {

using CategoryLabelTest = CategoryTreeTest;

TEST_F(CategoryLabelTest, a_fixed_node_can_not_be_renamed) {
    Open();
    for (const char* key : {"master", "photoall", "musicall", "videoall", "magazines",
                            "photoalbums", "playlists", "videoseries"}) {
        trvCat().Select(trvCat().Node(key));
        QTest::keyClick(&trvCat(), Qt::Key_F2);
        EXPECT_EQ(trvCat().findChild<QLineEdit*>(), nullptr) << key;
    }
}

TEST_F(CategoryLabelTest, renaming_a_node_renames_the_group_and_nothing_else) {
    FillLibrary();
    Open();
    const struct {
        const char* key;
        const char* parent;
        MediaType type;
    } groups[] = {{"ma_a", "magazines", mtMagazine},
                  {"pa_a", "photoalbums", mtPhotoAlbum},
                  {"vs_a", "videoseries", mtVidSeries},
                  {"pl_", "playlists", mtPlaylist}};
    for (const auto& group : groups) {
        bDBChanged = false;
        ClickNode(group.parent);
        const std::string sRow = RowsOf(grdItems());
        Rename(group.key, "New name");
        EXPECT_EQ(GroupOf(group.type, group.key).sName, "New name");
        EXPECT_EQ(TextOf(trvCat().Node(group.key)), "New name");
        EXPECT_EQ(RowsOf(grdItems()), sRow);
        EXPECT_TRUE(bDBChanged);
        ClickNode(group.parent);
        EXPECT_EQ(RowsOf(grdItems()), "New name") << "once it is filled anew";
    }
}

TEST_F(CategoryLabelTest, an_empty_name_and_one_that_another_group_has_pass) {
    FillLibrary();
    AddMagazine("ma_b", {});
    Open();
    Rename("ma_b", "Group ma_a");
    EXPECT_EQ(colMagazine.Item("ma_a").sName, "Group ma_a");
    EXPECT_EQ(colMagazine.Item("ma_b").sName, "Group ma_a");
    bDBChanged = false;
    Rename("ma_b", "");
    EXPECT_EQ(colMagazine.Item("ma_b").sName, "");
    EXPECT_EQ(TextOf(trvCat().Node("ma_b")), "");
    EXPECT_TRUE(bDBChanged);
}

TEST_F(CategoryLabelTest, an_edit_confirmed_with_the_text_as_it_was_counts_as_a_change) {
    FillLibrary();
    Open();
    bDBChanged = false;
    Rename("ma_a", "Group ma_a");
    EXPECT_TRUE(bDBChanged);
}

TEST_F(CategoryLabelTest, an_edit_left_by_a_click_on_another_group_renames_the_one_it_began_on) {
    FillLibrary();
    Open();
    trvCat().Node("magazines").setExpanded(true);
    trvCat().Node("photoalbums").setExpanded(true);
    trvCat().Select(trvCat().Node("ma_a"));
    QTest::keyClick(&trvCat(), Qt::Key_F2);
    QTest::keyClicks(trvCat().findChild<QLineEdit*>(), QStringLiteral("New"));
    ClickNode("pa_a");
    EXPECT_EQ(colMagazine.Item("ma_a").sName, "New");
    EXPECT_EQ(colPhotoAlbum.Item("pa_a").sName, "Group pa_a");
    EXPECT_EQ(trvCat().SelectedKey(), "pa_a");
}

TEST_F(CategoryLabelTest, renaming_a_node_whose_id_tells_no_kind_of_group_changes_its_text_alone) {
    for (const char* id : {"xx_a", "plain"}) AddMagazine(id, {});
    Open();
    for (const char* id : {"xx_a", "plain"}) {
        bDBChanged = false;
        Rename(id, "New name");
        EXPECT_EQ(colMagazine.Item(id).sName, std::string("Group ") + id);
        EXPECT_EQ(TextOf(trvCat().Node(id)), "New name");
        EXPECT_TRUE(bDBChanged);
    }
}

TEST_F(CategoryLabelTest, renaming_a_group_whose_record_has_gone_is_fatal) {
    FillLibrary();
    Open();
    trvCat().Select(trvCat().Node("ma_a"));
    QTest::keyClick(&trvCat(), Qt::Key_F2);
    colMagazine.Remove("ma_a");
    EXPECT_EQ(FatalOf([&] { Edit("New name"); }), 5);
}

TEST_F(CategoryLabelTest, a_right_click_on_a_group_selects_it_and_fills_nothing) {
    FillLibrary();
    frmMain& window = Open();
    iVidThumbMode = 4;
    ClickNode("musicall");
    ClickRow(1);
    RightClickNode("vs_a");
    EXPECT_EQ(window.sSelected, Ids{"mu_a"});
    EXPECT_EQ(PlaceOf("grdSync").Height, 6000);
    Find<QMenu>(window, "mnuCats").close();

    RightClickNode("ma_a");
    EXPECT_TRUE(Shows("mnuCats"));
    const QPoint point = trvCat().visualItemRect(&trvCat().Node("ma_a")).center();
    EXPECT_EQ(Find<QMenu>(window, "mnuCats").pos(), trvCat().viewport()->mapToGlobal(point));
    EXPECT_EQ(EntriesOf("mnuCats"), "mnuRename_Cat mnuSep6 mnuDelGroup_Cat ");
    EXPECT_EQ(trvCat().SelectedKey(), "ma_a");
    EXPECT_EQ(RowsOf(grdItems()), "Song");
    EXPECT_EQ(window.iListType, 5);
    Pick({"mnuCats", "mnuRename_Cat"});
    Edit("Weekly");
    EXPECT_EQ(colMagazine.Item("ma_a").sName, "Weekly");
    ClickNode("ma_a");
    EXPECT_EQ(RowsOf(grdItems()), "Song") << "it is the selected node by now";
    EXPECT_EQ(window.iListType, 5);
}

TEST_F(CategoryLabelTest, the_Menu_key_opens_the_menu_of_the_selected_group_and_of_no_other_node) {
    FillLibrary();
    Open();
    ClickNode("ma_a");
    for (const auto& [key, modifiers] :
         {std::pair(Qt::Key_Menu, Qt::NoModifier), {Qt::Key_F10, Qt::ShiftModifier}}) {
        QTest::keyClick(&trvCat(), key, modifiers);
        ASSERT_TRUE(Shows("mnuCats")) << key;
        const QRect node = trvCat().visualItemRect(&trvCat().Node("ma_a"));
        EXPECT_EQ(Find<QMenu>(Main(), "mnuCats").pos(),
                  trvCat().viewport()->mapToGlobal(node.bottomLeft()));
        Find<QMenu>(Main(), "mnuCats").close();
    }
    for (const char* key : {"master", "photoall", "magazines"}) {
        ClickNode(key);
        QTest::keyClick(&trvCat(), Qt::Key_Menu);
        EXPECT_FALSE(Shows("mnuCats")) << key;
    }
}

TEST_F(CategoryLabelTest, a_half_typed_name_is_not_taken_because_other_groups_come_and_go) {
    FillLibrary();
    AddMagazine("ma_b", {});
    frmMain& window = Open();
    trvCat().Select(trvCat().Node("ma_b"));
    QTest::keyClick(&trvCat(), Qt::Key_F2);
    QTest::keyClicks(trvCat().findChild<QLineEdit*>(), QStringLiteral("Half"));
    bDBChanged = false;
    colMagazine.Remove("ma_a");
    AddMagazine("ma_c", {});
    window.RefreshCats();
    RunEvents();
    EXPECT_EQ(colMagazine.Item("ma_b").sName, "Group ma_b");
    EXPECT_FALSE(bDBChanged);
    auto* editor = trvCat().findChild<QLineEdit*>();
    ASSERT_NE(editor, nullptr);
    QTest::keyClicks(editor, QStringLiteral(" and half"));
    QTest::keyClick(editor, Qt::Key_Return);
    RunEvents();
    EXPECT_EQ(colMagazine.Item("ma_b").sName, "Half and half");
}

TEST_F(CategoryLabelTest, a_half_typed_name_goes_with_its_group) {
    FillLibrary();
    AddMagazine("ma_b", {});
    frmMain& window = Open();
    trvCat().Select(trvCat().Node("ma_a"));
    QTest::keyClick(&trvCat(), Qt::Key_F2);
    QTest::keyClicks(trvCat().findChild<QLineEdit*>(), QStringLiteral("Half"));
    bDBChanged = false;
    colMagazine.Remove("ma_a");
    EXPECT_EQ(FatalOf([&] {
                  window.RefreshCats();
                  RunEvents();
              }),
              0);
    EXPECT_EQ(trvCat().findChild<QLineEdit*>(), nullptr);
    EXPECT_EQ(colMagazine.Item("ma_b").sName, "Group ma_b");
    EXPECT_FALSE(bDBChanged);
}

TEST_F(CategoryLabelTest, collapsing_a_branch_selects_the_node_collapsed_and_fills_nothing) {
    FillLibrary();
    frmMain& window = Open();
    trvCat().Node("magazines").setExpanded(true);
    ClickNode("ma_a");
    ClickArrow("magazines");
    EXPECT_FALSE(trvCat().Node("magazines").isExpanded());
    EXPECT_EQ(trvCat().SelectedKey(), "magazines");
    EXPECT_EQ(window.iListType, 0);
    EXPECT_EQ(RowsOf(grdItems()), "Beach");
    ClickNode("magazines");
    EXPECT_EQ(RowsOf(grdItems()), "Beach") << "it is the selected node by now";
    trvCat().Node("photoall").setExpanded(false);
    EXPECT_EQ(trvCat().SelectedKey(), "photoall");
    EXPECT_EQ(window.iListType, 0);
}

TEST_F(CategoryLabelTest, collapsing_by_the_arrow_is_no_click_on_the_node_collapsed) {
    FillLibrary();
    frmMain& window = Open();
    ClickNode("musicall");
    ClickRow(1);
    const Ids selected = window.sSelected;
    ClickArrow("photoall");
    EXPECT_FALSE(trvCat().Node("photoall").isExpanded());
    EXPECT_EQ(trvCat().SelectedKey(), "photoall");
    EXPECT_EQ(window.iListType, 5);
    EXPECT_EQ(window.sSelected, selected);
    EXPECT_EQ(RowsOf(grdItems()), "Song");
}

TEST_F(CategoryLabelTest, a_middle_click_selects_nothing) {
    FillLibrary();
    Open();
    ClickNode("musicall");
    ClickNode(trvCat(), "photoall", Qt::MiddleButton);
    EXPECT_EQ(trvCat().SelectedKey(), "musicall");
}

}  // namespace tavel::test
