#pragma once

#include <QRect>
#include <optional>

namespace tavel {

// Where the panel takes presses, in its own pixels. An area is made when its part is drawn and
// outlives it: a part that is no longer drawn keeps the area that it had.
struct HitAreas {
    std::optional<QRect> chevron;
    std::optional<QRect> close;
    std::optional<QRect> grip;
};

}  // namespace tavel
