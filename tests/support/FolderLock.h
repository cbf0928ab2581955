#pragma once

#include <memory>
#include <string>

namespace tavel::test {

// While it lives, other processes that want a lock for the same folder wait.
class FolderLock {
  public:
    explicit FolderLock(const std::string& hostFolder);
    ~FolderLock();
    FolderLock(const FolderLock&) = delete;
    FolderLock& operator=(const FolderLock&) = delete;

  private:
    class File;
    std::unique_ptr<File> m_file;
};

}  // namespace tavel::test
