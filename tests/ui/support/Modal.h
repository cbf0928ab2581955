#pragma once

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

}  // namespace tavel::test
