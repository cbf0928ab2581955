#pragma once

#include "platform/linux/Places.h"

namespace tavel {

// True when the file lies in a file system that is a process of its own.
bool IsOnFileSystemOfProcess(int file);

// What tells one file from another, by whatever path the two are reached.
class FileIdentity {
  public:
    // Of an open file; one that is open just to be looked at will do.
    explicit FileIdentity(int file);
    // Of the file at a place where something is.
    explicit FileIdentity(const Place& place);

    bool operator==(const FileIdentity& other) const;

  private:
    dev_t m_device = 0;
    ino_t m_inode = 0;
    std::string m_path;  // only where the inode does not tell
};

}  // namespace tavel
