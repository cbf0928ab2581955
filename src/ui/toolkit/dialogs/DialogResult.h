#pragma once

#include "platform/Numbers.h"

namespace tavel {

// How a common dialog ended.
struct DialogResult {
    Long result = 0;  // 1 chosen; 0 cancelled or failed; any other: failed for the reason `error`
    Long error = 0;
};

}  // namespace tavel
