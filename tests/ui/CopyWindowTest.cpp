#include "core/Main.h"
#include "device/DeviceWindows.h"
#include "platform/Service.h"
#include "ui/main/UpCalls.h"
#include "ui/main/frmCopy.h"
#include "ui/support/OnPaint.h"
#include "ui/support/Windows.h"
#include "ui/toolkit/ProgressBar.h"
#include "ui/toolkit/SingleWindow.h"
#include "ui/toolkit/Strings.h"

#include <gtest/gtest.h>

#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QTimer>

namespace tavel::test {

namespace {

class CopyWindows : public ::testing::Test {
  protected:
    CopyWindows() {
        WireUpCalls();
        SetupStyle();
        Calls().Show();
    }

    static CopyWindow& Calls() { return Service<CopyWindow>::Get(); }
    static frmCopy& Window() { return SingleWindow<frmCopy>::Get(); }
    static bool IsVisible(const char* control) { return Find(Window(), control).isVisible(); }
    static std::string Text(const char* label) {
        return FromQString(Find<QLabel>(Window(), label).text());
    }
    static double Points(const char* label) { return Find(Window(), label).font().pointSizeF(); }
};

}  // namespace

TEST_F(CopyWindows, is_on_the_screen_with_its_words_as_designed) {
    EXPECT_TRUE(Window().testAttribute(Qt::WA_Mapped));
    EXPECT_EQ(FromQString(Window().windowTitle()), "Copying");
    EXPECT_EQ(FromQString(Window().findChild<QGroupBox*>()->title()), "Copy Files");
    EXPECT_EQ(Text("Label1"), "Current File");
    EXPECT_EQ(Text("Label2"), "Total Progress");
    EXPECT_EQ(Text("Label3"), "Copying:");
    EXPECT_EQ(Text("labFinish"), "Finished!");
    EXPECT_EQ(FromQString(Find<QPushButton>(Window(), "cmdOK").text()), "OK");
    EXPECT_EQ(Points("Label3"), 13.5);
    EXPECT_EQ(Points("labFile"), 13.5);
    EXPECT_EQ(Points("labFinish"), 24);
    EXPECT_FALSE(IsVisible("labSubFile"));
    EXPECT_FALSE(IsVisible("labFinish"));
    EXPECT_FALSE(IsVisible("cmdOK"));
    EXPECT_FALSE(Find(Window(), "cmdOK").isEnabled());
    EXPECT_EQ(Find(Window(), "labFile").font().family(), QStringLiteral("Verdanda"));
}

TEST_F(CopyWindows, has_each_bar_below_its_words_and_leaves_other_windows_alone) {
    Calls().ShowSubFile(true);
    Calls().ShowFinish();
    Calls().ShowOK();
    Calls().Repaint();
    int bottom = 0;
    for (const char* name : {"Label1", "pgbCurr", "Label2", "pgbTotal", "labFile", "labSubFile",
                             "labFinish", "cmdOK"}) {
        const QRect place = Find(Window(), name).geometry();
        EXPECT_GE(place.top(), bottom) << name;
        bottom = place.bottom();
    }
    EXPECT_EQ(Find(Window(), "Label3").y(), Find(Window(), "labFile").y());
    EXPECT_FALSE(Window().isModal());
}

TEST_F(CopyWindows, follows_the_transfer) {
    const QSize before = Window().size();
    Calls().SetFile("Holiday");
    Calls().SetSubFile(std::string(500, 'x'));
    Calls().ShowSubFile(true);
    Calls().Repaint();
    EXPECT_EQ(Text("labFile"), "Holiday");
    EXPECT_TRUE(IsVisible("labSubFile"));
    EXPECT_EQ(Window().size(), before);
    Calls().ShowSubFile(false);
    EXPECT_FALSE(IsVisible("labSubFile"));
    Calls().pgbTotal().SetMax(4);
    Calls().pgbTotal().SetValue(Calls().pgbTotal().Value() + 1);
    EXPECT_EQ(Find<ProgressBar>(Window(), "pgbTotal").value(), 250);
    EXPECT_EQ(Find<ProgressBar>(Window(), "pgbCurr").value(), 0);
}

TEST_F(CopyWindows, nothing_but_its_OK_closes_it) {
    Window().close();
    QTest::keyClick(&Window(), Qt::Key_Escape);
    EXPECT_TRUE(Window().isVisible());
    Calls().ShowFinish();
    Calls().ShowOK();
    EXPECT_TRUE(IsVisible("labFinish"));
    EXPECT_TRUE(Find(Window(), "cmdOK").isEnabled());
    Window().close();
    QTest::keyClick(&Window(), Qt::Key_Escape);
    EXPECT_TRUE(Window().isVisible());
    Click(Window(), "cmdOK");
    EXPECT_FALSE(SingleWindow<frmCopy>::Loaded());
}

TEST_F(CopyWindows, Enter_and_Space_press_its_OK_as_soon_as_it_shows) {
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
        Calls().Show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&Window()));
        QTest::keyClick(&Window(), key);
        ASSERT_TRUE(SingleWindow<frmCopy>::Loaded()) << "OK is hidden";
        Calls().ShowOK();
        ASSERT_EQ(Window().focusWidget(), &Find(Window(), "cmdOK"));
        QTest::keyClick(Window().focusWidget(), key);
        EXPECT_FALSE(SingleWindow<frmCopy>::Loaded()) << key;
    }
}

TEST_F(CopyWindows, one_that_is_still_open_stays_as_it_is_for_the_next_run) {
    Calls().ShowFinish();
    Calls().ShowOK();
    Calls().Show();
    EXPECT_TRUE(IsVisible("labFinish"));
    EXPECT_TRUE(IsVisible("cmdOK"));
    Click(Window(), "cmdOK");
    Calls().Show();
    EXPECT_FALSE(IsVisible("labFinish")) << "a fresh one";
}

TEST_F(CopyWindows, paints_without_letting_a_timer_run) {
    int ticks = 0;
    int paints = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] { ++ticks; });
    timer.start(0);
    Calls().Show();
    const OnPaint watch(Find(Window(), "labFile"), [&] { ++paints; });
    Calls().SetFile("a");
    EXPECT_EQ(paints, 0);
    Calls().Repaint();
    EXPECT_EQ(paints, 1);
    Calls().pgbCurr().SetValue(50);
    Calls().pgbCurr().Repaint();
    EXPECT_EQ(ticks, 0);
}

}  // namespace tavel::test
