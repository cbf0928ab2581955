#pragma once

#include "platform/windows/HostStatus.h"
#include "platform/windows/WindowsApi.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <utility>

namespace tavel {

// Owns a handle of a file or folder. What fails leaves the reason in GetLastError.
class Handle {
  public:
    Handle() = default;
    explicit Handle(HANDLE handle) : m_handle(handle) {}
    ~Handle() { Close(); }
    Handle(Handle&& other) noexcept : m_handle(other.Release()) {}
    Handle& operator=(Handle&& other) noexcept {
        if (this != &other) {
            Close();
            m_handle = other.Release();
        }
        return *this;
    }

    bool IsOpen() const { return m_handle != INVALID_HANDLE_VALUE; }
    HANDLE Get() const { return m_handle; }
    HANDLE Release() { return std::exchange(m_handle, INVALID_HANDLE_VALUE); }

    // Reads until the buffer is full or the file at its end.
    bool Read(std::span<char> buffer, std::size_t& bytesRead) const;
    // Writes as much as the medium takes; `bytesWritten` tells how much that was.
    bool Write(std::span<const char> buffer, std::size_t& bytesWritten) const;
    // Brings the file's data, and where they lie, to the medium. Needs the right to write.
    bool Flush() const { return FlushFileBuffers(m_handle) != 0; }
    // Gives the file a modification time; one that its file system can't keep is passed over.
    void SetTime(const FILETIME& modified) const;
    // Gives the file the modification time and the attributes of another, as a copy has them.
    void SetTraits(const HostStatus& other) const;
    // False when the host reports a failure; the handle is closed all the same.
    bool Close() { return !IsOpen() || CloseHandle(Release()) != 0; }

  private:
    HANDLE m_handle = INVALID_HANDLE_VALUE;
};

// Seconds from 1970 on (UTC) as the host counts; nothing for what it can't count.
std::optional<FILETIME> HostTime(std::int64_t seconds);

// Opens what is there, a file or a folder, to ask about it, which no other program can prevent by
// having it open. Links are followed, or opened themselves.
Handle OpenToLook(const std::wstring& path, bool followsLinks);

}  // namespace tavel
