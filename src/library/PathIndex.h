#pragma once

#include "platform/Numbers.h"

#include <string_view>

namespace tavel {

// The paths of the items, kept so that a look for one costs no walk over all records.

// True when a record of the item type (0, 3 or 5) has exactly this path, case included. Records
// that were added or removed since the last look are taken into account.
bool HasPath(Integer itemType, std::string_view sPath);

// The path of a record changes that may have been taken in.
void ForgetPaths();

}  // namespace tavel
