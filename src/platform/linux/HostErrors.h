#pragma once

#include "platform/Numbers.h"

namespace tavel {

// The run-time's failure number for an error of the host (errno).
Long FailureOfHostError(int error);

// Throws the failure for the host's present error.
[[noreturn]] void FailWithHostError();

}  // namespace tavel
