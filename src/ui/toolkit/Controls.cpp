#include "ui/toolkit/Controls.h"

#include <QGuiApplication>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>

namespace tavel {

namespace {

void ClickOnKey(QWidget& window, QPushButton& button, Qt::Key key) {
    auto* shortcut = new QShortcut(key, &window);
    QObject::connect(shortcut, &QShortcut::activated, &button, [&button] { button.click(); });
}

}  // namespace

void SetEscapeButton(QWidget& window, QPushButton& button) {
    ClickOnKey(window, button, Qt::Key_Escape);
}

void SetEnterButton(QWidget& window, QPushButton& button) {
    ClickOnKey(window, button, Qt::Key_Return);
    ClickOnKey(window, button, Qt::Key_Enter);
    button.setDefault(true);
}

void PlainButtons(QWidget& dialog) {
    for (QPushButton* button : dialog.findChildren<QPushButton*>()) button->setIcon(QIcon());
}

void CenterOnScreen(QWidget& window) {
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    window.move(screen.center() - QRect(QPoint(0, 0), window.size()).center());
}

}  // namespace tavel
