#pragma once

#include "platform/Failure.h"

namespace tavel {

// What the engine asks of the windows is an abstract interface; this holds the one implementation
// of each. The program sets the windows' own at its start, a test sets a recorder.
template <class Interface>
class UpCall {
  public:
    static void Set(Interface* implementation) { s_current = implementation; }

    // Fails with 91 while nothing has been set.
    static Interface& Get() {
        if (s_current == nullptr) Fail(failure::ObjectNotSet);
        return *s_current;
    }

  private:
    static inline Interface* s_current = nullptr;
};

}  // namespace tavel
