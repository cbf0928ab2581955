#pragma once

#include "platform/Failure.h"
#include "platform/FileService.h"

#include <algorithm>
#include <string>
#include <utility>

namespace tavel::test {

// A raw file in memory, for reading. It counts its reads, and fails them from `FailAt` on.
class MemoryFile : public RawFile {
  public:
    explicit MemoryFile(std::string bytes) : m_bytes(std::move(bytes)) {}

    int Reads = 0;
    int FailAt = -1;        // the read, from 0, that fails
    std::int64_t Told = 0;  // what the file's size is told to be beyond what is there
    bool FailClose = false;

    bool Read(std::span<char> buffer, std::size_t& bytesRead) override {
        bytesRead = 0;
        if (Reads++ == FailAt) {
            m_error = failure::DeviceIO;
            return false;
        }
        const std::size_t start = std::min(m_position, m_bytes.size());
        bytesRead = m_bytes.copy(buffer.data(), buffer.size(), start);
        m_position += bytesRead;
        return true;
    }
    bool Write(std::span<const char>, std::size_t& bytesWritten) override {
        bytesWritten = 0;
        return false;
    }
    std::int64_t Size() override { return static_cast<std::int64_t>(m_bytes.size()) + Told; }
    bool Seek(std::int64_t position) override {
        m_position = static_cast<std::size_t>(position);
        return position >= 0;
    }
    bool Close() override { return !FailClose; }
    Long Error() const override { return m_error; }
    void FlushOnClose() override {}
    void SetTime(std::int64_t) override {}

  private:
    std::string m_bytes;
    std::size_t m_position = 0;
    Long m_error = 0;
};

}  // namespace tavel::test
