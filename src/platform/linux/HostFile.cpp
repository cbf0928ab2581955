#include "platform/linux/HostFile.h"

#include "platform/Failure.h"
#include "platform/linux/Flush.h"
#include "platform/linux/HostErrors.h"

#include <cerrno>
#include <utility>

namespace tavel {

namespace {

Long WhyNotToOpen(const Place& place, RawMode mode) {
    const bool isWritten = mode != RawMode::Read;
    if (isWritten && place.path.HasSecondDrive()) return failure::BadFileName;
    if (place.failure == failure::FileNotFound && mode == RawMode::Create) {
        if (place.path.endsInSeparator) return failure::PathNotFound;
        return place.name.empty() ? failure::BadFileName : 0;
    }
    if (place.failure != 0) return place.failure;
    const bool isProtected = isWritten && (place.IsReadOnly() || ReadShare::IsHeld(place));
    return place.IsFile() && !isProtected ? 0 : failure::PermissionDenied;
}

int FlagsFor(RawMode mode) {
    switch (mode) {
        case RawMode::Create:
            return O_WRONLY | O_CREAT | O_TRUNC;
        case RawMode::ReadWrite:
            return O_RDWR;
        case RawMode::Read:
            break;
    }
    return O_RDONLY;
}

}  // namespace

HostFile::HostFile(Descriptor file, Place place, RawMode mode, bool isNew)
    : m_file(std::move(file)),
      m_place(std::move(place)),
      m_isWritten(mode != RawMode::Read),
      m_isEntryFlushed(isNew),
      m_isFlushed(m_isWritten && m_place.isFlushed) {
    if (mode != RawMode::Create) m_share.emplace(m_file.Get());
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

bool HostFile::Flush() { return m_file.Flush() && (!m_isEntryFlushed || FlushFolderOf(m_place)); }

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
    const bool isNew = place.failure != 0;
    error = WhyNotToOpen(place, mode);
    if (error != 0) return nullptr;
    // Where nothing was found a link to nothing may lie: no file is made at its other end.
    const int flags = FlagsFor(mode) | (isNew ? O_NOFOLLOW : 0) | place.OpenFlags();
    Descriptor file(openat(place.Parent(), place.name.c_str(), flags, 0666));
    if (!file.IsOpen()) {
        error = FailureOfHostError(errno);
        return nullptr;
    }
    return std::make_unique<HostFile>(std::move(file), std::move(place), mode, isNew);
}

}  // namespace tavel
