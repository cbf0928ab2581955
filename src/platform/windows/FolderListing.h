#pragma once

#include "platform/FileService.h"
#include "platform/windows/Places.h"

namespace tavel {

// What the folder at a place holds. Passed over are links that lead nowhere, names with refused
// characters (no drive path can name them), paths that are too long, and links to a folder that
// leads here, which would make a walk endless.
FolderContents ContentsOf(const Place& place);

FileEntry EntryOfFile(const Place& place);

}  // namespace tavel
