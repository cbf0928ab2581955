#include "core/Log.h"
#include "core/PublicStuff.h"
#include "library/Adding.h"
#include "ui/main/UpCalls.h"
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
#include "ui/support/Clipping.h"
#include "ui/support/DeviceWindow.h"
#include "ui/support/Modal.h"
#include "ui/support/Wizard.h"
#include "ui/toolkit/FolderDialog.h"
#include "ui/toolkit/InputBox.h"
#include "ui/toolkit/MsgBox.h"
#include "ui/toolkit/ProgressBar.h"
#include "ui/toolkit/ScrollingLabel.h"
#include "ui/toolkit/ShowNow.h"
#include "ui/toolkit/Strings.h"
#include "ui/toolkit/SystemColors.h"
#include "ui/toolkit/Twips.h"
#include "ui/toolkit/dialogs/CommonDialogs.h"
#include "ui/toolkit/dialogs/FileDialog.h"

#include <gmock/gmock.h>

#include <QDir>
#include <QLineEdit>
#include <QScrollBar>
#include <QTabBar>

namespace tavel::test {

namespace {

QPalette DarkPalette() {
    const QColor back(0x31, 0x36, 0x3b);
    const QColor base(0x23, 0x26, 0x29);
    const QColor text(0xef, 0xf0, 0xf1);
    QPalette palette(back);
    palette.setColor(QPalette::Base, base);
    palette.setColor(QPalette::AlternateBase, back);
    for (const QPalette::ColorRole role :
         {QPalette::Text, QPalette::WindowText, QPalette::ButtonText, QPalette::ToolTipText})
        palette.setColor(role, text);
    palette.setColor(QPalette::Highlight, QColor(0x3d, 0xae, 0xe9));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    return palette;
}

// A desktop: the size of its text, and its colours.
struct Desktop {
    double points;
    bool isDark;
};

std::string NameOfDesktop(const testing::TestParamInfo<Desktop>& info) {
    return std::to_string(static_cast<int>(info.param.points)) + "pt_" +
           (info.param.isDark ? "dark" : "light");
}

// Every window of the program on a desktop of each kind, on a screen that is large enough. With
// TAVEL_PICTURES naming a folder, each leaves its picture there for a person to look at.
class LooksTest : public DeviceWindowTest, public testing::WithParamInterface<Desktop> {
  protected:
    LooksTest() : m_usual(QApplication::palette()) {
        WireUpCalls();
        if (GetParam().isDark) QApplication::setPalette(DarkPalette());
        SetScale(ScaleThatFits(GetParam().points, {4000, 3000},
                               {MainLayout::ClientWidth, MainLayout::ClientHeight}));
        for (int i = 0; i < 9; ++i) {
            const std::string number = std::to_string(i);
            AddPhoto("ph_" + number, "Beach " + number);
            AddMusic("mu_" + number, "Song " + number, "The Singers");
        }
        AddVideo("vd_a", "Ferry");
        AddMagazine("ma_a", {"ph_0", "ph_1"});
        AddPlaylist("pl_a", {"mu_0"});
    }
    ~LooksTest() override {
        CleanUp();
        SetScale(1);
        QApplication::setPalette(m_usual);
    }

    // Nothing in the window is cut off.
    void Look(QWidget& window, const char* name) {
        (void)QTest::qWaitForWindowExposed(&window);
        EXPECT_THAT(ClippedIn(window), testing::IsEmpty()) << name;
        const QString folder = qEnvironmentVariable("TAVEL_PICTURES");
        if (folder.isEmpty()) return;
        const auto desktop = NameOfDesktop({GetParam(), 0});
        ASSERT_TRUE(QDir().mkpath(folder));
        EXPECT_TRUE(window.grab().save(QDir(folder).filePath(QStringLiteral("%1_%2x_%3.png")
                                                                 .arg(QLatin1String(name))
                                                                 .arg(window.devicePixelRatioF())
                                                                 .arg(ToQString(desktop)))));
    }

    // The box that `ask` brings up.
    void LookAtBox(const char* name, const std::function<void()>& ask) {
        const RealPrompts real;
        WhenModal([&](QWidget& box) {
            Look(box, name);
            QTest::keyClick(&box, Qt::Key_Escape);
        });
        ask();
    }

  private:
    QPalette m_usual;
};

}  // namespace

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
    WizardFiles words(files, files.FromHostPath(SourceFile("data/text/wizard.txt")));
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
    PrintRequest print;
    print.printer = DefaultPrinter();
    LookAtBox("print", [&] { dialogs.PickPrinter(print); });
    print.flags = printFlag::NoPageNumbers | printFlag::NoSelection;
    LookAtBox("print_all", [&] { dialogs.PickPrinter(print); });
    PageRequest page;
    page.printer = DefaultPrinter();
    LookAtBox("page_setup", [&] { dialogs.SetUpPage(page); });
}

INSTANTIATE_TEST_SUITE_P(Desktops, LooksTest,
                         testing::Values(Desktop{8, false}, Desktop{10, false}, Desktop{11, false},
                                         Desktop{14, false}, Desktop{8, true}, Desktop{14, true}),
                         NameOfDesktop);

}  // namespace tavel::test
