#include "platform/windows/Rights.h"

#include "platform/windows/WindowsApi.h"

#include <cstddef>
#include <vector>

namespace tavel {

namespace {

constexpr SECURITY_INFORMATION everything =
    OWNER_SECURITY_INFORMATION | GROUP_SECURITY_INFORMATION | DACL_SECURITY_INFORMATION;

// Empty where there is none to be had.
std::vector<std::byte> RightsOf(const std::wstring& file) {
    DWORD size = 0;
    GetFileSecurityW(file.c_str(), everything, nullptr, 0, &size);
    std::vector<std::byte> rights(size);
    if (size == 0 || GetFileSecurityW(file.c_str(), everything, rights.data(), size, &size) == 0)
        return {};
    return rights;
}

// Entries that come from the folder stay marked so.
void KeepInheritance(PSECURITY_DESCRIPTOR rights) {
    constexpr SECURITY_DESCRIPTOR_CONTROL asked = SE_DACL_AUTO_INHERIT_REQ;
    SECURITY_DESCRIPTOR_CONTROL control = 0;
    DWORD revision = 0;
    const bool isKnown = GetSecurityDescriptorControl(rights, &control, &revision) != 0;
    if (isKnown && (control & SE_DACL_AUTO_INHERITED) != 0)
        SetSecurityDescriptorControl(rights, asked, asked);
}

}  // namespace

// The list is taken as it stands. The newer calls would work out anew what the folder hands on, and
// the file may still lie in another one. Who may not give a file away goes on owning it.
void TakeAccessOf(const std::wstring& other, const std::wstring& file) {
    std::vector<std::byte> rights = RightsOf(other);
    if (rights.empty()) return;
    KeepInheritance(rights.data());
    if (SetFileSecurityW(file.c_str(), everything, rights.data()) == 0)
        SetFileSecurityW(file.c_str(), DACL_SECURITY_INFORMATION, rights.data());
}

void TakeRightsOf(const std::wstring& other, const std::wstring& file) {
    constexpr DWORD taken = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;
    const DWORD wanted = GetFileAttributesW(other.c_str());
    const DWORD present = GetFileAttributesW(file.c_str());
    if (wanted == INVALID_FILE_ATTRIBUTES || present == INVALID_FILE_ATTRIBUTES) return;
    TakeAccessOf(other, file);
    if (((wanted ^ present) & taken) != 0)
        SetFileAttributesW(file.c_str(), (present & ~taken) | (wanted & taken));
}

}  // namespace tavel
