#include "core/PublicStuff.h"
#include "library/Adding.h"
#include "ui/main/UpCalls.h"
#include "ui/main/frmLog.h"
#include "ui/support/MainWindow.h"
#include "ui/support/Modal.h"
#include "ui/support/RequestEnd.h"
#include "ui/toolkit/Application.h"
#include "ui/toolkit/EndOfSession.h"
#include "ui/toolkit/MsgBox.h"
#include "ui/toolkit/ShowNow.h"
#include "ui/toolkit/Yielding.h"

#include <gmock/gmock.h>

#include <QMenu>
#include <QTimer>
#include <cstddef>

namespace tavel::test {

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::Not;

// The real frmMain while requests to end are heard; the end is recorded and does not come.
class EndOfSessionTest : public MainWindowTest {
  protected:
    EndOfSessionTest() { bDBChanged = true; }

    static const Calls saved;

    EndOfSession m_endOfSession;
};

const Calls EndOfSessionTest::saved{"ShowEnd", "SaveDB", "Release", "UnloadAllButMain",
                                    "EndProcess"};

// Returns once the menu has gone.
void RequestEndOverMenu(QWidget& below) {
    QMenu menu(&below);
    QMenu& inner = *menu.addMenu(QStringLiteral("View"));
    inner.addAction(QStringLiteral("Refresh"));
    QTimer::singleShot(0, &menu, [&] {
        menu.setActiveAction(inner.menuAction());
        QTest::keyClick(&menu, Qt::Key_Right);
        EXPECT_EQ(QApplication::activePopupWidget(), &inner);
        RequestEnd();
    });
    EXPECT_EQ(menu.exec(), nullptr);
}

}  // namespace

TEST_F(EndOfSessionTest, a_request_is_the_same_as_Exit) {
    Open();
    SingleWindow<frmLog>::Get();
    RequestEnd();
    EXPECT_THAT(calls, testing::IsEmpty()) << "it is heard in the event loop";
    RunEvents();
    EXPECT_EQ(calls, saved);
    EXPECT_FALSE(SingleWindow<frmLog>::Loaded());
}

TEST_F(EndOfSessionTest, the_desktops_session_that_ends_does_not_wait_for_the_event_loop) {
    Open();
    // Nobody looks at the manager, of which a program can have none of its own.
    alignas(std::max_align_t) std::byte manager[64];
    Q_EMIT qApp->commitDataRequest(reinterpret_cast<QSessionManager&>(manager));
    EXPECT_EQ(calls, saved);
}

TEST_F(EndOfSessionTest, a_request_to_quit_is_a_close_of_the_main_window_alone) {
    Open();
    QEvent quit(QEvent::Quit);
    QApplication::sendEvent(qApp, &quit);
    EXPECT_EQ(calls, saved);
}

TEST_F(EndOfSessionTest, a_menu_over_a_box_goes_with_it) {
    Open();
    const RealPrompts real;
    WhenModal(RequestEndOverMenu);
    EXPECT_EQ(MsgBox(QStringLiteral("outer"), MsgBoxButtons::YesNo), MsgBoxAnswer::No);
    EXPECT_THAT(calls, testing::IsEmpty()) << "the caller goes on first";
    EXPECT_TRUE(QTest::qWaitFor([&] { return calls == saved; }));
}

TEST_F(EndOfSessionTest, a_menu_over_the_main_window_goes_with_it) {
    Open();
    RequestEndOverMenu(Main());
    EXPECT_TRUE(QTest::qWaitFor([&] { return calls == saved; }));
}

TEST_F(EndOfSessionTest, boxes_that_ask_are_cancelled_first_and_their_callers_go_on) {
    Open();
    const RealPrompts real;
    std::vector<MsgBoxAnswer> answers;
    WhenModal([&](QWidget&) {
        WhenModal([](QWidget&) { RequestEnd(); });
        answers.push_back(MsgBox(QStringLiteral("inner"), MsgBoxButtons::OKCancel));
    });
    answers.push_back(MsgBox(QStringLiteral("outer"), MsgBoxButtons::YesNo));
    answers.push_back(MsgBox(QStringLiteral("another"), MsgBoxButtons::OK));
    EXPECT_THAT(answers, ElementsAre(MsgBoxAnswer::Cancel, MsgBoxAnswer::No, MsgBoxAnswer::OK));
    EXPECT_THAT(calls, testing::IsEmpty());
    (void)QTest::qWaitFor([&] { return !calls.empty(); });
    EXPECT_EQ(calls, saved);
}

TEST_F(EndOfSessionTest, nothing_is_saved_behind_a_failure_message) {
    Open();
    const RealPrompts real;
    const FatalEnds ends;
    WhenModal([](QWidget&) { RequestEnd(); });
    testing::internal::CaptureStderr();
    static_cast<Application*>(qApp)->Guard([] { Fail(failure::Overflow); });
    testing::internal::GetCapturedStderr();
    EXPECT_EQ(ends.Count(), 1);
    EXPECT_THAT(calls, testing::IsEmpty());
}

TEST_F(EndOfSessionTest, a_request_waits_while_a_window_is_shown) {
    Open();
    RequestEnd();
    QWidget dialog(nullptr, Qt::Dialog);
    ShowNow(dialog);
    EXPECT_THAT(calls, testing::IsEmpty());
    (void)QTest::qWaitFor([&] { return !calls.empty(); });
    EXPECT_EQ(calls, saved);
}

TEST_F(EndOfSessionTest, before_there_is_a_main_window_a_request_waits_for_it) {
    RequestEnd();
    RunEvents();
    EXPECT_THAT(calls, testing::IsEmpty());
    SingleWindow<frmMain>::Get().show();
    RunEvents();
    EXPECT_EQ(calls, saved);
}

TEST_F(EndOfSessionTest, a_yield_while_files_are_added_hears_it) {
    Open();
    AddPhotosWithFiles();
    sPhotoSupport = {"jpg"};
    Yielding yielding([now = std::int64_t{0}]() mutable { return now += 1000; });
    Service<EventLoop>::Use(&yielding);
    RequestEnd();
    AddFolder(temp.DrivePath(""), false, false, true, true);
    EXPECT_THAT(calls, Contains("SaveDB"));
}

}  // namespace tavel::test
