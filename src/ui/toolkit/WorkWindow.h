#pragma once

class QWidget;

namespace tavel {

// The window that the user works in, frmMain or the wizard. Dialogs belong to it: they stay above
// it, whatever is clicked, and have a life of their own all the same.

// From now on and until the end of its life, or until another takes its place.
void SetWorkWindow(QWidget& window);
QWidget* WorkWindow();  // null while there is none, as while the library loads

// Shows a dialog in front, in the middle of the work window or, while there is none, of the screen.
void ShowDialog(QWidget& dialog);
void ShowPlacedDialog(QWidget& dialog);  // where it is
void OpenDialog(QWidget& dialog);        // for the user who asks for it, with the keyboard

// Makes the dialogs that show belong to the work window, which another one was until now. It has
// to be on the screen: a desktop passes over an owner that it does not know yet.
void TakeOverDialogs();

// Puts a window that shows, minimized or behind others, where the user who asked for it sees it,
// and gives it the keyboard.
void BringToFront(QWidget& window);

// What a box belongs to that asks now: the box that is asking already, else the dialog that the
// user is in, else the work window. Null when there is none of them.
QWidget* BoxOwner();

}  // namespace tavel
