#pragma once

#include <QApplication>
#include <QMouseEvent>
#include <QWidget>

namespace tavel::test {

// A mouse event that reaches the widget by itself, without a pointer that goes there.
inline void SendMouse(QWidget& widget, QEvent::Type type, QPointF place,
                      Qt::MouseButton button = Qt::NoButton,
                      Qt::MouseButtons buttons = Qt::NoButton,
                      Qt::KeyboardModifiers keys = Qt::NoModifier) {
    QMouseEvent event(type, place, widget.mapToGlobal(place), button, buttons, keys);
    QApplication::sendEvent(&widget, &event);
}

}  // namespace tavel::test
