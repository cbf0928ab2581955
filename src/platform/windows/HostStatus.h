#pragma once

#include "platform/windows/WindowsApi.h"

#include <cstdint>
#include <string>

namespace tavel {

// What the host tells of a file or folder.
struct HostStatus {
    DWORD attributes = 0;
    std::int64_t size = 0;  // bytes
    FILETIME modified{};
    DWORD reparseTag = 0;  // of what has such a point

    bool Has(DWORD attribute) const { return (attributes & attribute) != 0; }
    bool IsFolder() const { return Has(FILE_ATTRIBUTE_DIRECTORY); }
    bool IsHidden() const { return Has(FILE_ATTRIBUTE_HIDDEN); }
    bool IsFile() const { return !Has(FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_DEVICE); }
    bool IsReadOnly() const { return Has(FILE_ATTRIBUTE_READONLY); }
    // True for what stands for something elsewhere: a symbolic link, or a folder that another
    // folder or a volume is mounted on. Other reparse points are files and folders as any, whatever
    // the host does to bring their bytes.
    bool IsLink() const {
        return Has(FILE_ATTRIBUTE_REPARSE_POINT) && IsReparseTagNameSurrogate(reparseTag);
    }
};

// As a folder lists it.
HostStatus StatusFrom(const WIN32_FIND_DATAW& listed);

// Of what has this path itself, be it a link. 0, or the host's error.
DWORD LookAt(const std::wstring& callPath, HostStatus& status);
// The same as the folder tells it, which nobody prevents who has it open.
DWORD LookInFolder(const std::wstring& callPath, HostStatus& status);
// Of what a link leads to in the end.
DWORD LookBehind(const std::wstring& callPath, HostStatus& status);

// The path of what is there, behind all links; empty when it leads nowhere.
std::wstring FinalPath(const std::wstring& callPath);
// The path of what is there with its names spelt as their folders spell them; as it is when a link
// or a short name is on the way.
std::wstring InOwnSpelling(const std::wstring& callPath);

// The root of the volume that something lies on; empty on failure, and GetLastError says why.
std::wstring VolumeRootOf(const std::wstring& callPath);

}  // namespace tavel
