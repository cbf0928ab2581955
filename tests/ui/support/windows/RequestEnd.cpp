#include "ui/support/RequestEnd.h"

#include <QCoreApplication>
#include <QEvent>

namespace tavel::test {

// No signals: the host tells the windows, and Qt the program.
void RequestEnd() { QCoreApplication::postEvent(qApp, new QEvent(QEvent::Quit)); }

}  // namespace tavel::test
