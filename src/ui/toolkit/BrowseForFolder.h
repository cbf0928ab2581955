#pragma once

#include "ui/toolkit/Prompts.h"

#include <string>

class QWidget;

namespace tavel {

// Lets the user choose a folder; empty on Cancel. A start folder is selected at first, if it
// exists, and brings a status line with the path of the selection. bIncludeFiles shows files in
// the tree as well; bNewStyle adds a button that makes a folder.
std::string BrowseForFolderDlg(QWidget* owner, const std::string& sStartDir,
                               const std::string& sTitle, bool bIncludeFiles, bool bNewStyle);

// The callback of a picker that has a start folder. Ignores all failures; the result is always 0.
Long BrowseCallback(FolderPicker& hwnd, Long uMsg, const std::string& item);

}  // namespace tavel
