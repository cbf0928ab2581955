#include "platform/windows/HostStatus.h"

#include "platform/windows/Handle.h"

namespace tavel {

namespace {

// The facts have the same names in all that the host tells them by.
template <class Facts>
HostStatus StatusOf(const Facts& facts) {
    return {facts.dwFileAttributes, std::int64_t{facts.nFileSizeHigh} << 32 | facts.nFileSizeLow,
            facts.ftLastWriteTime};
}

// Nothing but the tag tells a link from other reparse points.
DWORD LookAtTag(const std::wstring& callPath, HostStatus& status) {
    const Handle opened = OpenToLook(callPath, false);
    FILE_ATTRIBUTE_TAG_INFO data{};
    if (!opened.IsOpen() ||
        GetFileInformationByHandleEx(opened.Get(), FileAttributeTagInfo, &data, sizeof data) == 0)
        return LookInFolder(callPath, status);
    status.reparseTag = data.ReparseTag;
    return 0;
}

}  // namespace

HostStatus StatusFrom(const WIN32_FIND_DATAW& listed) {
    HostStatus status = StatusOf(listed);
    status.reparseTag = listed.dwReserved0;
    return status;
}

// The system's own files, such as that of its virtual memory, let nobody else ask.
DWORD LookAt(const std::wstring& callPath, HostStatus& status) {
    WIN32_FILE_ATTRIBUTE_DATA data{};
    if (GetFileAttributesExW(callPath.c_str(), GetFileExInfoStandard, &data) == 0) {
        const DWORD error = GetLastError();
        return error == ERROR_SHARING_VIOLATION ? LookInFolder(callPath, status) : error;
    }
    status = StatusOf(data);
    return status.Has(FILE_ATTRIBUTE_REPARSE_POINT) ? LookAtTag(callPath, status) : 0;
}

DWORD LookInFolder(const std::wstring& callPath, HostStatus& status) {
    WIN32_FIND_DATAW data{};
    const HANDLE found = FindFirstFileExW(callPath.c_str(), FindExInfoBasic, &data,
                                          FindExSearchNameMatch, nullptr, 0);
    if (found == INVALID_HANDLE_VALUE) return GetLastError();
    FindClose(found);
    status = StatusFrom(data);
    return 0;
}

DWORD LookBehind(const std::wstring& callPath, HostStatus& status) {
    const Handle opened = OpenToLook(callPath, true);
    BY_HANDLE_FILE_INFORMATION data{};
    if (!opened.IsOpen() || GetFileInformationByHandle(opened.Get(), &data) == 0)
        return GetLastError();
    status = StatusOf(data);
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

}  // namespace tavel
