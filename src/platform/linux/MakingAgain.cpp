#include "platform/linux/MakingAgain.h"

#include "platform/Failure.h"
#include "platform/Text.h"
#include "platform/linux/FolderNames.h"
#include "platform/linux/HostNames.h"
#include "platform/linux/HostPaths.h"

namespace tavel {

namespace {

Descriptor OpenFolderOf(const Place& place) {
    constexpr int flags = O_PATH | O_DIRECTORY | O_CLOEXEC;
    if (place.folder.IsOpen()) return Descriptor(openat(place.Parent(), ".", flags));
    return Descriptor(open(FolderOf(place.hostPath).c_str(), flags));
}

// Whether a path with that name would lead to something else than the entry of the folder's own.
bool HasTwin(const Descriptor& folder, std::string_view name, const std::string& own, int flags) {
    for (const std::string_view wanted : {name, WithoutDroppedEnd(name)}) {
        for (const std::string& match : MatchingNames(folder.Get(), wanted)) {
            struct stat status {};
            if (match != own && fstatat(folder.Get(), match.c_str(), &status, flags) == 0)
                return true;
        }
    }
    return false;
}

}  // namespace

Long WhyNotToMakeAgainAt(const Place& place) {
    if (place.failure != 0) return place.failure;
    if (!place.IsFile()) return failure::FileNotFound;
    const Descriptor folder = OpenFolderOf(place);
    const std::string own = OwnSpelling(folder.Get(), LastName(place.hostPath));
    const std::string& name = place.path.names.back();
    if (place.path.HasSecondDrive() || !EqualsIgnoringCase(NameToCreate(name), own))
        return failure::BadFileName;
    const int flags = place.isOnRemovable ? AT_SYMLINK_NOFOLLOW : 0;
    return HasTwin(folder, name, own, flags) ? failure::FileAlreadyExists : 0;
}

}  // namespace tavel
