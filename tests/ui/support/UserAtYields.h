#pragma once

#include "support/Recorders.h"
#include "ui/support/Windows.h"

#include <functional>

namespace tavel::test {

// At each yield the user may do something, with the mouse and the keys.
class UserAtYields : public Standing<EventLoop> {
  public:
    int yields = 0;
    std::function<void(int)> act = [](int) {};  // told which yield it is, from 1

    void Yield() override {
        if (m_isBusy) return;
        m_isBusy = true;
        act(++yields);
        RunEvents();
        m_isBusy = false;
    }

  private:
    bool m_isBusy = false;
};

}  // namespace tavel::test
