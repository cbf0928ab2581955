#include "ui/toolkit/EndOfSession.h"

#include "ui/toolkit/QuietEvents.h"
#include "ui/toolkit/WorkWindow.h"

#include <QApplication>
#include <QEvent>
#include <QWidget>

namespace tavel {

// The requests are never read, so the notifier goes on for as long as anything is left to close.
EndOfSession::EndOfSession() : m_notifier(m_requests.Handle(), QSocketNotifier::Read) {
    connect(&m_notifier, &QSocketNotifier::activated, this, [this] { CloseFront(); });
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
    m_requests.Add();
    CloseFront();
}

// Timers rest as well, so this one ends when the others go on.
void EndOfSession::Postpone() {
    m_notifier.setEnabled(false);
    m_rest.start(1, this);
}

void EndOfSession::timerEvent(QTimerEvent*) {
    m_rest.stop();
    m_notifier.setEnabled(true);
}

void EndOfSession::CloseFront() {
    if (HandlersRest()) return Postpone();
    QWidget* asking = QApplication::activeModalWidget();
    QWidget* front = asking != nullptr ? asking : WorkWindow();
    if (front != nullptr) front->close();
}

}  // namespace tavel
