#include "core/PublicStuff.h"
#include "library/Adding.h"
#include "platform/Activity.h"
#include "support/Recorders.h"
#include "support/Support.h"
#include "ui/support/PromptQueue.h"
#include "ui/support/Windows.h"
#include "ui/toolkit/Application.h"

#include <gtest/gtest.h>

#include <QPushButton>
#include <QTimer>

namespace tavel::test {

namespace {

// Clicks a button whose handler fails.
template <class Call>
void ClickThatRuns(Call&& call) {
    QWidget window;
    QPushButton button(&window);
    button.setObjectName(QStringLiteral("cmdFail"));
    QObject::connect(&button, &QPushButton::clicked, &button, call);
    window.show();
    Click(window, "cmdFail");
}

void ExpectMessage(PromptQueue& prompts, const char* text, PromptQueue::During during = {}) {
    const QString closing =
        QStringLiteral("\r\rTavel has to close. Changes since the start are not saved.");
    prompts.ExpectMsgBox(QLatin1String(text) + closing, MsgBoxButtons::OK, MsgBoxAnswer::OK,
                         QStringLiteral("Tavel"), std::move(during));
}

}  // namespace

TEST(TextSize, is_the_designs_at_first) {
    EXPECT_EQ(QApplication::font().pointSizeF(), 8.25);
    EXPECT_EQ(QPushButton().font().pointSizeF(), 8.25);
}

TEST(FatalFailure, a_failure_in_a_handler_is_shown_with_number_and_text_and_ends_the_process) {
    PromptQueue prompts;
    const FatalEnds ends;
    ExpectMessage(prompts, "Run-time error '6':\r\rOverflow");
    testing::internal::CaptureStderr();
    ClickThatRuns([] { Fail(failure::Overflow); });
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "Tavel: run-time error 6: Overflow\n"
              "Tavel has to close. Changes since the start are not saved.\n");
    EXPECT_EQ(ends.Count(), 1);
}

TEST(FatalFailure, what_the_program_was_doing_with_which_file_is_shown) {
    PromptQueue prompts;
    const FatalEnds ends;
    ExpectMessage(prompts, "Run-time error '53':\r\rFile not found\r\rAdding c:\\Music\\a.mp3");
    sMusicSupport = {"mp3"};
    testing::internal::CaptureStderr();
    ClickThatRuns([] { AddFile("c:\\Music\\a.mp3"); });
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "Tavel: run-time error 53: File not found (Adding c:\\Music\\a.mp3)\n"
              "Tavel has to close. Changes since the start are not saved.\n");
    EXPECT_EQ(ends.Count(), 1);
    ResetPublicStuff();
}

TEST(FatalFailure, want_of_memory_tells_what_the_program_was_doing) {
    PromptQueue prompts;
    const FatalEnds ends;
    ExpectMessage(prompts, "Run-time error '7':\r\rOut of memory\r\rAdding c:\\a.mp3");
    ClickThatRuns([] {
        const Doing adding("Adding", "c:\\a.mp3");
        throw std::bad_alloc();
    });
    EXPECT_EQ(ends.Count(), 1);
}

TEST(FatalFailure, what_an_earlier_failure_passed_is_not_told_of_a_later_one) {
    PromptQueue prompts;
    const FatalEnds ends;
    ExpectMessage(prompts, "Run-time error '6':\r\rOverflow\r\rAdding a");
    ClickThatRuns([] {
        const Doing adding("Adding", "a");
        Fail(failure::Overflow);
    });
    ExpectMessage(prompts, "Run-time error '7':\r\rOut of memory");
    ClickThatRuns([] { throw std::bad_alloc(); });
    EXPECT_EQ(ends.Count(), 2);
}

TEST(FatalFailure, a_classes_own_description_is_shown) {
    PromptQueue prompts;
    const FatalEnds ends;
    ExpectMessage(prompts, "Run-time error '1007':\r\rNo tag");
    ClickThatRuns([] { throw Failure(1007, "No tag", "Tavel.cMP3ID3v2"); });
    EXPECT_EQ(ends.Count(), 1);
}

TEST(FatalFailure, whatever_else_is_thrown_ends_the_process_too) {
    PromptQueue prompts;
    const FatalEnds ends;
    ExpectMessage(prompts, "Run-time error '7':\r\rOut of memory");
    ClickThatRuns([] { throw std::bad_alloc(); });
    ExpectMessage(prompts, "Run-time error '51':\r\rodd");
    ClickThatRuns([] { throw std::runtime_error("odd"); });
    ExpectMessage(prompts, "Run-time error '51':\r\rInternal error");
    ClickThatRuns([] { throw 1; });
    EXPECT_EQ(ends.Count(), 3);
}

TEST(FatalFailure, a_failure_in_a_timer_is_fatal) {
    PromptQueue prompts;
    const FatalEnds ends;
    ExpectMessage(prompts, "Run-time error '71':\r\rDisk not ready");
    QTimer::singleShot(0, qApp, [] { Fail(failure::DiskNotReady); });
    RunEvents();
    EXPECT_EQ(ends.Count(), 1);
}

TEST(FatalFailure, a_failure_in_start_up_is_fatal) {
    PromptQueue prompts;
    const FatalEnds ends;
    ExpectMessage(prompts, "Run-time error '9':\r\rSubscript out of range");
    static_cast<Application*>(qApp)->Guard([] { Fail(failure::SubscriptOutOfRange); });
    EXPECT_EQ(ends.Count(), 1);
}

TEST(FatalFailure, nothing_is_saved_on_the_way_to_the_end) {
    PromptQueue prompts;
    const FatalEnds ends;
    Calls calls;
    const AppWindowsRecorder windows(calls);
    const LibraryStoreRecorder store(calls);
    bDBChanged = true;
    ExpectMessage(prompts, "Run-time error '76':\r\rPath not found");
    ClickThatRuns([] { Fail(failure::PathNotFound); });
    EXPECT_EQ(ends.Count(), 1);
    EXPECT_EQ(calls, Calls{});
}

TEST(FatalFailure, no_timer_of_the_program_runs_while_the_message_stands) {
    PromptQueue prompts;
    const FatalEnds ends;
    int ticks = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] { ++ticks; });
    timer.start(0);
    ExpectMessage(prompts, "Run-time error '6':\r\rOverflow", [&] {
        RunEvents();
        EXPECT_EQ(ticks, 0);
    });
    ClickThatRuns([] { Fail(failure::Overflow); });
    EXPECT_EQ(ends.Count(), 1);
}

TEST(FatalFailure, a_failure_behind_the_message_ends_without_a_second_message) {
    PromptQueue prompts;
    const FatalEnds ends;
    ExpectMessage(prompts, "Run-time error '6':\r\rOverflow",
                  [] { ClickThatRuns([] { Fail(failure::DiskFull); }); });
    ClickThatRuns([] { Fail(failure::Overflow); });
    EXPECT_EQ(ends.Count(), 2);
}

TEST(Application, the_last_window_that_closes_does_not_end_it) {
    EXPECT_FALSE(QApplication::quitOnLastWindowClosed());
}

}  // namespace tavel::test
