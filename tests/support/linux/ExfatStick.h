#pragma once

#include "support/Support.h"

#include <string>

namespace tavel::test {

// A real exFAT file system in an image file, mounted through a loop device. Where the machine does
// not allow that, WhyNot says what failed, and the test is to be skipped.
class ExfatStick {
  public:
    // `soundMebibytes`: where the medium breaks while the file system still has room; 0 for never.
    explicit ExfatStick(int mebibytes, int soundMebibytes = 0);
    ~ExfatStick();
    ExfatStick(const ExfatStick&) = delete;
    ExfatStick& operator=(const ExfatStick&) = delete;

    const std::string& WhyNot() const { return m_whyNot; }
    std::string MountFolder() const { return m_temp.HostPath("mount"); }
    const std::string& Device() const { return m_device; }

    bool Mount(const std::string& options = "rw");
    bool Unmount();  // fails while something on it is open
    void Pull();     // gone at once, whatever is open
    // The bytes of a file as another machine would find them, were the stick pulled now.
    std::string BytesWhenPulled(const std::string& name);

  private:
    bool Try(const std::string& what, const std::string& command);

    std::string Image() const { return m_temp.HostPath("medium/image"); }

    TempFolder m_temp;
    bool m_isMediumMounted = false;
    std::string m_device;
    std::string m_whyNot;
};

}  // namespace tavel::test
