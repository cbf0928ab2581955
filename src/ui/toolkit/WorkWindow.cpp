#include "ui/toolkit/WorkWindow.h"

#include <QApplication>
#include <QPointer>
#include <QScreen>
#include <QWidget>
#include <QWindow>
#include <algorithm>

namespace tavel {

namespace {

QPointer<QWidget> s_workWindow;

bool BelongsToWorkWindow(const QWidget& window) {
    const QWindow* handle = window.windowHandle();
    return handle != nullptr && handle->transientParent() != nullptr &&
           handle->transientParent() == s_workWindow->windowHandle();
}

// By the desktop's own notion of a window's parent: a parent widget would take the dialog along
// when it is unloaded. The desktop hears of it when a window comes up, so one that shows does so
// anew.
void MakeBelong(QWidget& dialog) {
    if (BelongsToWorkWindow(dialog)) return;
    s_workWindow->winId();  // makes the desktop's window
    dialog.winId();
    const bool isSeen = dialog.isVisible();
    dialog.setVisible(false);
    dialog.windowHandle()->setTransientParent(s_workWindow->windowHandle());
    dialog.setVisible(isSeen);
}

// Of what is seen of the work window, else of the screen, and never beyond the screen's edges: at
// the left and the top in the last resort, where a window is taken hold of.
void PutInTheMiddle(QWidget& dialog) {
    const bool hasOwner = s_workWindow != nullptr && s_workWindow->isVisible();
    const QScreen& at = hasOwner ? *s_workWindow->screen() : *QGuiApplication::primaryScreen();
    const QRect screen = at.availableGeometry();
    const QRect seen = hasOwner ? screen & s_workWindow->frameGeometry() : QRect();
    QRect place = dialog.rect();
    place.moveCenter(seen.isEmpty() ? screen.center() : seen.center());
    place.moveRight(std::min(place.right(), screen.right()));
    place.moveBottom(std::min(place.bottom(), screen.bottom()));
    place.moveLeft(std::max(place.left(), screen.left()));
    place.moveTop(std::max(place.top(), screen.top()));
    dialog.move(place.topLeft());
}

}  // namespace

void SetWorkWindow(QWidget& window) { s_workWindow = &window; }

QWidget* WorkWindow() { return s_workWindow; }

void ShowDialog(QWidget& dialog) {
    if (!dialog.isVisible()) PutInTheMiddle(dialog);
    ShowPlacedDialog(dialog);
}

void ShowPlacedDialog(QWidget& dialog) {
    if (s_workWindow != nullptr && s_workWindow != &dialog) MakeBelong(dialog);
    dialog.show();
    dialog.raise();
}

void OpenDialog(QWidget& dialog) {
    ShowDialog(dialog);
    BringToFront(dialog);
}

// What has a parent is a box, a menu or a tip of some window's own.
void TakeOverDialogs() {
    for (QWidget* window : QApplication::topLevelWidgets()) {
        const bool isDialog =
            window->windowType() == Qt::Dialog && window->parentWidget() == nullptr;
        if (isDialog && window->isVisible()) MakeBelong(*window);
    }
}

void BringToFront(QWidget& window) {
    window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
    window.raise();
    window.activateWindow();
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
