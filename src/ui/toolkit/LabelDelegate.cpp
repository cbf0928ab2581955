#include "ui/toolkit/LabelDelegate.h"

#include "ui/toolkit/ShownText.h"
#include "ui/toolkit/Strings.h"
#include "ui/toolkit/Twips.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QLineEdit>
#include <QToolTip>
#include <algorithm>

namespace tavel {

QString LabelDelegate::displayText(const QVariant& value, const QLocale&) const {
    return OneLine(value.toString());
}

void LabelDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    const QVariant elideMode = index.data(ElideModeRole);
    if (elideMode.isValid()) option->textElideMode = elideMode.value<Qt::TextElideMode>();
}

QSize LabelDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    QSize hint = QStyledItemDelegate::sizeHint(option, index);
    hint.setHeight(
        std::max({Pixels(270), option.fontMetrics.height(), option.decorationSize.height()}));
    return hint;
}

bool LabelDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view,
                              const QStyleOptionViewItem& option, const QModelIndex& index) {
    if (event->type() != QEvent::ToolTip) return false;
    const int width = option.rect.intersected(view->viewport()->rect()).width();
    const bool bFits = !index.isValid() || sizeHint(option, index).width() <= width;
    const QString tip = bFits ? QString() : TipOf(displayText(index.data(), option.locale));
    QToolTip::showText(event->globalPos(), tip, view);
    return true;
}

void LabelDelegate::setModelData(QWidget* editor, QAbstractItemModel* model,
                                 const QModelIndex& index) const {
    if (const auto* line = qobject_cast<QLineEdit*>(editor)) {
        Q_EMIT LabelEdited(index, FromQString(line->text()));
    }
    QStyledItemDelegate::setModelData(editor, model, index);
}

}  // namespace tavel
