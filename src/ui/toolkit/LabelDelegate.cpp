#include "ui/toolkit/LabelDelegate.h"

#include "ui/toolkit/Strings.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QLineEdit>
#include <QToolTip>

namespace tavel {

QSize LabelDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    return QStyledItemDelegate::sizeHint(option, index).expandedTo({0, 18});
}

bool LabelDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view,
                              const QStyleOptionViewItem& option, const QModelIndex& index) {
    if (event->type() != QEvent::ToolTip) return false;
    const bool bFits = !index.isValid() || sizeHint(option, index).width() <= option.rect.width();
    const QString text = bFits ? QString() : displayText(index.data(), option.locale);
    QToolTip::showText(event->globalPos(), text.toHtmlEscaped(), view);
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
