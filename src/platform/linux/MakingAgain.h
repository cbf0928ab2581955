#pragma once

#include "platform/linux/Places.h"

namespace tavel {

// What FileService::WhyNotToMakeAgain tells of the path that was followed.
Long WhyNotToMakeAgainAt(const Place& place);

}  // namespace tavel
