#pragma once

#include <string_view>

namespace tavel {

// Adds a line of date, category in upper case and message, tab-separated, to the log window.
void AddLog(std::string_view sCategory, std::string_view sMessage);

}  // namespace tavel
