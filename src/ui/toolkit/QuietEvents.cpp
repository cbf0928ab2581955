#include "ui/toolkit/QuietEvents.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QEvent>
#include <QScopedValueRollback>

namespace tavel {

namespace {

bool s_handlersRest = false;

// False when nothing had come.
bool TakeEvents(QEventLoop::ProcessEventsFlags flags) {
    const QScopedValueRollback<bool> rest(s_handlersRest, true);
    return QCoreApplication::eventDispatcher()->processEvents(flags | QEventLoop::X11ExcludeTimers);
}

// What the user does, and what Qt makes of it before any control sees it. A click on a close box is
// a click.
bool IsInput(const QEvent& event) {
    switch (event.type()) {
        case QEvent::Shortcut:
        case QEvent::ContextMenu:
        case QEvent::DragEnter:
        case QEvent::DragMove:
        case QEvent::Drop:
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
