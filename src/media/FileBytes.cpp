#include "media/FileBytes.h"

#include "platform/Failure.h"

#include <algorithm>

namespace tavel {

namespace {

// Large enough for a picture inside a tag to come in a few reads.
constexpr std::int64_t bodyStep = 64 * 1024;

// Appends to the text what is not a NUL byte.
void StripNulls(std::string_view bytes, std::string& text) {
    while (!bytes.empty()) {
        const std::size_t nul = std::min(bytes.find('\0'), bytes.size());
        text.append(bytes.substr(0, nul));
        bytes.remove_prefix(std::min(nul + 1, bytes.size()));
    }
}

}  // namespace

FileBytes::FileBytes(RawFile& file) : m_file(file), m_length(file.Size()) {
    if (m_length < 0) Fail(failure::DeviceIO);
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
    const std::int64_t end = m_offset + count;
    std::string text;
    text.reserve(static_cast<std::size_t>(std::min(count, BytesLeft())));
    while (m_offset < end) {
        const std::int64_t step = std::min(end - m_offset, bodyStep);
        const std::string_view there = Peek(static_cast<std::size_t>(step));
        if (there.empty()) break;
        StripNulls(there, text);
        m_offset += std::ssize(there);
    }
    m_offset = end;
    return text;
}

void FileBytes::FillWindow(std::size_t count) {
    if (m_fileOffset != m_offset && !m_file.Seek(m_offset)) Fail(failure::DeviceIO);
    m_windowStart = m_offset;
    m_window.resize(static_cast<std::size_t>(std::min<std::int64_t>(count, BytesLeft())));
    std::size_t filled = 0;
    while (filled < m_window.size()) {
        std::size_t bytesRead = 0;
        if (!m_file.Read(std::span(m_window).subspan(filled), bytesRead)) Fail(failure::DeviceIO);
        if (bytesRead == 0) break;
        filled += bytesRead;
    }
    m_window.resize(filled);
    m_fileOffset = m_windowStart + static_cast<std::int64_t>(filled);
}

}  // namespace tavel
