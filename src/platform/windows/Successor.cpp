#include "platform/windows/Successor.h"

#include "platform/windows/Flush.h"
#include "platform/windows/HostPaths.h"
#include "platform/windows/Patience.h"
#include "platform/windows/Rights.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <vector>

namespace tavel {

namespace {

// No longer than names on the host may be.
std::wstring NameBeside(std::wstring_view name) {
    constexpr std::size_t longest = 255;
    constexpr std::wstring_view ending = L".new";
    std::wstring made = L".";
    made += name.substr(0, longest - ending.size() - made.size());
    if (IS_HIGH_SURROGATE(made.back())) made.pop_back();
    return made.append(ending);
}

std::wstring PathBeside(const std::wstring& callPath) {
    const std::wstring_view name = LastName(callPath);
    return callPath.substr(0, callPath.size() - name.size()) + NameBeside(name);
}

// False when there was nothing to remove. A folder stays.
bool Remove(const std::wstring& callPath) {
    HostStatus status;
    const DWORD error = LookAt(callPath, status);
    if (error == ERROR_FILE_NOT_FOUND || (error == 0 && status.IsFolder())) return false;
    SetFileAttributesW(callPath.c_str(), FILE_ATTRIBUTE_NORMAL);
    DeleteFileW(callPath.c_str());
    return true;
}

// What the compiler's headers have for no version that they know.
constexpr auto renameInfoEx = static_cast<FILE_INFO_BY_HANDLE_CLASS>(22);
constexpr DWORD replacesIfExists = 1;
constexpr DWORD hasPosixSemantics = 2;

bool RenameOpened(const Handle& file, const std::wstring& target, FILE_INFO_BY_HANDLE_CLASS call,
                  DWORD flags) {
    const std::size_t bytes = target.size() * sizeof(wchar_t);
    const std::size_t size = offsetof(FILE_RENAME_INFO, FileName) + bytes + sizeof(wchar_t);
    std::vector<std::byte> buffer(std::max(size, sizeof(FILE_RENAME_INFO)));
    FILE_RENAME_INFO& rename = *reinterpret_cast<FILE_RENAME_INFO*>(buffer.data());
    std::memcpy(&rename, &flags, sizeof flags);  // the older call reads one byte of it
    rename.FileNameLength = static_cast<DWORD>(bytes);
    std::copy(target.begin(), target.end(), rename.FileName);
    return SetFileInformationByHandle(file.Get(), call, &rename, static_cast<DWORD>(size)) != 0;
}

// The newer call takes the place of a file that others have open, if they let it be deleted.
// Systems, file systems and servers that don't know it have each an error of their own for that.
bool RenameOver(const Handle& file, const std::wstring& target) {
    return RenameOpened(file, target, renameInfoEx, replacesIfExists | hasPosixSemantics) ||
           RenameOpened(file, target, FileRenameInfo, replacesIfExists);
}

}  // namespace

// What lies under its name is an earlier one or a stranger's file, and is removed unseen: a link
// could lead anywhere. A folder of that name stays as it is, and there is no successor.
Successor::Successor(const Place& former)
    : m_former(former), m_callPath(PathBeside(former.callPath)) {
    if (!Check(Make()) || former.failure != 0) return;
    TakeAccessOf(former.callPath, m_callPath);
    m_file.SetTraits({former.status.attributes, {}, {}});
}

Successor::~Successor() {
    if (!m_file.IsOpen() || m_hasTakenPlace) return;
    m_file.SetTraits({});  // what is read-only can't be removed
    FILE_DISPOSITION_INFO gone{TRUE};
    SetFileInformationByHandle(m_file.Get(), FileDispositionInfo, &gone, sizeof gone);
}

// One that others have open is gone as soon as they close it. Where none was, nothing passes.
bool Successor::Make() {
    bool wasThere = false;
    const auto make = [&] {
        wasThere = Remove(m_callPath);
        m_file = Handle(CreateFileW(m_callPath.c_str(), GENERIC_WRITE | DELETE, FILE_SHARE_READ,
                                    nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr));
        return m_file.IsOpen();
    };
    return Patiently(make, [&](DWORD) { return wasThere; });
}

bool Successor::Check(bool succeeded) {
    if (!succeeded && m_error == 0) m_error = GetLastError();
    return m_error == 0;
}

void Successor::Write(std::string_view bytes) {
    std::size_t written = 0;
    if (m_error == 0) Check(m_file.Write(bytes, written));
}

// A free place may have been taken meanwhile, by a file that nobody may lose.
bool Successor::Rename() const {
    return Patiently([this] {
        if (m_former.failure != 0)
            return RenameOpened(m_file, m_former.callPath, FileRenameInfo, 0);
        return RenameOver(m_file, m_former.callPath);
    });
}

bool Successor::TakePlace() {
    if (m_error != 0 || !Check(m_file.Flush())) return false;
    m_hasTakenPlace = Check(Rename());
    return m_hasTakenPlace && Check(m_file.Flush() && KeepEntries(m_former));
}

}  // namespace tavel
