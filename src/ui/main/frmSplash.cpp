#include "ui/main/frmSplash.h"

#include <QPainter>

namespace tavel {

// A plain window and not Qt's own splash screen, which lets timers run while it shows itself.
frmSplash::frmSplash()
    : QWidget(nullptr, Qt::SplashScreen | Qt::FramelessWindowHint),
      m_picture(QStringLiteral(":/artwork/splash.png")) {
    setObjectName(QStringLiteral("frmSplash"));
    setWindowTitle(QStringLiteral("Tavel"));
    setFixedSize(800, 300);
}

void frmSplash::paintEvent(QPaintEvent*) { QPainter(this).drawPixmap(rect(), m_picture); }

}  // namespace tavel
