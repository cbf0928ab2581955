#pragma once

#include "device/ProgressBarFileCopy.h"

#include <string>
#include <vector>

namespace tavel {

// Copies what the ids name to the stick, in their order, with frmCopy showing both bars. Nothing
// asks what was sent already, and nothing is cancelled. Lets no window event run.
void TransferToPSP(const std::vector<std::string>& sIDs);

}  // namespace tavel
