#pragma once

class QDropEvent;
class QMimeData;
class QString;
class QWidget;

namespace tavel {

// Rows on their way from one control to another. They tell the process that they are from and have
// no other content: who takes them asks the main window what is selected.
QMimeData* MakeDraggedRows();  // owned by the caller

// Drags a row of the control until it is dropped. The row's name goes along beside the pointer,
// which leaves in view what it is to be dropped on.
void DragRow(QWidget& control, const QString& name);

// Takes the event of a drag that carries such rows of this process; any other is left as it is.
// True when taken.
bool AcceptDraggedRows(QDropEvent& event);

}  // namespace tavel
