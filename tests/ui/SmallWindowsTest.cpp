#include "core/AppWindows.h"
#include "core/Log.h"
#include "core/LogWindow.h"
#include "core/Main.h"
#include "core/PublicStuff.h"
#include "library/Adding.h"
#include "library/Collections.h"
#include "library/LibraryWindows.h"
#include "library/Scan.h"
#include "platform/Service.h"
#include "support/Recorders.h"
#include "support/Support.h"
#include "ui/main/UpCalls.h"
#include "ui/main/frmAdd.h"
#include "ui/main/frmCopy.h"
#include "ui/main/frmEnd.h"
#include "ui/main/frmInvFiles.h"
#include "ui/main/frmLog.h"
#include "ui/main/frmMain.h"
#include "ui/main/frmNewPSP.h"
#include "ui/main/frmSplash.h"
#include "ui/support/WatchedPictures.h"
#include "ui/support/Windows.h"
#include "ui/toolkit/LineList.h"
#include "ui/toolkit/SingleWindow.h"
#include "ui/toolkit/Strings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAction>
#include <QCheckBox>
#include <QGuiApplication>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <iostream>

namespace tavel::test {

namespace {

// The windows behind their up-calls, as in the program.
class SmallWindows : public ::testing::Test {
  protected:
    SmallWindows() {
        WireUpCalls();
        SetupStyle();
    }

