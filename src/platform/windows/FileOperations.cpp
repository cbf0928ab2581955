#include "platform/windows/FileOperations.h"

#include "platform/Failure.h"
#include "platform/FileReading.h"
#include "platform/HostNames.h"
#include "platform/PlaceChecks.h"
#include "platform/Text.h"
#include "platform/windows/FileIdentity.h"
#include "platform/windows/Flush.h"
#include "platform/windows/HostErrors.h"
#include "platform/windows/HostFile.h"
#include "platform/windows/HostPaths.h"
#include "platform/windows/Patience.h"
#include "platform/windows/Rights.h"
#include "platform/windows/Successor.h"
#include "platform/windows/Wide.h"

#include <array>
#include <cstdio>
#include <memory>
#include <random>
#include <utility>

namespace tavel {

namespace {

void Require(bool succeeded) {
    if (!succeeded) FailWithHostError();
}

// A link that stands for a folder is a folder to the host.
bool Delete(const std::wstring& callPath, const HostStatus& status) {
    return (status.IsFolder() ? RemoveDirectoryW(callPath.c_str())
                              : DeleteFileW(callPath.c_str())) != 0;
}

// The host deletes nothing that is read-only.
bool DeleteForced(const std::wstring& callPath, const HostStatus& status) {
    if (!status.IsReadOnly()) return Delete(callPath, status);
    SetFileAttributesW(callPath.c_str(), status.attributes & ~FILE_ATTRIBUTE_READONLY);
    if (Delete(callPath, status)) return true;
    const DWORD error = GetLastError();
    SetFileAttributesW(callPath.c_str(), status.attributes);
    SetLastError(error);
    return false;
}

// Its entry is on the medium by now, and must not be there when a stick is pulled.
void RemovePartial(const Place& partial) {
    HostStatus status;
    const bool isThere = partial.IsFile() && LookAt(partial.callPath, status) == 0;
    if (isThere && DeleteForced(partial.callPath, status)) KeepEntries(partial);
}

// Of a link itself, and not of what it leads to.
HostStatus OwnStatus(const Place& place) {
    HostStatus status;
    const DWORD error = LookAt(place.callPath, status);
    if (error != 0) Fail(FailureOfHostError(error));
    return status;
}

Place FindTarget(const HostTree& tree, std::string_view target, const Place& source) {
    Place place = FindPlace(tree, target);
    const bool meansFolder = place.path.endsInSeparator || place.path.names.empty();
    if (place.IsFolder() && meansFolder && !source.path.names.empty())
        place = FindPlace(tree, PathBelow(target, source.path.names.back()));
    RequireOneDrive(place);
    return place;
}

std::unique_ptr<HostFile> OpenOrFail(Place place, RawMode mode) {
    Long error = 0;
    std::unique_ptr<HostFile> file = OpenHostFile(std::move(place), mode, error);
    if (!file) Fail(error);
    return file;
}

// Closing tells of a write that has failed.
void CopyBetween(Place source, const HostTree& tree, Place target) {
    const HostStatus status = source.status;
    const std::string targetPath = target.path.Text();
    const std::unique_ptr<HostFile> from = OpenOrFail(std::move(source), RawMode::Read);
    const std::unique_ptr<HostFile> to = OpenOrFail(std::move(target), RawMode::Create);
    std::size_t written = 0;
    Long error =
        ReadPieces(*from, status.size, [&](auto piece) { return to->Write(piece, written); });
    if (error == 0) to->CopyTraits(status);
    if (!to->Close() && error == 0) error = to->Error();
    if (error == 0) return;
    RemovePartial(FindPlace(tree, targetPath));
    Fail(error);
}

bool IsSameFile(const Place& a, const Place& b) {
    return FileIdentity(a.callPath) == FileIdentity(b.callPath);
}

// False when the two lie on different drives.
bool RenameWithin(const Place& source, const Place& target, DWORD flags) {
    const auto move = [&] {
        return MoveFileExW(source.callPath.c_str(), target.callPath.c_str(),
                           flags | MOVEFILE_WRITE_THROUGH) != 0;
    };
    if (Patiently(move)) return true;
    Require(GetLastError() == ERROR_NOT_SAME_DEVICE);
    return false;
}

void CopyWhole(const Place& source, const Place& target) {
    const std::unique_ptr<HostFile> from = OpenOrFail(source, RawMode::Read);
    Successor copy(target);
    const Long error = ReadPieces(*from, source.status.size, [&](auto piece) {
        copy.Write(piece);
        return copy.Error() == 0;
    });
    if (error != 0) Fail(error);
    copy.CopyTraits(source.status);
    if (!copy.TakePlace()) Fail(FailureOfHostError(copy.Error()));
}

// The target is free, or a file that is replaced where the flags allow it.
void MoveTo(const Place& source, const Place& target, DWORD flags) {
    if (!RenameWithin(source, target, flags)) {
        CopyWhole(source, target);
        return DeleteFileAt(source, true);
    }
    Require(KeepEntries(target));
}

// What takes a file's place gets the name that its path has. Where a new file would get another, or
// the path has the file's short name, it gets the file's own.
std::wstring CallPathInPlaceOf(const Place& file) {
    const std::string& name = file.path.names.back();
    WIN32_FIND_DATAW own{};
    const HANDLE found = FindFirstFileExW(file.callPath.c_str(), FindExInfoBasic, &own,
                                          FindExSearchNameMatch, nullptr, 0);
    if (found == INVALID_HANDLE_VALUE) return file.callPath;
    FindClose(found);
    const std::string ownName = FromWide(own.cFileName);
    const bool isUsable =
        NameToCreate(name) == ToUtf8(name) && EqualsIgnoringCase(ToUtf8(name), ownName);
    return isUsable ? file.callPath : CallPathBelow(FolderOf(file.callPath), ownName);
}

std::string RandomDigits() {
    std::random_device random;
    std::array<char, 9> text{};
    std::snprintf(text.data(), text.size(), "%08x", random());
    return text.data();
}

// True when there was none of that name.
bool MakeEmptyFile(const std::wstring& callPath) {
    const Handle file(CreateFileW(callPath.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                  FILE_ATTRIBUTE_NORMAL, nullptr));
    Require(file.IsOpen() || GetLastError() == ERROR_FILE_EXISTS);
    return file.IsOpen();
}

void DeleteLink(const Place& folder, std::string_view name) {
    if (name.empty() || HasRefusedCharacter(name)) return;
    const std::wstring callPath = CallPathBelow(folder.callPath, name);
    HostStatus status;
    const DWORD error = LookAt(callPath, status);
    const Long why = error == 0 ? 0 : FailureOfHostError(error);
    if (why == failure::FileNotFound || why == failure::BadFileName) return;
    if (why != 0) Fail(why);
    if (status.IsLink()) Require(DeleteForced(callPath, status));
}

}  // namespace

void CreateFolderAt(const Place& place) {
    RequireOneDrive(place);
    RequireFree(place);
    Require(CreateDirectoryW(place.callPath.c_str(), nullptr) != 0);
    Require(KeepEntries(place));
}

void DeleteFileAt(const Place& place, bool force) {
    RequireFile(place);
    const HostStatus status = OwnStatus(place);
    if (status.IsReadOnly() && !force) Fail(failure::PermissionDenied);
    Require(DeleteForced(place.callPath, status));
    Require(KeepEntries(place));
}

// Nothing is flushed: what is made in a link's place is.
void DeleteLinksIn(const Place& folder, std::string_view name) {
    if (!folder.IsFolder()) return;
    DeleteLink(folder, name);
    DeleteLink(folder, WithoutDroppedEnd(name));
}

void CreateTextFileAt(Place place, bool overwrite) {
    RequireOneDrive(place);
    if (place.failure == 0 && !overwrite) Fail(failure::FileAlreadyExists);
    const std::unique_ptr<HostFile> file = OpenOrFail(std::move(place), RawMode::Create);
    if (!file->Close()) Fail(file->Error());
}

void CopyRightsBetween(const Place& source, const Place& target) {
    if (source.IsFile() && target.IsFile()) TakeRightsOf(source.callPath, target.callPath);
}

std::string CreateTempFileIn(const HostTree& tree, std::string_view folder,
                             std::string_view prefix) {
    for (;;) {
        std::string path = PathBelow(folder, std::string(prefix) + RandomDigits() + ".tmp");
        const Place place = FindPlace(tree, path);
        if (place.failure == 0) continue;
        RequireOneDrive(place);
        RequireFree(place);
        if (MakeEmptyFile(place.callPath)) return path;
    }
}

void CopyFileBetween(const HostTree& tree, std::string_view source, std::string_view target,
                     bool overwrite) {
    Place from = FindPlace(tree, source);
    RequireFile(from);
    Place to = FindTarget(tree, target, from);
    if (to.failure == 0 && !overwrite) Fail(failure::FileAlreadyExists);
    if (to.failure == 0 && IsSameFile(from, to)) Fail(failure::PermissionDenied);
    CopyBetween(std::move(from), tree, std::move(to));
}

void MoveFileBetween(const HostTree& tree, std::string_view source, std::string_view target) {
    const Place from = FindPlace(tree, source);
    RequireFile(from);
    const Place to = FindTarget(tree, target, from);
    RequireFree(to);
    if (to.path.endsInSeparator) Fail(failure::PathNotFound);
    MoveTo(from, to, 0);
}

void ReplaceFileBetween(const HostTree& tree, std::string_view path, std::string_view source) {
    const Place from = FindPlace(tree, source);
    RequireFile(from);
    Place former = FindPlace(tree, path);
    RequireOneDrive(former);
    RequireFile(former);
    if (OwnStatus(former).IsReadOnly() || IsSameFile(from, former)) Fail(failure::PermissionDenied);
    former.callPath = CallPathInPlaceOf(former);
    MoveTo(from, former, MOVEFILE_REPLACE_EXISTING);
}

}  // namespace tavel
