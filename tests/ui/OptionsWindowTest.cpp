#include "core/Options.h"
#include "core/PublicStuff.h"
#include "ui/setup/frmOptions.h"
#include "ui/support/MainWindow.h"
#include "ui/support/Replacements.h"
#include "ui/toolkit/Strings.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QPushButton>
#include <QScreen>
#include <QTabBar>
#include <filesystem>

namespace tavel::test {

namespace {

class OptionsWindowTest : public MainWindowTest {
  protected:
    OptionsWindowTest() { temp.Write("db.txt", stored); }

    static void Show() {
        Window().show();
        Window().activateWindow();
        (void)QTest::qWaitForWindowActive(&Window());
    }

    static frmOptions& Window() { return SingleWindow<frmOptions>::Get(); }
    static bool IsOpen() { return SingleWindow<frmOptions>::Loaded(); }
    static QTabBar& Tabs() { return Find<QTabBar>(Window(), "tbsOptions"); }
    static QCheckBox& Box(const char* name) { return Find<QCheckBox>(Window(), name); }

    static void ClickTab(int tab) {
        QTest::mouseClick(&Tabs(), Qt::LeftButton, {}, Tabs().tabRect(tab).center());
    }
    static void ClickBox(const char* name) {
        QTest::mouseClick(&Box(name), Qt::LeftButton, {}, {8, Box(name).height() / 2});
    }

    // Indexes of the panels that show.
    static std::string Panels() {
        std::string shown;
        for (int i = 0; i < 5; ++i) {
            const std::string name = "picOptions(" + std::to_string(i) + ")";
            if (Find(Window(), name.c_str()).isVisible()) shown += std::to_string(i);
        }
        return shown;
    }

    // bAutoGroup, bScanOnAppStart, bAddHiddenFiles, bGroupZip
    static std::string Flags() {
        std::string flags;
        for (const bool flag : {bAutoGroup, bScanOnAppStart, bAddHiddenFiles, bGroupZip})
            flags += flag ? '1' : '0';
        return flags;
    }
    static std::string Boxes() {
        std::string boxes;
        for (const char* name : boxNames) boxes += Box(name).isChecked() ? '1' : '0';
        return boxes;
    }

