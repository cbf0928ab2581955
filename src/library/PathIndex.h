#pragma once

#include "library/Records.h"

#include <string_view>

namespace tavel {

// The paths of the items, kept so that a look for one costs no walk over all records.

// True when a record of the item type (0, 3 or 5) has exactly this path, case included. Records
// that were added or removed since the last look are taken into account.
bool HasPath(MediaType itemType, std::string_view sPath);

// To be called when the path of a record that stays in its collection has changed: the look can't
// see that by itself.
void ForgetPaths();

}  // namespace tavel
