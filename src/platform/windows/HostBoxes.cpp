#include "platform/HostBoxes.h"

#include "platform/windows/FileBox.h"
#include "platform/windows/FolderBox.h"

#include <windows.h>

namespace tavel {

namespace {

// A question that stands over a box, such as whether to replace a file, may have a No and no
// Cancel.
WPARAM ButtonToCancel(HWND box) {
    const bool hasNoAlone =
        GetDlgItem(box, IDCANCEL) == nullptr && GetDlgItem(box, IDNO) != nullptr;
    return hasNoAlone ? IDNO : IDCANCEL;
}

class SystemBoxes : public HostBoxes {
  public:
    bool AreThere() override { return true; }
    HostFileAnswer PickFiles(const HostFileRequest& request) override {
        return RunFileBox(request);
    }
    std::string PickFolder(const HostFolderRequest& request) override {
        return RunFolderBox(request);
    }
    void Cancel(HostWindow owner) override {
        const auto window = reinterpret_cast<HWND>(owner);
        const HWND box = GetLastActivePopup(window);
        if (box != nullptr && box != window) PostMessageW(box, WM_COMMAND, ButtonToCancel(box), 0);
    }
};

}  // namespace

template <>
HostBoxes* OwnService<HostBoxes>() {
    static SystemBoxes boxes;
    return &boxes;
}

}  // namespace tavel
