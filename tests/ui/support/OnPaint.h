#pragma once

#include <QEvent>
#include <QObject>
#include <QWidget>
#include <functional>
#include <utility>

namespace tavel::test {

// Calls back at each painting of a widget.
class OnPaint : public QObject {
  public:
    OnPaint(QWidget& widget, std::function<void()> act) : m_act(std::move(act)) {
        widget.installEventFilter(this);
    }
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint) m_act();
        return false;
    }

  private:
    std::function<void()> m_act;
};

}  // namespace tavel::test
