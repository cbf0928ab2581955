#pragma once

#include "platform/windows/Handle.h"

#include <cstddef>

namespace tavel {

// Keeps what is written to a removable drive close to its medium, so that the progress that a copy
// shows is the medium's and not the memory's: no leap to the end and a long wait. Steps are of a
// few megabytes on a memory stick and grow where the medium is fast enough for more.
class WritePace {
  public:
    // Tells that so many bytes have been written. False when the host reports that data did not
    // reach the medium; GetLastError says why.
    bool Wrote(const Handle& file, std::size_t bytes);

  private:
    static constexpr std::size_t firstStep = std::size_t{4} * 1024 * 1024;

    std::size_t m_step = firstStep;
    std::size_t m_unflushed = 0;
};

}  // namespace tavel
