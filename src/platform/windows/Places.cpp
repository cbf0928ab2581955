#include "platform/windows/Places.h"

#include "platform/Failure.h"
#include "platform/FileService.h"
#include "platform/HostNames.h"
#include "platform/windows/Handle.h"
#include "platform/windows/HostErrors.h"
#include "platform/windows/HostPaths.h"
#include "platform/windows/Wide.h"

#include <algorithm>
#include <optional>

namespace tavel {

namespace {

// The host could know no such name.
bool IsRefusal(DWORD error) { return FailureOfHostError(error) == failure::BadFileName; }

// A name with a character that is refused is no single name to the host's calls: it could be a
// pattern, or name a stream of a file.
bool IsPlain(const std::string& name) { return !HasRefusedCharacter(name); }

bool AreAllPlain(const DrivePath& path) {
    return std::all_of(path.names.begin(), path.names.end(), IsPlain);
}

bool HasDroppedEnd(const std::string& name) { return WithoutDroppedEnd(name).size() < name.size(); }

bool HaveDroppedEnds(const DrivePath& path) {
    return std::any_of(path.names.begin(), path.names.end(), HasDroppedEnd);
}

Long FailureOfStep(DWORD error) {
    return error == ERROR_FILE_NOT_FOUND ? failure::PathNotFound : FailureOfHostError(error);
}

// Of what is there; on a removable drive a link is nothing. The name of a link that leads nowhere
// is taken, and not free.
DWORD Follow(const Place& place, const std::wstring& callPath, HostStatus& status) {
    const DWORD error = LookAt(callPath, status);
    if (error != 0 || !status.IsLink()) return error;
    const DWORD why = place.isOnRemovable ? ERROR_PATH_NOT_FOUND : LookBehind(callPath, status);
    return why == ERROR_FILE_NOT_FOUND || IsRefusal(why) ? ERROR_PATH_NOT_FOUND : why;
}

// The name as it stands, then without the end that a new one would lose.
DWORD FollowName(const Place& place, const std::wstring& folder, std::string& name,
                 HostStatus& status) {
    if (!IsPlain(name)) return ERROR_FILE_NOT_FOUND;
    const DWORD error = Follow(place, CallPathBelow(folder, name), status);
    const std::string_view kept = WithoutDroppedEnd(name);
    const bool isMissing = error == ERROR_FILE_NOT_FOUND || IsRefusal(error);
    if (!isMissing || kept.size() == name.size() || kept.empty())
        return isMissing ? ERROR_FILE_NOT_FOUND : error;
    name = kept;
    return Follow(place, CallPathBelow(folder, name), status);
}

void SetFree(Place& place, const std::wstring& folder) {
    place.failure = failure::FileNotFound;
    const std::string& wanted = place.path.names.back();
    place.name = IsNameAllowed(wanted) ? NameToCreate(wanted) : std::string();
    place.callPath = CallPathBelow(folder, place.name);
}

void FollowNameByName(Place& place) {
    for (std::size_t i = 0; i < place.path.names.size(); ++i) {
        if (place.failure != 0) return;
        if (!place.status.IsFolder()) {
            place.failure = failure::PathNotFound;
            return;
        }
        place.name = place.path.names[i];
        const std::wstring folder = place.callPath;
        const DWORD error = FollowName(place, folder, place.name, place.status);
        place.callPath = CallPathBelow(folder, place.name);
        const bool isLast = i + 1 == place.path.names.size();
        if (error == ERROR_FILE_NOT_FOUND && isLast) return SetFree(place, folder);
        if (error != 0) place.failure = FailureOfStep(error);
    }
}

// In one call, where it makes no difference by which folders the path goes.
bool FollowAtOnce(Place& place) {
    if (place.isOnRemovable || place.path.names.empty() || !AreAllPlain(place.path)) return false;
    std::wstring folder = place.callPath;
    for (std::size_t i = 0; i + 1 < place.path.names.size(); ++i)
        folder = CallPathBelow(folder, place.path.names[i]);
    const std::wstring whole = CallPathBelow(folder, place.path.names.back());
    const DWORD error = Follow(place, whole, place.status);
    if (error != 0 && (IsRefusal(error) || HaveDroppedEnds(place.path))) return false;
    if (error == ERROR_FILE_NOT_FOUND) {
        SetFree(place, folder);
    } else {
        place.name = place.path.names.back();
        place.callPath = whole;
        place.failure = error == 0 ? 0 : FailureOfHostError(error);
    }
    return true;
}

void FollowFromRoot(Place& place) {
    if (FollowAtOnce(place)) return;
    const DWORD error = LookAt(place.callPath, place.status);
    place.failure = error == 0 ? 0 : FailureOfStep(error);
    FollowNameByName(place);
}

void FindOnDrive(DriveSource& drives, Place& place) {
    place.failure = failure::PathNotFound;
    if (!drives.Has(place.path.letter)) return;
    const HostDriveEntry drive = drives.Entry(place.path.letter);
    place.isOnRemovable = drive.driveType == DriveRemovable;
    place.callPath = CallPath(drive.root);
    FollowFromRoot(place);
    const bool isLost = place.isOnRemovable && place.failure == failure::PathNotFound;
    if (isLost && !drives.HasMedium(place.path.letter)) place.failure = failure::DiskNotReady;
}

void FindOnShare(Place& place) {
    place.callPath = CallPath(place.path.drive + '\\');
    FollowFromRoot(place);
}

std::optional<DrivePath> Parse(const HostTree& tree, std::string_view text) {
    std::optional<DrivePath> share = ParseSharePath(text);
    if (share) return share;
    return ParseDrivePath(text, tree.currentFolder);
}

bool IsOnRemovableDrive(const std::wstring& callPath) {
    const std::wstring root = VolumeRootOf(callPath);
    return !root.empty() && GetDriveTypeW(root.c_str()) == DRIVE_REMOVABLE;
}

}  // namespace

Place FindPlace(const HostTree& tree, std::string_view path) {
    Place place;
    std::optional<DrivePath> parsed = Parse(tree, path);
    if (!parsed) {
        place.failure = failure::PathNotFound;
        return place;
    }
    place.path = *std::move(parsed);
    if (place.path.letter == 0) {
        FindOnShare(place);
    } else {
        FindOnDrive(*tree.drives, place);
    }
    return place;
}

Place FindOnHost(std::string_view hostPath) {
    Place place;
    place.callPath = CallPath(hostPath);
    DWORD error = LookAt(place.callPath, place.status);
    if (error == 0 && place.status.IsLink()) {
        error = LookBehind(place.callPath, place.status);
        place.callPath = FinalPath(place.callPath);
        if (error == 0 && place.callPath.empty()) error = ERROR_CANT_RESOLVE_FILENAME;
    }
    place.failure = error == 0 ? 0 : FailureOfHostError(error);
    place.name = FromWide(LastName(place.callPath));
    place.isOnRemovable = IsOnRemovableDrive(place.callPath);
    return place;
}

}  // namespace tavel
