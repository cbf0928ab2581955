#pragma once

#include "platform/HostBoxes.h"

#include <string>

namespace tavel {

// The system's folder chooser. Empty on Cancel.
std::string RunFolderBox(const HostFolderRequest& request);

}  // namespace tavel
