#include "core/PublicStuff.h"
#include "ui/main/frmLog.h"
#include "ui/main/frmNewPSP.h"
#include "ui/support/MainWindow.h"
#include "ui/toolkit/LineList.h"

#include <algorithm>

namespace tavel::test {

namespace {

class CommandsTest : public MainWindowTest {
  protected:
    CommandsTest() {
        sPhotoSupport = {"jpg", "png"};
        sMusicSupport = {"mp3"};
        sVideoSupport = {"avi"};
        AddPhotosWithFiles();
    }

    // Both ways out unload the log before anything else.
    void ExpectNoLogFromTheEndOn() {
        SingleWindow<frmLog>::Get();
        appWindows.onShowEnd = [] { EXPECT_FALSE(SingleWindow<frmLog>::Loaded()); };
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
    EXPECT_EQ(request.patterns, (QStringList{QStringLiteral("*.jpg;*.png;*.mp3;*.avi;"),
                                             QStringLiteral("*.jpg;*.png;"),
                                             QStringLiteral("*.mp3;"), QStringLiteral("*.avi;")}));
    EXPECT_EQ(request.descriptions,
              (QStringList{QStringLiteral("All Supported Files"), QStringLiteral("Photo Files"),
                           QStringLiteral("Music Files"), QStringLiteral("Video Files")}));
    EXPECT_EQ(request.filterIndex, 0);
    EXPECT_EQ(request.flags, 0x280000 | 0x1000 | 0x200 | 0x4);
    EXPECT_EQ(request.owner, &Main());
    EXPECT_TRUE(request.startFolder.isEmpty());
    EXPECT_EQ(colPhoto.Count(), 6);
    EXPECT_EQ(colPhoto.Item(5).sName, "new");
    EXPECT_EQ(colPhoto.Item(6).sName, "other");
    EXPECT_EQ(RowsOf(grdItems()), "a|b|c|d");
}

TEST_F(CommandsTest, an_entry_that_the_lists_lack_stands_in_the_filter_as_it_is) {
    sVideoSupport = {"avi", "XYZXYZ"};
    Open();
    prompts.ExpectFiles(QStringLiteral("Select file(s) to add"), {});
    Pick({"mnuFile", "mnuAdd", "mnuAddFile"});
    EXPECT_EQ(prompts.LastFileRequest().patterns.last(), QStringLiteral("*.avi;*.XYZXYZ;"));
}

TEST_F(CommandsTest, F10_opens_the_first_menu) {
    Open();
    Main().activateWindow();
    trvCat().setFocus();
    QTest::keyClick(&trvCat(), Qt::Key_F10);
    ASSERT_TRUE(Shows("mnuFile"));
    QTest::keyClick(&Find<QMenu>(Main(), "mnuFile"), Qt::Key_Escape);
    EXPECT_FALSE(Shows("mnuFile"));
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
    for (const char* once : {"frmAdd.Show", "frmAdd.Unload"})
        EXPECT_EQ(std::count(calls.begin(), calls.end(), once), 1) << once;
    EXPECT_EQ(colPhoto.Count(), 6);
    EXPECT_EQ(colMagazine.Count(), 0);
    EXPECT_EQ(prompts.LastFolderRequest().owner, &Main());
    EXPECT_FALSE(prompts.LastFolderRequest().includeFiles);
    EXPECT_FALSE(prompts.LastFolderRequest().newStyle);
    EXPECT_EQ(prompts.LastFolderRequest().callback, nullptr);  // no start folder
}

TEST_F(CommandsTest, Add_Folder_passes_over_what_is_there_and_does_not_yield_by_itself) {
    ReleaseCollections();
    temp.Write("media/deep/one.jpg", "picture");
    EventLoopRecorder events(calls);
    Find<QTimer>(Open(), "tmrPSP").stop();  // its poll yields
    const auto yields = [&] {
        calls.clear();
        prompts.ExpectFolder(QStringLiteral("Select a folder"), temp.DrivePath("media"));
        Pick({"mnuFile", "mnuAdd", "mnuAddFolder"});
        return std::count(calls.begin(), calls.end(), "Yield");
    };
    EXPECT_EQ(yields(), 0);
    EXPECT_EQ(colPhoto.Count(), 1);
    EXPECT_EQ(yields(), 1);  // the comparison with the library
    EXPECT_EQ(colPhoto.Count(), 1);
}

TEST_F(CommandsTest, a_failure_while_a_folder_is_added_saves_nothing) {
    temp.Write("media/a.jpg", "picture");
    temp.Write("media/nodot", "a name without an extension");
    Open();
    prompts.ExpectFolder(QStringLiteral("Select a folder"), temp.DrivePath("media"));
    EXPECT_EQ(FatalOf([&] { Pick({"mnuFile", "mnuAdd", "mnuAddFolder"}); }), failure::Overflow);
    EXPECT_EQ(colPhoto.Count(), 5);
    EXPECT_TRUE(bDBChanged);
    EXPECT_EQ(std::count(calls.begin(), calls.end(), "SaveDB"), 0);
}

TEST_F(CommandsTest, a_cancelled_folder_does_nothing) {
    Open();
    prompts.ExpectFolder(QStringLiteral("Select a folder"), "");
    calls.clear();
    Pick({"mnuFile", "mnuAdd", "mnuAddFolder"});
    EXPECT_TRUE(calls.empty());
}

TEST_F(CommandsTest, Show_Log_Window_and_Setup_New_PSP_show_their_windows) {
    Open();
    SingleWindow<frmLog>::Get().AddItem("a line that came before");
    for (const int lines : {1, 0}) {
        Pick({"mnuView", "mnuShowLog"});
        EXPECT_TRUE(SingleWindow<frmLog>::Get().isVisible());
        EXPECT_FALSE(SingleWindow<frmLog>::Get().isModal());
        EXPECT_EQ(Find<LineList>(SingleWindow<frmLog>::Get(), "lstLog").rowCount(), lines);
        EXPECT_FALSE(Find<QAction>(Main(), "mnuShowLog").isCheckable());
        SingleWindow<frmLog>::Get().close();
    }
    Pick({"mnuTools", "mnuSetupPSP"});
    EXPECT_TRUE(SingleWindow<frmNewPSP>::Get().isVisible());
    EXPECT_FALSE(SingleWindow<frmNewPSP>::Get().isModal());
}

TEST_F(CommandsTest, Show_Log_Window_brings_a_log_that_is_open_to_the_front) {
    Open();
    frmLog& window = SingleWindow<frmLog>::Get();
    window.AddItem("a line that came before");
    window.show();
    Main().activateWindow();
    RunEvents();
    ASSERT_EQ(QApplication::activeWindow(), &Main());
    Pick({"mnuView", "mnuShowLog"});
    RunEvents();
    EXPECT_EQ(QApplication::activeWindow(), &window);
    EXPECT_EQ(Find<LineList>(window, "lstLog").rowCount(), 1);
}

TEST_F(CommandsTest, what_is_not_built_yet_is_in_the_menu_and_disabled) {
    Open();
    for (const char* name : {"mnuAddZipFile", "mnuThumbnail"})
        EXPECT_FALSE(Find<QAction>(Main(), name).isEnabled()) << name;
    for (const char* name : {"mnuWatchFolders", "mnuBackScan", "mnuOptions"})
        EXPECT_TRUE(Find<QAction>(Main(), name).isEnabled()) << name;
}

TEST_F(CommandsTest, Exit_unloads_the_log_and_shuts_down) {
    Open();
    ExpectNoLogFromTheEndOn();
    calls.clear();
    Pick({"mnuFile", "mnuExit"});
    EXPECT_FALSE(SingleWindow<frmLog>::Loaded());
    EXPECT_EQ(calls, (Calls{"ShowEnd", "Release", "UnloadAllButMain", "EndProcess"}));
}

TEST_F(CommandsTest, closing_the_window_does_what_Exit_does) {
    frmMain& window = Open();
    ExpectNoLogFromTheEndOn();
    bDBChanged = true;
    calls.clear();
    window.close();
    EXPECT_FALSE(SingleWindow<frmLog>::Loaded());
    EXPECT_EQ(calls, (Calls{"ShowEnd", "SaveDB", "Release", "UnloadAllButMain", "EndProcess"}));
    EXPECT_FALSE(SingleWindow<frmMain>::Loaded());
}

}  // namespace tavel::test
