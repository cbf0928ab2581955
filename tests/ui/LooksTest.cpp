#include "core/Log.h"
#include "core/PublicStuff.h"
#include "library/Adding.h"
#include "ui/main/frmAdd.h"
#include "ui/main/frmCopy.h"
#include "ui/main/frmEnd.h"
#include "ui/main/frmInvFiles.h"
#include "ui/main/frmLog.h"
#include "ui/main/frmNewPSP.h"
#include "ui/main/frmSplash.h"
#include "ui/main/frmThumb.h"
#include "ui/setup/frmOptions.h"
#include "ui/setup/frmWatchFolders.h"
#include "ui/support/Looks.h"
#include "ui/support/Wizard.h"
#include "ui/toolkit/FolderDialog.h"
#include "ui/toolkit/InputBox.h"
#include "ui/toolkit/MsgBox.h"
#include "ui/toolkit/ProgressBar.h"
#include "ui/toolkit/ScrollingLabel.h"
#include "ui/toolkit/ShowNow.h"
#include "ui/toolkit/Strings.h"
#include "ui/toolkit/SystemColors.h"
#include "ui/toolkit/dialogs/CommonDialogs.h"
#include "ui/toolkit/dialogs/FileDialog.h"

#include <QLineEdit>
#include <QScrollBar>
#include <QTabBar>
#include <filesystem>

