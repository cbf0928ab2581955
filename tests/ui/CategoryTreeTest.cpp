#include "core/PublicStuff.h"
#include "library/Groups.h"
#include "ui/support/CategoryTree.h"

#include <QLabel>

namespace tavel::test {

namespace {

std::string KeyOf(const QTreeWidgetItem& node) { return static_cast<const TreeNode&>(node).Key(); }

}  // namespace

TEST_F(CategoryTreeTest, the_trees_have_their_fixed_nodes_in_order) {
    Open();
    EXPECT_EQ(Tree(trvCat()),
              "master=DB+(photoall=Photos+(magazines=Magazines photoalbums=Photo Albums) "
              "musicall=Music+(playlists=Playlists) videoall=Videos+(videoseries=Video Series))");
    EXPECT_EQ(Tree(trvPSPCat()), "master=PSP+(photoall=Photos musicall=Music videoall=Videos)");
}

TEST_F(CategoryTreeTest, after_SetupCats_four_references_belong_to_the_devices_tree) {
    frmMain& window = Open();
    for (const TreeNode* node :
         {window.nodMaster, window.nodPhotos, window.nodMusic, window.nodVideos}) {
        EXPECT_EQ(node->treeWidget(), &trvPSPCat());
    }
    for (const TreeNode* node :
         {window.nodMagazines, window.nodPhotoAlbums, window.nodPlaylists, window.nodVideoSeries}) {
        EXPECT_EQ(node->treeWidget(), &trvCat());
    }
}

TEST_F(CategoryTreeTest, groups_stand_below_their_kind_in_the_librarys_order) {
    FillLibrary();
    AddMagazine("ma_0", {});
    Open();
    EXPECT_EQ(Tree(trvCat()),
              "master=DB+(photoall=Photos+(magazines=Magazines-(ma_a=Group ma_a ma_0=Group ma_0) "
              "photoalbums=Photo Albums-(pa_a=Group pa_a)) "
              "musicall=Music+(playlists=Playlists-(pl_=Group pl_)) "
              "videoall=Videos+(videoseries=Video Series-(vs_a=Group vs_a)))");
}

TEST_F(CategoryTreeTest, after_the_load_master_is_selected_and_a_click_on_it_fills_nothing) {
    AddPhoto("ph_a", "Beach");
    frmMain& window = Open();
    EXPECT_EQ(trvCat().SelectedKey(), "master");
    EXPECT_EQ(window.iListType, -1);
    ClickNode("master");
    EXPECT_EQ(window.iListType, -1);
    EXPECT_EQ(grdItems().Count(), 0);
    EXPECT_EQ(Columns(), "");
}

TEST_F(CategoryTreeTest, each_node_fills_the_list_of_its_kind) {
    FillLibrary();
    frmMain& window = Open();
    const struct {
        const char* key;
        const char* columns;
        const char* rows;
        int iListType;
    } nodes[] = {
        {"photoall", "Title Dimentions Format Size Path ", "Beach|Hill", 0},
        {"magazines", "Title Dimentions Format Size Path ", "Group ma_a", 1},
        {"photoalbums", "Title Dimentions Format Size Path ", "Group pa_a", 2},
        {"videoall", "Title Format Size Path ", "Film", 3},
        {"videoseries", "Title Format Size Path ", "Group vs_a", 4},
        {"musicall", "Title Artist Album Format Size Path ", "Song", 5},
        {"playlists", "Title Artist Album Format Size Path ", "Group pl_", 8},
        {"ma_a", "Title Dimentions Format Size Path ", "Beach", 0},
        {"pa_a", "Title Dimentions Format Size Path ", "Hill", 0},
        {"vs_a", "Title Format Size Path ", "Film", 3},
        {"pl_", "Title Artist Album Format Size Path ", "Song", 5},
    };
    for (const auto& node : nodes) {
        ClickNode(node.key);
        EXPECT_EQ(Columns(), node.columns) << node.key;
        EXPECT_EQ(RowsOf(grdItems()), node.rows) << node.key;
        EXPECT_EQ(window.iListType, node.iListType) << node.key;
        EXPECT_TRUE(grdItems().isVisible());
    }
}

TEST_F(CategoryTreeTest, the_columns_have_their_widths) {
    frmMain& window = Open();
    const struct {
        Integer iType;
        int path;
    } sets[] = {
        {0, 8895 - 5240 - 960 - 260}, {3, 8895 - 3800 - 960 - 260}, {5, 8895 - 6680 - 960 - 260}};
    for (const auto& set : sets) {
        window.SetupItemList(set.iType);
        EXPECT_EQ(grdItems().ColumnWidth("title"), 2880);
        EXPECT_EQ(grdItems().ColumnWidth("size"), 960);
        EXPECT_EQ(grdItems().ColumnWidth("format"), 920);
        EXPECT_EQ(grdItems().ColumnWidth("path"), set.path);
    }
    EXPECT_EQ(FailureOf([&] { window.SetupItemList(1); }), failure::ListElementNotFound);
}

TEST_F(CategoryTreeTest, a_click_on_the_selected_node_fills_nothing) {
    FillLibrary();
    Open();
    ClickNode("photoall");
    AddPhoto("ph_c", "Lake");
    ClickNode("photoall");
    EXPECT_EQ(RowsOf(grdItems()), "Beach|Hill");
    ClickNode("videoall");
    ClickNode("photoall");
    EXPECT_EQ(RowsOf(grdItems()), "Beach|Hill|Lake");
}

TEST_F(CategoryTreeTest, a_click_on_the_selected_node_leaves_selection_and_thumbnail) {
    FillLibrary();
    InstallPictures();
    frmMain& window = Open();
    iVidThumbMode = 2;
    ClickNode("videoall");
    ClickRow(1);
    ClickNode("videoall");
    EXPECT_TRUE(Find(window, "imgThumb").isVisible());
    EXPECT_EQ(window.sSelected, Ids{"vd_a"});
    ClickNode("musicall");
    EXPECT_FALSE(Find(window, "imgThumb").isVisible());
    EXPECT_EQ(window.sSelected, Ids{""}) << "a click that fills clears it";
}

TEST_F(CategoryTreeTest, a_fill_that_fails_is_fatal_and_leaves_the_list_hidden) {
    FillLibrary();
    frmMain& window = Open();
    ClickNode("musicall");
    colPhoto.Remove("ph_a");
    EXPECT_EQ(FatalOf([&] { ClickNode("ma_a"); }), 5);
    EXPECT_FALSE(grdItems().isVisible());
    EXPECT_EQ(window.iListType, 5);
}

TEST_F(CategoryTreeTest, a_click_on_master_leaves_rows_and_columns_but_clears_the_selection) {
    FillLibrary();
    frmMain& window = Open();
    ClickNode("photoall");
    ClickRow(1);
    EXPECT_EQ(window.sSelected, std::vector<std::string>{"ph_a"});
    Find<QLabel>(window, "imgThumb").show();
    ClickNode("master");
    EXPECT_EQ(window.sSelected, std::vector<std::string>{""});
    EXPECT_FALSE(Find<QLabel>(window, "imgThumb").isVisible());
    EXPECT_EQ(RowsOf(grdItems()), "Beach|Hill");
    EXPECT_EQ(Columns(), "Title Dimentions Format Size Path ");
    EXPECT_EQ(window.iListType, 0);
}

TEST_F(CategoryTreeTest, moving_by_keyboard_fills_as_a_click_does) {
    FillLibrary();
    frmMain& window = Open();
    QTest::keyClick(&trvCat(), Qt::Key_Down);
    EXPECT_EQ(window.iListType, 0);
    EXPECT_EQ(RowsOf(grdItems()), "Beach|Hill");
}

TEST_F(CategoryTreeTest, RefreshCats_keeps_the_selection_and_the_list) {
    FillLibrary();
    frmMain& window = Open();
    ClickNode("ma_a");
    AddMagazine("ma_b", {});
    window.RefreshCats();
    EXPECT_EQ(trvCat().SelectedKey(), "ma_a");
    EXPECT_EQ(trvCat().Node("ma_b").Parent()->Key(), "magazines");
    EXPECT_EQ(RowsOf(grdItems()), "Beach");
    colMagazine.Remove("ma_a");
    window.RefreshCats();
    EXPECT_EQ(trvCat().SelectedKey(), "master");
    EXPECT_EQ(RowsOf(grdItems()), "Beach");
    ClickNode("magazines");
    EXPECT_EQ(RowsOf(grdItems()), "Group ma_b");
}

TEST_F(CategoryTreeTest, groups_made_in_a_row_are_in_the_tree_before_anybody_looks) {
    AddPhoto("ph_a", "Beach");
    frmMain& window = Open();
    trvCat().Node("magazines").setExpanded(true);
    const auto make = [] { return MakeGroup({"ph_a"}, "Group", mtMagazine); };
    const auto shown = [&] { return window.nodMagazines->childCount(); };
    std::vector<std::string> ids;
    for (int i = 0; i < 3; ++i) ids.push_back(make());
    trvCat().viewport()->repaint();
    EXPECT_EQ(shown(), 3) << "painted";
    make();
    QTest::keyClick(&trvCat(), Qt::Key_Home);
    EXPECT_EQ(shown(), 4) << "input";
    make();
    RunEvents();
    EXPECT_EQ(shown(), 5) << "in the event loop";
    const std::string sID = make();
    EXPECT_NE(trvCat().Find(sID), nullptr) << "asked for";
    for (int i = 0; i < 3; ++i) EXPECT_EQ(KeyOf(*window.nodMagazines->child(i)), ids[i]);
}

TEST_F(CategoryTreeTest, a_rebuild_that_is_due_is_no_reason_to_miss_a_later_one) {
    FillLibrary();
    frmMain& window = Open();
    window.RefreshCatsLater();
    colMagazine.Item("ma_a").sName = "changed";
    AddMagazine("ma_b", {});
    window.RefreshCatsLater();
    RunEvents();
    AddMagazine("ma_c", {});
    const std::string sNow = Tree(trvCat());
    EXPECT_NE(sNow.find("magazines=Magazines-(ma_a=changed ma_b=Group ma_b)"), std::string::npos)
        << sNow;
}

TEST_F(CategoryTreeTest, RefreshCats_takes_over_names_and_order_of_the_groups) {
    for (const char* id : {"ma_a", "ma_b", "ma_c", "ma_d"}) AddMagazine(id, {});
    frmMain& window = Open();
    colMagazine.Item("ma_c").sName = "changed";
    for (const char* id : {"ma_a", "ma_b"}) colMagazine.Remove(id);
    AddMagazine("ma_e", {});
    AddMagazine("ma_a", {});
    window.RefreshCats();
    std::string groups;
    for (int i = 0; i < window.nodMagazines->childCount(); ++i) {
        const QTreeWidgetItem& node = *window.nodMagazines->child(i);
        groups += KeyOf(node) + "=" + TextOf(node) + ";";
    }
    EXPECT_EQ(groups, "ma_c=changed;ma_d=Group ma_d;ma_e=Group ma_e;ma_a=Group ma_a;");
    EXPECT_EQ(trvCat().Find("ma_b"), nullptr);
}

TEST_F(CategoryTreeTest, RefreshCats_leaves_the_parents_folded_or_open_as_they_were) {
    FillLibrary();
    frmMain& window = Open();
    const auto open = [&] {
        std::string keys;
        for (const char* key : {"magazines", "photoalbums", "playlists", "videoseries"}) {
            if (trvCat().Node(key).isExpanded()) keys += std::string(key) + " ";
        }
        return keys;
    };
    window.RefreshCats();
    EXPECT_EQ(open(), "");
    ClickNode("photoall");
    window.RefreshCats();
    EXPECT_EQ(open(), "");
    trvCat().Node("magazines").setExpanded(true);
    ClickNode("ma_a");
    window.RefreshCats();
    EXPECT_EQ(trvCat().SelectedKey(), "ma_a");
    EXPECT_EQ(open(), "magazines ");
    ClickNode("musicall");
    window.RefreshCats();
    EXPECT_EQ(open(), "magazines ");
}

TEST_F(CategoryTreeTest, in_thumbnail_mode_4_the_tree_opens_and_closes_the_slot) {
    FillLibrary();
    InstallPictures();
    frmMain& window = Open();
    iVidThumbMode = 4;
    const struct {
        const char* key;
        bool bExpanded;
    } nodes[] = {
        {"videoall", false}, {"photoall", true},    {"vs_a", false},     {"magazines", true},
        {"vs_a", false},     {"videoseries", true}, {"vs_a", false},     {"photoalbums", true},
        {"videoall", false}, {"playlists", true},   {"videoall", false}, {"musicall", true},
        {"videoall", false}, {"master", true},      {"videoall", false}, {"pl_", true}};
    for (const auto& node : nodes) {
        ClickNode(node.key);
        EXPECT_EQ(PlaceOf("grdSync").Height, node.bExpanded ? 6000 : 4185) << node.key;
        EXPECT_EQ(Find<QLabel>(window, "imgThumb").isVisible(), !node.bExpanded) << node.key;
    }
    // A click on the selected node fills nothing, but still sets the slot.
    ClickNode("videoall");
    window.ExpandSyncGrid(true);
    ClickNode("videoall");
    EXPECT_EQ(PlaceOf("grdSync").Height, 4185);
}

}  // namespace tavel::test
