#include "core/PublicStuff.h"
#include "library/Folders.h"
#include "support/ZipMaker.h"
#include "ui/main/MediaFilters.h"
#include "ui/main/frmLog.h"
#include "ui/main/frmNewPSP.h"
#include "ui/support/MainWindow.h"
#include "ui/toolkit/LineList.h"
#include "ui/toolkit/Strings.h"

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

    void MakeLibraryFolder() { EXPECT_TRUE(MakeDBFolders(temp.DrivePath("library"))); }

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

TEST_F(CommandsTest, the_filters_have_nothing_behind_their_last_pattern) {
    sPhotoSupport = {"jpg"};
    EXPECT_EQ(FilterOfMedia(),
              "All Supported Files|*.jpg;*.mp3;*.avi;|Photo Files|*.jpg;|Music Files|*.mp3;|"
              "Video Files|*.avi;");
    EXPECT_EQ(FilterOfPictures(), "Supported Picture Files|*.jpg;*.thm;");
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

TEST_F(CommandsTest, Add_Zip_File_takes_one_archive_in) {
    MakeLibraryFolder();
    temp.Write("Summer.zip", MakeZip({{"one.jpg", "picture"}, {"two.jpg", "picture"}}));
    bGroupZip = true;
    Open();
    prompts.ExpectFiles(QStringLiteral("Select file(s) to add"),
                        {QString::fromStdString(temp.HostPath("Summer.zip"))});
    Pick({"mnuFile", "mnuAdd", "mnuAddZipFile"});
    const FileRequest& request = prompts.LastFileRequest();
    EXPECT_EQ(request.patterns, QStringList{QStringLiteral("*.zip")});
    EXPECT_EQ(request.descriptions, QStringList{QStringLiteral("Zip Files (*.zip)")});
    EXPECT_EQ(request.filterIndex, 0);
    EXPECT_EQ(request.flags, 0x280000 | 0x1000 | 0x200 | 0x4);
    EXPECT_EQ(request.owner, &Main());
    EXPECT_TRUE(request.startFolder.isEmpty());
    EXPECT_EQ(colPhoto.Count(), 6);
    EXPECT_EQ(colMagazine.Count(), 1);
    EXPECT_EQ(colMagazine.Item(1).sName, "Summer");
    EXPECT_EQ(temp.Read("library/Photos/Magazines/Summer/two.jpg"), "picture");
}

TEST_F(CommandsTest, several_archives_of_a_folder_are_not_found) {
    MakeLibraryFolder();
    for (const char* name : {"a.zip", "b.zip"}) temp.Write(name, MakeZip({{"one.jpg", "picture"}}));
    Open();
    prompts.ExpectFiles(QStringLiteral("Select file(s) to add"),
                        {QString::fromStdString(temp.HostPath("a.zip")),
                         QString::fromStdString(temp.HostPath("b.zip"))});
    EXPECT_EQ(FatalOf([&] {
                  Pick({"mnuFile", "mnuAdd", "mnuAddZipFile"});
              }),
              failure::FileNotFound);
    EXPECT_EQ(colPhoto.Count(), 4);
}

TEST_F(CommandsTest, several_archives_of_a_root_come_in_before_it_fails) {
    MakeLibraryFolder();
    temp.Write("stick/a.zip", MakeZip({{"one.jpg", "picture"}}));
    temp.Write("stick/b.zip", MakeZip({{"two.jpg", "picture"}}));
    files.Plug('e', temp.HostPath("stick"));
    bGroupZip = true;
    Open();
    prompts.ExpectFiles(QStringLiteral("Select file(s) to add"),
                        {QString::fromStdString(temp.HostPath("stick/a.zip")),
                         QString::fromStdString(temp.HostPath("stick/b.zip"))});
    EXPECT_EQ(FatalOf([&] {
                  Pick({"mnuFile", "mnuAdd", "mnuAddZipFile"});
              }),
              failure::PermissionDenied);
    EXPECT_EQ(colPhoto.Count(), 6);
    ASSERT_EQ(colMagazine.Count(), 2) << "each by the option";
    EXPECT_EQ(colMagazine.Item(1).sName + colMagazine.Item(2).sName, "ab");
}

TEST_F(CommandsTest, a_cancelled_archive_does_nothing) {
    Open();
    prompts.ExpectFiles(QStringLiteral("Select file(s) to add"), {});
    calls.clear();
    Pick({"mnuFile", "mnuAdd", "mnuAddZipFile"});
    EXPECT_TRUE(calls.empty());
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

TEST_F(CommandsTest, no_entry_of_the_menus_is_disabled) {
    Open();
    const auto entries = Main().findChildren<QAction*>();
    ASSERT_GT(entries.size(), 20);
    for (const QAction* entry : entries)
        EXPECT_TRUE(entry->isEnabled()) << FromQString(entry->objectName());
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
