#include "core/PublicStuff.h"
#include "library/Groups.h"
#include "ui/main/frmLog.h"
#include "ui/main/frmNewPSP.h"
#include "ui/support/MainWindow.h"

namespace tavel::test {

namespace {

const QString deleteTitle = QStringLiteral("Delete Group?");
const QString fromDB = QStringLiteral("This will remove the file(s) from the DB, are you sure?");
const QString fromComputer = QStringLiteral(
    "This will remove the file(s) from the DB and from your computer, are you sure?");
const QString theGroup = QStringLiteral("This will remove the group from the DB, are you sure?");

class CommandsTest : public MainWindowTest {
  protected:
    CommandsTest() {
        sPhotoSupport = {"jpg"};
        sMusicSupport = {"mp3"};
        sVideoSupport = {"avi"};
        for (const char* name : {"a", "b", "c", "d"}) {
            temp.Write(std::string(name) + ".jpg", name);
            AddPhoto(std::string("ph_") + name, name).sPath =
                temp.DrivePath(std::string(name) + ".jpg");
            AddVideo(std::string("vd_") + name, std::string("Film ") + name);
            AddMusic(std::string("mu_") + name, std::string("Song ") + name, "Singer");
        }
    }

    bool FileIsThere(const char* name) const {
        return !temp.Read(std::string(name) + ".jpg").empty();
    }
    void Expect(const QString& question, MsgBoxAnswer answer) {
        prompts.ExpectMsgBox(question, MsgBoxButtons::YesNo, answer, deleteTitle);
    }
    void ExpectName(const char* answer) {
        prompts.ExpectInputBox(QStringLiteral("What would you like to call your new group?"),
                               QStringLiteral("Name Group"), QStringLiteral("New Group"),
                               QString::fromUtf8(answer));
    }
    static std::string Members(const Group& group) {
        std::string members;
        for (Integer i = 0; i < group.Count(); ++i) members += group.Get_sMemberID(i) + " ";
        return members;
    }
};

}  // namespace

TEST_F(CommandsTest, Add_Files_offers_the_supported_extensions_and_adds_what_is_picked) {
    temp.Write("new.jpg", "picture");
    temp.Write("other.jpg", "picture");
    Open();
    ClickNode("photoall");
    prompts.ExpectFiles(QStringLiteral("Select file(s) to add"),
                        {QString::fromStdString(temp.HostPath("new.jpg")),
                         QString::fromStdString(temp.HostPath("other.jpg"))});
    Pick({"mnuFile", "mnuAdd", "mnuAddFile"});
    const FileRequest& request = prompts.LastFileRequest();
    EXPECT_EQ(request.patterns,
              (QStringList{QStringLiteral("*.jpg;*.mp3;*.avi;"), QStringLiteral("*.jpg;"),
                           QStringLiteral("*.mp3;"), QStringLiteral("*.avi;")}));
    EXPECT_EQ(request.descriptions,
              (QStringList{QStringLiteral("All Supported Files"), QStringLiteral("Photo Files"),
                           QStringLiteral("Music Files"), QStringLiteral("Video Files")}));
    EXPECT_EQ(request.filterIndex, 0);
    EXPECT_TRUE(request.mustExist);
    EXPECT_TRUE(request.multiSelect);
    EXPECT_FALSE(request.showReadOnly);
    EXPECT_EQ(request.owner, &Main());
    EXPECT_TRUE(request.startFolder.isEmpty());
    EXPECT_EQ(colPhoto.Count(), 6);
    EXPECT_EQ(colPhoto.Item(5).sName, "new");
    EXPECT_EQ(colPhoto.Item(6).sName, "other");
    EXPECT_EQ(RowsOf(grdItems()), "a|b|c|d");
}

TEST_F(CommandsTest, a_single_file_is_added_and_a_cancel_does_nothing) {
    temp.Write("new.jpg", "picture");
    Open();
    prompts.ExpectFiles(QStringLiteral("Select file(s) to add"),
                        {QString::fromStdString(temp.HostPath("new.jpg"))});
    Pick({"mnuFile", "mnuAdd", "mnuAddFile"});
    EXPECT_EQ(colPhoto.Count(), 5);
    prompts.ExpectFiles(QStringLiteral("Select file(s) to add"), {});
    Pick({"mnuFile", "mnuAdd", "mnuAddFile"});
    EXPECT_EQ(colPhoto.Count(), 5);
}

TEST_F(CommandsTest, Add_Folder_shows_frmAdd_for_as_long_as_it_takes) {
    temp.Write("media/one.jpg", "picture");
    temp.Write("media/deep/two.jpg", "picture");
    bAutoGroup = true;
    Open();
    prompts.ExpectFolder(QStringLiteral("Select a folder"), temp.DrivePath("media"));
    calls.clear();
    Pick({"mnuFile", "mnuAdd", "mnuAddFolder"});
    EXPECT_EQ(calls.front(), "frmAdd.Show");
    EXPECT_EQ(calls.back(), "frmAdd.Unload");
    EXPECT_EQ(colPhoto.Count(), 6);
    EXPECT_EQ(colMagazine.Count(), 0);
    EXPECT_EQ(prompts.LastFolderRequest().owner, &Main());
    EXPECT_FALSE(prompts.LastFolderRequest().includeFiles);
    EXPECT_FALSE(prompts.LastFolderRequest().newStyle);
}

TEST_F(CommandsTest, a_cancelled_folder_does_nothing) {
    Open();
    prompts.ExpectFolder(QStringLiteral("Select a folder"), "");
    calls.clear();
    Pick({"mnuFile", "mnuAdd", "mnuAddFolder"});
    EXPECT_TRUE(calls.empty());
}

TEST_F(CommandsTest, each_Create_Group_command_makes_a_group_of_its_type) {
    Open();
    ClickNode("photoall");
    ClickRow(1);
    ClickRow(2, Qt::ShiftModifier);
    RightClickRow(2);
    ExpectName("Album");
    Pick({"mnuRMB", "mnuPhotoGroup", "mnuPhotoAlbumGroup"});
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
    EXPECT_EQ(trvCat().Node(colPhotoAlbum.Item(1).sDBID).Text(), "Album");
    EXPECT_EQ(RowsOf(grdItems()), "Song a|Song b|Song c|Song d");
}

TEST_F(CommandsTest, four_selected_videos_make_a_series_of_four_in_row_order) {
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

TEST_F(CommandsTest, an_empty_name_makes_no_group) {
    Open();
    ClickNode("videoall");
    for (const char* name : {"   ", ""}) {
        RightClickRow(1);
        ExpectName(name);
        Pick({"mnuRMB", "mnuVideoGroup"});
    }
    EXPECT_EQ(colVidSeries.Count(), 0);
}

TEST_F(CommandsTest, Remove_From_Group_asks_nothing_and_takes_the_row_out) {
    AddMagazine("ma_a", {"ph_a", "ph_b", "ph_c"});
    Open();
    ClickNode("ma_a");
    RightClickRow(2);
    Pick({"mnuRMB", "mnuRemFromGroup"});
    EXPECT_EQ(RowsOf(grdItems()), "a|c");
    EXPECT_EQ(Members(colMagazine.Item("ma_a")), "ph_a ph_c ");
    EXPECT_EQ(colPhoto.Item("ph_b").iNoGroups, 0);
    EXPECT_TRUE(colPhoto.Has("ph_b"));
}

TEST_F(CommandsTest, from_DB_removes_the_current_item_and_keeps_its_file) {
    Open();
    ClickNode("photoall");
    ClickRow(1);
    ClickRow(3, Qt::ShiftModifier);
    RightClickRow(2);
    Expect(fromDB, MsgBoxAnswer::No);
    Pick({"mnuRMB", "mnuRemoveTop", "mnuRemoveDB"});
    EXPECT_EQ(colPhoto.Count(), 4);
    RightClickRow(2);
    Expect(fromDB, MsgBoxAnswer::Yes);
    Pick({"mnuRMB", "mnuRemoveTop", "mnuRemoveDB"});
    EXPECT_EQ(RowsOf(grdItems()), "a|c|d");
    EXPECT_FALSE(colPhoto.Has("ph_b"));
    EXPECT_TRUE(FileIsThere("b"));
}

TEST_F(CommandsTest, from_Computer_removes_the_current_item_with_its_file) {
    Open();
    ClickNode("photoall");
    ClickRow(1);
    ClickRow(3, Qt::ShiftModifier);
    RightClickRow(2);
    Expect(fromComputer, MsgBoxAnswer::Yes);
    Pick({"mnuRMB", "mnuRemoveTop", "mnuRemoveComp"});
    EXPECT_EQ(RowsOf(grdItems()), "a|c|d");
    EXPECT_FALSE(FileIsThere("b"));
    EXPECT_TRUE(FileIsThere("a"));
}

TEST_F(CommandsTest, Delete_Group_of_the_list_removes_the_group_its_row_and_its_node) {
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
    EXPECT_TRUE(FileIsThere("a"));
}

TEST_F(CommandsTest, Delete_Group_of_the_tree_takes_the_lists_current_row_whatever_it_is) {
    AddMagazine("ma_a", {"ph_a"});
    Open();
    ClickNode("musicall");
    ClickRow(3);
    ClickNode(trvCat(), "ma_a", Qt::RightButton);
    Expect(theGroup, MsgBoxAnswer::Yes);
    Pick({"mnuCats", "mnuDelGroup_Cat"});
    EXPECT_FALSE(colMagazine.Has("ma_a"));
    EXPECT_EQ(trvCat().Find("ma_a"), nullptr);
    EXPECT_EQ(trvCat().SelectedKey(), "magazines");
    EXPECT_EQ(RowsOf(grdItems()), "Song a|Song b|Song d");
    EXPECT_TRUE(colMusic.Has("mu_c"));
}

TEST_F(CommandsTest, Delete_Group_of_the_tree_fails_over_an_empty_list) {
    AddMagazine("ma_a", {"ph_a"});
    Open();
    ClickNode(trvCat(), "ma_a", Qt::RightButton);
    Expect(theGroup, MsgBoxAnswer::Yes);
    EXPECT_EQ(FatalOf([&] { Pick({"mnuCats", "mnuDelGroup_Cat"}); }), failure::ObjectNotSet);
}

TEST_F(CommandsTest, rows_dropped_on_a_group_of_their_kind_go_into_it) {
    AddMagazine("ma_a", {"ph_a"});
    AddAlbum("pa_a", {"ph_b"});
    Open();
    const auto dropOn = [&](const char* key) {
        TreeNode& node = trvCat().Node(key);
        trvCat().scrollToItem(&node);
        Drag(2, *trvCat().viewport(), trvCat().visualItemRect(&node).center());
    };
    trvCat().Node("magazines").setExpanded(true);
    trvCat().Node("photoalbums").setExpanded(true);

    ClickNode("photoall");
    ClickRow(2);
    dropOn("magazines");
    dropOn("ma_a");
    EXPECT_EQ(Members(colMagazine.Item("ma_a")), "ph_a ph_b ");
    EXPECT_EQ(RowsOf(grdItems()), "a|b|c|d");
    dropOn("ma_a");
    EXPECT_EQ(Members(colMagazine.Item("ma_a")), "ph_a ph_b ");

    ClickNode("musicall");
    ClickRow(2);
    dropOn("ma_a");
    EXPECT_EQ(colMagazine.Item("ma_a").iPages, 2);

    // From inside another group of the class it works; from a list of groups it does not.
    colMagazine.Item("ma_a").sName = "changed";
    AddAlbum("pa_b", {"ph_c", "ph_d"});
    Main().RefreshCats();
    ClickNode("pa_b");
    ClickRow(2);
    dropOn("ma_a");
    EXPECT_EQ(Members(colMagazine.Item("ma_a")), "ph_a ph_b ph_d ");
    ClickNode("photoalbums");
    ClickRow(2);
    dropOn("ma_a");
    EXPECT_EQ(colMagazine.Item("ma_a").iPages, 3);
}

TEST_F(CommandsTest, Show_Log_Window_and_Setup_New_PSP_show_their_windows) {
    Open();
    Pick({"mnuView", "mnuShowLog"});
    EXPECT_TRUE(SingleWindow<frmLog>::Get().isVisible());
    Pick({"mnuTools", "mnuSetupPSP"});
    EXPECT_TRUE(SingleWindow<frmNewPSP>::Get().isVisible());
    EXPECT_FALSE(SingleWindow<frmNewPSP>::Get().isModal());
}

TEST_F(CommandsTest, what_is_not_built_yet_is_in_the_menu_and_disabled) {
    Open();
    for (const char* name :
         {"mnuAddZipFile", "mnuWatchFolders", "mnuBackScan", "mnuOptions", "mnuThumbnail"}) {
        EXPECT_FALSE(Find<QAction>(Main(), name).isEnabled()) << name;
    }
}

TEST_F(CommandsTest, Exit_unloads_the_log_and_shuts_down) {
    Open();
    SingleWindow<frmLog>::Get();
    calls.clear();
    Pick({"mnuFile", "mnuExit"});
    EXPECT_FALSE(SingleWindow<frmLog>::Loaded());
    EXPECT_EQ(calls, (Calls{"ShowEnd", "Release", "UnloadAllButMain", "EndProcess"}));
}

TEST_F(CommandsTest, closing_the_window_does_what_Exit_does) {
    frmMain& window = Open();
    SingleWindow<frmLog>::Get();
    bDBChanged = true;
    calls.clear();
    window.close();
    EXPECT_FALSE(SingleWindow<frmLog>::Loaded());
    EXPECT_EQ(calls, (Calls{"ShowEnd", "SaveDB", "Release", "UnloadAllButMain", "EndProcess"}));
    EXPECT_FALSE(SingleWindow<frmMain>::Loaded());
}

}  // namespace tavel::test
