#pragma once

#include <functional>

class QWidget;

namespace tavel {

// Places a window whose place goes by its frame: at once, as though it had none, and once more when
// the desktop tells how wide the frame is, which it does as it shows the window.
void PlaceByFrame(QWidget& window, std::function<void()> place);

}  // namespace tavel
