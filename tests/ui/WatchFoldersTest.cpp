#include "core/PublicStuff.h"
#include "library/Scan.h"
#include "platform/Failure.h"
#include "ui/setup/FolderList.h"
#include "ui/setup/frmWatchFolders.h"
#include "ui/support/MainWindow.h"
#include "ui/support/Replacements.h"
#include "ui/toolkit/Strings.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>

namespace tavel::test {

namespace {

// frmWatchFolders over a db.txt that the test writes.
class WatchFoldersTest : public MainWindowTest {
  protected:
    void Contain(const std::string& watch) const {
        temp.Write("db.txt", "[watch]\r\n" + watch + "[options]\r\nbFirstTime=0\r\n");
    }

    frmWatchFolders& Show() {
        Window().show();
        Window().activateWindow();
        (void)QTest::qWaitForWindowActive(&Window());
        return Window();
    }

    static frmWatchFolders& Window() { return SingleWindow<frmWatchFolders>::Get(); }
    static bool IsOpen() { return SingleWindow<frmWatchFolders>::Loaded(); }
    static FolderList& lstFolders() { return Find<FolderList>(Window(), "lstFolders"); }
    static QComboBox& cmbScanDelay() { return Find<QComboBox>(Window(), "cmbScanDelay"); }

    static std::string Folders() {
        std::string folders;
        for (int i = 0; i < lstFolders().Count(); ++i) folders += lstFolders().Folder(i) + " ";
        return folders;
    }

    static QPoint PointOf(int row) {
        return lstFolders().visualItemRect(lstFolders().item(row)).center();
    }
    static void ClickFolder(int row, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mouseClick(lstFolders().viewport(), button, {}, PointOf(row));
    }
    static void ClickBox(const char* name) {
        auto& box = Find<QCheckBox>(Window(), name);
        QTest::mouseClick(&box, Qt::LeftButton, {}, {8, box.height() / 2});
    }

    // "Music Photo Video": a digit each.
    static std::string Boxes() {
        std::string states;
        for (const char* name : {"chkMusic", "chkPhoto", "chkVideo"}) {
            const Qt::CheckState state = Find<QCheckBox>(Window(), name).checkState();
            states += state == Qt::Unchecked ? '0' : state == Qt::Checked ? '1' : '2';
        }
        return states;
    }

