#pragma once

#include <QStyledItemDelegate>
#include <string>

namespace tavel {

// Draws and edits the labels of lists and trees, each in one line. A finished edit is told before
// the label takes the new text, so that its handler still finds the old one; one that is broken
// off is not told.
class LabelDelegate : public QStyledItemDelegate {
    Q_OBJECT

  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    // A model's answer in this role says where a text that doesn't fit loses what is left out: a
    // Qt::TextElideMode. Without one it loses its end.
    static constexpr int ElideModeRole = Qt::UserRole;

    QString displayText(const QVariant& value, const QLocale& locale) const override;

    // The height is that of every row, whatever its text and its icon: a view with rows of one
    // height asks for that of its first row alone.
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

    // A text that doesn't fit what is in view of its cell is shown as a tip.
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

    void setModelData(QWidget* editor, QAbstractItemModel* model,
                      const QModelIndex& index) const override;

  protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

  Q_SIGNALS:
    void LabelEdited(const QModelIndex& index, const std::string& sNewText) const;
};

}  // namespace tavel
