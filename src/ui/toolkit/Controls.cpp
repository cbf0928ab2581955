#include "ui/toolkit/Controls.h"

#include <QKeyEvent>
#include <QPushButton>
#include <algorithm>
#include <functional>
#include <utility>
#include <vector>

namespace tavel {

namespace {

// Keys that came to the window because no control of it wanted them. A list that is open is a
// window of its own and keeps its keys.
class UnwantedKeys : public QObject {
  public:
    UnwantedKeys(QWidget& window, std::vector<Qt::Key> keys, std::function<void()> act)
        : QObject(&window), m_keys(std::move(keys)), m_act(std::move(act)) {
        window.installEventFilter(this);
    }

    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() != QEvent::KeyPress) return false;
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (std::find(m_keys.begin(), m_keys.end(), key) == m_keys.end()) return false;
        m_act();
        return true;
    }

  private:
    std::vector<Qt::Key> m_keys;
    std::function<void()> m_act;
};

}  // namespace

void SetEscapeButton(QWidget& window, QPushButton& button) {
    new UnwantedKeys(window, {Qt::Key_Escape}, [&button] { button.click(); });
}

void SetEnterButton(QWidget& window, QPushButton& button) {
    new UnwantedKeys(window, {Qt::Key_Return, Qt::Key_Enter}, [&window, &button] {
        auto* focused = qobject_cast<QPushButton*>(window.focusWidget());
        (focused != nullptr ? *focused : button).click();
    });
    button.setDefault(true);
}

void PlainButtons(QWidget& dialog) {
    for (QPushButton* button : dialog.findChildren<QPushButton*>()) button->setIcon(QIcon());
}

}  // namespace tavel
