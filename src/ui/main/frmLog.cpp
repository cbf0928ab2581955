#include "ui/main/frmLog.h"

#include "ui/toolkit/Controls.h"
#include "ui/toolkit/FramePlace.h"
#include "ui/toolkit/LineList.h"
#include "ui/toolkit/Twips.h"

#include <QGuiApplication>
#include <QPushButton>
#include <QScreen>

namespace tavel {

namespace {

// Twips, as everything is designed in.
constexpr int designWidth = 7800;
constexpr int listHeight = 4500;
constexpr int gap = 120;

}  // namespace

frmLog::frmLog()
    : lstLog(Named<LineList>("lstLog", this)),
      cmdClear(Named<QPushButton>("cmdClear", QStringLiteral("Clear"), this)) {
    setObjectName(QStringLiteral("frmLog"));
    setWindowTitle(QStringLiteral("Log"));
    lstLog->setAccessibleName(windowTitle());
    connect(cmdClear, &QPushButton::clicked, lstLog, &LineList::Clear);

    // Only the list's width follows the window, so only the width can be dragged.
    const QSize button = cmdClear->sizeHint();
    const int buttonTop = Pixels(gap + listHeight + gap);
    lstLog->setGeometry(Pixels(gap), Pixels(gap), Pixels(designWidth - 315), Pixels(listHeight));
    cmdClear->setGeometry(QRect(QPoint(Pixels(gap), buttonTop), button));
    setFixedHeight(buttonTop + button.height() + Pixels(gap));
    setMinimumWidth(Pixels(3000));
    resize(Pixels(designWidth), height());

    PlaceByFrame(*this, [this] { PlaceAtRight(); });
    PlaceList();
}

void frmLog::AddItem(const std::string& line) { lstLog->AddItem(line); }

void frmLog::resizeEvent(QResizeEvent*) { PlaceList(); }

void frmLog::PlaceAtRight() {
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    move(screen.right() + 1 - frameGeometry().width(), y());
}

void frmLog::PlaceList() {
    lstLog->setGeometry(Pixels(gap), lstLog->y(), width() - Pixels(315), lstLog->height());
}

}  // namespace tavel
