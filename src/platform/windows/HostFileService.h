#pragma once

#include "platform/FileService.h"
#include "platform/windows/DriveSource.h"

#include <memory>
#include <string>

namespace tavel {

// A file service whose current folder is a host folder, and whose drives are those of the source.
std::unique_ptr<FileService> MakeHostFileService(const std::string& programFolder,
                                                 std::unique_ptr<DriveSource> drives);

}  // namespace tavel