namespace tavel::test {

TEST_P(LooksTest, the_main_window) {
    Open();
    for (const char* id : {"ph_0", "mu_1", "vd_a", "ma_a", "pl_a"}) Main().AddToTransferList(id);
    for (const char* key : {"photoall", "magazines", "musicall", "playlists"})
        trvCat().Node(key).setExpanded(true);
    ClickNode("photoall");
    ClickRow(2);
    Look(Main(), "main_photos");
    ClickNode("musicall");
    ClickRow(2);
    Look(Main(), "main_music");
    ClickNode(trvPSPCat(), "videoall");
    Look(Main(), "main_psp");
}

TEST_P(LooksTest, the_main_window_without_a_PSP_and_with_room_for_a_thumbnail) {
    InstallPictures();
    files.Pull('e');
    iVidThumbMode = 4;
    Open();
    ClickNode("videoall");
    ClickRow(1);
    Look(Main(), "main_video");
}

TEST_P(LooksTest, the_menus) {
    Open();
    for (const char* name : {"mnuFile", "mnuAdd", "mnuTools", "mnuRMB"}) {
        auto& menu = Find<QMenu>(Main(), name);
        menu.popup({});
        Look(menu, name);
        menu.hide();
    }
}

TEST_P(LooksTest, the_copy_window) {
    frmCopy& window = SingleWindow<frmCopy>::Get();
    ShowNow(window);
    window.SetFile("Summer");
    window.SetSubFile(
        "A beach at low tide with a very long name that does not fit the window at all");
    window.ShowSubFile(true);
    window.CurrentBar().SetValue(40);
    RepaintNow(window);
    Look(window, "copy");
    window.ShowFinish();
    window.ShowOK();
    RepaintNow(window);
    Look(window, "copy_finished");
}

TEST_P(LooksTest, the_window_of_adding) {
    frmAdd& window = SingleWindow<frmAdd>::Get();
    ShowNow(window);
    window.SetPath(
        "c:\\Pictures\\2006\\A long way to the sea\\And an even longer one back home\\a.jpg");
    Look(window, "add");
}

TEST_P(LooksTest, the_window_for_a_new_PSP) {
    frmNewPSP& window = SingleWindow<frmNewPSP>::Get();
    ShowNow(window);
    Look(window, "new_psp");
}

TEST_P(LooksTest, the_watch_folders) {
    temp.Write("db.txt",
               "[watch]\r\nnoofflds=3\r\n0=c:\\Pictures\r\n1=c:\\Music\\A long way to the sea and "
               "an even longer one back home\\Songs for the road\\2006\r\n2=c:\\Videos\r\n"
               "1Music=1\r\n1Photo=0\r\n");
    frmWatchFolders& window = SingleWindow<frmWatchFolders>::Get();
    ShowNow(window);
    QTest::keyClick(&Find(window, "lstFolders"), Qt::Key_Down);
    QTest::keyClick(&Find(window, "lstFolders"), Qt::Key_Down);
    Look(window, "watch_folders");
}

TEST_P(LooksTest, the_options) {
    bScanOnAppStart = true;
    frmOptions& window = SingleWindow<frmOptions>::Get();
    ShowNow(window);
    Look(window, "options_general");
    Find<QTabBar>(window, "tbsOptions").setCurrentIndex(1);
    Look(window, "options_scan");
}

TEST_P(LooksTest, the_window_for_a_thumbnail) {
    InstallPictures();
    frmThumb& window = SingleWindow<frmThumb>::Get();
    window.GetNewThumbPath("", {"vd_a"});
    Look(window, "thumbnail");
}

// Its own words have room on their pages.
TEST_P(LooksTest, the_wizard) {
    std::filesystem::copy_file(AsHostPath(SourceFile("data/text/wizard.txt")),
                               AsHostPath(temp.HostPath("wizard.txt")));
    WizardFiles words(files, temp.DrivePath("wizard.txt"));
    Service<FileService>::Use(&words);
    words.Plug('e', temp.HostPath("stick")).label = "STICK";
    frmStartWizard& window = SingleWindow<frmStartWizard>::Get();
    window.show();
    for (int page = 1; page <= 9; ++page) {
        const std::string number = std::to_string(page);
        ASSERT_TRUE(Find(window, ("fraWizard(" + number + ")").c_str()).isVisible()) << page;
        Look(window, ("wizard_" + number).c_str());
        auto& label = Find<ScrollingLabel>(window, ("labText(" + number + ")").c_str());
        EXPECT_EQ(label.verticalScrollBar()->maximum(), 0) << page;
        if (page == 7) {
            Find<QLineEdit>(window, "txtFolderPath").setText(ToQString(temp.DrivePath("Media")));
            prompts.ExpectMsgBox(QStringLiteral("Folders created successfully"), MsgBoxButtons::OK,
                                 MsgBoxAnswer::OK);
        }
        if (page < 9) Click(window, "cmdNext");
    }
    SingleWindow<frmStartWizard>::Unload();
    Service<FileService>::Use(&files);
}

TEST_P(LooksTest, the_log) {
    AddLog("DB", "DB Loaded");
    AddLog("Form", "frmMain and frmLog Opened");
    frmLog& window = SingleWindow<frmLog>::Get();
    window.show();
    Look(window, "log");
}

TEST_P(LooksTest, the_list_of_what_was_rejected) {
    ShowInvalidFiles({"c:\\Letters\\a.doc", "c:\\Letters\\b.xls"});
    Look(SingleWindow<frmInvFiles>::Get(), "invalid_files");
}

TEST_P(LooksTest, the_windows_of_start_and_end) {
    ShowNow(SingleWindow<frmSplash>::Get());
    Look(SingleWindow<frmSplash>::Get(), "splash");
    ShowNow(SingleWindow<frmEnd>::Get());
    Look(SingleWindow<frmEnd>::Get(), "end");
}

TEST_P(LooksTest, the_boxes) {
    LookAtBox("box_ok", [] { MsgBox(QStringLiteral("Already exists in the list")); });
    LookAtBox("box_ok_cancel", [] {
        MsgBox(QStringLiteral("The PSP is not connected, or you have selected the wrong drive for "
                              "the PSP.\r\rPlease connect it and check the selected drive"),
               MsgBoxButtons::OKCancel);
    });
    LookAtBox("box_yes_no", [] {
        MsgBox(
            QStringLiteral("This will remove the file(s) from the DB and from your computer, are "
                           "you sure?"),
            MsgBoxButtons::YesNo, QStringLiteral("Delete Group?"));
    });
    LookAtBox("input_box", [] {
        InputBox(QStringLiteral("What would you like to call your new group?"),
                 QStringLiteral("Name Group"), QStringLiteral("New Group"));
    });
}

TEST_P(LooksTest, the_pickers) {
    temp.Write("Pictures/a.jpg", "a picture");
    FileRequest request;
    request.flags = PickFileMustExist | PickMultiSelect | PickHideReadOnly;
    request.title = QStringLiteral("Select file(s) to add");
    request.startFolder = ToQString(temp.HostPath());
    request.descriptions = QStringList{QStringLiteral("All Supported Files")};
    request.patterns = QStringList{QStringLiteral("*.jpg;*.txt;")};
    FileDialog fileDialog(request);
    fileDialog.show();
    Look(fileDialog, "files");
    FolderRequest folders;
    folders.title = QStringLiteral("Please select a folder:");
    folders.newStyle = true;
    FolderDialog folderDialog(folders);
    folderDialog.show();
    Look(folderDialog, "folders");
}

TEST_P(LooksTest, the_common_dialogs) {
    FileRequest file;
    file.saving = true;
    file.title = QStringLiteral("Save the list");
    file.startFolder = ToQString(temp.HostPath());
    file.startName = QStringLiteral("list.txt");
    FileDialog fileDialog(file);
    fileDialog.show();
    Look(fileDialog, "save");
    auto& dialogs = Service<CommonDialogs>::Get();
    ColorRequest color;
    color.color = QColor(0x33, 0x99, 0xcc);
    for (int i = 0; i < 16; ++i) color.custom[static_cast<std::size_t>(i)] = SystemColor(i);
    LookAtBox("colors", [&] { dialogs.PickColor(color); });
    color.flags = colorFlag::FullOpen;
    LookAtBox("colors_full", [&] { dialogs.PickColor(color); });
    FontRequest font;
    font.font = QFont(QStringLiteral("DejaVu Sans"), 12);
    LookAtBox("fonts", [&] { dialogs.PickFont(font); });
    font.flags = fontFlag::Effects;
    LookAtBox("fonts_effects", [&] { dialogs.PickFont(font); });
}

INSTANTIATE_TEST_SUITE_P(Desktops, LooksTest, desktops, NameOfDesktop);

}  // namespace tavel::test
