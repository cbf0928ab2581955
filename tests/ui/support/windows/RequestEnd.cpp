#include "ui/support/RequestEnd.h"

#include <QCoreApplication>
#include <QEvent>

namespace tavel::test {

// No signals: the host tells the windows, and Qt the program.
void RequestEnd() {
    const auto tell = [] {
        QEvent quit(QEvent::Quit);
        QCoreApplication::sendEvent(qApp, &quit);
    };
    QMetaObject::invokeMethod(qApp, tell, Qt::QueuedConnection);
}

}  // namespace tavel::test
