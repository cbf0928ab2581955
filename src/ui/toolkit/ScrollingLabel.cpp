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
    int sinceBreak = 0;
    for (const QChar c : text) {
        broken += c;
        sinceBreak = c == u' ' || c == u'\n' ? 0 : sinceBreak + 1;
        if (sinceBreak < longWord || c.isHighSurrogate()) continue;
        broken += breakHere;
        sinceBreak = 0;
    }
    setPlainText(broken);
}

}  // namespace tavel
