#pragma once

#include <qpa/qwindowsysteminterface.h>

#include <QTest>
#include <QWidget>
#include <QWindow>

namespace tavel::test {

// What the user does, as the window system hands it over: it waits in Qt's queue until events are
// taken.
using Soon = QWindowSystemInterface::AsynchronousDelivery;

inline void ClickSoon(QWidget& control) {
    QWidget& window = *control.window();
    const QPoint place = control.rect().center();
    // Far enough from the click before to be no double click.
    const int time = QTest::lastMouseTimestamp += QTest::mouseDoubleClickInterval;
    for (const auto& [type, pressed] : {std::pair(QEvent::MouseButtonPress, Qt::LeftButton),
                                        {QEvent::MouseButtonRelease, Qt::NoButton}}) {
        QWindowSystemInterface::handleMouseEvent<Soon>(
            window.windowHandle(), static_cast<ulong>(time), control.mapTo(&window, place),
            control.mapToGlobal(place), pressed, Qt::LeftButton, type);
    }
}

inline void PressSoon(QWidget& window, Qt::Key key) {
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease})
        QWindowSystemInterface::handleKeyEvent<Soon>(window.windowHandle(), type, key, {});
}

inline void CloseSoon(QWidget& window) {
    QWindowSystemInterface::handleCloseEvent<Soon>(window.windowHandle());
}

}  // namespace tavel::test
