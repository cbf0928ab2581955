#include "ui/toolkit/ElidedLabel.h"

#include "ui/toolkit/ShownText.h"

#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>

namespace tavel {

ElidedLabel::ElidedLabel(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

QSize ElidedLabel::minimumSizeHint() const { return {0, sizeHint().height()}; }

QSize ElidedLabel::sizeHint() const {
    return {fontMetrics().horizontalAdvance(Shown()), fontMetrics().height()};
}

void ElidedLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QString shown = fontMetrics().elidedText(Shown(), Qt::ElideMiddle, width());
    style()->drawItemText(&painter, rect(), static_cast<int>(alignment()), palette(), isEnabled(),
                          shown, foregroundRole());
}

bool ElidedLabel::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QLabel::event(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    QToolTip::showText(help->globalPos(), Fits() ? QString() : TipOf(Shown()), this);
    return true;
}

QString ElidedLabel::Shown() const { return OneLine(text()); }

bool ElidedLabel::Fits() const { return fontMetrics().horizontalAdvance(Shown()) <= width(); }

}  // namespace tavel
