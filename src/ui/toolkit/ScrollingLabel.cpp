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

void ScrollingLabel::SetText(const QString& text) {
    constexpr int longWord = 250;
    constexpr QChar breakHere(0x200B);
    QString broken;
    broken.reserve(text.size());
    int inWord = 0;
    for (const QChar c : text) {
        inWord = c.isSpace() ? 0 : inWord + 1;
        broken += c;
        if (inWord % longWord == longWord - 1 && !c.isHighSurrogate()) broken += breakHere;
    }
    setPlainText(broken);
}

}  // namespace tavel
