#include "platform/Failure.h"
#include "platform/ProfileFile.h"
#include "platform/windows/Handle.h"
#include "platform/windows/HostErrors.h"
#include "platform/windows/Patience.h"
#include "platform/windows/Places.h"
#include "platform/windows/Successor.h"

#include <algorithm>

namespace tavel {

namespace {

using ByteTeller = std::function<void(const ByteSink&)>;

std::int64_t SizeOf(const ByteTeller& tellBytes) {
    std::int64_t size = 0;
    tellBytes([&](std::string_view piece) { size += static_cast<std::int64_t>(piece.size()); });
    return size;
}

std::int64_t RoomOf(const Handle& opened) {
    FILE_STANDARD_INFO data{};
    if (GetFileInformationByHandleEx(opened.Get(), FileStandardInfo, &data, sizeof data) == 0)
        return 0;
    return data.AllocationSize.QuadPart;
}

// A full stick may have no room for a second file where the room that the first one takes up
// already would do.
bool FitsInOwnRoom(const Place& former, const ByteTeller& tellBytes) {
    constexpr std::int64_t mostBytes = std::int64_t{64} * 1024;
    return SizeOf(tellBytes) <= std::min(mostBytes, RoomOf(OpenToLook(former.callPath, true)));
}

Handle OpenInPlace(const Place& place) {
    return Handle(CreateFileW(place.callPath.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                              OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
}

bool IsFull(DWORD error) { return FailureOfHostError(error) == failure::DiskFull; }

// Makes a file as long as it is going to be. A full disk is told here, and so is what others have
// in their memory, which can't be made shorter meanwhile.
bool Resize(const Handle& file, std::int64_t size) {
    FILE_END_OF_FILE_INFO end{};
    end.EndOfFile.QuadPart = size;
    return Patiently([&] {
        return SetFileInformationByHandle(file.Get(), FileEndOfFileInfo, &end, sizeof end) != 0;
    });
}

// No byte has changed before there is room for all of them.
bool OverwriteInPlace(const Place& place, const ByteTeller& tellBytes) {
    Handle file = OpenInPlace(place);
    if (!file.IsOpen() || !Resize(file, SizeOf(tellBytes))) return false;
    bool isWritten = true;
    std::size_t count = 0;
    tellBytes([&](std::string_view piece) { isWritten = isWritten && file.Write(piece, count); });
    return isWritten && file.Flush() && file.Close();
}

// The folder or its file system does not let files be made or replaced in it, or a folder lies
// under the successor's name.
bool IsRefusal(DWORD error) {
    return error == ERROR_ACCESS_DENIED || error == ERROR_SHARING_VIOLATION ||
           error == ERROR_DELETE_PENDING || error == ERROR_FILE_EXISTS ||
           error == ERROR_ALREADY_EXISTS;
}

// A rename would get around the file's own write protection. One that others have open may be
// replaced all the same.
bool MayWrite(const Place& place) {
    return !place.IsReadOnly() &&
           (OpenInPlace(place).IsOpen() || GetLastError() == ERROR_SHARING_VIOLATION);
}

enum class Outcome { Replaced, Failed, Refused, DiskFull };

Outcome OutcomeOf(const Successor& successor) {
    // What failed after the step cannot be mended by writing once more.
    if (successor.HasTakenPlace()) return Outcome::Failed;
    if (IsRefusal(successor.Error())) return Outcome::Refused;
    return IsFull(successor.Error()) ? Outcome::DiskFull : Outcome::Failed;
}

Outcome ReplaceInOneStep(const Place& place, const ByteTeller& tellBytes) {
    Successor successor(place);
    tellBytes([&](std::string_view piece) { successor.Write(piece); });
    return successor.TakePlace() ? Outcome::Replaced : OutcomeOf(successor);
}

}  // namespace

bool ReplaceHostFile(const std::string& hostPath, const ByteTeller& tellBytes, bool mayUseOwnRoom) {
    const Place place = FindOnHost(hostPath);
    if (!place.IsFile() || !MayWrite(place)) return false;
    const Outcome outcome = ReplaceInOneStep(place, tellBytes);
    if (outcome == Outcome::Replaced) return true;
    const bool usesOwnRoom =
        outcome == Outcome::DiskFull && mayUseOwnRoom && FitsInOwnRoom(place, tellBytes);
    return (usesOwnRoom || outcome == Outcome::Refused) && OverwriteInPlace(place, tellBytes);
}

}  // namespace tavel
