#include "ui/main/frmLog.h"

#include "ui/toolkit/Controls.h"
#include "ui/toolkit/LineList.h"
#include "ui/toolkit/Twips.h"

#include <QGuiApplication>
#include <QPushButton>
#include <QScreen>

namespace tavel {

namespace {

constexpr int designWidth = Pixels(7800);
constexpr int listTop = Pixels(120);
constexpr int listHeight = Pixels(4500);
constexpr int gap = Pixels(120);

}  // namespace

frmLog::frmLog()
    : lstLog(Named<LineList>("lstLog", this)),
      cmdClear(Named<QPushButton>("cmdClear", QStringLiteral("Clear"), this)) {
    setObjectName(QStringLiteral("frmLog"));
    setWindowTitle(QStringLiteral("Log"));
    lstLog->setAccessibleName(tr("Log"));
    connect(cmdClear, &QPushButton::clicked, lstLog, &LineList::Clear);

    // Only the list's width follows the window, so only the width can be dragged.
    const QSize button = cmdClear->sizeHint();
    const int buttonTop = listTop + listHeight + gap;
    lstLog->setGeometry(Pixels(120), listTop, designWidth - Pixels(315), listHeight);
    cmdClear->setGeometry(QRect(QPoint(Pixels(120), buttonTop), button));
    setFixedHeight(buttonTop + button.height() + gap);
    setMinimumWidth(Pixels(3000));
    resize(designWidth, height());

    PlaceAtRight();
    PlaceList();
}

void frmLog::AddItem(const std::string& line) { lstLog->AddItem(line); }

void frmLog::resizeEvent(QResizeEvent*) { PlaceList(); }

// The desktop puts its frame around a window when it shows it, and moves the window in doing so.
void frmLog::moveEvent(QMoveEvent*) {
    if (m_isFrameKnown || frameGeometry() == geometry()) return;
    m_isFrameKnown = true;
    PlaceAtRight();
}

void frmLog::PlaceAtRight() {
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    move(screen.right() + 1 - frameGeometry().width(), y());
}

void frmLog::PlaceList() {
    lstLog->setGeometry(Pixels(120), lstLog->y(), width() - Pixels(315), lstLog->height());
}

}  // namespace tavel
