#pragma once

#include "platform/Numbers.h"

namespace tavel {

// What start-up and shutdown ask of the windows.
class AppWindows {
  public:
    virtual ~AppWindows() = default;

    // Readies the window toolkit's classes; the result is not looked at.
    virtual bool InitCommonControls(Long requestSize, Long classMask) = 0;

    virtual void ShowSplash() = 0;  // frmSplash, not waiting, on the screen before it returns
    virtual void UnloadSplash() = 0;
    virtual void ShowStartWizard() = 0;  // not waiting
    virtual void ShowMain() = 0;         // not waiting
    virtual void ShowEnd() = 0;          // frmEnd, not waiting, on the screen before it returns
    virtual void UnloadAllButMain() = 0;
    virtual void EndProcess() = 0;  // in the program it does not return; in a test it may
};

}  // namespace tavel
