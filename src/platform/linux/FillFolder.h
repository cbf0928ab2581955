#pragma once

#include <string>

namespace tavel {

// Copies what is missing in a folder from an installed one, with the folders in it, and makes the
// folder itself and those that it lies in. What is there stays as it is, whatever it is. A file
// comes whole or not at all, and is one that the user may write. Host paths; fails as file
// operations do.
void FillFolder(const std::string& installed, const std::string& folder);

}  // namespace tavel
