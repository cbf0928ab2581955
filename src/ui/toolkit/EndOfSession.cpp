#include "ui/toolkit/EndOfSession.h"

#include "platform/HostSession.h"
#include "ui/toolkit/QuietEvents.h"
#include "ui/toolkit/WorkWindow.h"

#include <QApplication>
#include <QEvent>

namespace tavel {

namespace {

constexpr int moment = 50;  // milliseconds

QWidget* Front() {
    QWidget* asking = QApplication::activeModalWidget();
    return asking != nullptr ? asking : WorkWindow();
}

}  // namespace

EndOfSession::EndOfSession() {
    if (m_requests.Handle() >= 0) {
        m_notifier = std::make_unique<QSocketNotifier>(m_requests.Handle(), QSocketNotifier::Read);
        connect(m_notifier.get(), &QSocketNotifier::activated, this, [this] { Ask(); });
    }
    connect(qApp, &QGuiApplication::commitDataRequest, this, &EndOfSession::HearSession,
            Qt::DirectConnection);
    qApp->installEventFilter(this);
}

// Qt would close the windows in any order, and stop at the first one that stays.
bool EndOfSession::eventFilter(QObject* watched, QEvent* event) {
    if (watched != qApp || event->type() != QEvent::Quit) return false;
    Ask();
    return true;
}

void EndOfSession::Ask() {
    if (m_notifier) m_notifier->setEnabled(false);
    m_next.start(0, this);
    CloseFront();
}

// The session may be gone as soon as this returns; so it does not wait for the event loop. What is
// left then are boxes, whose callers cannot go on before.
void EndOfSession::HearSession(QSessionManager& session) {
    Ask();
    const QWidget* left = Front();
    if (left == nullptr || !left->isVisible()) return;
    const HostWindow window = WorkWindow() != nullptr ? WorkWindow()->winId() : 0;
    if (Service<HostSession>::Get().WaitForProgram(window, "Changes are being saved."))
        session.cancel();
}

// A box that has been closed is there until its caller goes on. In the meantime the loop that it
// blocks in may still hear events.
bool EndOfSession::IsStillGoing() const {
    return m_closed != nullptr &&
           (m_closed == Front() || QApplication::activeModalWidget() == nullptr);
}

// It goes on for as long as anything is left to close. In an event loop that this event runs, such
// as that of a box, a timer that has been started anew fires, and the old one would not.
void EndOfSession::timerEvent(QTimerEvent*) {
    m_isLeftAlone = !m_isLeftAlone && IsStillGoing();
    if (m_isLeftAlone) return m_next.start(moment, this);
    m_next.start(HandlersRest() ? 1 : 0, this);
    CloseFront();
}

void EndOfSession::CloseFront() {
    if (HandlersRest()) return;
    // A menu blocks in an event loop of its own, in which it would go on to stand alone; one that
    // it has opened goes first.
    while (QWidget* menu = QApplication::activePopupWidget())
        if (!menu->close()) break;
    m_closed = Front();
    if (m_closed != nullptr) m_closed->close();
}

}  // namespace tavel
