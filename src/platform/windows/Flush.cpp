#include "platform/windows/Flush.h"

#include "platform/windows/Handle.h"

namespace tavel {

namespace {

std::wstring RootOfVolume(const std::wstring& callPath) {
    std::wstring root(callPath.size() + 1, L'\0');
    if (GetVolumePathNameW(callPath.c_str(), root.data(), static_cast<DWORD>(root.size())) == 0)
        return {};
    root.resize(root.find(L'\0'));
    return root;
}

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
    constexpr DWORD anything = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const Handle root(CreateFileW(RootOfVolume(place.callPath).c_str(), GENERIC_WRITE, anything,
                                  nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    return (root.IsOpen() && root.Flush()) || IsUnknownCall(GetLastError());
}

}  // namespace tavel
