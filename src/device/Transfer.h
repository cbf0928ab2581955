#pragma once

#include "device/DeviceWindows.h"

#include <string>
#include <vector>

namespace tavel {

// Copies what the ids name to the stick, in their order, with frmCopy showing both bars. Nothing
// is looked up on the stick first and nothing is cancelled. Lets no window event run.
void TransferToPSP(const std::vector<std::string>& sIDs);

// Copies a file in pieces of 1024 bytes and moves the bar with each. The source must exist; that
// the destination can't be opened or written is passed over without a word.
void CopyWithProgress(const std::string& sSource, const std::string& sDest, ProgressBarView& bar);

}  // namespace tavel
