#include "platform/linux/WritePace.h"

#include "platform/linux/FileIdentity.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <utility>

namespace tavel {

namespace {

constexpr std::int64_t mebibyte = std::int64_t{1024} * 1024;
constexpr std::int64_t smallestStep = mebibyte;
constexpr std::int64_t firstStep = 4 * mebibyte;
constexpr std::int64_t largestStep = 64 * mebibyte;

// A step in this range of time neither shows as a jerk nor costs.
constexpr std::chrono::milliseconds shortStep{50};
constexpr std::chrono::milliseconds longStep{400};

}  // namespace

WritePace::WritePace(int file) : m_isOfProcess(IsOnFileSystemOfProcess(file)), m_step(firstStep) {}

bool WritePace::Wrote(int file, std::size_t bytes) {
    m_unflushed += static_cast<std::int64_t>(bytes);
    if (m_unflushed < m_step) return true;
    const auto start = std::chrono::steady_clock::now();
    if (!Flush(file, std::exchange(m_unflushed, 0))) return false;
    const auto taken = std::chrono::steady_clock::now() - start;
    if (taken < shortStep) m_step = std::min(2 * m_step, largestStep);
    if (taken > longStep) m_step = std::max(m_step / 2, smallestStep);
    return true;
}

// Starts the newest step on its way to the medium and waits for the one before, so that the medium
// is never idle. A file system that is a process of its own passes all on to the device's memory at
// once, and only a full flush waits for the medium.
bool WritePace::Flush(int file, std::int64_t bytes) {
    if (m_isOfProcess) return fdatasync(file) == 0;
    const std::int64_t position = lseek(file, 0, SEEK_CUR);
    const std::int64_t newest = std::max<std::int64_t>(position - bytes, 0);
    const std::int64_t before = std::exchange(m_flushedTo, newest);
    if (sync_file_range(file, newest, bytes, SYNC_FILE_RANGE_WRITE) != 0) return false;
    constexpr unsigned wait =
        SYNC_FILE_RANGE_WAIT_BEFORE | SYNC_FILE_RANGE_WRITE | SYNC_FILE_RANGE_WAIT_AFTER;
    return newest <= before || sync_file_range(file, before, newest - before, wait) == 0;
}

}  // namespace tavel
