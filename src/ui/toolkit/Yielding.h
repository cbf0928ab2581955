#pragma once

#include "platform/EventLoop.h"

#include <cstdint>
#include <functional>
#include <optional>

namespace tavel {

// The hand-over to Qt's event loop.
class Yielding : public EventLoop {
  public:
    // `now` tells milliseconds from any start.
    explicit Yielding(std::function<std::int64_t()> now);

    // Windows' events, timers and user input run; within 2 ms of the last yield nothing does.
    void Yield() override;

  private:
    std::function<std::int64_t()> m_now;
    std::optional<std::int64_t> m_last;
};

}  // namespace tavel
