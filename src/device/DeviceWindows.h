#pragma once

#include <string>

namespace tavel {

// A progress bar that draws only when what it shows changes; its numbers may be as large as a
// file's size. It repaints with no event loop running.
class ProgressBarView {
  public:
    virtual ~ProgressBarView() = default;
    virtual void SetMin(float value) = 0;
    virtual void SetMax(float value) = 0;
    virtual void SetValue(float value) = 0;
    virtual float Value() const = 0;
    virtual void Repaint() = 0;
};

// frmCopy, the progress of a transfer. It closes by its own OK alone.
class CopyWindow {
  public:
    virtual ~CopyWindow() = default;
    virtual void Show() = 0;  // not waiting
    virtual void Repaint() = 0;
    virtual ProgressBarView& pgbCurr() = 0;
    virtual ProgressBarView& pgbTotal() = 0;
    virtual void SetFile(const std::string& sText) = 0;     // labFile
    virtual void SetSubFile(const std::string& sText) = 0;  // labSubFile
    virtual void ShowSubFile(bool bVisible) = 0;
    virtual void ShowFinish() = 0;  // labFinish
    virtual void ShowOK() = 0;      // cmdOK, visible and enabled
};

// The parts of frmMain that follow the device.
class DevicePanels {
  public:
    virtual ~DevicePanels() = default;
    virtual void RefreshPSPStatus() = 0;
    virtual void RefreshPSPCats() = 0;
    virtual void ShowPSPCats(bool bShow) = 0;
};

}  // namespace tavel
