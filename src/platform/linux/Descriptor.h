#pragma once

#include <unistd.h>

#include <utility>

namespace tavel {

// Owns a descriptor of the host.
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

    // False when the host reports a failure; the descriptor is closed all the same.
    bool Close() { return !IsOpen() || ::close(Release()) == 0; }

  private:
    int m_descriptor = -1;
};

}  // namespace tavel
