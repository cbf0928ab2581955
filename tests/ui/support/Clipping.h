#pragma once

#include <QWidget>
#include <string>
#include <vector>

namespace tavel::test {

// What a person cannot read whole in a window: the controls, by name, whose text or frame is cut
// off by their own size or by what they stand in. A text that may be long and is shown with a part
// left out is cut off only where it is too high.
std::vector<std::string> ClippedIn(QWidget& window);

}  // namespace tavel::test
