#include "platform/windows/Handle.h"

#include <algorithm>
#include <limits>

namespace tavel {

namespace {

constexpr std::size_t smallestPiece = 512;
// One call of the host counts in 32 bits, and some drivers take no more than a part of that.
constexpr std::size_t largestPiece = std::size_t{8} * 1024 * 1024;

bool IsFull(DWORD error) { return error == ERROR_DISK_FULL || error == ERROR_HANDLE_DISK_FULL; }

}  // namespace

bool Handle::Read(std::span<char> buffer, std::size_t& bytesRead) const {
    bytesRead = 0;
    while (bytesRead < buffer.size()) {
        const std::size_t piece = std::min(largestPiece, buffer.size() - bytesRead);
        DWORD count = 0;
        if (ReadFile(m_handle, buffer.data() + bytesRead, static_cast<DWORD>(piece), &count,
                     nullptr) == 0) {
            return GetLastError() == ERROR_HANDLE_EOF;
        }
        if (count == 0) break;
        bytesRead += count;
    }
    return true;
}

// A file system refuses a large piece as a whole where a part of it would still fit: smaller ones
// fill the medium to its end, so that what follows finds it full and leaves no gap.
bool Handle::Write(std::span<const char> buffer, std::size_t& bytesWritten) const {
    bytesWritten = 0;
    std::size_t limit = largestPiece;
    while (bytesWritten < buffer.size()) {
        const std::size_t piece = std::min(limit, buffer.size() - bytesWritten);
        DWORD count = 0;
        const bool isWritten = WriteFile(m_handle, buffer.data() + bytesWritten,
                                         static_cast<DWORD>(piece), &count, nullptr) != 0;
        bytesWritten += count;
        if (isWritten && count > 0) continue;
        if (isWritten) SetLastError(ERROR_WRITE_FAULT);
        if (!IsFull(GetLastError()) || piece <= smallestPiece) return false;
        limit = piece / 2;
    }
    return true;
}

void Handle::SetTime(const FILETIME& modified) const {
    SetFileTime(m_handle, nullptr, nullptr, &modified);
}

// A time of 0 leaves what is there. A file system that can't keep the time refuses the attributes
// with it: FAT knows no year before 1980.
void Handle::SetTraits(const HostStatus& other) const {
    constexpr DWORD copied =
        FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;
    FILE_BASIC_INFO traits{};
    traits.LastWriteTime.LowPart = other.modified.dwLowDateTime;
    traits.LastWriteTime.HighPart = static_cast<LONG>(other.modified.dwHighDateTime);
    traits.FileAttributes = FILE_ATTRIBUTE_ARCHIVE | (other.attributes & copied);
    if (SetFileInformationByHandle(m_handle, FileBasicInfo, &traits, sizeof traits) != 0) return;
    traits.LastWriteTime = {};
    SetFileInformationByHandle(m_handle, FileBasicInfo, &traits, sizeof traits);
}

std::optional<FILETIME> HostTime(std::int64_t seconds) {
    constexpr std::int64_t ticks = 10'000'000;               // in a second
    constexpr std::int64_t from1601To1970 = 11'644'473'600;  // seconds
    constexpr std::int64_t latest = std::numeric_limits<std::int64_t>::max() / ticks;
    if (seconds <= -from1601To1970 || seconds > latest - from1601To1970) return std::nullopt;
    const auto count = static_cast<std::uint64_t>((seconds + from1601To1970) * ticks);
    return FILETIME{static_cast<DWORD>(count), static_cast<DWORD>(count >> 32)};
}

Handle OpenToLook(const std::wstring& path, bool followsLinks) {
    constexpr DWORD anything = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const DWORD flags =
        FILE_FLAG_BACKUP_SEMANTICS | (followsLinks ? 0 : FILE_FLAG_OPEN_REPARSE_POINT);
    return Handle(CreateFileW(path.c_str(), FILE_READ_ATTRIBUTES, anything, nullptr, OPEN_EXISTING,
                              flags, nullptr));
}

}  // namespace tavel
