#include "ui/toolkit/Controls.h"

#include <QPushButton>
#include <QShortcut>

namespace tavel {

namespace {

template <class Click>
void OnKey(QWidget& window, QPushButton& button, Qt::Key key, Click click) {
    auto* shortcut = new QShortcut(key, &window);
    QObject::connect(shortcut, &QShortcut::activated, &button, click);
}

}  // namespace

void SetEscapeButton(QWidget& window, QPushButton& button) {
    OnKey(window, button, Qt::Key_Escape, [&button] { button.click(); });
}

void SetEnterButton(QWidget& window, QPushButton& button) {
    const auto click = [&window, &button] {
        auto* focused = qobject_cast<QPushButton*>(window.focusWidget());
        (focused != nullptr ? *focused : button).click();
    };
    OnKey(window, button, Qt::Key_Return, click);
    OnKey(window, button, Qt::Key_Enter, click);
    button.setDefault(true);
}

void PlainButtons(QWidget& dialog) {
    for (QPushButton* button : dialog.findChildren<QPushButton*>()) button->setIcon(QIcon());
}

}  // namespace tavel
