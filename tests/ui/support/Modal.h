#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QTimer>
#include <QWidget>
#include <functional>

namespace tavel::test {

// Runs `act` on the next modal box as soon as it blocks in its event loop.
inline void WhenModal(const std::function<void(QWidget&)>& act) {
    QTimer::singleShot(0, qApp, [act] {
        QWidget* box = QApplication::activeModalWidget();
        if (box != nullptr)
            act(*box);
        else
            WhenModal(act);
    });
}

// The same on a box that stands over another, as soon as `opens`, which is posted, has brought it
// up. Nothing of the test is on the way when it acts, so it may delete what is below.
inline void WhenModalOver(QWidget& box, const std::function<void()>& opens,
                          const std::function<void(QWidget&)>& act) {
    const auto run = [&box, opens, act] {
        WhenModal([&box, act](QWidget& over) {
            EXPECT_NE(&over, &box);
            act(over);
        });
        opens();
    };
    QMetaObject::invokeMethod(&box, run, Qt::QueuedConnection);
}

}  // namespace tavel::test
