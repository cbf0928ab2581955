#include "ui/toolkit/EndOfSession.h"

#include "ui/toolkit/QuietEvents.h"
#include "ui/toolkit/WorkWindow.h"

#include <QApplication>
#include <QEvent>
#include <QWidget>

namespace tavel {

EndOfSession::EndOfSession() {
    if (m_requests.Handle() >= 0) {
        m_notifier = std::make_unique<QSocketNotifier>(m_requests.Handle(), QSocketNotifier::Read);
        connect(m_notifier.get(), &QSocketNotifier::activated, this, [this] { Ask(); });
    }
    connect(
        qApp, &QGuiApplication::commitDataRequest, this, [this] { Ask(); }, Qt::DirectConnection);
    qApp->installEventFilter(this);
}

// Qt would close the windows in any order, and stop at the first one that stays.
bool EndOfSession::eventFilter(QObject* watched, QEvent* event) {
    if (watched != qApp || event->type() != QEvent::Quit) return false;
    Ask();
    return true;
}

// The session may be gone as soon as this returns; so it does not wait for the event loop.
void EndOfSession::Ask() {
    if (m_notifier) m_notifier->setEnabled(false);
    m_next.start(0, this);
    CloseFront();
}

// It goes on for as long as anything is left to close. In an event loop that this event runs, such
// as that of a box, a timer that has been started anew fires, and the old one would not.
void EndOfSession::timerEvent(QTimerEvent*) {
    m_next.start(HandlersRest() ? 1 : 0, this);
    CloseFront();
}

void EndOfSession::CloseFront() {
    if (HandlersRest()) return;
    QWidget* asking = QApplication::activeModalWidget();
    QWidget* front = asking != nullptr ? asking : WorkWindow();
    if (front != nullptr) front->close();
}

}  // namespace tavel
