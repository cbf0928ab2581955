#pragma once

#include <memory>

namespace tavel {

// What the host sends a program that is to end, besides what it tells its windows: on Linux
// SIGTERM, SIGINT and SIGHUP. While this lives they don't end the process by themselves but make
// Handle(), a descriptor, readable, for good: a request is never taken back. One that the process
// was started to ignore stays ignored. On Windows a program without a console is asked through its
// windows alone, and Handle() is -1. There may be one at a time.
class EndRequests {
  public:
    EndRequests();
    ~EndRequests();

    int Handle() const;

  private:
    class Pipe;
    std::unique_ptr<Pipe> m_pipe;
};

}  // namespace tavel
