#include "platform/linux/Places.h"

#include "platform/Failure.h"
#include "platform/HostNames.h"
#include "platform/linux/FolderNames.h"
#include "platform/linux/HostErrors.h"
#include "platform/linux/HostPaths.h"
#include "platform/linux/Tree.h"

#include <algorithm>
#include <cerrno>
#include <optional>
#include <span>
#include <utility>

namespace tavel {

namespace {

Long FailureOfStep(int error) {
    return error == ENOENT ? failure::PathNotFound : FailureOfHostError(error);
}

Long FailureOf(const Tree& tree, const Tree::Entry& entry) {
    if (entry.error != 0) return FailureOfStep(entry.error);
    return tree.IsOutside(entry.status) ? failure::PathNotFound : 0;
}

// Nothing where a name could be no single name of the host.
std::optional<std::string> Joined(std::span<const std::string> names) {
    std::string path;
    for (const std::string& name : names) {
        if (name.find('/') != std::string::npos) return std::nullopt;
        if (!path.empty()) path += '/';
        path += name;
    }
    return path;
}

bool OpenFolderExactly(const Tree& tree, Place& place) {
    const std::span<const std::string> names(place.path.names);
    const std::optional<std::string> path = Joined(names.first(names.size() - 1));
    if (!path) return false;
    place.folder = tree.OpenBelow(*path);
    if (place.folder.IsOpen()) place.hostPath = HostJoin(place.hostPath, *path);
    return place.folder.IsOpen();
}

bool OpenFolderNameByName(const Tree& tree, Place& place) {
    place.folder = tree.OpenRoot();
    for (std::size_t i = 0; i + 1 < place.path.names.size(); ++i) {
        const Tree::Entry entry = tree.Find(place.folder.Get(), place.path.names[i]);
        place.failure = FailureOf(tree, entry);
        if (place.failure != 0) return false;
        Descriptor next = tree.OpenIn(place.folder.Get(), entry.name);
        if (!next.IsOpen()) place.failure = FailureOfStep(errno);
        if (place.failure != 0) return false;
        place.folder = std::move(next);
        place.hostPath = HostJoin(place.hostPath, entry.name);
    }
    return true;
}

void FindInFolder(const Tree& tree, Place& place) {
    Tree::Entry entry = tree.Find(place.folder.Get(), place.path.names.back());
    if (entry.error == ENOENT) {
        place.failure = failure::FileNotFound;
        place.name = NameToCreate(place.path.names.back());
    } else {
        place.failure = FailureOf(tree, entry);
        place.name = std::move(entry.name);
        place.status = entry.status;
    }
    place.hostPath = HostJoin(place.hostPath, place.name);
}

void FindIn(const Tree& tree, Place& place) {
    if (OpenFolderExactly(tree, place) || OpenFolderNameByName(tree, place))
        FindInFolder(tree, place);
}

// What is there by its exact path is one call away.
bool FindExactlyOnFixed(Place& place) {
    const std::optional<std::string> below = Joined(place.path.names);
    if (!below) return false;
    const std::string path = '/' + *below;
    if (stat(path.c_str(), &place.status) != 0) return false;
    place.name = path;
    place.hostPath = path;
    return true;
}

dev_t FileSystemOf(const Place& place) {
    if (place.failure == 0) return place.status.st_dev;
    struct stat folder {};
    return fstat(place.folder.Get(), &folder) == 0 ? folder.st_dev : 0;
}

// A path that lasts leads to a stick as well. One that was pulled has nothing, whatever the host
// remembers of it, and nothing is made in the empty folder that it leaves behind.
void LookForStick(DriveTable& drives, Place& place) {
    const bool isFree = place.failure == failure::FileNotFound;
    const DriveTable::Stick stick = drives.StickWith(FileSystemOf(place));
    place.isFlushed = stick != DriveTable::Stick::None;
    if (stick == DriveTable::Stick::Pulled || (isFree && drives.IsLeftBehind(place.folder.Get())))
        place.failure = failure::PathNotFound;
}

void FindOnFixed(DriveTable& drives, Place& place) {
    if (!FindExactlyOnFixed(place)) {
        place.hostPath = "/";
        FindIn(Tree(), place);
    }
    if (place.failure == 0 || place.failure == failure::FileNotFound) LookForStick(drives, place);
}

void FindOnRemovable(DriveTable& drives, Place& place) {
    place.isOnRemovable = true;
    place.isFlushed = true;
    DriveTable::Root root = drives.Open(place.path.letter);
    place.failure = root.error;
    if (place.failure != 0) return;
    place.hostPath = root.hostPath;
    if (fstat(root.folder.Get(), &place.status) != 0) {
        place.failure = FailureOfStep(errno);
    } else if (place.path.names.empty()) {
        place.name = ".";
        place.folder = std::move(root.folder);
    } else {
        FindIn(Tree(root.folder.Get(), place.status), place);
    }
}

}  // namespace

Place FindPlace(DriveTable& drives, std::string_view path) {
    Place place;
    std::optional<DrivePath> parsed = ParseDrivePath(path, drives.CurrentFolder());
    if (!parsed) {
        place.failure = failure::PathNotFound;
        return place;
    }
    place.path = *std::move(parsed);
    if (place.path.letter == 'c') {
        FindOnFixed(drives, place);
    } else {
        FindOnRemovable(drives, place);
    }
    return place;
}

Place FindOnHost(const std::string& hostPath) {
    Place place;
    place.hostPath = RealPath(hostPath);
    place.folder =
        Descriptor(open(FolderOf(place.hostPath).c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    place.name = LastName(place.hostPath);
    const bool isThere = place.folder.IsOpen() && fstatat(place.Parent(), place.name.c_str(),
                                                          &place.status, AT_SYMLINK_NOFOLLOW) == 0;
    if (!isThere) place.failure = failure::FileNotFound;
    return place;
}

std::string HostPathInOwnSpelling(const Place& place) {
    if (place.path.names.empty()) return place.hostPath;
    const std::vector<std::string> names = MatchingNames(place.folder.Get(), place.name);
    const bool isOwn = std::find(names.begin(), names.end(), place.name) != names.end();
    return isOwn || names.empty() ? place.hostPath
                                  : HostJoin(FolderOf(place.hostPath), names.front());
}

}  // namespace tavel
