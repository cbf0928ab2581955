#pragma once

#include <functional>
#include <memory>

namespace tavel {

// What the host sends a program that is to end: on Linux SIGTERM, SIGINT and SIGHUP, on Windows the
// events of a console (Ctrl+C and Ctrl+Break, its window being closed). While this lives they don't
// end the process by themselves. One that the process was started to ignore stays ignored. There
// may be one at a time.
class EndRequests {
  public:
    // `heard` is called for every request, though for several that come at once maybe only once. It
    // runs on a thread of its own, and never after this has gone.
    explicit EndRequests(std::function<void()> heard);
    ~EndRequests();

  private:
    class Listener;
    std::unique_ptr<Listener> m_listener;
};

}  // namespace tavel
