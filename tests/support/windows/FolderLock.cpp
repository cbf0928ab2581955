#include "support/FolderLock.h"

#include "platform/windows/WindowsApi.h"
#include "support/HostPlaces.h"

#include <stdexcept>

namespace tavel::test {

// Its lock goes with it.
class FolderLock::File {
  public:
    explicit File(const std::string& hostPath)
        : m_handle(::CreateFileW(AsHostPath(hostPath).c_str(), GENERIC_READ | GENERIC_WRITE,
                                 FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_ALWAYS, 0,
                                 nullptr)) {}
    ~File() { ::CloseHandle(m_handle); }
    File(const File&) = delete;
    File& operator=(const File&) = delete;

    bool Lock() {
        OVERLAPPED whole{};
        return ::LockFileEx(m_handle, LOCKFILE_EXCLUSIVE_LOCK, 0, 1, 0, &whole) != 0;
    }

  private:
    HANDLE m_handle;
};

FolderLock::FolderLock(const std::string& hostFolder)
    : m_file(std::make_unique<File>(hostFolder + "/lock")) {
    if (!m_file->Lock()) throw std::runtime_error("no lock for " + hostFolder);
}

FolderLock::~FolderLock() = default;

}  // namespace tavel::test
