#include "platform/windows/HostFile.h"

#include "platform/Failure.h"
#include "platform/windows/Flush.h"
#include "platform/windows/HostErrors.h"

#include <utility>

namespace tavel {

namespace {

Long WhyNotToOpen(const Place& place, RawMode mode) {
    if (mode != RawMode::Read && place.path.HasSecondDrive()) return failure::BadFileName;
    if (place.failure == failure::FileNotFound && mode == RawMode::Create) {
        if (place.path.endsInSeparator) return failure::PathNotFound;
        return place.name.empty() ? failure::BadFileName : 0;
    }
    if (place.failure != 0) return place.failure;
    const bool isProtected = mode != RawMode::Read && place.IsReadOnly();
    return place.IsFile() && !isProtected ? 0 : failure::PermissionDenied;
}

DWORD AccessFor(RawMode mode) {
    switch (mode) {
        case RawMode::Create:
            return GENERIC_WRITE;
        case RawMode::ReadWrite:
            return GENERIC_READ | GENERIC_WRITE;
        case RawMode::Read:
            break;
    }
    return GENERIC_READ;
}

// Making anew what is there would fail for a hidden file.
DWORD DispositionFor(RawMode mode, bool isNew) {
    if (mode != RawMode::Create) return OPEN_EXISTING;
    return isNew ? CREATE_ALWAYS : TRUNCATE_EXISTING;
}

// What is being written may be written by others meanwhile; what is read stays as it is.
DWORD SharingFor(RawMode mode) {
    return mode == RawMode::Create ? FILE_SHARE_READ | FILE_SHARE_WRITE : FILE_SHARE_READ;
}

}  // namespace

HostFile::HostFile(Handle file, Place place, RawMode mode)
    : m_file(std::move(file)),
      m_place(std::move(place)),
      m_isWritten(mode != RawMode::Read),
      m_isFlushed(m_isWritten && m_place.isOnRemovable) {
    if (m_isFlushed) m_pace.emplace();
}

HostFile::~HostFile() { Close(); }

bool HostFile::Failed() {
    if (m_error == 0) m_error = FailureOfHostError(GetLastError());
    return false;
}

bool HostFile::Read(std::span<char> buffer, std::size_t& bytesRead) {
    return m_file.Read(buffer, bytesRead) || Failed();
}

bool HostFile::Write(std::span<const char> buffer, std::size_t& bytesWritten) {
    bytesWritten = 0;
    if (m_isMediumLost) return false;
    if (!m_file.Write(buffer, bytesWritten)) return Failed();
    if (!m_pace || m_pace->Wrote(m_file, bytesWritten)) return true;
    m_isMediumLost = true;
    return Failed();
}

std::int64_t HostFile::Size() {
    LARGE_INTEGER size{};
    return GetFileSizeEx(m_file.Get(), &size) != 0 ? size.QuadPart : -1;
}

bool HostFile::Seek(std::int64_t position) {
    LARGE_INTEGER distance{};
    distance.QuadPart = position;
    return position >= 0 && SetFilePointerEx(m_file.Get(), distance, nullptr, FILE_BEGIN) != 0;
}

void HostFile::SetTime(std::int64_t seconds) {
    const std::optional<FILETIME> time = HostTime(seconds);
    if (time) m_file.SetTime(*time);
}

bool HostFile::Flush() {
    const bool isNew = m_place.failure != 0;
    return m_file.Flush() && (!isNew || KeepEntries(m_place));
}

bool HostFile::Close() {
    if (m_file.IsOpen()) {
        if (m_isFlushed && !Flush()) Failed();
        if (!m_file.Close()) Failed();
    }
    return !m_isWritten || m_error == 0;
}

std::unique_ptr<HostFile> OpenHostFile(Place place, RawMode mode, Long& error) {
    error = WhyNotToOpen(place, mode);
    if (error != 0) return nullptr;
    Handle file(CreateFileW(place.callPath.c_str(), AccessFor(mode), SharingFor(mode), nullptr,
                            DispositionFor(mode, place.failure != 0), FILE_ATTRIBUTE_NORMAL,
                            nullptr));
    if (!file.IsOpen()) {
        error = FailureOfHostError(GetLastError());
        return nullptr;
    }
    return std::make_unique<HostFile>(std::move(file), std::move(place), mode);
}

}  // namespace tavel
