#include "platform/HostBoxes.h"

#include "platform/windows/CancelBox.h"
#include "platform/windows/FileBox.h"
#include "platform/windows/FolderBox.h"

#include <windows.h>

namespace tavel {

namespace {

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
        if (box != nullptr && box != window) CancelBox(box);
    }
};

}  // namespace

template <>
HostBoxes* OwnService<HostBoxes>() {
    static SystemBoxes boxes;
    return &boxes;
}

}  // namespace tavel
