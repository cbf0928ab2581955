#include "library/Adding.h"
#include "ui/main/UpCalls.h"
#include "ui/main/frmAdd.h"
#include "ui/main/frmCopy.h"
#include "ui/main/frmEnd.h"
#include "ui/main/frmInvFiles.h"
#include "ui/main/frmLog.h"
#include "ui/main/frmNewPSP.h"
#include "ui/setup/frmOptions.h"
#include "ui/setup/frmWatchFolders.h"
#include "ui/support/MainWindow.h"
#include "ui/support/Modal.h"
#include "ui/toolkit/InputBox.h"
#include "ui/toolkit/MsgBox.h"
#include "ui/toolkit/ShowNow.h"
#include "ui/toolkit/WorkWindow.h"

#include <QPushButton>
#include <QScreen>
#include <QWindow>

namespace tavel::test {

namespace {

class HideCounter : public QObject {
  public:
    explicit HideCounter(QWidget& window) { window.installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Hide) ++count;
        return false;
    }
    int count = 0;
};

// The windows behind their up-calls, over the real frmMain.
class WorkWindowTest : public MainWindowTest {
  protected:
    WorkWindowTest() { WireUpCalls(); }

    QWindow* Handle() { return Main().windowHandle(); }

    // What a dialog belongs to, for the window system and so for the window manager.
    static QWindow* OwnerOf(QWidget& dialog) { return dialog.windowHandle()->transientParent(); }

    // The user turns to a window of another program, as far as this one can tell.
    static void LeaveTheProgram() {
        QWidget other;
        other.show();
        other.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
        other.hide();
        ASSERT_TRUE(QTest::qWaitFor([] { return QApplication::activeWindow() == nullptr; }));
    }

    // The owner of the message box that `ask` brings up.
    static QWidget* OwnerOfBox(const std::function<void()>& ask) {
        const RealPrompts real;
        QWidget* owner = nullptr;
        WhenModal([&](QWidget& box) {
            owner = box.parentWidget();
            QTest::keyClick(&box, Qt::Key_Escape);
        });
        ask();
        return owner;
    }
    static void AskAnything() { MsgBox(QStringLiteral("Hello")); }
};

}  // namespace

TEST_F(WorkWindowTest, every_dialog_belongs_to_the_main_window_even_while_another_program_is_used) {
    Open();
    LeaveTheProgram();
    Service<CopyWindow>::Get().Show();
    EXPECT_EQ(OwnerOf(SingleWindow<frmCopy>::Get()), Handle());
    Service<AddWindow>::Get().Show();
    EXPECT_EQ(OwnerOf(SingleWindow<frmAdd>::Get()), Handle());
    ShowInvalidFiles({"c:\\a.doc"});
    EXPECT_EQ(OwnerOf(SingleWindow<frmInvFiles>::Get()), Handle());
    Find<QAction>(Main(), "mnuSetupPSP").trigger();
    EXPECT_EQ(OwnerOf(SingleWindow<frmNewPSP>::Get()), Handle());
    Service<AppWindows>::Get().ShowEnd();
    EXPECT_EQ(OwnerOf(SingleWindow<frmEnd>::Get()), Handle());
}

TEST_F(WorkWindowTest, the_main_window_belongs_to_nothing_and_stays_in_sight_when_it_is_called) {
    frmMain& window = Open();
    const HideCounter hides(window);
    ShowNow(window);
    EXPECT_EQ(Handle()->transientParent(), nullptr);
    EXPECT_EQ(hides.count, 0);
}

TEST_F(WorkWindowTest, the_log_is_a_window_beside_the_main_one) {
    Open();
    Find<QAction>(Main(), "mnuShowLog").trigger();
    EXPECT_EQ(OwnerOf(SingleWindow<frmLog>::Get()), nullptr);
}

TEST_F(WorkWindowTest, a_dialog_that_came_into_being_before_the_main_window_belongs_to_it_too) {
    SingleWindow<frmCopy>::Get();
    Open();
    Service<CopyWindow>::Get().Show();
    EXPECT_EQ(OwnerOf(SingleWindow<frmCopy>::Get()), Handle());
}

TEST_F(WorkWindowTest, a_dialog_has_a_life_of_its_own) {
    Open();
    Service<CopyWindow>::Get().Show();
    SingleWindow<frmMain>::Unload();
    RunEvents();
    EXPECT_EQ(WorkWindow(), nullptr);
    ASSERT_TRUE(SingleWindow<frmCopy>::Loaded());
    EXPECT_TRUE(SingleWindow<frmCopy>::Get().isVisible());
}

TEST_F(WorkWindowTest,
       a_dialog_that_shows_since_before_the_main_window_belongs_to_it_when_it_is_called) {
    Service<CopyWindow>::Get().Show();
    frmCopy& dialog = SingleWindow<frmCopy>::Get();
    dialog.move(7, 9);
    EXPECT_EQ(OwnerOf(dialog), nullptr);
    Open();
    Service<CopyWindow>::Get().Show();
    EXPECT_EQ(OwnerOf(dialog), Handle());
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_EQ(dialog.pos(), QPoint(7, 9));
}

