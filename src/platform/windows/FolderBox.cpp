#include "platform/windows/FolderBox.h"

#include "platform/FileService.h"
#include "platform/windows/Wide.h"

#include <windows.h>
#include <shlobj.h>

#include <memory>

namespace tavel {

namespace {

constexpr DWORD room = 32'768;  // characters of the longest path

struct FreeItems {
    void operator()(ITEMIDLIST* items) const { CoTaskMemFree(items); }
};
using Items = std::unique_ptr<ITEMIDLIST, FreeItems>;

// Empty for what has no place in the file system, such as the network.
std::string PathOf(const ITEMIDLIST* items) {
    std::wstring path(room, L'\0');
    if (items == nullptr || !SHGetPathFromIDListEx(items, path.data(), room, GPFIDL_DEFAULT))
        return {};
    path.resize(path.find(L'\0'));
    return oFSO().FromHostPath(FromWide(path));
}

class FolderBox : public HostFolderBox {
  public:
    explicit FolderBox(HWND window) : m_window(window) {}

    void Select(const std::string& path) override {
        const std::wstring text = ToWide(oFSO().HostPath(path));
        SendMessageW(m_window, BFFM_SETSELECTIONW, TRUE, reinterpret_cast<LPARAM>(text.c_str()));
    }
    void SetStatus(const std::string& text) override {
        const std::wstring wide = ToWide(text);
        SendMessageW(m_window, BFFM_SETSTATUSTEXTW, 0, reinterpret_cast<LPARAM>(wide.c_str()));
    }
    void Allow(bool ok) override { SendMessageW(m_window, BFFM_ENABLEOK, 0, ok ? TRUE : FALSE); }

  private:
    HWND m_window;
};

int CALLBACK Heard(HWND window, UINT message, LPARAM item, LPARAM data) {
    const auto& request = *reinterpret_cast<const HostFolderRequest*>(data);
    FolderBox box(window);
    if (message == BFFM_INITIALIZED) request.onReady(box);
    if (message == BFFM_SELCHANGED)
        request.onSelection(box, PathOf(reinterpret_cast<const ITEMIDLIST*>(item)));
    return 0;
}

UINT FlagsOf(const HostFolderRequest& request) {
    UINT flags = BIF_RETURNONLYFSDIRS | BIF_STATUSTEXT;
    if (request.includeFiles) flags |= BIF_BROWSEINCLUDEFILES;
    if (request.newStyle) flags |= BIF_NEWDIALOGSTYLE;
    return flags;
}

}  // namespace

std::string RunFolderBox(const HostFolderRequest& request) {
    const std::wstring title = ToWide(request.title);
    BROWSEINFOW box{};
    box.hwndOwner = reinterpret_cast<HWND>(request.owner);
    box.lpszTitle = title.c_str();
    box.ulFlags = FlagsOf(request);
    box.lpfn = Heard;
    box.lParam = reinterpret_cast<LPARAM>(&request);
    const Items picked(SHBrowseForFolderW(&box));
    return PathOf(picked.get());
}

}  // namespace tavel
