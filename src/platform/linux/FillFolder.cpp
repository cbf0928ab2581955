#include "platform/linux/FillFolder.h"

#include "platform/Activity.h"
#include "platform/Failure.h"
#include "platform/linux/FolderNames.h"
#include "platform/linux/HostErrors.h"
#include "platform/linux/HostPaths.h"
#include "platform/linux/Successor.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <vector>

namespace tavel {

namespace {

// What programs keep for a user is nobody else's.
constexpr mode_t folderMode = 0700;

void Require(bool succeeded) {
    if (!succeeded) FailWithHostError();
}

// What can't be looked at may be anything.
bool IsFree(const std::string& path) {
    struct stat status {};
    return lstat(path.c_str(), &status) != 0 && errno == ENOENT;
}

// The path of what has a name in a folder, or may get it. Another system may have spelt it
// otherwise.
std::string PathIn(const std::string& folder, const std::string& name) {
    const std::string exact = HostJoin(folder, name);
    if (!IsFree(exact)) return exact;
    const Descriptor opened(open(folder.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    const std::vector<std::string> others = MatchingNames(opened.Get(), name);
    return others.empty() ? exact : HostJoin(folder, others.front());
}

bool IsFolder(const std::string& path) {
    struct stat status {};
    return stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

void MakeFolderWithParents(const std::string& path) {
    if (path.empty() || IsFolder(path)) return;
    MakeFolderWithParents(path.substr(0, path.rfind('/')));
    Require(mkdir(path.c_str(), folderMode) == 0 || errno == EEXIST);
}

Place FreePlace(const std::string& path, const struct stat& installed) {
    Place place;
    place.failure = failure::FileNotFound;
    place.hostPath = path;
    place.name = LastName(path);
    place.folder = Descriptor(open(FolderOf(path).c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    Require(place.folder.IsOpen());
    place.status.st_mode = installed.st_mode | S_IRUSR | S_IWUSR;
    place.status.st_uid = geteuid();
    place.status.st_gid = getegid();
    return place;
}

// A start may be killed at any time, and half a library would be taken for one ever after.
void CopyFile(const std::string& installed, const std::string& path) {
    const Descriptor source(open(installed.c_str(), O_RDONLY | O_CLOEXEC));
    struct stat status {};
    Require(source.IsOpen() && fstat(source.Get(), &status) == 0);
    const Place place = FreePlace(path, status);
    Successor copy(place);
    std::array<char, 65536> piece;
    std::size_t count = 0;
    do {
        Require(source.Read(piece, count));
        copy.Write({piece.data(), count});
    } while (count == piece.size());
    if (!copy.TakePlace()) Fail(FailureOfHostError(copy.Error()));
}

void Fill(const Descriptor& from, const std::string& installed, const std::string& folder);

void CopyEntry(const std::string& installed, const std::string& path) {
    const std::string source = FixedDrivePath(installed);
    const std::string target = FixedDrivePath(path);
    const Doing doing("Copying", source, "to", target);
    const Descriptor from(open(installed.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!from.IsOpen()) {
        Require(errno == ENOTDIR);
        if (IsFree(path)) CopyFile(installed, path);
        return;
    }
    if (IsFree(path)) Require(mkdir(path.c_str(), folderMode) == 0);
    if (IsFolder(path)) Fill(from, installed, path);
}

void Fill(const Descriptor& from, const std::string& installed, const std::string& folder) {
    int error = 0;
    for (const std::string& name : NamesIn(from.Get(), error))
        CopyEntry(HostJoin(installed, name), PathIn(folder, name));
    if (error != 0) Fail(FailureOfHostError(error));
}

// Of two first starts at a time one waits for the other.
Descriptor Locked(const std::string& folder) {
    Descriptor opened(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    Require(opened.IsOpen());
    // Not every file system has locks.
    [[maybe_unused]] const bool isLocked = flock(opened.Get(), LOCK_EX) == 0;
    return opened;
}

}  // namespace

void FillFolder(const std::string& installed, const std::string& folder) {
    const std::string source = FixedDrivePath(installed);
    const std::string target = FixedDrivePath(folder);
    const Doing doing("Copying", source, "to", target);
    MakeFolderWithParents(folder);
    const Descriptor lock = Locked(folder);
    const Descriptor from(open(installed.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    Require(from.IsOpen());
    Fill(from, installed, folder);
}

}  // namespace tavel
