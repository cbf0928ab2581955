#include "platform/windows/Flush.h"

#include "platform/windows/Handle.h"

namespace tavel {

namespace {

// Not every file system flushes folders, or lets every user ask for it. Those that need it on a
// stick that may be pulled at any time write entries through of themselves.
bool IsUnknownCall(DWORD error) {
    return error == ERROR_ACCESS_DENIED || error == ERROR_INVALID_FUNCTION ||
           error == ERROR_INVALID_PARAMETER || error == ERROR_NOT_SUPPORTED;
}

}  // namespace

// The file systems of sticks refuse to flush a folder by itself, and flush all of their volume with
// its root.
bool KeepEntries(const Place& place) {
    if (!place.isOnRemovable) return true;
    const std::wstring path = VolumeRootOf(place.callPath);
    if (path.empty()) return false;
    constexpr DWORD anything = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const Handle root(CreateFileW(path.c_str(), GENERIC_WRITE, anything, nullptr, OPEN_EXISTING,
                                  FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    return (root.IsOpen() && root.Flush()) || IsUnknownCall(GetLastError());
}

}  // namespace tavel
