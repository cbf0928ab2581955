#include "ui/toolkit/FramePlace.h"

#include <QEvent>
#include <QWidget>
#include <utility>

namespace tavel {

namespace {

// The desktop puts its frame around a window when it shows it, and moves the window in doing so.
class FrameWatch : public QObject {
  public:
    FrameWatch(QWidget& window, std::function<void()> place)
        : QObject(&window), m_window(window), m_place(std::move(place)) {
        window.installEventFilter(this);
    }

    bool eventFilter(QObject*, QEvent* event) override {
        const bool isFrameKnown = m_window.frameGeometry() != m_window.geometry();
        if (event->type() != QEvent::Move || !isFrameKnown) return false;
        m_window.removeEventFilter(this);
        deleteLater();
        m_place();
        return false;
    }

  private:
    QWidget& m_window;
    std::function<void()> m_place;
};

}  // namespace

void PlaceByFrame(QWidget& window, std::function<void()> place) {
    place();
    new FrameWatch(window, std::move(place));
}

}  // namespace tavel
