#pragma once

#include <QTableWidget>
#include <string>

namespace tavel {

// A list of lines to read, each of one row. Lines may come by the ten thousand while it is on the
// screen: a line that is added costs the same however many there are.
class LineList : public QTableWidget {
    Q_OBJECT

  public:
    explicit LineList(QWidget* parent);

    void AddItem(const std::string& sLine);  // at the end, without scrolling to it
    void Clear();

    void doItemsLayout() override;
    // Up and down alone: the ends of long lines stay in view.
    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;

  protected:
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    QStyleOptionViewItem RowOption() const;
    void FitRows();
    void FitColumn();

    int m_measured = 0;  // lines from the top whose widths are known
    int m_widest = 0;    // of these, in pixels
};

}  // namespace tavel
