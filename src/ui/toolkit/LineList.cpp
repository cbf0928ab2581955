#include "ui/toolkit/LineList.h"

#include "ui/toolkit/LabelDelegate.h"
#include "ui/toolkit/Strings.h"

#include <QEvent>
#include <QHeaderView>
#include <QScrollBar>
#include <algorithm>

namespace tavel {

// Qt's list and tree views lay out all of their rows anew for each one that comes; its table view
// knows where a row of the common height stands.
LineList::LineList(QWidget* parent) : QTableWidget(0, 1, parent) {
    setItemDelegate(new LabelDelegate(this));
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    setTabKeyNavigation(false);
    setShowGrid(false);
    setTextElideMode(Qt::ElideNone);
    setHorizontalScrollMode(ScrollPerPixel);
    horizontalHeader()->hide();
    horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    FitRows();
}

void LineList::AddItem(const std::string& sLine) {
    const int row = rowCount();
    insertRow(row);
    setItem(row, 0, new QTableWidgetItem(ToQString(sLine)));
}

void LineList::Clear() {
    setRowCount(0);
    m_measured = 0;
    m_widest = 0;
}

// Qt comes here when lines were added, once for many of them, and not before the list is shown.
void LineList::doItemsLayout() {
    FitColumn();
    QTableWidget::doItemsLayout();
}

void LineList::scrollTo(const QModelIndex& index, ScrollHint hint) {
    const int left = horizontalScrollBar()->value();
    QTableWidget::scrollTo(index, hint);
    horizontalScrollBar()->setValue(left);
}

// To a table Home and End alone are the ends of the row.
QModelIndex LineList::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
    return QTableWidget::moveCursor(action, modifiers | Qt::ControlModifier);
}

void LineList::resizeEvent(QResizeEvent* event) {
    FitColumn();
    QTableWidget::resizeEvent(event);
}

void LineList::changeEvent(QEvent* event) {
    QTableWidget::changeEvent(event);
    if (event->type() != QEvent::FontChange && event->type() != QEvent::StyleChange) return;
    m_measured = 0;
    m_widest = 0;
    FitRows();
    scheduleDelayedItemsLayout();
}

QStyleOptionViewItem LineList::RowOption() const {
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    return option;
}

void LineList::FitRows() {
    const int height = itemDelegate()->sizeHint(RowOption(), QModelIndex()).height();
    verticalHeader()->setMinimumSectionSize(height);
    verticalHeader()->setDefaultSectionSize(height);
}

// As wide as the longest line, so that all of it can be scrolled to, and as the list itself, so
// that a line is selected wherever it is clicked.
void LineList::FitColumn() {
    const QStyleOptionViewItem option = RowOption();
    for (; m_measured < rowCount(); ++m_measured) {
        const QModelIndex line = model()->index(m_measured, 0);
        m_widest = std::max(m_widest, itemDelegate()->sizeHint(option, line).width());
    }
    setColumnWidth(0, std::max(m_widest, viewport()->width()));
}

}  // namespace tavel
