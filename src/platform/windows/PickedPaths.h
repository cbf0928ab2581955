#pragma once

#include <string>
#include <vector>

namespace tavel {

// The drive paths that the system's box for files has told: a path, or a folder and names in it,
// each with a NUL behind it. What was picked in a view of several folders, a library or what a
// search has found, is told by whole paths in the place of names. Empty when nothing that was
// picked has a path, as on a phone.
std::vector<std::string> PickedPaths(const std::wstring& told);

}  // namespace tavel
