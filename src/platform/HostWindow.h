#pragma once

#include <cstdint>

namespace tavel {

// A window as the host knows it; 0 for none.
using HostWindow = std::uintptr_t;

}  // namespace tavel
