#include "ui/toolkit/DraggedRows.h"
#include "ui/toolkit/ListView.h"
#include "ui/toolkit/Twips.h"

#include <QDropEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <utility>

namespace tavel {

void ListView::BeginInput() {
    m_currentAtPress = currentIndex();
    m_selectionChanged = false;
}

// The first row is current from the fill on: it can be selected without a move to it.
bool ListView::RowChosen() const {
    if (!HasCurrent()) return false;
    return QModelIndex(m_currentAtPress).row() != currentIndex().row() ||
           (m_selectionChanged && Selected(Current()));
}

void ListView::mousePressEvent(QMouseEvent* event) {
    BeginInput();
    m_pressed = true;
    m_clicked = false;
    QTreeView::mousePressEvent(event);
    if (event->button() != Qt::RightButton) return;
    const QModelIndex index = indexAt(event->pos());
    if (!index.isValid()) return;
    m_pressed = false;
    if (!selectionModel()->isSelected(index)) {
        selectionModel()->setCurrentIndex(
            index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    }
    Q_EMIT RowClicked();
}

void ListView::mouseReleaseEvent(QMouseEvent* event) {
    const bool bPressed = std::exchange(m_pressed, false);
    QTreeView::mouseReleaseEvent(event);
    const bool bClicked = std::exchange(m_clicked, false);
    if (bClicked || (bPressed && RowChosen())) Q_EMIT RowClicked();
    Q_EMIT MouseReleased(event->button(), event->pos());
}

void ListView::mouseMoveEvent(QMouseEvent* event) {
    QTreeView::mouseMoveEvent(event);
    const QPoint position = viewport()->mapTo(this, event->pos());
    Q_EMIT MouseMoved(event->buttons(), Twips(position.x()), Twips(position.y()));
}

// The second press of another button is a press as any other.
void ListView::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) {
        QTreeView::mouseDoubleClickEvent(event);
        return;
    }
    QMouseEvent press(QEvent::MouseButtonPress, event->position(), event->globalPosition(),
                      event->button(), event->buttons(), event->modifiers());
    mousePressEvent(&press);
}

// While a label is edited, what its editor leaves unhandled must not move the current row: the
// edit would end up in another record.
void ListView::keyPressEvent(QKeyEvent* event) {
    if (state() == EditingState) return;
    BeginInput();
    QTreeView::keyPressEvent(event);
    if (RowChosen()) Q_EMIT RowClicked();
    Q_EMIT KeyPressed(event->key());
}

// A drag leaves the row that it began on as the current one; with the drag over, that counts as a
// click, so that it doesn't make the Delete key act on another row than the one shown as current.
// While it lasts, what it carries is still what the last click gave.
void ListView::startDrag(Qt::DropActions actions) {
    m_pressed = false;
    QTreeView::startDrag(actions);
    if (RowChosen()) Q_EMIT RowClicked();
}

void ListView::SetDragSource(bool bDragSource) {
    setDragEnabled(bDragSource);
    m_rows.SetDragSource(bDragSource);
}

void ListView::SetDropTarget(bool bDropTarget) { viewport()->setAcceptDrops(bDropTarget); }

void ListView::dragEnterEvent(QDragEnterEvent* event) { AcceptDraggedRows(*event); }

void ListView::dragMoveEvent(QDragMoveEvent* event) { AcceptDraggedRows(*event); }

void ListView::dropEvent(QDropEvent* event) {
    if (AcceptDraggedRows(*event)) Q_EMIT RowsDropped();
}

// The Tab key ends an edit; it does not go on to the label of the next row.
void ListView::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint) {
    QTreeView::closeEditor(editor, QAbstractItemDelegate::NoHint);
}

}  // namespace tavel
