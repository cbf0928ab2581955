#pragma once

#include <string>

namespace tavel {

// The list of frmLog. Touching it brings the window into being, hidden.
class LogWindow {
  public:
    virtual ~LogWindow() = default;
    virtual void AddItem(const std::string& line) = 0;  // at the end, without scrolling to it
};

}  // namespace tavel
