#include "media/FileBytes.h"

#include "platform/Failure.h"

#include <algorithm>
#include <cstring>

namespace tavel {

namespace {

// Closes up over the NUL bytes.
void StripNulls(std::string& text) {
    char* kept = text.data();
    const char* const end = kept + text.size();
    for (const char* from = kept; from != end;) {
        const void* nul = std::memchr(from, 0, static_cast<std::size_t>(end - from));
        const char* const to = nul == nullptr ? end : static_cast<const char*>(nul);
        if (kept != from) std::memmove(kept, from, static_cast<std::size_t>(to - from));
        kept += to - from;
        from = to == end ? end : to + 1;
    }
    text.resize(static_cast<std::size_t>(kept - text.data()));
}

}  // namespace

void FailAs(const RawFile& file) { Fail(file.Error() != 0 ? file.Error() : failure::DeviceIO); }

FileBytes::FileBytes(RawFile& file) : m_file(file), m_length(file.Size()) {
    if (m_length < 0) FailAs(m_file);
}

std::int64_t FileBytes::BytesLeft() const { return std::max<std::int64_t>(m_length - m_offset, 0); }

std::string_view FileBytes::Peek(std::size_t count) {
    count = static_cast<std::size_t>(std::min<std::int64_t>(count, BytesLeft()));
    if (count == 0) return {};
    const std::int64_t windowEnd = m_windowStart + std::ssize(m_window);
    if (m_offset < m_windowStart || m_offset + static_cast<std::int64_t>(count) > windowEnd) {
        FillWindow(std::max(count, ChunkSize));
    }
    const std::size_t start = static_cast<std::size_t>(m_offset - m_windowStart);
    return std::string_view(m_window.data(), m_window.size()).substr(start, count);
}

void FileBytes::Read(std::span<char> bytes) {
    const std::string_view there = Peek(bytes.size());
    std::fill(std::copy(there.begin(), there.end(), bytes.begin()), bytes.end(), '\0');
    m_offset += std::ssize(bytes);
}

std::string FileBytes::ReadWithoutNulls(std::int64_t count) {
    std::string text(static_cast<std::size_t>(std::min(count, BytesLeft())), '\0');
    const std::size_t copied = CopyWindow(text);
    ReadAt(m_offset + static_cast<std::int64_t>(copied), std::span(text).subspan(copied));
    m_offset += count;
    StripNulls(text);
    return text;
}

// The next bytes, as far as the window holds them; returns their number.
std::size_t FileBytes::CopyWindow(std::span<char> bytes) const {
    const std::int64_t start = m_offset - m_windowStart;
    if (start < 0 || start > std::ssize(m_window)) return 0;
    return std::string_view(m_window.data(), m_window.size())
        .copy(bytes.data(), bytes.size(), static_cast<std::size_t>(start));
}

void FileBytes::FillWindow(std::size_t count) {
    m_windowStart = m_offset;
    m_window.resize(static_cast<std::size_t>(std::min<std::int64_t>(count, BytesLeft())));
    m_window.resize(ReadAt(m_offset, m_window));
}

// Returns the number of bytes that are there.
std::size_t FileBytes::ReadAt(std::int64_t offset, std::span<char> bytes) {
    if (bytes.empty()) return 0;
    if (m_fileOffset != offset && !m_file.Seek(offset)) FailAs(m_file);
    std::size_t filled = 0;
    while (filled < bytes.size()) {
        std::size_t bytesRead = 0;
        if (!m_file.Read(bytes.subspan(filled), bytesRead)) FailAs(m_file);
        if (bytesRead == 0) break;
        filled += bytesRead;
    }
    m_fileOffset = offset + static_cast<std::int64_t>(filled);
    return filled;
}

}  // namespace tavel
