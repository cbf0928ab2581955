#pragma once

#include "platform/EndRequests.h"

#include <QBasicTimer>
#include <QObject>
#include <QSocketNotifier>
#include <memory>

namespace tavel {

// Hears in the event loop what asks the program to end from outside: the host's requests, the end
// of the desktop's session. It is the same as closing what is in front of the user until nothing
// is left: boxes that ask are cancelled, one after the other as their callers go on, and then the
// work window is closed. Handlers that must not be disturbed (HandlersRest) come first. A request
// is never taken back.
class EndOfSession : public QObject {
    Q_OBJECT

  public:
    EndOfSession();

    bool eventFilter(QObject* watched, QEvent* event) override;

  protected:
    void timerEvent(QTimerEvent* event) override;

  private:
    void Ask();
    void CloseFront();

    EndRequests m_requests;
    std::unique_ptr<QSocketNotifier> m_notifier;
    QBasicTimer m_next;
};

}  // namespace tavel
