#pragma once

#include "platform/Numbers.h"

#include <string>
#include <vector>

namespace tavel {

// Membership stands on both sides: the group lists its members, each member its groups. An id that
// doesn't resolve fails in the collection's look-up. Only RemoveItem marks the library as changed.

// Makes a group of type 1, 2, 4 or 8 of the items and returns its id.
std::string MakeGroup(const std::vector<std::string>& sIDs, const std::string& sName,
                      Integer iType);

// Adds items that are not members yet.
void AddToGroup(const std::vector<std::string>& sIDs, const std::string& sGroupID);

// Unlinks an item from a group, on both sides. An id that is no member takes out member 0. By
// value, since callers name the two by entries of the very lists that shrink.
void RemoveFromGroup(std::string sItemID, std::string sGroupID);

bool IsInGroup(const std::string& sItemID, const std::string& sGroupID);

// Removes an item or a group from the library, and the item's file with bDeleteFile. For a group
// bDeleteFile becomes False. An item in two or more groups, and an album of two or more pages,
// fails with 9.
void RemoveItem(const std::string& sID, bool& bDeleteFile);

}  // namespace tavel