    static frmLog& Log() { return SingleWindow<frmLog>::Get(); }
    static LineList& Lines() { return Find<LineList>(Log(), "lstLog"); }
    static frmAdd& Add() { return SingleWindow<frmAdd>::Get(); }
    static AddWindow& AddCalls() { return Service<AddWindow>::Get(); }
    static AppWindows& App() { return Service<AppWindows>::Get(); }
};

std::string TextOf(QWidget& window, const char* label) {
    return FromQString(Find<QLabel>(window, label).text());
}

std::string CaptionOf(QWidget& window, const char* button) {
    return FromQString(Find<QPushButton>(window, button).text());
}

bool IsStyled(QWidget& window, const char* control) {
    return Find(window, control).font().family() == QLatin1String("Verdanda");
}

}  // namespace

TEST_F(SmallWindows, a_log_with_no_window_shown_collects_lines) {
    AddLog("DB", "DB Loaded");
    AddLog("Form", "frmMain and frmLog Opened");
    EXPECT_TRUE(SingleWindow<frmLog>::Loaded());
    EXPECT_FALSE(Log().isVisible());
    Log().show();
    ASSERT_EQ(Lines().rowCount(), 2);
    EXPECT_TRUE(Lines().item(0, 0)->text().endsWith(QStringLiteral("\tDB\tDB Loaded")));
    EXPECT_TRUE(Lines().item(1, 0)->text().contains(QStringLiteral("\tFORM\t")));
}

TEST_F(SmallWindows, closing_the_log_loses_its_lines_and_opening_it_again_shows_none) {
    AddLog("DB", "DB Loaded");
    Log().show();
    Log().close();
    EXPECT_FALSE(SingleWindow<frmLog>::Loaded());
    AddLog("Back Scan", "Background scan finished");
    EXPECT_TRUE(SingleWindow<frmLog>::Loaded());
    EXPECT_FALSE(Log().isVisible()) << "a line shows no window";
    EXPECT_EQ(Lines().rowCount(), 1);
}

TEST_F(SmallWindows, Clear_empties_the_log_and_later_lines_go_on_arriving) {
    AddLog("Back Scan", "Begginging background scan");
    Log().show();
    EXPECT_EQ(CaptionOf(Log(), "cmdClear"), "Clear");
    Click(Log(), "cmdClear");
    EXPECT_EQ(Lines().rowCount(), 0);
    AddLog("New File", "New File Found - c:\\a.jpg");
    EXPECT_EQ(Lines().rowCount(), 1);
}

TEST_F(SmallWindows, the_log_does_not_scroll_to_a_new_line) {
    Log().show();
    for (int i = 0; i < 500; ++i) AddLog("DB", std::to_string(i));
    RunEvents();
    EXPECT_EQ(Lines().rowAt(4), 0);
}

TEST_F(SmallWindows, the_log_takes_more_lines_than_an_Integer_counts) {
    for (int i = 0; i < 40000; ++i) AddLog("DB", std::to_string(i));
    ASSERT_EQ(Lines().rowCount(), 40000);
    EXPECT_TRUE(Lines().item(0, 0)->text().endsWith(QStringLiteral("\t0")));
    EXPECT_TRUE(Lines().item(39999, 0)->text().endsWith(QStringLiteral("\t39999")));
}

TEST_F(SmallWindows, Clear_during_a_scan_leaves_the_later_lines_of_the_scan) {
    const TempFolder temp;
    WatchTwoPictures(temp);
    Log().show();
    Calls yields;
    EventLoopRecorder loop(yields);
    loop.onYield = [&] {
        if (yields.size() == 2) Click(Log(), "cmdClear");  // after the first file
    };
    BackgroundScan();
    ReleaseCollections();
    ASSERT_EQ(Lines().rowCount(), 2);
    EXPECT_TRUE(Lines().item(0, 0)->text().endsWith(QStringLiteral("b.jpg")));
    EXPECT_TRUE(
        Lines().item(1, 0)->text().endsWith(QStringLiteral("BACK SCAN\tBackground scan finished")));
}

TEST_F(SmallWindows, the_log_stands_flush_at_the_right_of_the_screen) {
    EXPECT_EQ(FromQString(Log().windowTitle()), "Log");
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    EXPECT_EQ(Log().frameGeometry().right(), screen.right());
    Log().show();
    RunEvents();
    EXPECT_GT(Log().frameGeometry().width(), Log().width());
    EXPECT_EQ(Log().frameGeometry().right(), screen.right());
    EXPECT_EQ(Log().y(), QWidget().y()) << "its top is not moved";
    Log().move(30, 40);
    RunEvents();
    EXPECT_EQ(Log().pos(), QPoint(30, 40)) << "it stays where the user puts it";
}

TEST_F(SmallWindows, the_logs_list_follows_the_width_of_its_window_and_nothing_else_moves) {
    Log().show();
    const QRect button = Find(Log(), "cmdClear").geometry();
    const int height = Lines().height();
    const int windowHeight = Log().height();
    EXPECT_EQ(Lines().x(), 8);
    EXPECT_EQ(Lines().width(), Log().width() - 21);
    Log().resize(900, 900);
    EXPECT_EQ(Log().size(), QSize(900, windowHeight));
    EXPECT_EQ(Lines().x(), 8);
    EXPECT_EQ(Lines().width(), 879);
    EXPECT_EQ(Lines().height(), height);
    EXPECT_EQ(Find(Log(), "cmdClear").geometry(), button);
}

TEST_F(SmallWindows, Adding_shows_the_path_that_it_is_given) {
    AddCalls().Show();
    EXPECT_TRUE(Add().isVisible());
    EXPECT_FALSE(Add().isModal());
    EXPECT_EQ(FromQString(Add().windowTitle()), "Adding to DB");
    EXPECT_EQ(TextOf(Add(), "Label2"), "Adding:-");
    EXPECT_EQ(CaptionOf(Add(), "cmdCancel"), "Cancel");
    AddCalls().SetPath("c:\\Pictures\\a.jpg");
    AddCalls().Repaint();
    EXPECT_EQ(TextOf(Add(), "labPath"), "c:\\Pictures\\a.jpg");
    EXPECT_TRUE(IsStyled(Add(), "labPath"));
}

TEST_F(SmallWindows, a_path_set_brings_the_add_window_into_being_hidden) {
    AddCalls().SetPath("c:\\a.jpg");
    AddCalls().Repaint();
    EXPECT_TRUE(SingleWindow<frmAdd>::Loaded());
    EXPECT_FALSE(Add().isVisible());
}

TEST_F(SmallWindows, a_long_path_does_not_widen_the_add_window) {
    AddCalls().Show();
    const QSize before = Add().size();
    AddCalls().SetPath("c:\\" + std::string(4000, 'x'));
    AddCalls().Repaint();
    EXPECT_EQ(Add().size(), before);
}

TEST_F(SmallWindows, Cancel_sets_the_flag_that_nobody_sees_and_does_nothing_else) {
    AddCalls().Show();
    EXPECT_FALSE(AddCalls().ExitChecked());
    Click(Add(), "cmdCancel");
    EXPECT_TRUE(AddCalls().ExitChecked());
    EXPECT_TRUE(Add().isVisible());
    EXPECT_FALSE(Find<QCheckBox>(Add(), "chkExit").isVisible());
}

TEST_F(SmallWindows, the_next_add_window_has_its_flag_clear) {
    AddCalls().Show();
    Click(Add(), "cmdCancel");
    AddCalls().Unload();
    EXPECT_FALSE(SingleWindow<frmAdd>::Loaded());
    EXPECT_FALSE(AddCalls().ExitChecked());
    EXPECT_FALSE(Add().isVisible());
}

TEST_F(SmallWindows, what_was_rejected_is_listed_until_OK) {
    ShowInvalidFiles({"c:\\a.doc", "c:\\b.xls"});
    frmInvFiles& window = SingleWindow<frmInvFiles>::Get();
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(FromQString(window.windowTitle()), "Invalid Files");
    EXPECT_EQ(TextOf(window, "Label1"),
              "The following items were not added to the DB, as they are not supported by your "
              "PSP and/or Tavel");
    auto& items = Find<LineList>(window, "lstItems");
    ASSERT_EQ(items.rowCount(), 2);
    EXPECT_EQ(FromQString(items.item(0, 0)->text()), "c:\\a.doc");
    EXPECT_EQ(FromQString(items.item(1, 0)->text()), "c:\\b.xls");
    Click(window, "cmdOK");
    EXPECT_FALSE(SingleWindow<frmInvFiles>::Loaded());
}

TEST_F(SmallWindows, Enter_and_Escape_close_the_list_of_what_was_rejected) {
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape}) {
        ShowInvalidFiles({"c:\\a.doc"});
        QTest::keyClick(&SingleWindow<frmInvFiles>::Get(), key);
        EXPECT_FALSE(SingleWindow<frmInvFiles>::Loaded()) << key;
    }
}

