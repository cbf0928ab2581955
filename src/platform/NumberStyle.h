#pragma once

#include "platform/Service.h"

#include <string_view>

namespace tavel {

// How the user writes numbers.
class NumberStyle {
  public:
    virtual ~NumberStyle() = default;

    // What stands in front of the decimals; never empty.
    virtual std::string_view DecimalMark() = 0;
};

// That of the host's user, as it was at the first number.
template <>
NumberStyle* OwnService<NumberStyle>();

}  // namespace tavel
