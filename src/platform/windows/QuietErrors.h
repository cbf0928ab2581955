#pragma once

#include "platform/windows/WindowsApi.h"

namespace tavel {

// While it lives, the host answers this thread's calls about a drive without a medium with an error
// alone, and not with a box that asks the user to insert one.
class QuietErrors {
  public:
    QuietErrors() { ::SetThreadErrorMode(SEM_FAILCRITICALERRORS, &m_former); }
    ~QuietErrors() { ::SetThreadErrorMode(m_former, nullptr); }
    QuietErrors(const QuietErrors&) = delete;
    QuietErrors& operator=(const QuietErrors&) = delete;

  private:
    DWORD m_former = 0;
};

}  // namespace tavel
