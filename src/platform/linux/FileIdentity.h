#pragma once

#include "platform/linux/Places.h"

namespace tavel {

// True when the file lies in a file system that is a process of its own.
bool IsOnFileSystemOfProcess(int file);

// What tells one file from another, by whatever path the two are reached.
class FileIdentity {
  public:
    // Of the file at a place where something is.
    explicit FileIdentity(const Place& place);

    bool operator==(const FileIdentity& other) const;

  private:
    dev_t m_device;
    ino_t m_inode;
    std::string m_name;  // only where the inode does not tell
};

}  // namespace tavel
