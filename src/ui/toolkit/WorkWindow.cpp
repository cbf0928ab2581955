#include "ui/toolkit/WorkWindow.h"

#include <QApplication>
#include <QPointer>
#include <QScreen>
#include <QWidget>
#include <QWindow>

namespace tavel {

namespace {

QPointer<QWidget> s_workWindow;

bool BelongsToWorkWindow(const QWidget& window) {
    const QWindow* handle = window.windowHandle();
    return handle != nullptr && handle->transientParent() != nullptr &&
           handle->transientParent() == s_workWindow->windowHandle();
}

// By the desktop's own notion of a window's parent: a parent widget would take the dialog along
// when it is unloaded.
void MakeBelong(QWidget& dialog) {
    s_workWindow->winId();  // makes the desktop's window
    dialog.winId();
    dialog.windowHandle()->setTransientParent(s_workWindow->windowHandle());
}

// Of what is seen of the work window, else of the screen.
void PutInTheMiddle(QWidget& dialog) {
    QRect around = QGuiApplication::primaryScreen()->availableGeometry();
    if (s_workWindow != nullptr && s_workWindow->isVisible())
        around = s_workWindow->screen()->availableGeometry() & s_workWindow->frameGeometry();
    dialog.move(around.center() - dialog.rect().center());
}

}  // namespace

void SetWorkWindow(QWidget& window) { s_workWindow = &window; }

QWidget* WorkWindow() { return s_workWindow; }

void ShowDialog(QWidget& dialog) {
    if (!dialog.isVisible()) PutInTheMiddle(dialog);
    ShowPlacedDialog(dialog);
}

void ShowPlacedDialog(QWidget& dialog) {
    if (!dialog.isVisible() && s_workWindow != nullptr) MakeBelong(dialog);
    dialog.show();
    dialog.raise();
}

// The active window alone is no owner to rely on: there is none while the user is in another
// program, and the log is no dialog's place.
QWidget* BoxOwner() {
    if (QApplication::activeModalWidget() != nullptr) return QApplication::activeModalWidget();
    QWidget* active = QApplication::activeWindow();
    const bool isDialog =
        active != nullptr && s_workWindow != nullptr && BelongsToWorkWindow(*active);
    return isDialog ? active : s_workWindow.data();
}

}  // namespace tavel
