#pragma once

#include "platform/FileService.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tavel {

// Fails with the number that the file tells of its first failure, or with 57 when it tells none.
[[noreturn]] void FailAs(const RawFile& file);

// An open file as the readers of foreign bytes see it. It is read a window at a time, so that what
// stands at its start costs a single read, and reads as NUL bytes beyond its end. Every member
// fails as FailAs does when the file cannot be read.
class FileBytes {
  public:
    static constexpr std::size_t ChunkSize = 4096;

    // At offset 0. The file must outlive this.
    explicit FileBytes(RawFile& file);

    std::int64_t Length() const { return m_length; }
    std::int64_t Offset() const { return m_offset; }
    void Seek(std::int64_t offset) { m_offset = offset; }  // not negative
    void Skip(std::int64_t count) { m_offset += count; }

    // The next bytes without moving on; those beyond the end are left out. Good until the next
    // call.
    std::string_view Peek(std::size_t count);

    // Fills `bytes` and moves on.
    void Read(std::span<char> bytes);

    // Moves on by `count` bytes and gives those that are not NUL. What is beyond the end costs
    // neither time nor memory.
    std::string ReadWithoutNulls(std::int64_t count);

  private:
    std::int64_t BytesLeft() const;
    void FillWindow(std::size_t count);
    std::size_t CopyWindow(std::span<char> bytes) const;
    std::size_t ReadAt(std::int64_t offset, std::span<char> bytes);

    RawFile& m_file;
    std::int64_t m_length;
    std::int64_t m_offset = 0;
    std::vector<char> m_window;  // bytes of the file from m_windowStart on
    std::int64_t m_windowStart = 0;
    std::int64_t m_fileOffset = 0;  // where the file itself stands
};

}  // namespace tavel
