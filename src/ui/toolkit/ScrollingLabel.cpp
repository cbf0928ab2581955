#include "ui/toolkit/ScrollingLabel.h"

#include <QScrollBar>

namespace tavel {

ScrollingLabel::ScrollingLabel(QWidget* parent) : QPlainTextEdit(parent) {
    setTextInteractionFlags(Qt::NoTextInteraction);
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    document()->setDocumentMargin(0);
    viewport()->setAutoFillBackground(false);
    setFocusPolicy(Qt::NoFocus);
    connect(verticalScrollBar(), &QScrollBar::rangeChanged, this,
            [this](int, int last) { setFocusPolicy(last > 0 ? Qt::StrongFocus : Qt::NoFocus); });
}

}  // namespace tavel