    static constexpr const char* boxNames[] = {"chkScan_AutoGroup", "chkScan_ScanOnStart",
                                               "chkScan_Hidden", "chkGeneral_ZipGroup"};
    const std::string stored =
        "[options]\r\nbFirstTime=0\r\nbGroupZip=False\r\niVidThumbMode=0\r\n"
        "sDefaultDBPath=Media\r\n";
};

}  // namespace

TEST_F(OptionsWindowTest, opens_on_its_first_tab_with_its_words) {
    Show();
    EXPECT_EQ(FromQString(Window().windowTitle()), "Options");
    EXPECT_FALSE(Window().isModal());
    ASSERT_EQ(Tabs().count(), 2);
    EXPECT_EQ(FromQString(Tabs().tabText(0)), "General");
    EXPECT_EQ(FromQString(Tabs().tabText(1)), "Scan");
    EXPECT_EQ(FromQString(Tabs().tabToolTip(0)), "General Tavel Options");
    EXPECT_EQ(FromQString(Tabs().tabToolTip(1)), "Options relating to scanning for media");
    EXPECT_EQ(Tabs().currentIndex(), 0);
    EXPECT_EQ(Panels(), "4");
    const struct {
        const char* panel;
        const char* frame;
        const char* title;
        const char* box;
        const char* text;
    } words[] = {{"picOptions(4)", "Frame2", "DB General", "chkGeneral_ZipGroup",
                  "Create a group when adding a zip file"},
                 {"picOptions(0)", "fraSample1", "General", "chkScan_AutoGroup",
                  "Create groups from the scanned folder structure"},
                 {"picOptions(0)", "Frame1", "Background Scan", "chkScan_ScanOnStart",
                  "Perform a scan when Tavel is started"},
                 {"picOptions(0)", "Frame1", "Background Scan", "chkScan_Hidden",
                  "Add \"Hidden\" files to the DB"}};
    for (const auto& word : words) {
        auto& frame = Find<QGroupBox>(Window(), word.frame);
        EXPECT_EQ(frame.parent(), &Find(Window(), word.panel));
        EXPECT_EQ(FromQString(frame.title()), word.title);
        EXPECT_EQ(Box(word.box).parent(), &frame);
        EXPECT_EQ(FromQString(Box(word.box).text()), word.text);
    }
    for (const auto& [name, text] : {std::pair("cmdOK", "OK"), {"cmdCancel", "Cancel"}})
        EXPECT_EQ(FromQString(Find<QPushButton>(Window(), name).text()), text);
}

TEST_F(OptionsWindowTest, stands_in_the_middle_of_the_screen) {
    Open().move(0, 0);
    Pick({"mnuTools", "mnuOptions"});
    RunEvents();
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    const QRect frame = Window().frameGeometry();
    const QSize free = screen.size() - frame.size();
    EXPECT_GT(frame.height(), Window().height());
    EXPECT_EQ(frame.topLeft(), screen.topLeft() + QPoint(free.width() / 2, free.height() / 2));
    EXPECT_EQ(Window().windowHandle()->transientParent(), Main().windowHandle());
    EXPECT_EQ(QApplication::activeWindow(), &Window());
}

TEST_F(OptionsWindowTest, a_window_that_is_open_stays_where_it_was_moved_to) {
    Open();
    Pick({"mnuTools", "mnuOptions"});
    ClickBox("chkGeneral_ZipGroup");
    Window().move(30, 40);
    Pick({"mnuTools", "mnuOptions"});
    EXPECT_EQ(Window().pos(), QPoint(30, 40));
    EXPECT_EQ(Boxes(), "0001");
}

TEST_F(OptionsWindowTest, a_click_on_a_tab_shows_its_panel_and_hides_all_others) {
    Show();
    const QSize size = Window().size();
    ClickTab(1);
    EXPECT_EQ(Panels(), "0");
    ClickTab(1);
    EXPECT_EQ(Panels(), "0");
    ClickTab(0);
    EXPECT_EQ(Panels(), "4");
    EXPECT_EQ(Window().size(), size);
}

TEST_F(OptionsWindowTest, Control_and_Tab_go_through_the_tabs_and_round) {
    Show();
    for (const char* control : {"cmdOK", "chkGeneral_ZipGroup", "tbsOptions"}) {
        Find(Window(), control).setFocus();
        QTest::keyClick(&Find(Window(), control), Qt::Key_Tab, Qt::ControlModifier);
        EXPECT_EQ(Tabs().currentIndex(), 1) << control;
        EXPECT_EQ(Panels(), "0");
        QTest::keyClick(&Window(), Qt::Key_Tab, Qt::ControlModifier);
        EXPECT_EQ(Tabs().currentIndex(), 0) << control;
        EXPECT_EQ(Panels(), "4");
    }
}

TEST_F(OptionsWindowTest, with_any_other_key_held_Tab_changes_no_tab) {
    Show();
    for (const Qt::KeyboardModifiers keys :
         {Qt::KeyboardModifiers(Qt::NoModifier), Qt::ControlModifier | Qt::ShiftModifier,
          Qt::ControlModifier | Qt::AltModifier, Qt::KeyboardModifiers(Qt::AltModifier)}) {
        QTest::keyClick(&Window(), Qt::Key_Tab, keys);
        // As the window system tells it.
        if (keys & Qt::ShiftModifier) QTest::keyClick(&Window(), Qt::Key_Backtab, keys);
        EXPECT_EQ(Tabs().currentIndex(), 0) << static_cast<int>(keys);
    }
}

TEST_F(OptionsWindowTest, each_box_shows_its_flag) {
    for (int flags = 0; flags < 16; ++flags) {
        bAutoGroup = flags & 8;
        bScanOnAppStart = flags & 4;
        bAddHiddenFiles = flags & 2;
        bGroupZip = flags & 1;
        EXPECT_EQ(Boxes(), Flags());
        SingleWindow<frmOptions>::Unload();
        RunEvents();
    }
}

TEST_F(OptionsWindowTest, OK_writes_each_box_and_sets_its_flag_but_the_zip_flag_by_the_wrong_box) {
    for (int boxes = 0; boxes < 16; ++boxes) {
        temp.Write("db.txt", stored);
        Show();
        const bool checked[] = {bool(boxes & 8), bool(boxes & 4), bool(boxes & 2), bool(boxes & 1)};
        for (std::size_t i = 0; i < 4; ++i) Box(boxNames[i]).setChecked(checked[i]);
        Click(Window(), "cmdOK");
        EXPECT_FALSE(IsOpen());
        RunEvents();
        const auto digit = [&](std::size_t i) { return std::string(checked[i] ? "1" : "0"); };
        EXPECT_EQ(Flags(), digit(0) + digit(1) + digit(2) + digit(2));
        EXPECT_EQ(temp.Read("db.txt"), "[options]\r\nbFirstTime=0\r\nbGroupZip=" + digit(3) +
                                           "\r\niVidThumbMode=0\r\nsDefaultDBPath=Media\r\n"
                                           "bAutoGroup=" +
                                           digit(0) + "\r\nbScanOnAppStart=" + digit(1) +
                                           "\r\nbAddHiddenFiles=" + digit(2) + "\r\n");
        LoadOptions();
        EXPECT_EQ(bGroupZip, checked[3]) << "the next start reads what the box said";
    }
}

TEST_F(OptionsWindowTest, OK_reaches_the_file_in_one_step) {
    Show();
    ClickBox("chkGeneral_ZipGroup");
    const Replacements replacements(temp.HostPath());
    Click(Window(), "cmdOK");
    EXPECT_EQ(replacements.Of("db.txt"), 1);
}

TEST_F(OptionsWindowTest, Cancel_Escape_and_the_close_box_leave_file_and_flags) {
    bAddHiddenFiles = true;
    for (int way = 0; way < 3; ++way) {
        Show();
        EXPECT_EQ(Boxes(), "0010") << "a fresh window";
        ClickBox("chkGeneral_ZipGroup");
        ClickTab(1);
        for (const char* name : {"chkScan_AutoGroup", "chkScan_ScanOnStart", "chkScan_Hidden"})
            ClickBox(name);
        EXPECT_EQ(Boxes(), "1101");
        if (way == 0) Click(Window(), "cmdCancel");
        if (way == 1) QTest::keyClick(&Box("chkScan_Hidden"), Qt::Key_Escape);
        if (way == 2) Window().close();
        EXPECT_FALSE(IsOpen()) << way;
        EXPECT_EQ(Flags(), "0010");
        EXPECT_EQ(temp.Read("db.txt"), stored);
        RunEvents();
    }
}

TEST_F(OptionsWindowTest, Enter_is_OK_or_the_button_that_has_the_focus) {
    Show();
    ClickBox("chkGeneral_ZipGroup");
    Find(Window(), "cmdCancel").setFocus();
    QTest::keyClick(&Find(Window(), "cmdCancel"), Qt::Key_Return);
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(temp.Read("db.txt"), stored);
    RunEvents();
    Show();
    ClickBox("chkGeneral_ZipGroup");
    QTest::keyClick(&Box("chkGeneral_ZipGroup"), Qt::Key_Return);
    EXPECT_FALSE(IsOpen());
    EXPECT_NE(temp.Read("db.txt"), stored);
}

TEST_F(OptionsWindowTest, a_file_that_cannot_be_written_is_no_failure_and_the_flags_count) {
    sDBFile = temp.DrivePath("none.txt");
    Show();
    Box("chkScan_AutoGroup").setChecked(true);
    Click(Window(), "cmdOK");
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(Flags(), "1000");
    EXPECT_FALSE(std::filesystem::exists(temp.HostPath("none.txt")));
}

TEST_F(OptionsWindowTest, keeps_the_font_of_the_desktop) {
    EXPECT_EQ(Find(Window(), "cmdOK").font().family(), QApplication::font().family());
    EXPECT_EQ(Box("chkScan_Hidden").font().pointSizeF(), QApplication::font().pointSizeF());
}

}  // namespace tavel::test
