#pragma once

#include "platform/EndRequests.h"

#include <QBasicTimer>
#include <QObject>
#include <QPointer>
#include <QSessionManager>
#include <QSocketNotifier>
#include <QWidget>
#include <memory>

namespace tavel {

// Hears in the event loop what asks the program to end from outside: the host's requests, the end
// of the desktop's session. It is the same as closing what is in front of the user until nothing
// is left: boxes that ask are cancelled, one after the other as their callers go on, and then the
// work window is closed. What stays is closed again after a moment. Handlers that must not be
// disturbed (HandlersRest) come first. A session that would not wait for all this is refused its
// end until the program has ended. A request is never taken back.
class EndOfSession : public QObject {
    Q_OBJECT

  public:
    EndOfSession();

    bool eventFilter(QObject* watched, QEvent* event) override;

  protected:
    void timerEvent(QTimerEvent* event) override;

  private:
    void Ask();
    void HearSession(QSessionManager& session);
    bool IsStillGoing() const;
    void CloseFront();

    EndRequests m_requests;
    std::unique_ptr<QSocketNotifier> m_notifier;
    QBasicTimer m_next;
    QPointer<QWidget> m_closed;  // the last one
    bool m_isLeftAlone = false;  // for the moment
};

}  // namespace tavel
