#pragma once

#include <cstddef>
#include <cstdint>

namespace tavel {

// Keeps what is written to a removable drive close to its medium, so that the progress that a copy
// shows is the medium's and not the memory's: no leap to the end and a long wait. Steps are of a
// few megabytes on a memory stick and grow where the medium is fast enough for more.
class WritePace {
  public:
    explicit WritePace(int file);

    // Tells that so many bytes have been written behind each other. False when the host reports
    // that data did not reach the medium; errno says why.
    bool Wrote(int file, std::size_t bytes);

  private:
    bool Flush(int file, std::int64_t bytes);

    bool m_isOfProcess;  // the file system is a process of its own
    std::int64_t m_step;
    std::int64_t m_unflushed = 0;
    std::int64_t m_flushedTo = 0;
};

}  // namespace tavel
