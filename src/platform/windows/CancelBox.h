#pragma once

#include <windows.h>

namespace tavel {

// Asks a box of the system's to go: as its Cancel does, as No where it asks and has no Cancel, as
// OK where it only tells something. It goes when its loop comes to it.
void CancelBox(HWND box);

}  // namespace tavel
