#pragma once

#include "platform/HostWindow.h"
#include "platform/Service.h"

#include <string>

namespace tavel {

// The desktop's session, at whose end every program is asked to end first.
class HostSession {
  public:
    virtual ~HostSession() = default;

    // True where a program may be ended by force as soon as it has heard of the end (Windows). One
    // that is not done has to refuse then, and the session waits for it. While it does, the user is
    // told why, over this window of the program's; both last until the program ends.
    virtual bool WaitForProgram(HostWindow window, const std::string& why) = 0;
};

template <>
HostSession* OwnService<HostSession>();

}  // namespace tavel
