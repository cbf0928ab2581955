#pragma once

#include "support/FolderLock.h"

#include <string>

namespace tavel::test {

// The db.txt beside the test program, where start-up looks for it. Tests run side by side, so one
// that owns the file keeps the others waiting until it has removed it.
class ProgramDB {
  public:
    explicit ProgramDB(const std::string& contents);
    ~ProgramDB();
    ProgramDB(const ProgramDB&) = delete;
    ProgramDB& operator=(const ProgramDB&) = delete;

    std::string Read() const;
    void Remove() const;

  private:
    FolderLock m_lock;
    std::string m_path;
};

}  // namespace tavel::test
