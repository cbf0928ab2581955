#include "platform/HostSession.h"

#include "platform/windows/Wide.h"

#include <windows.h>

namespace tavel {

namespace {

class WindowsSession : public HostSession {
  public:
    // Without a window of its own the program is still waited for, and nobody is told why.
    bool WaitForProgram(HostWindow window, const std::string& why) override {
        ShutdownBlockReasonCreate(reinterpret_cast<HWND>(window), ToWide(why).c_str());
        return true;
    }
};

}  // namespace

template <>
HostSession* OwnService<HostSession>() {
    static WindowsSession session;
    return &session;
}

}  // namespace tavel
