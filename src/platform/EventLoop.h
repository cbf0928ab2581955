#pragma once

namespace tavel {

// The hand-over to the event loop.
class EventLoop {
  public:
    virtual ~EventLoop() = default;

    // Lets pending window events and due timers run. Returns at once when the last yield is under
    // a few milliseconds old, so that yielding often costs next to nothing.
    virtual void Yield() = 0;
};

// Yields through the program's event loop.
void DoEvents();

}  // namespace tavel
