#include "core/PublicStuff.h"
#include "ui/support/MainWindow.h"

namespace tavel::test {

namespace {

class GroupDropTest : public MainWindowTest {
  protected:
    GroupDropTest() {
        AddPhotosWithFiles();
        for (const char* name : {"a", "b"}) {
            AddVideo(std::string("vd_") + name, std::string("Film ") + name);
            AddMusic(std::string("mu_") + name, std::string("Song ") + name, "Singer");
        }
        AddMagazine("ma_a", {"ph_a"});
        AddAlbum("pa_a", {"ph_b"});
        AddSeries("vs_a", {"vd_a"});
        AddPlaylist("pl_", {"mu_a"});
    }

    // Drags a row of the list on a node.
    void DropOn(const char* key, Long row = 2) {
        TreeNode& node = trvCat().Node(key);
        trvCat().scrollToItem(&node);
        Drag(row, *trvCat().viewport(), trvCat().visualItemRect(&node).center());
    }
};

}  // namespace

TEST_F(GroupDropTest, rows_go_into_a_group_of_their_kind_and_the_list_is_not_filled_anew) {
    Open();
    ClickNode("photoall");
    ClickRow(2);
    colPhoto.Item("ph_a").sName = "changed";
    DropOn("ma_a");
    EXPECT_EQ(Members(colMagazine.Item("ma_a")), "ph_a ph_b ");
    EXPECT_EQ(RowsOf(grdItems()), "a|b|c|d");
    DropOn("ma_a");
    EXPECT_EQ(Members(colMagazine.Item("ma_a")), "ph_a ph_b ");

    ClickNode("videoall");
    ClickRow(2);
    DropOn("vs_a");
    EXPECT_EQ(Members(colVidSeries.Item("vs_a")), "vd_a vd_b ");
    ClickNode("musicall");
    ClickRow(2);
    DropOn("pl_");
    EXPECT_EQ(Members(colPlaylist.Item("pl_")), "mu_a mu_b ");
    EXPECT_FALSE(bDBChanged);
}

TEST_F(GroupDropTest, rows_go_from_one_group_into_another_of_their_class) {
    AddAlbum("pa_b", {"ph_c", "ph_d"});
    Open();
    ClickNode("pa_b");
    ClickRow(2);
    DropOn("ma_a");
    EXPECT_EQ(Members(colMagazine.Item("ma_a")), "ph_a ph_d ");
    EXPECT_EQ(Members(colPhotoAlbum.Item("pa_b")), "ph_c ph_d ");
    EXPECT_EQ(RowsOf(grdItems()), "c|d");
}

TEST_F(GroupDropTest, rows_of_another_kind_and_groups_go_into_none) {
    Open();
    const auto members = [] {
        return Members(colMagazine.Item("ma_a")) + Members(colPhotoAlbum.Item("pa_a")) +
               Members(colVidSeries.Item("vs_a")) + Members(colPlaylist.Item("pl_"));
    };
    const std::string before = members();
    const struct {
        const char* node;
        std::vector<const char*> groups;
    } drops[] = {{"photoall", {"vs_a", "pl_"}},
                 {"videoall", {"ma_a", "pa_a", "pl_"}},
                 {"musicall", {"ma_a", "pa_a", "vs_a"}},
                 {"magazines", {"ma_a", "pa_a", "vs_a", "pl_"}},
                 {"photoalbums", {"ma_a", "pa_a", "vs_a", "pl_"}},
                 {"videoseries", {"ma_a", "pa_a", "vs_a", "pl_"}},
                 {"playlists", {"ma_a", "pa_a", "vs_a", "pl_"}}};
    for (const auto& drop : drops) {
        ClickNode(drop.node);
        ClickRow(1);
        for (const char* group : drop.groups) {
            DropOn(group, 1);
            EXPECT_EQ(members(), before) << drop.node << " on " << group;
        }
    }
}

TEST_F(GroupDropTest, a_row_that_was_not_clicked_before_goes_into_the_group_it_is_dropped_on) {
    Open();
    ClickNode("photoall");
    ClickRow(1);
    DropOn("ma_a", 3);
    EXPECT_EQ(Members(colMagazine.Item("ma_a")), "ph_a ph_c ");
}

// The empty id counts as a member, since the place made for it holds an empty text.
TEST_F(GroupDropTest, a_drop_of_a_file_of_the_stick_before_any_row_was_clicked_adds_nothing) {
    frmMain& window = Open();
    ClickNode("photoall");
    window.bPSPView = true;
    DropOn("ma_a");
    EXPECT_EQ(Members(colMagazine.Item("ma_a")), "ph_a ");
}

TEST_F(GroupDropTest, a_fixed_node_takes_no_drop_and_opens_no_menu) {
    frmMain& window = Open();
    ClickNode("photoall");
    ClickRow(2);
    for (const char* key : {"master", "photoall", "musicall", "videoall", "magazines",
                            "photoalbums", "playlists", "videoseries"}) {
        for (const Integer iListType : std::initializer_list<Integer>{mtPhoto, -1}) {
            window.iListType = iListType;
            DropOn(key);
        }
        RightClickNode(key);
        EXPECT_FALSE(Shows("mnuCats")) << key;
        EXPECT_EQ(trvCat().SelectedKey(), "photoall") << key;
    }
    EXPECT_EQ(RowsOf(grdItems()), "a|b|c|d");
    EXPECT_EQ(colPhoto.Item("ph_b").iNoGroups, 1);
}

}  // namespace tavel::test
