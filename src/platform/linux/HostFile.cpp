#include "platform/linux/HostFile.h"

#include "platform/Failure.h"
#include "platform/linux/Flush.h"
#include "platform/linux/HostErrors.h"

#include <cerrno>
#include <utility>

namespace tavel {

namespace {

Long WhyNotToOpen(const Place& place, bool isWritten) {
    if (isWritten && place.path.HasSecondDrive()) return failure::BadFileName;
    if (place.failure == failure::FileNotFound && isWritten) {
        if (place.path.endsInSeparator) return failure::PathNotFound;
        return place.name.empty() ? failure::BadFileName : 0;
    }
    if (place.failure != 0) return place.failure;
    const bool isProtected = isWritten && (place.IsReadOnly() || ReadShare::IsHeld(place));
    return place.IsFile() && !isProtected ? 0 : failure::PermissionDenied;
}

}  // namespace

HostFile::HostFile(Descriptor file, Place place, bool isWritten, bool isNew)
    : m_file(std::move(file)),
      m_place(std::move(place)),
      m_isWritten(isWritten),
      m_isNew(isNew),
      m_isFlushed(isWritten && m_place.isFlushed) {
    if (!isWritten) m_share.emplace(m_file.Get());
    if (m_isFlushed) m_pace.emplace(m_file.Get());
}

HostFile::~HostFile() { Close(); }

bool HostFile::Failed() {
    if (m_error == 0) m_error = FailureOfHostError(errno);
    return false;
}

bool HostFile::Read(std::span<char> buffer, std::size_t& bytesRead) {
    return m_file.Read(buffer, bytesRead) || Failed();
}

bool HostFile::Write(std::span<const char> buffer, std::size_t& bytesWritten) {
    bytesWritten = 0;
    if (m_isMediumLost) return false;
    if (!m_file.Write(buffer, bytesWritten)) return Failed();
    if (!m_pace || m_pace->Wrote(m_file.Get(), bytesWritten)) return true;
    m_isMediumLost = true;
    return Failed();
}

std::int64_t HostFile::Size() {
    struct stat status {};
    return fstat(m_file.Get(), &status) == 0 ? status.st_size : -1;
}

bool HostFile::Seek(std::int64_t position) {
    return position >= 0 && lseek(m_file.Get(), position, SEEK_SET) == position;
}

void HostFile::SetTime(const timespec& modified) {
    const timespec times[2] = {{0, UTIME_OMIT}, modified};
    futimens(m_file.Get(), times);
}

void HostFile::SetTime(std::int64_t seconds) { SetTime(timespec{seconds, 0}); }

void HostFile::CopyTimeOf(const struct stat& status) { SetTime(status.st_mtim); }

bool HostFile::Flush() { return m_file.Flush() && (!m_isNew || FlushFolderOf(m_place)); }

bool HostFile::Close() {
    if (m_file.IsOpen()) {
        if (m_isFlushed && !Flush()) Failed();
        m_share.reset();
        if (!m_file.Close()) Failed();
        m_place.folder.Close();
    }
    return !m_isWritten || m_error == 0;
}

std::unique_ptr<HostFile> OpenHostFile(Place place, RawMode mode, Long& error) {
    const bool isWritten = mode == RawMode::Create;
    const bool isNew = place.failure != 0;
    error = WhyNotToOpen(place, isWritten);
    if (error != 0) return nullptr;
    // Where nothing was found a link to nothing may lie: no file is made at its other end.
    const int flags = (isWritten ? O_WRONLY | O_CREAT | O_TRUNC : O_RDONLY) |
                      (isNew ? O_NOFOLLOW : 0) | place.OpenFlags();
    Descriptor file(openat(place.Parent(), place.name.c_str(), flags, 0666));
    if (!file.IsOpen()) {
        error = FailureOfHostError(errno);
        return nullptr;
    }
    return std::make_unique<HostFile>(std::move(file), std::move(place), isWritten, isNew);
}

}  // namespace tavel
