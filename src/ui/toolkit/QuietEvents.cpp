#include "ui/toolkit/QuietEvents.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QEvent>
#include <QScopedValueRollback>

namespace tavel {

namespace {

bool s_handlersRest = false;

// Holds the timers back where the event loop does not by itself, as that of Windows doesn't. One
// that was not heard ticks again.
class TimerHolder : public QObject {
  public:
    TimerHolder() { QCoreApplication::instance()->installEventFilter(this); }

    bool HasSeenTimersAlone() const { return m_timers && !m_others; }

    // Windows' event loop posts a timer without an interval to itself, again and again.
    bool eventFilter(QObject*, QEvent* event) override {
        const bool isTick = event->type() == QEvent::Timer;
        (isTick || event->type() == QEvent::ZeroTimerEvent ? m_timers : m_others) = true;
        return isTick;
    }

  private:
    bool m_timers = false;
    bool m_others = false;
};

// False when nothing had come.
bool TakeEvents(QEventLoop::ProcessEventsFlags flags) {
    const QScopedValueRollback<bool> rest(s_handlersRest, true);
    const TimerHolder timers;
    return QCoreApplication::eventDispatcher()->processEvents(flags |
                                                              QEventLoop::X11ExcludeTimers) &&
           !timers.HasSeenTimersAlone();
}

// What the user does, and what Qt makes of it before any control sees it. A click on a close box is
// a click.
bool IsInput(const QEvent& event) {
    switch (event.type()) {
        case QEvent::Shortcut:
            return true;
        case QEvent::Close:
            return event.spontaneous();
        default:
            return event.isInputEvent();
    }
}

class InputDropper : public QObject {
  public:
    bool eventFilter(QObject*, QEvent* event) override { return IsInput(*event); }
};

}  // namespace

void TakeWindowEvents() { TakeEvents(QEventLoop::ExcludeUserInputEvents); }

void DropInput() {
    InputDropper dropper;
    QCoreApplication::instance()->installEventFilter(&dropper);
    while (TakeEvents(QEventLoop::AllEvents)) {
    }
}

bool HandlersRest() { return s_handlersRest; }

}  // namespace tavel
