#pragma once

#include <string>

namespace tavel::test {

// A file system mounted on a folder while it lives, which takes root. Where the machine does not
// allow that, WhyNot says what failed, and the test is to be skipped.
class Mounted {
  public:
    // `source`: what mount is told besides the folder, such as "-t tmpfs tmpfs".
    Mounted(const std::string& source, const std::string& folder);
    ~Mounted();
    Mounted(const Mounted&) = delete;
    Mounted& operator=(const Mounted&) = delete;

    const std::string& WhyNot() const { return m_whyNot; }

  private:
    std::string m_folder;
    std::string m_whyNot;
};

}  // namespace tavel::test
