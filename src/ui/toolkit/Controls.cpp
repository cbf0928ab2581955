#include "ui/toolkit/Controls.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPushButton>
#include <algorithm>
#include <functional>
#include <utility>
#include <vector>

namespace tavel {

namespace {

// Keys that came to the window because no control of it wanted them. A list that is open is a
// window of its own and keeps its keys. One that is held down may have been meant for such a list,
// which its first press has closed.
class UnwantedKeys : public QObject {
  public:
    UnwantedKeys(QWidget& window, std::vector<Qt::Key> keys, std::function<void()> act)
        : QObject(&window), m_keys(std::move(keys)), m_act(std::move(act)) {
        window.installEventFilter(this);
    }

    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() != QEvent::KeyPress) return false;
        const auto& press = *static_cast<QKeyEvent*>(event);
        if (std::find(m_keys.begin(), m_keys.end(), press.key()) == m_keys.end()) return false;
        const bool isPlain = (press.modifiers() & ~Qt::KeypadModifier) == 0;
        if (isPlain && !press.isAutoRepeat()) m_act();
        return true;
    }

  private:
    std::vector<Qt::Key> m_keys;
    std::function<void()> m_act;
};

// Exactly one button of a window looks as though Enter pressed it. A focus that came by mouse shows
// in nothing else. Boxes over the window have buttons of their own.
void LookLikeEnters(const QWidget& window, const QPushButton& button) {
    for (QPushButton* one : window.findChildren<QPushButton*>()) {
        if (one->window() == &window) one->setDefault(one == &button);
    }
}

}  // namespace

void SetEscapeButton(QWidget& window, QPushButton& button) {
    new UnwantedKeys(window, {Qt::Key_Escape}, [&button] { button.click(); });
}

void SetEnterButton(QWidget& window, QPushButton& button) {
    auto* keys = new UnwantedKeys(window, {Qt::Key_Return, Qt::Key_Enter}, [&window, &button] {
        auto* focused = qobject_cast<QPushButton*>(window.focusWidget());
        (focused != nullptr ? *focused : button).click();
    });
    button.setDefault(true);
    // A window that goes has no focus to tell of.
    QObject::connect(qApp, &QApplication::focusChanged, &button,
                     [&window, &button, keys](QWidget*, QWidget* now) {
                         if (now == nullptr || now->window() != &window) return;
                         auto* focused = qobject_cast<QPushButton*>(now);
                         LookLikeEnters(window, focused != nullptr ? *focused : button);
                         // A button that looks so would take the keys, held down ones too.
                         if (focused != nullptr) focused->installEventFilter(keys);
                     });
}

QHBoxLayout* OKAndCancel(QWidget& window, const std::function<void()>& ok,
                         const std::function<void()>& cancel) {
    auto* cmdOK = Named<QPushButton>("cmdOK", QStringLiteral("OK"), &window);
    auto* cmdCancel = Named<QPushButton>("cmdCancel", QStringLiteral("Cancel"), &window);
    QObject::connect(cmdOK, &QPushButton::clicked, &window, ok);
    QObject::connect(cmdCancel, &QPushButton::clicked, &window, cancel);
    SetEnterButton(window, *cmdOK);
    SetEscapeButton(window, *cmdCancel);
    auto* row = new QHBoxLayout;
    row->addStretch();
    row->addWidget(cmdOK);
    row->addWidget(cmdCancel);
    return row;
}

void PlainButtons(QWidget& dialog) {
    for (QPushButton* button : dialog.findChildren<QPushButton*>()) button->setIcon(QIcon());
}

}  // namespace tavel
