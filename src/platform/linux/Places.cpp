#include "platform/linux/Places.h"

#include "platform/Failure.h"
#include "platform/linux/HostErrors.h"
#include "platform/linux/HostNames.h"
#include "platform/linux/HostPaths.h"

#include <linux/openat2.h>
#include <sys/syscall.h>

#include <algorithm>
#include <cerrno>
#include <utility>

namespace tavel {

namespace {

constexpr int folderFlags = O_PATH | O_DIRECTORY | O_CLOEXEC;

bool HasHostSeparator(std::string_view name) { return name.find('/') != std::string_view::npos; }

// The host could know no such name, so that only another spelling can be there.
bool IsNotThere(int error) {
    return error == ENOENT || error == ENAMETOOLONG || error == EINVAL || error == EILSEQ;
}

// A drive's root, and the rules by which names below it are followed.
struct Tree {
    int root = -1;
    std::string hostRoot;
    bool isRemovable = false;
    dev_t device = 0;

    int StatusFlags() const { return isRemovable ? AT_SYMLINK_NOFOLLOW : 0; }
    int FolderFlags() const { return folderFlags | (isRemovable ? O_NOFOLLOW : 0); }
    // Links and other file systems mounted below it are no part of a removable drive.
    bool IsOutside(const struct stat& status) const {
        return isRemovable && (status.st_dev != device || S_ISLNK(status.st_mode));
    }
};

// An entry of a folder under the host's spelling of its name.
struct Found {
    std::string name;
    struct stat status {};
    int error = 0;  // of the host; ENOENT when no entry matches
};

Found FindEntry(const Tree& tree, int folder, std::string_view name) {
    Found found{std::string(name), {}, ENOENT};
    if (HasHostSeparator(name)) return found;
    const auto look = [&](std::string_view spelling) {
        found.name = spelling;
        const bool isThere =
            fstatat(folder, found.name.c_str(), &found.status, tree.StatusFlags()) == 0;
        found.error = isThere ? 0 : errno;
        return !IsNotThere(found.error);
    };
    if (look(name)) return found;
    int listingError = 0;
    const std::vector<std::string> names = NamesIn(folder, listingError);
    const std::string_view shorter = WithoutDroppedEnd(name);
    for (const std::string_view wanted : {name, shorter}) {
        if (wanted.empty()) continue;
        if (wanted != name && look(wanted)) return found;
        const std::string_view match = MatchingName(names, wanted);
        if (!match.empty() && look(match)) return found;
    }
    found.error = ENOENT;
    return found;
}

Long FailureOfStep(int error) {
    return error == ENOENT ? failure::PathNotFound : FailureOfHostError(error);
}

// Follows the path name by name from the tree's root.
void Walk(const Tree& tree, Place& place) {
    place.hostPath = tree.hostRoot;
    place.folder = Descriptor(openat(tree.root, ".", tree.FolderFlags()));
    for (std::size_t i = 0; i < place.path.names.size(); ++i) {
        const bool isLast = i + 1 == place.path.names.size();
        const Found found = FindEntry(tree, place.folder.Get(), place.path.names[i]);
        if (isLast && found.error == ENOENT) {
            place.failure = failure::FileNotFound;
            place.name = NameToCreate(place.path.names[i]);
            place.hostPath = HostJoin(place.hostPath, place.name);
            return;
        }
        place.failure = found.error == 0 ? 0 : FailureOfStep(found.error);
        if (place.failure == 0 && tree.IsOutside(found.status))
            place.failure = failure::PathNotFound;
        if (place.failure != 0) return;
        place.hostPath = HostJoin(place.hostPath, found.name);
        place.name = found.name;
        place.status = found.status;
        if (isLast) return;
        Descriptor next(openat(place.folder.Get(), found.name.c_str(), tree.FolderFlags()));
        if (!next.IsOpen()) {
            place.failure = FailureOfStep(errno);
            return;
        }
        place.folder = std::move(next);
    }
}

std::string JoinedFolders(const DrivePath& path) {
    std::string joined;
    for (std::size_t i = 0; i + 1 < path.names.size(); ++i)
        joined = HostJoin(joined, path.names[i]);
    return joined.substr(joined.empty() ? 0 : 1);
}

// The folder at exactly this path below the root, with no way out of the drive.
Descriptor OpenBeneath(int root, const std::string& path) {
    if (path.empty()) return Descriptor(openat(root, ".", folderFlags));
    open_how how{};
    how.flags = folderFlags;
    how.resolve = RESOLVE_BENEATH | RESOLVE_NO_SYMLINKS | RESOLVE_NO_XDEV;
    return Descriptor(static_cast<int>(syscall(SYS_openat2, root, path.c_str(), &how, sizeof how)));
}

bool FindExactly(const Tree& tree, Place& place) {
    const std::string folders = JoinedFolders(place.path);
    place.folder = OpenBeneath(tree.root, folders);
    place.name = place.path.names.back();
    if (!place.folder.IsOpen() ||
        fstatat(place.folder.Get(), place.name.c_str(), &place.status, tree.StatusFlags()) != 0) {
        return false;
    }
    if (tree.IsOutside(place.status)) return false;
    place.hostPath = HostJoin(HostJoin(tree.hostRoot, folders), place.name);
    return true;
}

bool HasStrangeName(const DrivePath& path) {
    return std::any_of(path.names.begin(), path.names.end(), HasHostSeparator);
}

void FindOnFixed(Place& place) {
    place.hostPath = "/";
    for (const std::string& name : place.path.names)
        place.hostPath = HostJoin(place.hostPath, name);
    place.name = place.hostPath;
    if (!HasStrangeName(place.path) && stat(place.name.c_str(), &place.status) == 0) return;
    const Descriptor root(open("/", folderFlags));
    Walk({root.Get(), "/", false, 0}, place);
}

void FindOnRemovable(DriveTable& drives, Place& place) {
    place.isOnRemovable = true;
    DriveTable::Root root = drives.Open(place.path.letter);
    place.failure = root.error;
    if (place.failure != 0) return;
    if (fstat(root.folder.Get(), &place.status) != 0) {
        place.failure = FailureOfStep(errno);
        return;
    }
    if (place.path.names.empty()) {
        place.name = ".";
        place.hostPath = root.hostPath;
        place.folder = std::move(root.folder);
        return;
    }
    const Tree tree{root.folder.Get(), root.hostPath, true, place.status.st_dev};
    if (HasStrangeName(place.path) || !FindExactly(tree, place)) Walk(tree, place);
}

}  // namespace

Place FindPlace(DriveTable& drives, std::string_view path) {
    Place place;
    std::optional<DrivePath> parsed = ParseDrivePath(path);
    if (!parsed) {
        place.failure = failure::PathNotFound;
        return place;
    }
    place.path = *std::move(parsed);
    if (place.path.letter == 'c') {
        FindOnFixed(place);
    } else {
        FindOnRemovable(drives, place);
    }
    return place;
}

Place FindOnHost(const std::string& hostPath) {
    Place place;
    place.hostPath = RealPath(hostPath);
    place.folder = Descriptor(open(FolderOf(place.hostPath).c_str(), folderFlags));
    place.name = LastName(place.hostPath);
    const int found =
        fstatat(place.Parent(), place.name.c_str(), &place.status, AT_SYMLINK_NOFOLLOW);
    if (!place.folder.IsOpen() || found != 0) place.failure = failure::FileNotFound;
    return place;
}

std::string HostPathInOwnSpelling(const Place& place) {
    if (place.path.names.empty()) return place.hostPath;
    int error = 0;
    const std::vector<std::string> names = NamesIn(place.folder.Get(), error);
    if (std::binary_search(names.begin(), names.end(), place.name)) return place.hostPath;
    const std::string_view own = MatchingName(names, place.name);
    if (own.empty()) return place.hostPath;
    return place.hostPath.substr(0, place.hostPath.size() - place.name.size()).append(own);
}

}  // namespace tavel