TEST_F(WorkWindowTest, a_dialog_comes_up_over_the_main_window_and_stays_where_it_is_put) {
    QWidget window;
    window.setGeometry(100, 30, 300, 200);
    window.show();
    SetWorkWindow(window);
    QWidget dialog(nullptr, Qt::Dialog);
    dialog.resize(100, 50);
    ShowDialog(dialog);
    const QPoint off = dialog.geometry().center() - window.geometry().center();
    EXPECT_LT(off.manhattanLength(), 20) << "the frames of both aside";
    dialog.move(7, 9);
    const HideCounter hides(dialog);
    ShowDialog(dialog);
    EXPECT_EQ(dialog.pos(), QPoint(7, 9));
    EXPECT_EQ(hides.count, 0) << "it belongs to the window already";
}

TEST_F(WorkWindowTest, a_dialog_comes_up_on_the_screen_where_the_main_window_reaches_out_of_it) {
    frmMain& window = Open();
    const QRect screen = window.screen()->availableGeometry();
    window.move(screen.right() - 120, screen.top());
    QWidget dialog(nullptr, Qt::Dialog);
    dialog.resize(100, 50);
    ShowDialog(dialog);
    EXPECT_TRUE(screen.contains(dialog.geometry()));
}

TEST_F(WorkWindowTest, a_dialog_comes_up_on_the_screen_wherever_the_main_window_is) {
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    const struct {
        QPoint owner;
        QSize dialog;
        QPoint expected;  // its upper left corner
    } cases[] = {
        {screen.topLeft() - QPoint(5000, 5000), {100, 50}, screen.center() - QPoint(49, 24)},
        {screen.bottomRight() + QPoint(5000, 5000), {100, 50}, screen.center() - QPoint(49, 24)},
        {screen.bottomRight() - QPoint(9, 9), {100, 50}, screen.bottomRight() - QPoint(99, 49)},
        {screen.topLeft() - QPoint(290, 190), {100, 50}, screen.topLeft()},
        {screen.center(), screen.size() * 2, screen.topLeft()},
    };
    for (const auto& each : cases) {
        QWidget window(nullptr, Qt::FramelessWindowHint);
        window.setGeometry(QRect(each.owner, QSize(300, 200)));
        window.show();
        SetWorkWindow(window);
        QWidget dialog(nullptr, Qt::Dialog);
        dialog.resize(each.dialog);
        ShowDialog(dialog);
        EXPECT_EQ(dialog.pos(), each.expected);
    }
}

TEST_F(WorkWindowTest, what_the_user_asks_for_again_comes_back_to_the_front_with_the_keyboard) {
    Open();
    const auto expectInFront = [this](const char* entry, auto& window) {
        for (const bool isMinimized : {false, true}) {
            if (isMinimized) window.showMinimized();
            Main().activateWindow();
            ASSERT_TRUE(BecomesActive(Main()));
            Find<QAction>(Main(), entry).trigger();
            EXPECT_TRUE(BecomesActive(window)) << entry;
            EXPECT_FALSE(window.isMinimized()) << entry;
        }
    };
    for (const char* entry : {"mnuShowLog", "mnuSetupPSP", "mnuWatchFolders", "mnuOptions"})
        Find<QAction>(Main(), entry).trigger();
    expectInFront("mnuShowLog", SingleWindow<frmLog>::Get());
    expectInFront("mnuSetupPSP", SingleWindow<frmNewPSP>::Get());
    expectInFront("mnuWatchFolders", SingleWindow<frmWatchFolders>::Get());
    expectInFront("mnuOptions", SingleWindow<frmOptions>::Get());
}

TEST_F(WorkWindowTest, a_box_belongs_to_the_main_window_whichever_window_is_active) {
    Open();
    EXPECT_EQ(OwnerOfBox(AskAnything), &Main());
    EXPECT_EQ(OwnerOfBox([] { InputBox({}, {}, {}); }), &Main());
    LeaveTheProgram();
    EXPECT_EQ(OwnerOfBox(AskAnything), &Main());
    frmLog& other = SingleWindow<frmLog>::Get();
    other.show();
    other.activateWindow();
    ASSERT_TRUE(BecomesActive(other));
    EXPECT_EQ(OwnerOfBox(AskAnything), &Main());
}

TEST_F(WorkWindowTest, a_box_belongs_to_the_dialog_that_it_is_about) {
    Open();
    Find<QAction>(Main(), "mnuSetupPSP").trigger();
    frmNewPSP& dialog = SingleWindow<frmNewPSP>::Get();
    ASSERT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == &dialog; }));
    EXPECT_EQ(OwnerOfBox([&] { Click(dialog, "cmdOK"); }), &dialog);
}

TEST_F(WorkWindowTest, a_box_over_a_box_belongs_to_that) {
    Open();
    const RealPrompts real;
    WhenModal([](QWidget& first) {
        WhenModal([&first](QWidget& second) {
            EXPECT_EQ(second.parentWidget(), &first);
            QTest::keyClick(&second, Qt::Key_Escape);
        });
        MsgBox(QStringLiteral("second"));
        QTest::keyClick(&first, Qt::Key_Escape);
    });
    MsgBox(QStringLiteral("first"));
}

TEST_F(WorkWindowTest, before_there_is_a_main_window_a_box_belongs_to_nothing) {
    EXPECT_EQ(OwnerOfBox(AskAnything), nullptr);
}

}  // namespace tavel::test
