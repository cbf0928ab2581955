#include "ui/toolkit/EdgeScroll.h"

#include "ui/toolkit/Twips.h"

#include <QAbstractScrollArea>
#include <QScrollBar>

namespace tavel {

namespace {

constexpr int milliseconds = 60;
constexpr int stepsToFaster = 15;  // about a second

}  // namespace

void EdgeScroll::DragAt(QPoint viewportPosition) {
    const int margin = Pixels(240);
    m_up = viewportPosition.y() < margin;
    const bool bDown = viewportPosition.y() >= m_view.viewport()->height() - margin;
    if (!m_up && !bDown) return Stop();
    if (m_timer.isActive()) return;
    m_steps = 0;
    m_timer.start(milliseconds, this);
}

void EdgeScroll::timerEvent(QTimerEvent*) {
    const int rows = 1 + m_steps++ / stepsToFaster;
    QScrollBar& bar = *m_view.verticalScrollBar();
    bar.setValue(bar.value() + (m_up ? -rows : rows) * bar.singleStep());
}

}  // namespace tavel
