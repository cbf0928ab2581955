#pragma once

#include <sys/stat.h>

namespace tavel {

// Stands for a file that the program has open for reading. Such a file shares reads alone: while
// one lives, the same file, under whatever path, can't be opened for writing.
class ReadShare {
  public:
    explicit ReadShare(const struct stat& file);
    ~ReadShare();
    ReadShare(const ReadShare&) = delete;
    ReadShare& operator=(const ReadShare&) = delete;

    static bool IsHeld(const struct stat& file);

  private:
    dev_t m_device;
    ino_t m_inode;
};

}  // namespace tavel
