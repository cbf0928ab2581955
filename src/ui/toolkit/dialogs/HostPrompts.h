#pragma once

#include "ui/toolkit/Prompts.h"

#include <string>

namespace tavel {

// The host's own boxes, asked as the program asks. While one stands, the other windows take no
// input. For a host that has such boxes.
FileAnswer PickFilesByHost(const FileRequest& request);
std::string PickFolderByHost(const FolderRequest& request);

}  // namespace tavel
