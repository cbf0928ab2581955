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
// isn't supported and for a path that is too long to be kept, the empty text for a file passed over
// because it is hidden. bMayBeHidden: False for a file that no user has hidden, whatever its name.
std::string AddFile(const std::string& sPath, bool bMayBeHidden = true);

// The answer of the multi-select file dialog, split at its NUL characters.
void AddFiles(const std::vector<std::string>& sFiles);

// Adds what lies in a folder. bRecurse: subfolders too; bMakeGroups: a leaf folder of one media
// type becomes a group, looked at anew in each folder, since the option can change while the walk
// is yielded; bOnlyNew: files in the library already are passed over; bNoYield: hands over to the
// event loop at the comparisons of bOnlyNew alone. Fails with 76 when the folder is not there.
// Cancelling in frmAdd ends the folder in which it is noticed, and no other. Of several links to
// one folder the first is followed.
void AddFolder(const std::string& sPath, bool bRecurse, const bool& bMakeGroups, bool bOnlyNew,
               bool bNoYield);

// Shows what was rejected, without waiting.
void ShowInvalidFiles(const std::vector<std::string>& sFiles);

}  // namespace tavel
