#pragma once

#include "platform/FileService.h"
#include "platform/linux/MountSource.h"

#include <memory>
#include <string>

namespace tavel {

// A file service whose drive links are in the folder `drives` of a host folder, and whose mounted
// drives are those of the source.
std::unique_ptr<FileService> MakeHostFileService(const std::string& programFolder,
                                                 std::unique_ptr<MountSource> mounts);

}  // namespace tavel
