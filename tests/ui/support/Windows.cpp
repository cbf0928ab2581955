#include "ui/support/Windows.h"

#include "core/PublicStuff.h"
#include "support/Support.h"
#include "ui/toolkit/Application.h"
#include "ui/toolkit/WindowRegistry.h"

#include <gtest/gtest.h>
#include <private/qguiapplication_p.h>

#include <QHelpEvent>
#include <QTextDocumentFragment>
#include <QToolTip>

// The leak checker's own, where there is one.
extern "C" [[gnu::weak]] void __lsan_disable();
extern "C" [[gnu::weak]] void __lsan_enable();

namespace tavel::test {

namespace {

int* s_ends = nullptr;

}  // namespace

// A tip that has been taken away stays for a moment.
QString TipAt(QWidget& control, QPoint position) {
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->inherits("QTipLabel")) delete window;
    }
    QHelpEvent event(QEvent::ToolTip, position, control.mapToGlobal(position));
    QApplication::sendEvent(&control, &event);
    const QString text = QToolTip::text();
    return Qt::mightBeRichText(text) ? QTextDocumentFragment::fromHtml(text).toPlainText() : text;
}

bool BecomesActive(QWidget& window) {
    return QTest::qWaitFor([&] { return QApplication::activeWindow() == &window; });
}

void RunEvents() {
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void EndOfTheProcess() {
    if (s_ends == nullptr)
        ADD_FAILURE() << "the process would have ended";
    else
        ++*s_ends;
}

// Qt does not clean up behind a failure that passes through it, which is no matter where the
// process ends.
FatalEnds::FatalEnds() {
    if (__lsan_disable != nullptr) __lsan_disable();
    s_ends = &m_count;
}

FatalEnds::~FatalEnds() {
    s_ends = nullptr;
    if (__lsan_enable != nullptr) __lsan_enable();
}

void CleanUp() {
    WindowRegistry::UnloadAllBut("");
    RunEvents();
    // To where the test before has left the pointer, the next one's would not move.
    QGuiApplicationPrivate::lastCursorPosition.reset();
    ResetPublicStuff();
}

}  // namespace tavel::test
