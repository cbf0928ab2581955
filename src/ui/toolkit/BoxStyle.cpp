#include "ui/toolkit/BoxStyle.h"

#include <QPainter>
#include <QStyleOption>

namespace tavel {

namespace {

bool IsCheckBox(QStyle::PrimitiveElement element) {
    return element == QStyle::PE_IndicatorCheckBox ||
           element == QStyle::PE_IndicatorItemViewItemCheck;
}

bool IsDark(const QPalette& palette) {
    return palette.color(QPalette::Window).lightness() <
           palette.color(QPalette::WindowText).lightness();
}

}  // namespace

void BoxStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                             QPainter* painter, const QWidget* widget) const {
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    const bool isQtsOwn = baseStyle()->name() == QLatin1String("fusion");
    if (!isQtsOwn || !IsCheckBox(element) || !IsDark(option->palette)) return;
    constexpr int edgeAlpha = 128;
    QColor edge = option->palette.color(QPalette::WindowText);
    edge.setAlpha(edgeAlpha);
    painter->save();
    painter->setPen(edge);
    painter->setBrush(Qt::NoBrush);
    painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
    painter->restore();
}

}  // namespace tavel
