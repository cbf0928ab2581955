#pragma once

#include "device/DeviceWindows.h"

#include <string>

namespace tavel {

// Copies a file in pieces of 1024 bytes and moves the bar with each. The source must exist (53);
// that it can't be read, or that the destination can't be opened or written, is passed over without
// a word: the destination then is shorter than the source, or not there. It is built under its own
// name, and its bytes are on a removable medium when the call returns. Fails with 6 when 2 GiB have
// been written.
void CopyWithProgress(const std::string& sSource, const std::string& sDest, ProgressBarView& bar);

}  // namespace tavel
