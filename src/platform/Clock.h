#pragma once

#include "platform/Service.h"

#include <string>

namespace tavel {

// The host's clock and its user's ways of writing it.
class Clock {
  public:
    virtual ~Clock() = default;

    // The present date and time in the user's general format (short date, long time).
    virtual std::string NowText() = 0;

    // Seconds since midnight with fractions: what the random generator is seeded from.
    virtual double Timer() = 0;
};

// The host's clock.
template <>
Clock* OwnService<Clock>();

}  // namespace tavel
