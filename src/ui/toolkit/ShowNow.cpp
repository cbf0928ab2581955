#include "ui/toolkit/ShowNow.h"

#include "ui/toolkit/QuietEvents.h"
#include "ui/toolkit/WorkWindow.h"

#include <QDeadlineTimer>
#include <QLayout>
#include <QThread>
#include <QWidget>
#include <QWindow>

namespace tavel {

namespace {

constexpr int longestWait = 1000;  // milliseconds

// Hiding clears the mapped flag at once, while the window's own state follows with an event.
bool IsOnScreen(const QWidget& window) {
    return window.testAttribute(Qt::WA_Mapped) && window.windowHandle()->isExposed();
}

void WaitUntilOnScreen(const QWidget& window) {
    const QDeadlineTimer deadline(longestWait);
    while (true) {
        TakeWindowEvents();
        if (IsOnScreen(window) || deadline.hasExpired()) return;
        QThread::msleep(1);
    }
}

// A change of text or visibility only posts a request to lay out anew.
void ActivateLayouts(QWidget& widget) {
    for (QWidget* child : widget.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
        if (!child->isWindow()) ActivateLayouts(*child);
    }
    if (widget.layout() != nullptr) widget.layout()->activate();
}

}  // namespace

void ShowNow(QWidget& dialog) {
    ShowDialog(dialog);
    // What is on the screen already needs no answer from the window system.
    if (!IsOnScreen(dialog)) WaitUntilOnScreen(dialog);
    RepaintNow(dialog);
}

void RepaintNow(QWidget& widget) {
    if (!widget.isVisible()) return;
    ActivateLayouts(widget);
    widget.repaint();
}

}  // namespace tavel
