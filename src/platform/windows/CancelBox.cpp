#include "platform/windows/CancelBox.h"

#include <commctrl.h>

#include <initializer_list>

namespace tavel {

namespace {

bool Has(HWND box, int button) { return GetDlgItem(box, button) != nullptr; }

// The newer questions and messages keep their buttons in a window within them.
bool IsTaskDialog(HWND box) {
    return FindWindowExW(box, nullptr, L"DirectUIHWND", nullptr) != nullptr;
}

// It takes no command for a button. What it does not have, or is asked when it has gone, it
// ignores.
void CancelTaskDialog(HWND box) {
    for (const WPARAM button : {IDCANCEL, IDNO, IDOK})
        PostMessageW(box, TDM_CLICK_BUTTON, button, 0);
}

}  // namespace

// The newer boxes for files have such a window, too, and their Cancel beside it.
void CancelBox(HWND box) {
    const bool hasCancel = Has(box, IDCANCEL);
    if (!hasCancel && IsTaskDialog(box)) return CancelTaskDialog(box);
    PostMessageW(box, WM_COMMAND, !hasCancel && Has(box, IDNO) ? IDNO : IDCANCEL, 0);
}

}  // namespace tavel
