#pragma once

#include "platform/FileService.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tavel {

// An open file as the tag routines see it: positions count from 1, and whatever lies beyond the end
// reads as NUL bytes. The file is read a window at a time, so that a tag at its start costs a
// single read. Every member fails with 57 when the file cannot be read.
class TagBytes {
  public:
    static constexpr std::size_t ChunkSize = 4096;

    // At position 1. The file must outlive this.
    explicit TagBytes(RawFile& file);

    std::int64_t Length() const { return m_length; }
    std::int64_t Position() const { return m_position; }
    void Seek(std::int64_t position) { m_position = position; }

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

    RawFile& m_file;
    std::int64_t m_length;
    std::int64_t m_position = 1;
    std::vector<char> m_window;  // bytes of the file from m_windowStart on
    std::int64_t m_windowStart = 1;
    std::int64_t m_filePosition = 1;  // where the file itself stands
};

}  // namespace tavel
