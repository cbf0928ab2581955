#pragma once

#include <string>
#include <vector>

namespace tavel {

// frmAdd, the progress of adding. Any touch brings it into being, hidden, with its flag clear.
class AddWindow {
  public:
    virtual ~AddWindow() = default;
    virtual void Show() = 0;                             // not waiting
    virtual void SetPath(const std::string& sPath) = 0;  // labPath
    virtual void Repaint() = 0;
    virtual bool ExitChecked() = 0;  // chkExit: the user has cancelled
    virtual void Unload() = 0;
};

// frmInvFiles, the list of what was not added.
class InvalidFilesWindow {
  public:
    virtual ~InvalidFilesWindow() = default;
    virtual void AddItem(const std::string& sPath) = 0;
    virtual void Show() = 0;  // not waiting
};

// The tree of categories in frmMain.
class CategoryTree {
  public:
    virtual ~CategoryTree() = default;
    virtual void RefreshCats() = 0;
};

// The minute timer tmrBack, which rests while a scan runs.
class ScanTimer {
  public:
    virtual ~ScanTimer() = default;
    virtual void Enable(bool bEnabled) = 0;
};

}  // namespace tavel
