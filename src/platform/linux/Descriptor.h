#pragma once

#include <sys/stat.h>
#include <unistd.h>

#include <cstddef>
#include <span>
#include <utility>

namespace tavel {

// Owns a descriptor of the host. What fails leaves the reason in errno.
class Descriptor {
  public:
    Descriptor() = default;
    explicit Descriptor(int descriptor) : m_descriptor(descriptor) {}
    ~Descriptor() { Close(); }
    Descriptor(Descriptor&& other) noexcept : m_descriptor(other.Release()) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        if (this != &other) {
            Close();
            m_descriptor = other.Release();
        }
        return *this;
    }

    bool IsOpen() const { return m_descriptor >= 0; }
    int Get() const { return m_descriptor; }
    int Release() { return std::exchange(m_descriptor, -1); }

    // Reads until the buffer is full or the file at its end.
    bool Read(std::span<char> buffer, std::size_t& bytesRead) const;
    // Writes as much as the medium takes; `bytesWritten` tells how much that was.
    bool Write(std::span<const char> buffer, std::size_t& bytesWritten) const;
    // Brings the file's data, and where they lie, to the medium.
    bool Flush() const { return fsync(m_descriptor) == 0; }
    // Gives the file a modification time; one that its file system can't keep is passed over.
    void SetTime(const timespec& modified) const;
    // Gives the file to the owner and the group of another, where the user may, with the same mode;
    // else the user may read and write it, besides, and a group that is not the other one's has the
    // rights of everybody. A file system without owners and modes refuses all of it.
    void TakeOwnerAndMode(const struct stat& other) const;

    // False when the host reports a failure; the descriptor is closed all the same.
    bool Close() { return !IsOpen() || ::close(Release()) == 0; }

  private:
    int m_descriptor = -1;
};

}  // namespace tavel
