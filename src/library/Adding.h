#pragma once

#include "platform/Numbers.h"

#include <string>
#include <string_view>
#include <vector>

namespace tavel {

// What a file is by its extension: 0, 3 or 5; -1 when no list has it. Music goes before video,
// video before photo. A path without a dot fails as GetFileExt does.
Integer GetFileType(std::string_view sPath);

// Makes a record of a file, which stays where it lies. Returns the new id, "-1" for a type that
// isn't supported, the empty text for a file passed over because it is hidden.
std::string AddFile(const std::string& sPath);

// The answer of the multi-select file dialog, split at its NUL characters.
void AddFiles(const std::vector<std::string>& sFiles);

// Adds what lies in a folder. bRecurse: subfolders too; bAutoGroup: a leaf folder of one media
// type becomes a group; bOnlyNew: files in the library already are passed over; bNoYield: does not
// hand over to the event loop.
void AddFolder(const std::string& sPath, bool bRecurse, bool bAutoGroup, bool bOnlyNew,
               bool bNoYield);

// Shows what was rejected, without waiting.
void ShowInvalidFiles(const std::vector<std::string>& sFiles);

}  // namespace tavel
