#pragma once

#include <functional>

class QDropEvent;
class QMimeData;
class QObject;
class QString;
class QWidget;

namespace tavel {

// Rows on their way from one control to another. They tell the process that they are from and have
// no other content: who takes them asks the main window what is selected.
QMimeData* MakeDraggedRows();  // owned by the caller

// Drags a row of the control until it is dropped. The row's name goes along beside the pointer,
// which leaves in view what it is to be dropped on.
void DragRow(QWidget& control, const QString& name);

// Runs `act` as soon as the drag that is under way has ended, or now when there is none: a box that
// asks in the middle of a drag may find the mouse in the drag's hands. Nothing is run when
// `receiver` has gone by then.
void AfterDrag(QObject& receiver, std::function<void()> act);

// Takes the event of a drag that carries such rows of this process; any other is left as it is.
// True when taken.
bool AcceptDraggedRows(QDropEvent& event);

}  // namespace tavel
