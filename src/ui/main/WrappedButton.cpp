#include "ui/main/WrappedButton.h"

#include <QStyleOptionButton>
#include <QStylePainter>

namespace tavel {

void WrappedButton::paintEvent(QPaintEvent*) {
    QStyleOptionButton option;
    initStyleOption(&option);
    const QString caption = std::exchange(option.text, QString());
    QStylePainter painter(this);
    painter.drawControl(QStyle::CE_PushButton, option);
    painter.drawItemText(rect(), Qt::AlignCenter | Qt::TextWordWrap, option.palette, isEnabled(),
                         caption, QPalette::ButtonText);
}

}  // namespace tavel
