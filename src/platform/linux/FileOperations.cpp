#include "platform/linux/FileOperations.h"

#include "platform/Failure.h"
#include "platform/FileReading.h"
#include "platform/HostNames.h"
#include "platform/PlaceChecks.h"
#include "platform/linux/FileIdentity.h"
#include "platform/linux/Flush.h"
#include "platform/linux/FolderNames.h"
#include "platform/linux/HostErrors.h"
#include "platform/linux/HostFile.h"
#include "platform/linux/HostPaths.h"
#include "platform/linux/Successor.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <memory>
#include <utility>

namespace tavel {

namespace {

void Require(bool succeeded) {
    if (!succeeded) FailWithHostError();
}

// On a removable drive at once; the host sees to others in its own time.
bool KeepEntries(const Place& place) { return !place.isFlushed || FlushEntriesOf(place); }

// Its entry is on the medium by now, and must not be there when a stick is pulled.
void RemovePartial(const Place& partial) {
    if (!partial.IsFile()) return;
    unlinkat(partial.Parent(), partial.name.c_str(), 0);
    KeepEntries(partial);
}

Place FindTarget(DriveTable& drives, std::string_view target, const Place& source) {
    Place place = FindPlace(drives, target);
    const bool meansFolder = place.path.endsInSeparator || place.path.names.empty();
    if (place.IsFolder() && meansFolder && !source.path.names.empty())
        place = FindPlace(drives, PathBelow(target, source.path.names.back()));
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
void CopyBetween(Place source, DriveTable& drives, Place target) {
    const struct stat status = source.status;
    const std::string targetPath = target.path.Text();
    const std::unique_ptr<HostFile> from = OpenOrFail(std::move(source), RawMode::Read);
    const std::unique_ptr<HostFile> to = OpenOrFail(std::move(target), RawMode::Create);
    std::size_t written = 0;
    Long error =
        ReadPieces(*from, status.st_size, [&](auto piece) { return to->Write(piece, written); });
    if (error == 0) to->CopyTimeOf(status);
    if (!to->Close() && error == 0) error = to->Error();
    if (error == 0) return;
    RemovePartial(FindPlace(drives, targetPath));
    Fail(error);
}

bool IsSameFile(const Place& a, const Place& b) { return FileIdentity(a) == FileIdentity(b); }

// False when the two lie in different file systems.
bool RenameWithin(const Place& source, const Place& target) {
    if (RenameIfFree(source.Parent(), source.name.c_str(), target.Parent(), target.name.c_str()))
        return true;
    Require(errno == EXDEV);
    return false;
}

bool FlushMove(const Place& source, const Place& target) {
    const bool leavesFolder = FolderOf(source.hostPath) != FolderOf(target.hostPath);
    return FlushRenamed(target) && FlushFolderOf(target) &&
           (!leavesFolder || FlushEntriesOf(source));
}

void CopyWhole(Place source, const Place& target) {
    const struct stat status = source.status;
    const std::unique_ptr<HostFile> from = OpenOrFail(std::move(source), RawMode::Read);
    Successor copy(target);
    const Long error = ReadPieces(*from, status.st_size, [&](auto piece) {
        copy.Write(piece);
        return copy.Error() == 0;
    });
    if (error != 0) Fail(error);
    copy.SetTime(status.st_mtim);
    if (!copy.TakePlace()) Fail(FailureOfHostError(copy.Error()));
}

bool IsSameInode(const struct stat& a, const struct stat& b) {
    return a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

// A copy takes its time. Another file that has come to the source's path meanwhile stays. The
// source is held, since a file system may make up another number for a file that nobody holds.
void MoveAcross(DriveTable& drives, Place source, Place target) {
    const std::string sourcePath = source.path.Text();
    const Descriptor held(
        openat(source.Parent(), source.name.c_str(), O_PATH | source.OpenFlags()));
    struct stat copied {};
    Require(held.IsOpen() && fstat(held.Get(), &copied) == 0);
    target.status = source.status;
    CopyWhole(std::move(source), target);
    const Place left = FindPlace(drives, sourcePath);
    if (left.failure != 0 || IsSameInode(left.status, copied)) DeleteFileAt(left, true);
}

void MoveToFree(DriveTable& drives, Place source, Place target) {
    if (RenameWithin(source, target)) {
        Require(!target.isFlushed || FlushMove(source, target));
    } else {
        MoveAcross(drives, std::move(source), std::move(target));
    }
}

bool IsLink(const Descriptor& folder, const std::string& name) {
    struct stat status {};
    return fstatat(folder.Get(), name.c_str(), &status, AT_SYMLINK_NOFOLLOW) == 0 &&
           S_ISLNK(status.st_mode);
}

// What takes a file's place gets the name that its path has. Where a new file would get another,
// the host has no such name, or something else has it, as one may whose name differs in case alone,
// it gets the file's.
std::string NameInPlaceOf(const Place& file, const Descriptor& folder) {
    std::string ownName(LastName(file.hostPath));
    const std::string& name = file.path.names.back();
    struct stat named {};
    const bool isThere = fstatat(folder.Get(), name.c_str(), &named, AT_SYMLINK_NOFOLLOW) == 0;
    const bool isUsable = isThere ? IsSameInode(named, file.status) : errno == ENOENT;
    return NameToCreate(name) == name && isUsable ? name : ownName;
}

// Where a file lies, as a free place; to be asked for while it lies there.
Place PlaceOfItsOwn(const Place& file) {
    Place place;
    place.failure = failure::FileNotFound;
    place.path = file.path;
    place.isOnRemovable = file.isOnRemovable;
    constexpr int flags = O_PATH | O_DIRECTORY | O_CLOEXEC;
    place.folder = Descriptor(file.folder.IsOpen() ? openat(file.Parent(), ".", flags)
                                                   : open(FolderOf(file.hostPath).c_str(), flags));
    Require(place.folder.IsOpen());
    // A link may lie on a stick, and what it leads to elsewhere.
    place.isFlushed = file.isFlushed || IsLink(place.folder, std::string(LastName(file.hostPath)));
    place.name = NameInPlaceOf(file, place.folder);
    place.hostPath = HostJoin(FolderOf(file.hostPath), place.name);
    return place;
}

std::string RandomDigits() {
    std::uint32_t number = 0;
    Require(getentropy(&number, sizeof number) == 0);
    std::array<char, 9> text{};
    std::snprintf(text.data(), text.size(), "%08x", number);
    return text.data();
}

}  // namespace

void CreateFolderAt(const Place& place) {
    RequireOneDrive(place);
    RequireFree(place);
    Require(mkdirat(place.Parent(), place.name.c_str(), 0777) == 0);
    Require(KeepEntries(place));
}

void DeleteFileAt(const Place& place, bool force) {
    RequireFile(place);
    if ((place.IsReadOnly() && !force) || ReadShare::IsHeld(place)) Fail(failure::PermissionDenied);
    Require(unlinkat(place.Parent(), place.name.c_str(), 0) == 0);
    Require(KeepEntries(place));
}

// Nothing is flushed: what is made in a link's place is, and the folder with it.
void DeleteLinksIn(const Place& folder, std::string_view name) {
    if (!folder.IsFolder()) return;
    const Descriptor opened(
        openat(folder.Parent(), folder.name.c_str(), O_RDONLY | O_DIRECTORY | folder.OpenFlags()));
    Require(opened.IsOpen());
    const auto deleteLinks = [&](std::string_view wanted) {
        for (const std::string& match : MatchingNames(opened.Get(), wanted)) {
            if (IsLink(opened, match)) Require(unlinkat(opened.Get(), match.c_str(), 0) == 0);
        }
    };
    deleteLinks(name);
    const std::string_view kept = WithoutDroppedEnd(name);
    if (kept != name) deleteLinks(kept);
}

void CreateTextFileAt(Place place, bool overwrite) {
    RequireOneDrive(place);
    if (place.failure == 0 && !overwrite) Fail(failure::FileAlreadyExists);
    const std::unique_ptr<HostFile> file = OpenOrFail(std::move(place), RawMode::Create);
    if (!file->Close()) Fail(file->Error());
}

void CopyRightsBetween(const Place& source, const Place& target) {
    if (!source.IsFile() || !target.IsFile()) return;
    const Descriptor file(
        openat(target.Parent(), target.name.c_str(), O_RDONLY | O_NONBLOCK | target.OpenFlags()));
    if (file.IsOpen()) file.TakeOwnerAndMode(source.status);
}

std::string CreateTempFileIn(DriveTable& drives, std::string_view folder, std::string_view prefix) {
    constexpr int flags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
    for (;;) {
        std::string path = PathBelow(folder, std::string(prefix) + RandomDigits() + ".tmp");
        const Place place = FindPlace(drives, path);
        if (place.failure == 0) continue;
        RequireOneDrive(place);
        RequireFree(place);
        if (Descriptor(openat(place.Parent(), place.name.c_str(), flags, 0600)).IsOpen())
            return path;
        if (errno != EEXIST) FailWithHostError();
    }
}

void CopyFileBetween(DriveTable& drives, std::string_view source, std::string_view target,
                     bool overwrite) {
    Place from = FindPlace(drives, source);
    RequireFile(from);
    Place to = FindTarget(drives, target, from);
    if (to.failure == 0 && !overwrite) Fail(failure::FileAlreadyExists);
    if (to.failure == 0 && IsSameFile(from, to)) Fail(failure::PermissionDenied);
    CopyBetween(std::move(from), drives, std::move(to));
}

void MoveFileBetween(DriveTable& drives, std::string_view source, std::string_view target) {
    Place from = FindPlace(drives, source);
    RequireFile(from);
    Place to = FindTarget(drives, target, from);
    RequireFree(to);
    if (to.path.endsInSeparator) Fail(failure::PathNotFound);
    MoveToFree(drives, std::move(from), std::move(to));
}

void ReplaceFileBetween(DriveTable& drives, std::string_view path, std::string_view source) {
    Place from = FindPlace(drives, source);
    RequireFile(from);
    const Place former = FindPlace(drives, path);
    RequireOneDrive(former);
    RequireFile(former);
    if (IsSameFile(from, former)) Fail(failure::PermissionDenied);
    Place freed = PlaceOfItsOwn(former);
    DeleteFileAt(former, false);
    MoveToFree(drives, std::move(from), std::move(freed));
}

}  // namespace tavel
