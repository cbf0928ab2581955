#pragma once

class QDropEvent;
class QMimeData;

namespace tavel {

// Rows on their way from one control to another. They have no content: who takes them asks the
// main window what is selected.
QMimeData* MakeDraggedRows();  // owned by the caller

// Takes the event of a drag that carries such rows; any other is left as it is. True when taken.
bool AcceptDraggedRows(QDropEvent& event);

}  // namespace tavel
