#include "platform/linux/MountFacts.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

#include <string>

namespace tavel {

namespace {

struct statx StatusOf(int folder) {
    struct statx status {};
    if (statx(folder, "", AT_EMPTY_PATH, STATX_MNT_ID, &status) != 0) return {};
    return status;
}

}  // namespace

std::uint64_t MountIdOf(int folder) { return StatusOf(folder).stx_mnt_id; }

bool IsMountRoot(int folder) {
    return (StatusOf(folder).stx_attributes & STATX_ATTR_MOUNT_ROOT) != 0;
}

bool IsDevicePresent(dev_t device) {
    static const std::string known = "/sys/dev/block/";
    if (major(device) == 0 || access(known.c_str(), F_OK) != 0) return true;
    const std::string entry =
        known + std::to_string(major(device)) + ':' + std::to_string(minor(device));
    return access(entry.c_str(), F_OK) == 0;
}

}  // namespace tavel
