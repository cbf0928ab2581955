#pragma once

#include <QBasicTimer>
#include <QObject>

class QAbstractScrollArea;

namespace tavel {

// Scrolls a view up or down for as long as a drag stays near its upper or lower edge: what it is
// to be dropped on may lie out of view.
class EdgeScroll : public QObject {
  public:
    explicit EdgeScroll(QAbstractScrollArea& view) : m_view(view) {}

    void DragAt(QPoint viewportPosition);
    void Stop() { m_timer.stop(); }

  protected:
    void timerEvent(QTimerEvent* event) override;

  private:
    QAbstractScrollArea& m_view;
    QBasicTimer m_timer;
    bool m_up = false;
    int m_steps = 0;  // since the drag came near the edge
};

}  // namespace tavel
