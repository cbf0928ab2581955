#include "platform/ProfileFile.h"

#include "platform/windows/Handle.h"
#include "platform/windows/HostPaths.h"
#include "platform/windows/Patience.h"

#include <chrono>
#include <cstdlib>

namespace tavel {

namespace {

// The host counts time in pieces of 100 ns.
constexpr std::int64_t nanosecondsPerTick = 100;
constexpr std::int64_t second = 1'000'000'000;  // nanoseconds

std::uint64_t Joined(DWORD high, DWORD low) { return std::uint64_t{high} << 32 | low; }

// From 1970 on, as `MayChangeUnseen` compares it with the clock.
std::int64_t Nanoseconds(LARGE_INTEGER time) {
    constexpr std::int64_t ticksTo1970 = 116'444'736'000'000'000;
    return (time.QuadPart - ticksTo1970) * nanosecondsPerTick;
}

std::optional<FileStamp> StampFrom(const Handle& file) {
    BY_HANDLE_FILE_INFORMATION facts{};
    FILE_BASIC_INFO times{};
    if (::GetFileInformationByHandle(file.Get(), &facts) == 0 ||
        (facts.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0 ||
        ::GetFileInformationByHandleEx(file.Get(), FileBasicInfo, &times, sizeof times) == 0)
        return std::nullopt;
    FileStamp stamp;
    stamp.device = facts.dwVolumeSerialNumber;
    stamp.inode = Joined(facts.nFileIndexHigh, facts.nFileIndexLow);
    stamp.size = Joined(facts.nFileSizeHigh, facts.nFileSizeLow);
    stamp.modified = Nanoseconds(times.LastWriteTime);
    // FAT has none.
    stamp.changed = times.ChangeTime.QuadPart != 0 ? Nanoseconds(times.ChangeTime) : stamp.modified;
    return stamp;
}

// A file alone: a device or a pipe would never answer.
Handle OpenToRead(const std::string& hostPath) {
    constexpr DWORD sharesAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const std::wstring path = CallPath(hostPath);
    Handle file;
    const auto open = [&] {
        file = Handle(::CreateFileW(path.c_str(), GENERIC_READ, sharesAll, nullptr, OPEN_EXISTING,
                                    FILE_ATTRIBUTE_NORMAL, nullptr));
        return file.IsOpen();
    };
    Patiently(open, [](DWORD error) { return error == ERROR_SHARING_VIOLATION; });
    if (file.IsOpen() && ::GetFileType(file.Get()) != FILE_TYPE_DISK) file.Close();
    return file;
}

}  // namespace

std::optional<FileStamp> StampOf(const std::string& hostPath) {
    const Handle file = OpenToLook(CallPath(hostPath), true);
    return file.IsOpen() ? StampFrom(file) : std::nullopt;
}

bool MayChangeUnseen(const FileStamp& stamp) {
    // A tick of the system's clock is up to 16 ms; on FAT it is two seconds. A time that lies in
    // the future was made by a clock that has been set since, and cannot come again soon.
    const bool hasWholeSeconds = stamp.changed % second == 0;
    const std::int64_t grain = hasWholeSeconds ? 2 * second : second / 50;
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    return std::abs(std::chrono::nanoseconds(now).count() - stamp.changed) < grain;
}

bool ReadHostFile(const std::string& hostPath, std::size_t limit, std::string& bytes,
                  FileStamp& stamp) {
    const Handle file = OpenToRead(hostPath);
    if (!file.IsOpen()) return false;
    const std::optional<FileStamp> opened = StampFrom(file);
    if (!opened) return false;
    stamp = *opened;
    if (stamp.size > limit) return false;
    bytes.resize(static_cast<std::size_t>(stamp.size));
    std::size_t count = 0;
    if (!file.Read(bytes, count)) return false;
    bytes.resize(count);
    return true;
}

}  // namespace tavel
