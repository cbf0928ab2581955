#pragma once

#include "library/Records.h"
#include "platform/FileService.h"

#include <string>
#include <string_view>

namespace tavel {

// A new library id. sSource is a file's full path for an item and the group's name for a group;
// an item's file must exist (53). A name from which no 5 characters can be gathered within
// 32,767 steps (an empty one, or one with a blank at its end that the walk stops at) fails with 6.
// Every playlist gets the id "pl_".
std::string MakeDBID(std::string_view sSource, Integer iType);

// The same for an item whose file has just been looked at.
std::string MakeDBID(const FileEntry& file, Integer itemType);

// The type that an id tells; -1 when its third character is not "_", 0 for an unknown prefix.
Integer GetDBIDType(std::string_view sID);

// The item type of a type's kind: 0, 3 or 5; 0 for any other value.
Integer GetMediaClass(Integer iType);

// The group type that an automatic group of an item type gets: 0 gives 1, 3 gives 4, 5 gives 8;
// any other value gives 0.
Integer GetGroupType(Integer iType);

}  // namespace tavel
