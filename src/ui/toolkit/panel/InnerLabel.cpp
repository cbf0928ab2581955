#include "ui/toolkit/panel/InnerLabel.h"

#include <QPainter>

namespace tavel {

namespace {

constexpr QColor captionColor(0, 70, 213);
constexpr int fromLeft = 8;
constexpr int gap = 2;  // between the caption and the frame

}  // namespace

InnerLabel::InnerLabel(QWidget& panel) : QLabel(&panel) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setTextFormat(Qt::PlainText);
    setAlignment(Qt::AlignAbsolute | Qt::AlignLeft | Qt::AlignTop);
    setContentsMargins(fromLeft, 0, fromLeft, 0);
    QPalette colors = palette();
    colors.setColor(QPalette::WindowText, captionColor);
    setPalette(colors);
    hide();
}

void InnerLabel::SetBackColor(const QColor& color) {
    m_backColor = color;
    update();
}

void InnerLabel::paintEvent(QPaintEvent* event) {
    if (!text().isEmpty()) {
        const QRect caption = fontMetrics().boundingRect(contentsRect(), alignment(), text());
        QPainter(this).fillRect(
            caption.adjusted(-gap, 0, gap, 0) & contentsRect().adjusted(-gap, 0, gap, 0),
            m_backColor);
    }
    QLabel::paintEvent(event);
}

}  // namespace tavel
