#include "ui/toolkit/ListView.h"
#include "ui/toolkit/Strings.h"
#include "ui/toolkit/Twips.h"

namespace tavel {

void ListView::CurrentClicked(const QModelIndex&) { Q_EMIT RowClicked(); }

void ListView::MenuRequestedOfCurrent(QPoint globalPosition) {
    if (!Selected(Current())) {
        SelectAlone(currentIndex());
        Q_EMIT RowClicked();
    }
    Q_EMIT MenuRequested(globalPosition);
}

void ListView::RowsDroppedAt(QPoint) { Q_EMIT RowsDropped(); }

void ListView::SelectAlone(const QModelIndex& row) {
    selectionModel()->setCurrentIndex(
        row, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

void ListView::mousePressEvent(QMouseEvent* event) {
    const QModelIndex row = indexAt(event->pos());
    const bool bRight = event->button() == Qt::RightButton;
    // With the Control or Shift key Qt would open a menu over rows that it is not about.
    if (bRight && row.isValid() && !selectionModel()->isSelected(row)) SelectAlone(row);
    RowInput::mousePressEvent(event);
}

void ListView::mouseReleaseEvent(QMouseEvent* event) {
    const bool bFramed = state() == DragSelectingState;  // a frame drawn around rows
    QTreeView::mouseReleaseEvent(event);
    if (bFramed) EndInput();
    if (event->button() == Qt::RightButton && indexAt(event->pos()).isValid()) {
        Q_EMIT MenuRequested(event->globalPosition().toPoint());
    }
    Q_EMIT MouseReleased(event->button());
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

void ListView::keyPressEvent(QKeyEvent* event) {
    const bool bEditing = state() == EditingState;
    RowInput::keyPressEvent(event);
    if (!bEditing) Q_EMIT KeyPressed(event->key());
}

void ListView::SetDragSource(bool bDragSource) {
    setDragEnabled(bDragSource);
    m_rows.SetDragSource(bDragSource);
}

// However many rows are selected, it is the one in the hand that goes.
void ListView::startDrag(Qt::DropActions) { DragRow(*this, ToQString(Cell(Current(), 0))); }

}  // namespace tavel
