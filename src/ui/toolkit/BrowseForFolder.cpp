#include "ui/toolkit/BrowseForFolder.h"

#include "platform/Failure.h"
#include "ui/toolkit/Strings.h"

namespace tavel {

namespace {

// Carries the start folder to the callback, which gets no argument for it.
std::string sStartFolder;

}  // namespace

std::string BrowseForFolderDlg(QWidget* owner, const std::string& sStartDir,
                               const std::string& sTitle, bool bIncludeFiles, bool bNewStyle) {
    FolderRequest request;
    request.owner = owner;
    request.title = ToQString(sTitle);
    request.includeFiles = bIncludeFiles;
    request.newStyle = bNewStyle;
    if (!sStartDir.empty()) {
        sStartFolder = sStartDir;
        request.callback = BrowseCallback;
    }
    return Service<Prompter>::Get().PickFolder(request);
}

Long BrowseCallback(FolderPicker& hwnd, Long uMsg, const std::string& item) {
    try {
        if (uMsg == FolderPickerReady) hwnd.Select(sStartFolder);
        if (uMsg == FolderPickerSelectionChanged && !item.empty()) hwnd.SetStatus(item);
    } catch (const Failure&) {
        return 0;
    }
    return 0;
}

}  // namespace tavel
