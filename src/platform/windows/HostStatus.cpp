#include "platform/windows/HostStatus.h"

#include "platform/windows/Handle.h"

namespace tavel {

namespace {

std::int64_t SizeOf(DWORD high, DWORD low) { return std::int64_t{high} << 32 | low; }

}  // namespace

DWORD LookAt(const std::wstring& callPath, HostStatus& status) {
    WIN32_FILE_ATTRIBUTE_DATA data{};
    if (GetFileAttributesExW(callPath.c_str(), GetFileExInfoStandard, &data) == 0)
        return GetLastError();
    status = {data.dwFileAttributes, SizeOf(data.nFileSizeHigh, data.nFileSizeLow),
              data.ftLastWriteTime};
    return 0;
}

DWORD LookBehind(const std::wstring& callPath, HostStatus& status) {
    const Handle opened = OpenToLook(callPath, true);
    BY_HANDLE_FILE_INFORMATION data{};
    if (!opened.IsOpen() || GetFileInformationByHandle(opened.Get(), &data) == 0)
        return GetLastError();
    status = {data.dwFileAttributes, SizeOf(data.nFileSizeHigh, data.nFileSizeLow),
              data.ftLastWriteTime};
    return 0;
}

std::wstring FinalPath(const std::wstring& callPath) {
    const Handle opened = OpenToLook(callPath, true);
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = GetFinalPathNameByHandleW(
            opened.Get(), path.data(), static_cast<DWORD>(path.size()), FILE_NAME_NORMALIZED);
        const bool fits = length < path.size();
        path.resize(length);
        if (fits) return path;
    }
}

std::wstring InOwnSpelling(const std::wstring& callPath) {
    std::wstring path = FinalPath(callPath);
    const bool isSame =
        CompareStringOrdinal(path.c_str(), -1, callPath.c_str(), -1, TRUE) == CSTR_EQUAL;
    return isSame ? path : callPath;
}

// Where a volume is mounted on a folder, its root is that folder with a separator more.
std::wstring VolumeRootOf(const std::wstring& callPath) {
    std::wstring root(callPath.size() + 2, L'\0');
    if (GetVolumePathNameW(callPath.c_str(), root.data(), static_cast<DWORD>(root.size())) == 0)
        return {};
    root.resize(root.find(L'\0'));
    return root;
}

bool IsLinkTag(DWORD attributes, DWORD reparseTag) {
    return (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0 &&
           IsReparseTagNameSurrogate(reparseTag);
}

bool IsLink(const std::wstring& callPath, const HostStatus& status) {
    if (!status.Has(FILE_ATTRIBUTE_REPARSE_POINT)) return false;
    const Handle opened = OpenToLook(callPath, false);
    FILE_ATTRIBUTE_TAG_INFO data{};
    return opened.IsOpen() &&
           GetFileInformationByHandleEx(opened.Get(), FileAttributeTagInfo, &data, sizeof data) !=
               0 &&
           IsLinkTag(data.FileAttributes, data.ReparseTag);
}

}  // namespace tavel
