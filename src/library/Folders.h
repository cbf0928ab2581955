#pragma once

#include <string>
#include <string_view>

namespace tavel {

// Makes the tree of media folders below sRoot and, when all is there, sets sDefaultDBPath to it.
// False on any failure, with what was made left in place.
bool MakeDBFolders(const std::string& sRoot);

// Moves the file of an item, or the files of a group's members, into the tree and updates sPath.
// Only photos and magazines can be moved; any other kind fails, as does a target that exists.
void MoveToDBFolder(std::string_view sID);

}  // namespace tavel
