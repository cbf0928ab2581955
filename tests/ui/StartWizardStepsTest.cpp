#include "core/PublicStuff.h"
#include "platform/Failure.h"
#include "ui/main/UpCalls.h"
#include "ui/main/frmLog.h"
#include "ui/setup/frmOptions.h"
#include "ui/setup/frmWatchFolders.h"
#include "ui/support/Modal.h"
#include "ui/support/Replacements.h"
#include "ui/support/RequestEnd.h"
#include "ui/support/Soon.h"
#include "ui/support/UserAtYields.h"
#include "ui/support/Wizard.h"
#include "ui/toolkit/DriveList.h"
#include "ui/toolkit/EndOfSession.h"
#include "ui/toolkit/MsgBox.h"
#include "ui/toolkit/Strings.h"
#include "ui/toolkit/WorkWindow.h"
#include "ui/toolkit/Yielding.h"

#include <gmock/gmock.h>

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QWindow>
#include <algorithm>
#include <filesystem>

namespace tavel::test {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

namespace {

constexpr const char* noPSP = "Cannot find the PSP, defaulting to C drive";
constexpr const char* connectIt =
    "The PSP is not connected, please connect it and click OK to try again";

// What the pages do.
class StartWizardStepsTest : public WizardTest {
  protected:
    static QLineEdit& Name() { return Find<QLineEdit>(Wizard(), "txtName"); }
    static QLineEdit& Folder() { return Find<QLineEdit>(Wizard(), "txtFolderPath"); }
    static void Check(const char* box) { Find<QCheckBox>(Wizard(), box).setChecked(true); }
    bool Has(const std::string& name) const { return std::filesystem::exists(temp.HostPath(name)); }
    void Watch(const std::string& sFolder) const {
        temp.Write("db.txt", "[watch]\r\nnoofflds=1\r\n0=" + temp.DrivePath(sFolder) + "\r\n");
    }
};

}  // namespace

TEST_F(StartWizardStepsTest, the_drive_of_the_PSP_is_found_when_page_5_is_left) {
    OpenWizard();
    GoTo(5);
    EXPECT_EQ(Drive().substr(0, 2), "c:");
    PlugNewStick('d').driveType = DriveFixed;
    PlugNewStick('g');
    Next();
    EXPECT_THAT(Shown(), ElementsAre(6));
    EXPECT_EQ(Drive().substr(0, 2), "g:");
}

TEST_F(StartWizardStepsTest, without_a_PSP_there_is_a_message_and_drive_c) {
    OpenWizard();
    GoTo(5);
    PlugNewStick('e');
    Find<DriveList>(Wizard(), "drvPSP").SetDrive("e:");
    disk.Pull('e');
    ExpectMessage(noPSP);
    Next();
    EXPECT_THAT(Shown(), ElementsAre(6));
    EXPECT_EQ(Drive().substr(0, 2), "c:");
}

TEST_F(StartWizardStepsTest, going_back_to_page_5_and_forward_searches_again) {
    OpenWizard();
    GoTo(5);
    ExpectMessage(noPSP);
    Next();
    Back();
    PlugNewStick('e');
    Next();
    EXPECT_EQ(Drive().substr(0, 2), "e:");
    Back();
    disk.Pull('e');
    ExpectMessage(noPSP);
    Next();
    EXPECT_EQ(Drive().substr(0, 2), "c:");
}

TEST_F(StartWizardStepsTest, a_second_failure_of_the_search_ends_the_program) {
    OpenWizard();
    GoTo(5);
    disk.FailOn("DriveExists", 57, 2);
    EXPECT_EQ(FatalOf([] { Next(); }), failure::DeviceIO);
}

TEST_F(StartWizardStepsTest, a_folder_of_blanks_gets_a_message_and_the_page_stays) {
    OpenWizard();
    GoTo(7);
    for (const char* text : {"", "   "}) {
        Folder().setText(QLatin1String(text));
        ExpectMessage("Please slect a folder to contain the media folders");
        Next();
        EXPECT_THAT(Shown(), ElementsAre(7));
    }
    EXPECT_EQ(sDefaultDBPath, "");
}

TEST_F(StartWizardStepsTest, a_folder_that_cannot_be_made_gets_a_message_and_the_page_stays) {
    OpenWizard();
    GoTo(7);
    Folder().setText(ToQString(temp.DrivePath("no\\parent")));
    ExpectMessage("Cannot create the media folders here, please try another folder");
    Next();
    EXPECT_THAT(Shown(), ElementsAre(7));
    EXPECT_EQ(Caption("cmdNext"), "Next >>");
    EXPECT_EQ(sDefaultDBPath, "");
}

TEST_F(StartWizardStepsTest, the_media_folders_are_made_when_page_7_is_left) {
    OpenWizard();
    GoTo(7);
    const std::string sRoot = temp.DrivePath("My Media");
    QTest::keyClicks(&Folder(), ToQString(sRoot));
    ExpectMessage("Folders created successfully");
    Next();
    EXPECT_THAT(Shown(), ElementsAre(8));
    EXPECT_EQ(sDefaultDBPath, sRoot);
    for (const char* folder : {"Photos/Magazines", "Photos/PhotoAlbums", "Music/Playlists",
                               "Videos/VidSeries", "Videos/Thumbnails"})
        EXPECT_TRUE(Has("My Media/" + std::string(folder))) << folder;
    EXPECT_THAT(DB(), Not(testing::HasSubstr("sDefaultDBPath"))) << "kept in memory alone";
}

TEST_F(StartWizardStepsTest, the_folder_is_taken_with_the_blanks_around_it) {
    OpenWizard();
    GoTo(7);
    Folder().setText(ToQString(temp.DrivePath("Media ")));
    ExpectMessage("Folders created successfully");
    Next();
    EXPECT_EQ(sDefaultDBPath, temp.DrivePath("Media "));
}

TEST_F(StartWizardStepsTest, Browse_puts_the_picked_folder_into_the_box) {
    OpenWizard();
    GoTo(7);
    prompts.ExpectFolder(QStringLiteral("Please select a folder:"), "c:\\Picked");
    Click(Wizard(), "cmdBrowse");
    EXPECT_EQ(FromQString(Folder().text()), "c:\\Picked");
    const FolderRequest& asked = prompts.LastFolderRequest();
    EXPECT_EQ(asked.owner, &Wizard());
    EXPECT_TRUE(asked.newStyle);
    EXPECT_FALSE(asked.includeFiles);
    EXPECT_EQ(asked.callback, nullptr);
    prompts.ExpectFolder(QStringLiteral("Please select a folder:"), "");
    Click(Wizard(), "cmdBrowse");
    EXPECT_EQ(FromQString(Folder().text()), "") << "cancelled";
}

TEST_F(StartWizardStepsTest, the_watch_folders_open_above_the_wizard_and_do_not_block_it) {
    OpenWizard();
    GoTo(3);
    Click(Wizard(), "cmdWatch");
    ASSERT_TRUE(SingleWindow<frmWatchFolders>::Loaded());
    frmWatchFolders& window = SingleWindow<frmWatchFolders>::Get();
    EXPECT_TRUE(window.isVisible());
    EXPECT_FALSE(window.isModal());
    EXPECT_EQ(window.windowHandle()->transientParent(), Wizard().windowHandle());
}

TEST_F(StartWizardStepsTest, the_watch_folders_come_back_to_the_front_when_they_are_called_again) {
    OpenWizard();
    GoTo(3);
    Click(Wizard(), "cmdWatch");
    frmWatchFolders& window = SingleWindow<frmWatchFolders>::Get();
    EXPECT_TRUE(BecomesActive(window));
    window.showMinimized();
    Wizard().activateWindow();
    ASSERT_TRUE(BecomesActive(Wizard()));
    Click(Wizard(), "cmdWatch");
    EXPECT_TRUE(BecomesActive(window));
    EXPECT_FALSE(window.isMinimized());
}

TEST_F(StartWizardStepsTest, watch_folders_that_are_left_open_belong_to_the_main_window_then) {
    PlugNewStick();
    OpenWizard();
    GoTo(3);
    Click(Wizard(), "cmdWatch");
    frmWatchFolders& window = SingleWindow<frmWatchFolders>::Get();
    window.move(30, 40);
    GoTo(9);
    Next();
    RunEvents();
    ASSERT_TRUE(SingleWindow<frmWatchFolders>::Loaded());
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(window.windowHandle()->transientParent(), Main().windowHandle());
    EXPECT_EQ(window.pos(), QPoint(30, 40));
}

TEST_F(StartWizardStepsTest, Create_Database_fills_the_library_with_groups_each_time) {
    temp.Write("m/Trip/a.jpg", "x");
    Watch("m");
    OpenWizard();
    GoTo(4);
    Click(Wizard(), "cmdAddFiles");
    EXPECT_EQ(calls.front(), "frmAdd.Show");
    EXPECT_EQ(calls.back(), "frmAdd.Unload");
    EXPECT_THAT(calls,
                Contains("Log NEW FILE: New File Found - " + temp.DrivePath("m\\Trip\\a.jpg")));
    ASSERT_EQ(colMagazine.Count(), 1);
    EXPECT_EQ(colMagazine.Item(1).sName, "Trip");
    EXPECT_THAT(Shown(), ElementsAre(4));
    Click(Wizard(), "cmdAddFiles");
    EXPECT_EQ(colPhoto.Count(), 2);
}

TEST_F(StartWizardStepsTest, clicks_that_came_during_Create_Database_are_dropped) {
    temp.Write("new/a.jpg", "x");
    Watch("new");
    OpenWizard();
    GoTo(4);
    ClickSoon(Find(Wizard(), "cmdAddFiles"));
    Click(Wizard(), "cmdAddFiles");
    RunEvents();
    EXPECT_EQ(colPhoto.Count(), 1);
}

TEST_F(StartWizardStepsTest, Create_Database_without_watch_folders_ends_the_program) {
    for (const char* text : {"", "[watch]\r\nnoofflds=0\r\n"}) {
        temp.Write("db.txt", text);
        OpenWizard();
        GoTo(4);
        EXPECT_EQ(FatalOf([] { Click(Wizard(), "cmdAddFiles"); }), failure::SubscriptOutOfRange);
        SingleWindow<frmStartWizard>::Unload();
    }
}

TEST_F(StartWizardStepsTest, the_main_window_that_a_group_calls_up_stays_behind_the_wizard) {
    temp.Write("m/Trip/a.jpg", "x");
    Watch("m");
    OpenWizard();
    GoTo(4);
    Click(Wizard(), "cmdAddFiles");
    ASSERT_TRUE(SingleWindow<frmMain>::Loaded());
    EXPECT_FALSE(Main().isVisible());
    EXPECT_EQ(WorkWindow(), &Wizard());
}

TEST_F(StartWizardStepsTest,
       the_finish_marks_the_stick_writes_the_options_and_opens_the_main_window) {
    PlugNewStick();
    OpenWizard();
    GoTo(2);
    Name().selectAll();
    QTest::keyClicks(&Name(), QStringLiteral(" Anna's PSP "));
    GoTo(9);
    EXPECT_EQ(IdentityFile(), "");
    Next();
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(IdentityFile(), "[Data]\r\nPSPName=Anna's PSP\r\n");
    EXPECT_EQ(DB(),
              "[options]\r\nbFirstTime=0\r\nbAutoGroup=0\r\nbScanOnAppStart=0\r\n"
              "[watch]\r\nnoofflds=0\r\ndelay=60\r\n");
    ASSERT_TRUE(SingleWindow<frmMain>::Loaded());
    EXPECT_TRUE(Main().isVisible());
    EXPECT_FALSE(Main().isModal());
    EXPECT_EQ(WorkWindow(), &Main());
    EXPECT_TRUE(bPSPConnected);
    EXPECT_EQ(sPSPName, "Anna's PSP") << "frmMain reads it anew";
    EXPECT_THAT(calls, IsEmpty()) << "no shutdown";
}

TEST_F(StartWizardStepsTest, the_options_are_written_in_order_and_count_from_the_next_start_on) {
    PlugNewStick();
    temp.Write("db.txt", "");
    OpenWizard();
    GoTo(8);
    Check("chkAutoGroup");
    GoTo(9);
    Next();
    EXPECT_EQ(DB(), "[options]\r\nbAutoGroup=1\r\nbScanOnAppStart=0\r\nbFirstTime=0\r\n");
    EXPECT_FALSE(bAutoGroup || bScanOnAppStart);
    EXPECT_TRUE(bFirstTime);
}

// The running program goes by the flags of its start, and so does the window of the options.
TEST_F(StartWizardStepsTest, OK_of_the_options_behind_the_wizard_writes_its_clear_boxes) {
    PlugNewStick();
    temp.Write("db.txt", "");
    OpenWizard();
    GoTo(8);
    Check("chkAutoGroup");
    Check("chkScanOnStart");
    GoTo(9);
    Next();
    Pick({"mnuTools", "mnuOptions"});
    frmOptions& options = SingleWindow<frmOptions>::Get();
    for (const QCheckBox* box : options.findChildren<QCheckBox*>())
        EXPECT_FALSE(box->isChecked()) << FromQString(box->objectName());
    Click(options, "cmdOK");
    EXPECT_EQ(DB(),
              "[options]\r\nbAutoGroup=0\r\nbScanOnAppStart=0\r\nbFirstTime=0\r\n"
              "bAddHiddenFiles=0\r\nbGroupZip=0\r\n");
}

TEST_F(StartWizardStepsTest, the_options_reach_the_file_in_one_step) {
    PlugNewStick();
    OpenWizard();
    GoTo(8);
    Check("chkAutoGroup");
    Check("chkScanOnStart");
    GoTo(9);
    const Replacements replacements(temp.HostPath());
    Next();
    EXPECT_EQ(replacements.Of("db.txt"), 1);
}

TEST_F(StartWizardStepsTest, the_scan_at_the_start_is_an_option_of_its_own) {
    PlugNewStick();
    temp.Write("db.txt", "");
    OpenWizard();
    GoTo(8);
    Check("chkScanOnStart");
    GoTo(9);
    Next();
    EXPECT_EQ(DB(), "[options]\r\nbAutoGroup=0\r\nbScanOnAppStart=1\r\nbFirstTime=0\r\n");
}

TEST_F(StartWizardStepsTest, the_finish_asks_for_the_drive_until_that_very_drive_is_there) {
    PlugNewStick();
    OpenWizard();
    GoTo(9);
    disk.Pull('e');
    const QString text = QLatin1String(connectIt);
    const QString title = QLatin1String(ProgramTitle);
    prompts.ExpectMsgBox(text, MsgBoxButtons::OK, MsgBoxAnswer::OK, title,
                         [this] { PlugNewStick('f'); });
    prompts.ExpectMsgBox(text, MsgBoxButtons::OK, MsgBoxAnswer::Cancel, title,
                         [this] { PlugNewStick('e'); });
    Next();
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(IdentityFile('f'), "");
    EXPECT_EQ(IdentityFile('e'), "[Data]\r\nPSPName=My PSP\r\n");
}

TEST_F(StartWizardStepsTest, a_drive_without_media_ends_the_program_with_nothing_written) {
    PlugNewStick();
    OpenWizard();
    GoTo(9);
    disk.At('e').hasMedia = false;
    const std::string before = DB();
    EXPECT_EQ(FatalOf([] { Next(); }), failure::DiskNotReady);
    EXPECT_EQ(DB(), before);
    EXPECT_FALSE(SingleWindow<frmMain>::Loaded());
}

TEST_F(StartWizardStepsTest,
       a_drive_whose_root_takes_no_file_ends_the_program_with_nothing_written) {
    OpenWizard();
    GoTo(9);
    ASSERT_EQ(Drive().substr(0, 2), "c:");
    disk.FailOn("CreateTextFile c:\\TavelDataFile.tavel", failure::PermissionDenied);
    const std::string before = DB();
    EXPECT_EQ(FatalOf([] { Next(); }), failure::PermissionDenied);
    EXPECT_EQ(DB(), before);
    EXPECT_FALSE(SingleWindow<frmMain>::Loaded());
}

TEST_F(StartWizardStepsTest, words_for_a_page_10_end_the_program_behind_the_finish) {
    PlugNewStick();
    OpenWizard();
    GoTo(9);
    Words("//10\nten\n");
    EXPECT_EQ(FatalOf([] { Next(); }), failure::SubscriptOutOfRange);
    EXPECT_TRUE(Main().isVisible());
}

TEST_F(StartWizardStepsTest, closing_it_goes_through_ShutDown_and_it_comes_back_at_the_next_start) {
    OpenWizard();
    SingleWindow<frmLog>::Get();
    appWindows.onShowEnd = [] { EXPECT_FALSE(SingleWindow<frmLog>::Loaded()); };
    bDBChanged = true;
    GoTo(3);
    Wizard().close();
    EXPECT_EQ(calls, (Calls{"ShowEnd", "SaveDB", "Release", "UnloadAllButMain", "EndProcess"}));
    EXPECT_FALSE(SingleWindow<frmLog>::Loaded());
    EXPECT_FALSE(IsOpen());
    EXPECT_FALSE(SingleWindow<frmMain>::Loaded());
    EXPECT_THAT(DB(), testing::HasSubstr("bFirstTime=1\r\n"));
}

TEST_F(StartWizardStepsTest, a_request_to_end_closes_it) {
    const EndOfSession endOfSession;
    OpenWizard();
    RequestEnd();
    RunEvents();
    EXPECT_EQ(calls, (Calls{"ShowEnd", "Release", "UnloadAllButMain", "EndProcess"}));
}

// The user has no way out of the box but to connect the drive.
TEST_F(StartWizardStepsTest, a_request_to_end_is_heard_between_the_boxes_of_the_finish) {
    const EndOfSession endOfSession;
    PlugNewStick();
    OpenWizard();
    GoTo(9);
    disk.Pull('e');
    Yielding yielding([now = std::int64_t{0}]() mutable { return now += 1000; });
    Service<EventLoop>::Use(&yielding);
    const RealPrompts real;
    // In the program the process ends here.
    store.onRelease = [this] {
        Service<FileService>::Use(&disk);
        PlugNewStick('e');
    };
    WhenModal([](QWidget&) { RequestEnd(); });
    Next();
    EXPECT_THAT(calls, Contains("EndProcess"));
}

TEST_F(StartWizardStepsTest, nothing_in_the_wizard_can_be_pressed_between_the_boxes_of_the_finish) {
    PlugNewStick();
    OpenWizard();
    GoTo(9);
    disk.Pull('e');
    UserAtYields user;
    user.act = [this](int) {
        PlugNewStick('e');
        Next();
        QTest::keyClick(&Wizard(), Qt::Key_Return);
        EXPECT_TRUE(IsOpen());
        EXPECT_EQ(IdentityFile(), "");
        Back();
        EXPECT_THAT(Shown(), ElementsAre(9));
    };
    const RealPrompts real;
    WhenModal([](QWidget& box) {
        EXPECT_TRUE(box.isEnabled());
        QTest::keyClick(&box, Qt::Key_Return);
    });
    Next();
    EXPECT_EQ(user.yields, 1);
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(IdentityFile(), "[Data]\r\nPSPName=My PSP\r\n");
    EXPECT_TRUE(Main().isVisible());
}

TEST_F(StartWizardStepsTest, boxes_belong_to_the_wizard) {
    OpenWizard();
    const RealPrompts real;
    QWidget* owner = nullptr;
    WhenModal([&](QWidget& box) {
        owner = box.parentWidget();
        QTest::keyClick(&box, Qt::Key_Escape);
    });
    MsgBox(QStringLiteral("Hello"));
    EXPECT_EQ(owner, &Wizard());
}

TEST_F(StartWizardStepsTest, the_start_shows_the_wizard_alone_and_does_not_wait_for_it) {
    WireUpCalls();
    Service<AppWindows>::Get().ShowStartWizard();
    EXPECT_TRUE(Wizard().isVisible());
    EXPECT_FALSE(Wizard().isModal());
    EXPECT_FALSE(SingleWindow<frmMain>::Loaded());
}

}  // namespace tavel::test
