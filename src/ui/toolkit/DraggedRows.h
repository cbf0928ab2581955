#pragma once

class QDropEvent;
class QMimeData;

namespace tavel {

// Rows on their way from one control to another. They tell the process that they are from and have
// no other content: who takes them asks the main window what is selected.
QMimeData* MakeDraggedRows();  // owned by the caller

// Takes the event of a drag that carries such rows of this process; any other is left as it is.
// True when taken.
bool AcceptDraggedRows(QDropEvent& event);

}  // namespace tavel
