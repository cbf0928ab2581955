#pragma once

#include "platform/Failure.h"

namespace tavel {

// What serves as long as nobody has put another in its place; made at its first use. An interface
// that has such a one declares its own form of this beside itself.
template <class Interface>
Interface* OwnService() {
    return nullptr;
}

// What the engine asks of the host and of the windows is a row of abstract interfaces; this holds
// the one implementation of each. The program sets the windows' at its start, a test sets a fake.
template <class Interface>
class Service {
  public:
    // nullptr: back to its own, if it has one.
    static void Use(Interface* implementation) { s_current = implementation; }

    // Fails with 91 while there is none.
    static Interface& Get() {
        if (s_current == nullptr) s_current = OwnService<Interface>();
        if (s_current == nullptr) Fail(failure::ObjectNotSet);
        return *s_current;
    }

  private:
    static inline Interface* s_current = nullptr;
};

}  // namespace tavel
