#include "support/FolderLock.h"

#include "platform/linux/Descriptor.h"

#include <fcntl.h>
#include <sys/file.h>

#include <stdexcept>

namespace tavel::test {

class FolderLock::File : public Descriptor {
  public:
    using Descriptor::Descriptor;
};

FolderLock::FolderLock(const std::string& hostFolder)
    : m_file(std::make_unique<File>(
          open((hostFolder + "/lock").c_str(), O_CREAT | O_RDWR | O_CLOEXEC, 0666))) {
    if (!m_file->IsOpen() || flock(m_file->Get(), LOCK_EX) != 0)
        throw std::runtime_error("no lock for " + hostFolder);
}

FolderLock::~FolderLock() = default;

}  // namespace tavel::test
