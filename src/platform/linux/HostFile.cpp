#include "platform/linux/HostFile.h"

#include "platform/Failure.h"
#include "platform/linux/HostErrors.h"

#include <algorithm>
#include <cerrno>
#include <utility>

namespace tavel {

namespace {

constexpr std::size_t smallestPiece = 512;

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

bool SyncFolderOf(const Place& place) {
    if (!place.isOnRemovable) return true;
    const Descriptor folder(openat(place.Parent(), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    // Some file systems have no such call for folders, and need none.
    return folder.IsOpen() && (fsync(folder.Get()) == 0 || errno == EINVAL);
}

HostFile::HostFile(Descriptor file, Place place, bool isWritten, bool isNew)
    : m_file(std::move(file)),
      m_place(std::move(place)),
      m_isWritten(isWritten),
      m_isNew(isNew),
      m_pace(m_file.Get()) {
    if (!m_isWritten) m_share.emplace(m_place);
}

HostFile::~HostFile() { Close(); }

bool HostFile::Failed() {
    if (m_error == 0) m_error = FailureOfHostError(errno);
    return false;
}

bool HostFile::Read(std::span<char> buffer, std::size_t& bytesRead) {
    bytesRead = 0;
    while (bytesRead < buffer.size()) {
        const ssize_t count =
            read(m_file.Get(), buffer.data() + bytesRead, buffer.size() - bytesRead);
        if (count == 0) break;
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return Failed();
        bytesRead += static_cast<std::size_t>(count);
    }
    return true;
}

// A file system may refuse a large piece as a whole where a part of it would still fit: smaller
// ones fill the medium to its end, so that what follows finds it full and leaves no gap.
bool HostFile::Write(std::span<const char> buffer, std::size_t& bytesWritten) {
    bytesWritten = 0;
    if (m_isMediumLost) return false;
    std::size_t limit = buffer.size();
    while (bytesWritten < buffer.size()) {
        const ssize_t count = write(m_file.Get(), buffer.data() + bytesWritten,
                                    std::min(limit, buffer.size() - bytesWritten));
        if (count < 0 && errno == EINTR) continue;
        if (count < 0 && errno == ENOSPC && limit > smallestPiece) {
            limit /= 2;
            continue;
        }
        if (count < 0) return Failed();
        bytesWritten += static_cast<std::size_t>(count);
    }
    if (!m_place.isOnRemovable || m_pace.Wrote(m_file.Get(), bytesWritten)) return true;
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

void HostFile::CopyTimeOf(const struct stat& status) {
    const timespec times[2] = {{0, UTIME_OMIT}, status.st_mtim};
    futimens(m_file.Get(), times);
}

bool HostFile::Sync() {
    if (!m_isWritten || !m_place.isOnRemovable) return true;
    return fsync(m_file.Get()) == 0 && (!m_isNew || SyncFolderOf(m_place));
}

bool HostFile::Close() {
    if (m_file.IsOpen()) {
        if (!Sync()) Failed();
        if (!m_file.Close()) Failed();
        m_place.folder.Close();
        m_share.reset();
    }
    return !m_isWritten || m_error == 0;
}

std::unique_ptr<HostFile> OpenHostFile(Place place, RawMode mode, Long& error) {
    const bool isWritten = mode == RawMode::Create;
    const bool isNew = place.failure != 0;
    error = WhyNotToOpen(place, isWritten);
    if (error != 0) return nullptr;
    const int flags = isWritten ? O_WRONLY | O_CREAT | O_TRUNC : O_RDONLY;
    Descriptor file(openat(place.Parent(), place.name.c_str(), flags | place.OpenFlags(), 0666));
    if (!file.IsOpen()) {
        error = FailureOfHostError(errno);
        return nullptr;
    }
    return std::make_unique<HostFile>(std::move(file), std::move(place), isWritten, isNew);
}

}  // namespace tavel
