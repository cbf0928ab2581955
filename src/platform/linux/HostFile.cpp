#include "platform/linux/HostFile.h"

#include "platform/Failure.h"
#include "platform/linux/HostErrors.h"

#include <linux/magic.h>
#include <sys/vfs.h>

#include <algorithm>
#include <cerrno>
#include <utility>

namespace tavel {

namespace {

// Unwritten data of a removable drive stay below twice this, so that the progress that a copy
// shows is the medium's and not the memory's.
constexpr std::int64_t flushStep = std::int64_t{8} * 1024 * 1024;

bool IsFileSystemOfProcess(int file) {
    struct statfs status {};
    return fstatfs(file, &status) == 0 && status.f_type == FUSE_SUPER_MAGIC;
}

Long WhyNotToOpen(const Place& place, bool isWritten) {
    if (place.failure == failure::FileNotFound && isWritten) {
        if (place.path.endsInSeparator) return failure::PathNotFound;
        return place.name.empty() ? failure::BadFileName : 0;
    }
    if (place.failure != 0) return place.failure;
    const bool isProtected = isWritten && (place.IsReadOnly() || ReadShare::IsHeld(place.status));
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
      m_isOfProcess(IsFileSystemOfProcess(m_file.Get())) {
    if (!m_isWritten) m_share.emplace(m_place.status);
}

HostFile::~HostFile() { Close(); }

bool HostFile::Failed() {
    m_error = FailureOfHostError(errno);
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

bool HostFile::Write(std::span<const char> buffer, std::size_t& bytesWritten) {
    bytesWritten = 0;
    while (bytesWritten < buffer.size()) {
        const ssize_t count =
            write(m_file.Get(), buffer.data() + bytesWritten, buffer.size() - bytesWritten);
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return Failed();
        bytesWritten += static_cast<std::size_t>(count);
    }
    return KeepPace(bytesWritten);
}

// Starts the newest step on its way to the medium and waits for the one before, so that the medium
// is never idle. A file system that is a process of its own writes through to the device, whose
// data only a full flush waits for.
bool HostFile::KeepPace(std::size_t bytes) {
    if (!m_place.isOnRemovable) return true;
    m_unflushed += static_cast<std::int64_t>(bytes);
    if (m_unflushed < flushStep) return true;
    const std::int64_t step = std::exchange(m_unflushed, 0);
    if (m_isOfProcess) return fdatasync(m_file.Get()) == 0 || Failed();
    const std::int64_t position = lseek(m_file.Get(), 0, SEEK_CUR);
    const std::int64_t start =
        std::exchange(m_flushedTo, std::max<std::int64_t>(position - step, 0));
    if (sync_file_range(m_file.Get(), m_flushedTo, step, SYNC_FILE_RANGE_WRITE) != 0) {
        return Failed();
    }
    constexpr unsigned wait =
        SYNC_FILE_RANGE_WAIT_BEFORE | SYNC_FILE_RANGE_WRITE | SYNC_FILE_RANGE_WAIT_AFTER;
    const std::int64_t length = m_flushedTo - start;
    return length <= 0 || sync_file_range(m_file.Get(), start, length, wait) == 0 || Failed();
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
