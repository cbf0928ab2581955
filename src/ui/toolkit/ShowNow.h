#pragma once

class QWidget;

namespace tavel {

// Shows a dialog and has it painted on the screen before returning, while the program's handlers
// rest. Gives up waiting after a moment where the window system does not answer.
void ShowNow(QWidget& dialog);

// Brings what a visible widget shows up to date at once, its layout included, with no event loop
// running. Does nothing for a hidden one.
void RepaintNow(QWidget& widget);

}  // namespace tavel