TEST_F(SmallWindows, the_splash_is_on_the_screen_until_it_is_unloaded) {
    App().ShowSplash();
    frmSplash& splash = SingleWindow<frmSplash>::Get();
    EXPECT_TRUE(splash.testAttribute(Qt::WA_Mapped));
    EXPECT_EQ(splash.size(), QSize(800, 300));
    EXPECT_FALSE(splash.windowFlags().testFlag(Qt::WindowCloseButtonHint));
    const QImage picture(QStringLiteral(":/artwork/splash.png"));
    EXPECT_EQ(splash.grab().toImage().convertToFormat(QImage::Format_RGB32),
              picture.convertToFormat(QImage::Format_RGB32))
        << "the picture fills it";
    App().UnloadSplash();
    EXPECT_FALSE(SingleWindow<frmSplash>::Loaded());
}

TEST_F(SmallWindows, the_end_says_that_the_library_is_being_saved) {
    App().ShowEnd();
    frmEnd& end = SingleWindow<frmEnd>::Get();
    EXPECT_TRUE(end.testAttribute(Qt::WA_Mapped));
    EXPECT_EQ(TextOf(end, "lblEnd"), "Saving DB...");
    EXPECT_TRUE(Find(end, "Picture1").isVisible());
    EXPECT_TRUE(IsStyled(end, "lblEnd"));
}

TEST_F(SmallWindows, title_bars_have_only_the_buttons_that_do_something) {
    const auto buttonsOf = [](const QWidget& window) {
        return window.windowFlags() & (Qt::WindowMinimizeButtonHint | Qt::WindowMaximizeButtonHint |
                                       Qt::WindowCloseButtonHint | Qt::WindowContextHelpButtonHint);
    };
    const auto sizes = [](const QWidget& window) {
        return !window.windowFlags().testFlag(Qt::MSWindowsFixedSizeDialogHint);
    };
    const Qt::WindowFlags close = Qt::WindowCloseButtonHint;
    frmMain main;
    EXPECT_EQ(buttonsOf(main), close | Qt::WindowMinimizeButtonHint) << "it has one size";
    EXPECT_EQ(buttonsOf(Add()), close);
    EXPECT_EQ(buttonsOf(SingleWindow<frmNewPSP>::Get()), close);
    EXPECT_EQ(buttonsOf(SingleWindow<frmInvFiles>::Get()), close);
    EXPECT_EQ(buttonsOf(SingleWindow<frmCopy>::Get()), Qt::WindowFlags());
    EXPECT_FALSE(sizes(Add()) || sizes(SingleWindow<frmNewPSP>::Get()) ||
                 sizes(SingleWindow<frmCopy>::Get()));
    EXPECT_TRUE(sizes(SingleWindow<frmInvFiles>::Get()));
}

TEST_F(SmallWindows, all_windows_but_the_main_one_are_unloaded_at_the_end) {
    App().ShowEnd();
    AddLog("DB", "DB Loaded");
    AddCalls().Show();
    QWidget main;
    main.setObjectName(QStringLiteral("frmMain"));
    bool mainUnloaded = false;
    WindowRegistry::Add(main, [&] { mainUnloaded = true; });
    App().UnloadAllButMain();
    WindowRegistry::Remove(main);
    EXPECT_FALSE(SingleWindow<frmEnd>::Loaded());
    EXPECT_FALSE(SingleWindow<frmLog>::Loaded());
    EXPECT_FALSE(SingleWindow<frmAdd>::Loaded());
    EXPECT_FALSE(mainUnloaded);
}

using SmallWindowsDeathTest = SmallWindows;

TEST_F(SmallWindowsDeathTest, EndProcess_ends_at_once_and_well) {
    EXPECT_EXIT(App().EndProcess(), testing::ExitedWithCode(0), "");
}

// Tells each release, of which there is one in each ShutDown.
class TellingStore : public Standing<LibraryStore> {
  public:
    void LoadDB() override {}
    void SaveDB() override {}
    void BackgroundScan() override {}
    void Release() override { std::cerr << "release " << ++m_releases << '\n'; }

  private:
    int m_releases = 0;
};

TEST_F(SmallWindowsDeathTest, Exit_ends_the_process_without_unloading_the_main_window) {
    const TempFolder temp;
    const TellingStore store;
    sDBFile = temp.DrivePath("db.txt");
    const auto exit = [] {
        App().ShowMain();
        Find<QAction>(SingleWindow<frmMain>::Get(), "mnuExit").trigger();
    };
    EXPECT_EXIT(exit(), testing::ExitedWithCode(0),
                testing::AllOf(testing::HasSubstr("release 1\n"),
                               testing::Not(testing::HasSubstr("release 2"))));
}

}  // namespace tavel::test
