#pragma once

#include "platform/Numbers.h"

namespace tavel {

// The run-time's failure number for an error of the host (GetLastError).
Long FailureOfHostError(unsigned long error);

// Throws the failure for the host's present error.
[[noreturn]] void FailWithHostError();

}  // namespace tavel