    const QString prompt = QStringLiteral("Please select a folder:");
};

}  // namespace

TEST_F(WatchFoldersTest, opens_with_its_words_and_what_is_stored) {
    Contain("noofflds=2\r\n0=c:\\One\r\n1=c:\\Two\r\n2=c:\\Left over\r\ndelay=30\r\n");
    Show();
    EXPECT_EQ(FromQString(Window().windowTitle()), "Watch Folders");
    EXPECT_FALSE(Window().isModal());
    EXPECT_EQ(FromQString(Find<QLabel>(Window(), "Label1").text()),
              "These folders are monitored for new media files at regular intervals, and are "
              "automattically added to the DB");
    EXPECT_EQ(FromQString(Find<QLabel>(Window(), "Label2").text()), "Scan folders every");
    EXPECT_EQ(FromQString(Find<QGroupBox>(Window(), "Frame1").title()),
              "Watch the selected folder for...");
    EXPECT_EQ(FromQString(Find<QGroupBox>(Window(), "Frame2").title()), "Options");
    for (const auto& [name, text] : {std::pair("cmdAddFolder", "+ Folder"),
                                     {"cmdDelFolder", "-  Folder"},
                                     {"cmdOK", "OK"},
                                     {"cmdCancel", "Cancel"}})
        EXPECT_EQ(FromQString(Find<QPushButton>(Window(), name).text()), text);
    for (const auto& [name, text] :
         {std::pair("chkPhoto", "Photos"), {"chkMusic", "Music"}, {"chkVideo", "Videos"}}) {
        EXPECT_EQ(FromQString(Find<QCheckBox>(Window(), name).text()), text);
        EXPECT_EQ(Find(Window(), name).parent(), &Find(Window(), "Frame1"));
    }
    EXPECT_EQ(Folders(), "c:\\One c:\\Two ");
    EXPECT_EQ(lstFolders().Selected(), -1);
    EXPECT_EQ(Boxes(), "000");
    std::string delays;
    for (int i = 0; i < cmbScanDelay().count(); ++i)
        delays += FromQString(cmbScanDelay().itemText(i)) + "=" +
                  std::to_string(cmbScanDelay().itemData(i).toInt()) + " ";
    EXPECT_EQ(delays, "1 Minute=1 5 Minutes=5 30 Minutes=30 1 Hour=60 ");
    EXPECT_EQ(FromQString(cmbScanDelay().currentText()), "30 Minutes");
}

TEST_F(WatchFoldersTest, each_stored_delay_has_its_item_and_any_other_has_none) {
    for (const auto& [stored, shown] : {std::pair("delay=1\r\n", "1 Minute"),
                                        {"delay=5\r\n", "5 Minutes"},
                                        {"delay=30\r\n", "30 Minutes"},
                                        {"delay=60\r\n", "1 Hour"},
                                        {"", "1 Hour"},
                                        {"delay=soon\r\n", "1 Hour"},
                                        {"delay=0\r\n", ""},
                                        {"delay=7\r\n", ""},
                                        {"delay=-1\r\n", ""}}) {
        Contain(std::string("noofflds=0\r\n") + stored);
        EXPECT_EQ(FromQString(cmbScanDelay().currentText()), shown) << stored;
        SingleWindow<frmWatchFolders>::Unload();
        RunEvents();
    }
}

TEST_F(WatchFoldersTest, a_missing_count_is_no_folder_and_a_missing_number_shows_as_it_reads) {
    Contain("");
    EXPECT_EQ(lstFolders().Count(), 0);
    SingleWindow<frmWatchFolders>::Unload();
    Contain("noofflds=2\r\n1=c:\\Two\r\n");
    EXPECT_EQ(Folders(), "XYZXYZ c:\\Two ");
}

TEST_F(WatchFoldersTest, a_click_on_a_folder_shows_the_boxes_of_its_number) {
    Contain(
        "noofflds=3\r\n0=c:\\One\r\n1=c:\\Two\r\n2=c:\\Three\r\n"
        "0Music=1\r\n0Photo=0\r\n0Video=2\r\n1Music=0\r\n1Photo=1\r\n1Video=0\r\n");
    Show();
    ClickFolder(0);
    EXPECT_EQ(Boxes(), "102");
    ClickFolder(1);
    EXPECT_EQ(Boxes(), "010");
    ClickFolder(2);
    EXPECT_EQ(Boxes(), "222") << "what no file has is grey";
    QTest::keyClick(&lstFolders(), Qt::Key_Home);
    EXPECT_EQ(Boxes(), "102") << "moving by keyboard is a click";
}

TEST_F(WatchFoldersTest, a_click_on_the_selected_folder_reads_its_boxes_again) {
    Contain("noofflds=1\r\n0=c:\\One\r\n0Music=1\r\n0Photo=1\r\n0Video=1\r\n");
    Show();
    ClickFolder(0);
    ClickBox("chkMusic");
    EXPECT_EQ(Boxes(), "011");
    ClickFolder(0);
    EXPECT_EQ(Boxes(), "111");
}

TEST_F(WatchFoldersTest, beside_the_folders_and_over_none_a_click_changes_nothing) {
    Contain("noofflds=1\r\n0=c:\\One\r\n-1Music=1\r\n0Music=1\r\n0Photo=1\r\n0Video=1\r\n");
    Show();
    const QPoint below = PointOf(0) + QPoint(0, 40);
    QTest::mouseClick(lstFolders().viewport(), Qt::LeftButton, {}, below);
    EXPECT_EQ(Boxes(), "000");
    ClickFolder(0);
    ClickBox("chkMusic");
    // With Control a click is a click, and takes the selection away.
    QTest::mouseClick(lstFolders().viewport(), Qt::LeftButton, Qt::ControlModifier, PointOf(0));
    EXPECT_EQ(lstFolders().Selected(), -1);
    EXPECT_EQ(Boxes(), "111");
}

TEST_F(WatchFoldersTest, the_pointer_dragged_over_the_folders_shows_the_boxes_of_where_it_stops) {
    Contain("noofflds=2\r\n0=c:\\One\r\n1=c:\\Two\r\n1Music=1\r\n1Photo=1\r\n1Video=1\r\n");
    Show();
    QWidget& area = *lstFolders().viewport();
    QTest::mousePress(&area, Qt::LeftButton, {}, PointOf(0));
    QMouseEvent move(QEvent::MouseMove, PointOf(1), area.mapToGlobal(PointOf(1)), Qt::NoButton,
                     Qt::LeftButton, {});
    QApplication::sendEvent(&area, &move);
    QTest::mouseRelease(&area, Qt::LeftButton, {}, PointOf(1));
    EXPECT_EQ(lstFolders().Selected(), 1);
    EXPECT_EQ(Boxes(), "111");
}

TEST_F(WatchFoldersTest, a_stored_box_that_is_none_fails_behind_those_before_it) {
    Contain("noofflds=1\r\n0=c:\\One\r\n0Music=1\r\n0Photo=7\r\n0Video=1\r\n");
    Show();
    EXPECT_EQ(FatalOf([] { ClickFolder(0); }), failure::InvalidPropertyValue);
    EXPECT_EQ(Boxes(), "100");
}

TEST_F(WatchFoldersTest, a_click_on_a_grey_box_clears_it) {
    Contain("noofflds=1\r\n0=c:\\One\r\n");
    Show();
    ClickFolder(0);
    ClickBox("chkPhoto");
    EXPECT_EQ(Boxes(), "202");
    ClickBox("chkPhoto");
    EXPECT_EQ(Boxes(), "212");
    ClickBox("chkPhoto");
    EXPECT_EQ(Boxes(), "202") << "grey comes from the file alone";
}

TEST_F(WatchFoldersTest, folders_are_added_as_often_as_they_are_picked) {
    Contain("noofflds=0\r\n");
    Show();
    for (const char* answer : {"c:\\Pictures", "", "c:\\Pictures"}) {
        prompts.ExpectFolder(prompt, answer);
        Click(Window(), "cmdAddFolder");
    }
    EXPECT_EQ(Folders(), "c:\\Pictures c:\\Pictures ");
    EXPECT_EQ(lstFolders().Selected(), -1);
    const FolderRequest& asked = prompts.LastFolderRequest();
    EXPECT_EQ(asked.owner, &Window());
    EXPECT_FALSE(asked.includeFiles);
    EXPECT_FALSE(asked.newStyle);
    EXPECT_FALSE(asked.callback) << "no folder to start at";
}

TEST_F(WatchFoldersTest, a_folder_added_to_a_long_list_comes_into_sight) {
    Contain("noofflds=50\r\n");
    Show();
    prompts.ExpectFolder(prompt, "c:\\New");
    Click(Window(), "cmdAddFolder");
    EXPECT_TRUE(lstFolders().viewport()->rect().contains(PointOf(50)));
}

TEST_F(WatchFoldersTest, an_added_folder_shows_the_boxes_of_the_folder_that_last_had_its_number) {
    Contain("noofflds=0\r\n0Music=1\r\n0Photo=0\r\n0Video=1\r\n");
    Show();
    for (int i = 0; i < 2; ++i) {
        prompts.ExpectFolder(prompt, "c:\\New");
        Click(Window(), "cmdAddFolder");
    }
    ClickFolder(0);
    EXPECT_EQ(Boxes(), "101");
    ClickFolder(1);
    EXPECT_EQ(Boxes(), "222");
}

TEST_F(WatchFoldersTest, the_selected_folder_is_removed_and_none_is_selected_then) {
    Contain("noofflds=3\r\n0=c:\\One\r\n1=c:\\Two\r\n2=c:\\Three\r\n0Music=1\r\n1Music=0\r\n");
    Show();
    ClickFolder(0);
    EXPECT_EQ(Boxes(), "122");
    Click(Window(), "cmdDelFolder");
    EXPECT_EQ(Folders(), "c:\\Two c:\\Three ");
    EXPECT_EQ(Boxes(), "122");
    Click(Window(), "cmdDelFolder");
    EXPECT_EQ(Folders(), "c:\\Two c:\\Three ");
    ClickFolder(1);
    Click(Window(), "cmdDelFolder");
    EXPECT_EQ(Folders(), "c:\\Two ");
}

TEST_F(WatchFoldersTest, a_folder_that_only_has_the_focus_is_not_removed) {
    Contain("noofflds=1\r\n0=c:\\One\r\n0Music=1\r\n");
    Show();
    lstFolders().setFocus(Qt::TabFocusReason);
    Click(Window(), "cmdDelFolder");
    EXPECT_EQ(Folders(), "c:\\One ");
    EXPECT_EQ(Boxes(), "000");
}

TEST_F(WatchFoldersTest, OK_stores_the_folders_with_the_same_boxes_for_all_and_then_the_delay) {
    Contain(
        "noofflds=2\r\n0=c:\\One\r\n1=c:\\Two\r\n2=c:\\Old\r\n0Music=0\r\n2Photo=1\r\n"
        "delay=60\r\n");
    iScanDelay = 60;
    iScanTicks = 7;
    Show();
    ClickFolder(0);
    ClickBox("chkPhoto");
    cmbScanDelay().setCurrentIndex(1);
    Click(Window(), "cmdOK");
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(temp.Read("db.txt"),
              "[watch]\r\nnoofflds=2\r\n0=c:\\One\r\n1=c:\\Two\r\n2=c:\\Old\r\n0Music=0\r\n"
              "2Photo=1\r\ndelay=5\r\n0Photo=0\r\n0Video=2\r\n1Music=0\r\n1Photo=0\r\n"
              "1Video=2\r\n[options]\r\nbFirstTime=0\r\n");
    EXPECT_EQ(iScanDelay, 5);
    EXPECT_EQ(iScanTicks, 7) << "the minutes go on being counted";
}

TEST_F(WatchFoldersTest, OK_over_a_shorter_list_leaves_the_old_numbers_behind_the_count) {
    Contain("noofflds=2\r\n0=c:\\One\r\n1=c:\\Two\r\n");
    Show();
    ClickFolder(0);
    Click(Window(), "cmdDelFolder");
    Click(Window(), "cmdOK");
    EXPECT_EQ(temp.Read("db.txt"),
              "[watch]\r\nnoofflds=1\r\n0=c:\\Two\r\n1=c:\\Two\r\n0Music=2\r\n0Photo=2\r\n"
              "0Video=2\r\ndelay=60\r\n[options]\r\nbFirstTime=0\r\n");
    EXPECT_EQ(WatchFolders(), std::vector<std::string>{"c:\\Two"});
}

TEST_F(WatchFoldersTest, OK_without_a_delay_fails_when_the_folders_are_written) {
    Contain("noofflds=0\r\n0=c:\\Old\r\ndelay=0\r\n");
    iScanDelay = 0;
    Show();
    prompts.ExpectFolder(prompt, "c:\\New");
    Click(Window(), "cmdAddFolder");
    EXPECT_EQ(FatalOf([] { Click(Window(), "cmdOK"); }), failure::InvalidPropertyArrayIndex);
    EXPECT_EQ(temp.Read("db.txt"),
              "[watch]\r\nnoofflds=1\r\n0=c:\\New\r\ndelay=0\r\n0Music=0\r\n0Photo=0\r\n"
              "0Video=0\r\n[options]\r\nbFirstTime=0\r\n");
    EXPECT_EQ(iScanDelay, 0);
}

TEST_F(WatchFoldersTest, OK_reaches_the_file_in_one_step) {
    Contain("noofflds=2\r\n0=c:\\One\r\n1=c:\\Two\r\n");
    Show();
    const Replacements replacements(temp.HostPath());
    Click(Window(), "cmdOK");
    EXPECT_EQ(replacements.Of("db.txt"), 1);
}

TEST_F(WatchFoldersTest, a_folder_whose_name_is_no_unicode_comes_back_byte_for_byte) {
    Contain("noofflds=1\r\n0=c:\\Caf\xE9\r\n");
    Show();
    EXPECT_EQ(FromQString(lstFolders().item(0)->text()), "c:\\Caf\u00E9");
    Click(Window(), "cmdOK");
    EXPECT_EQ(WatchFolders(), std::vector<std::string>{"c:\\Caf\xE9"});
}

TEST_F(WatchFoldersTest, Cancel_Escape_and_the_close_box_store_nothing) {
    const std::string stored = "noofflds=1\r\n0=c:\\One\r\ndelay=60\r\n";
    Contain(stored);
    const std::string before = temp.Read("db.txt");
    iScanDelay = 60;
    for (int way = 0; way < 3; ++way) {
        Show();
        ASSERT_EQ(Folders(), "c:\\One ");
        ClickFolder(0);
        ClickBox("chkPhoto");
        Click(Window(), "cmdDelFolder");
        cmbScanDelay().setCurrentIndex(0);
        if (way == 0) Click(Window(), "cmdCancel");
        if (way == 1) QTest::keyClick(&lstFolders(), Qt::Key_Escape);
        if (way == 2) Window().close();
        EXPECT_FALSE(IsOpen()) << way;
        EXPECT_EQ(temp.Read("db.txt"), before);
        EXPECT_EQ(iScanDelay, 60);
        RunEvents();
    }
}

TEST_F(WatchFoldersTest, Enter_is_OK_or_the_button_that_has_the_focus) {
    Contain("noofflds=0\r\ndelay=5\r\n");
    Show();
    Find(Window(), "cmdCancel").setFocus();
    QTest::keyClick(&Find(Window(), "cmdCancel"), Qt::Key_Return);
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(iScanDelay, 0);
    RunEvents();
    Show();
    QTest::keyClick(&lstFolders(), Qt::Key_Return);
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(iScanDelay, 5);
}

TEST_F(WatchFoldersTest, a_long_path_loses_its_middle_and_is_a_tip_in_full) {
    const std::string sLong = "c:\\" + std::string(120, 'a') + "\\" + std::string(100, 'b');
    Contain("noofflds=2\r\n0=" + sLong + "\r\n1=c:\\One\r\n");
    Show();
    EXPECT_EQ(lstFolders().textElideMode(), Qt::ElideMiddle);
    EXPECT_EQ(FromQString(TipAt(*lstFolders().viewport(), PointOf(0))), sLong);
    EXPECT_EQ(FromQString(TipAt(*lstFolders().viewport(), PointOf(1))), "");
}

TEST_F(WatchFoldersTest, a_press_of_another_button_is_no_click) {
    Contain("noofflds=2\r\n0=c:\\One\r\n1=c:\\Two\r\n0Photo=0\r\n1Photo=1\r\n");
    Show();
    ClickFolder(0);
    ClickBox("chkPhoto");
    const std::string boxes = Boxes();
    for (const Qt::MouseButton button : {Qt::RightButton, Qt::MiddleButton}) {
        for (const int row : {0, 1}) ClickFolder(row, button);
        EXPECT_EQ(Boxes(), boxes) << button;
        EXPECT_EQ(lstFolders().Selected(), 0) << button;
    }
}

TEST_F(WatchFoldersTest, keeps_the_font_of_the_desktop) {
    Contain("noofflds=0\r\n");
    for (const char* name : {"Label1", "lstFolders", "cmdOK", "chkPhoto", "cmbScanDelay"}) {
        EXPECT_EQ(Find(Window(), name).font().families(), QApplication::font().families()) << name;
        EXPECT_EQ(Find(Window(), name).font().pointSizeF(), QApplication::font().pointSizeF());
    }
}

TEST_F(WatchFoldersTest, its_menu_entry_opens_it_once_above_the_main_window) {
    Open();
    for (int i = 0; i < 2; ++i) {
        Pick({"mnuFile", "mnuAdd", "mnuWatchFolders"});
        ASSERT_TRUE(IsOpen());
        EXPECT_TRUE(Window().isVisible());
        EXPECT_FALSE(Window().isModal());
        EXPECT_EQ(Window().windowHandle()->transientParent(), Main().windowHandle());
        Window().setProperty("seen", i);
    }
    EXPECT_EQ(Window().property("seen"), 1);
    RunEvents();
    EXPECT_EQ(QApplication::activeWindow(), &Window());
}

}  // namespace tavel::test
