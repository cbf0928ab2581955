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
        if (!IsOneOfThem(*static_cast<QKeyEvent*>(event))) return false;
        m_act();
        return true;
    }

  private:
    bool IsOneOfThem(const QKeyEvent& event) const {
        if (event.isAutoRepeat() || (event.modifiers() & ~Qt::KeypadModifier) != 0) return false;
        return std::find(m_keys.begin(), m_keys.end(), event.key()) != m_keys.end();
    }

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
    // No two buttons look as though Enter pressed them. A window that goes has no focus to tell of.
    QObject::connect(qApp, &QApplication::focusChanged, &button,
                     [&window, &button](QWidget*, QWidget* now) {
                         if (now == nullptr || now->window() != &window) return;
                         const auto* focused = qobject_cast<QPushButton*>(now);
                         button.setDefault(focused == nullptr || focused == &button);
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
