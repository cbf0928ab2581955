#pragma once

#include "platform/linux/FileIdentity.h"

#include <list>

namespace tavel {

// Stands for a file that the program has open for reading, or for both. Such a file shares reads
// alone: while one lives, the same file, under whatever path, can't be opened for writing.
class ReadShare {
  public:
    // `file` is open as long as this lives.
    explicit ReadShare(int file);
    ~ReadShare();
    ReadShare(const ReadShare&) = delete;
    ReadShare& operator=(const ReadShare&) = delete;

    static bool IsHeld(const Place& file);

  private:
    std::list<int>::iterator m_held;
};

}  // namespace tavel
