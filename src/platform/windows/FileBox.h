#pragma once

#include "platform/HostBoxes.h"

namespace tavel {

// The system's box that opens or saves files.
HostFileAnswer RunFileBox(const HostFileRequest& request);

}  // namespace tavel
