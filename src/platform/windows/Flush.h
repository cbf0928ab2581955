#pragma once

#include "platform/windows/Places.h"

namespace tavel {

// What makes a change of entries last when a removable drive is pulled: a file that is gone or has
// another name, a new folder. Other drives see to that in their own time. False when the host
// reports a failure; GetLastError says why.
bool KeepEntries(const Place& place);

}  // namespace tavel
