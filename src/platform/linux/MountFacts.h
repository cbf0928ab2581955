#pragma once

#include <sys/types.h>

#include <cstdint>

namespace tavel {

// The kernel's number for the mount that an open folder lies in; 0 when it can't be told.
std::uint64_t MountIdOf(int folder);

// True when an open folder is the root of a mount.
bool IsMountRoot(int folder);

// False when the device has been taken out while its file system is still mounted: the host then
// goes on answering from memory. True for file systems without a block device.
bool IsDevicePresent(dev_t device);

}  // namespace tavel
