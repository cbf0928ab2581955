#pragma once

#include <stdlib.h>

#include <optional>
#include <string>

namespace tavel::test {

// The host's folder for temporary files as a test wants it; at the end it is the runner's own.
class TempPath {
  public:
    TempPath() {
        if (const char* path = getenv("TMPDIR")) m_former = path;
    }
    ~TempPath() {
        if (m_former) {
            Use(*m_former);
        } else {
            Unset();
        }
    }
    TempPath(const TempPath&) = delete;
    TempPath& operator=(const TempPath&) = delete;

    void Use(const std::string& hostFolder) { setenv("TMPDIR", hostFolder.c_str(), 1); }
    void Unset() { unsetenv("TMPDIR"); }

  private:
    std::optional<std::string> m_former;
};

}  // namespace tavel::test
