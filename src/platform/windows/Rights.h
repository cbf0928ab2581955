#pragma once

#include <string>

namespace tavel {

// Gives a file the owner and the access list of another, as far as the user may and the file system
// has them, and makes it hidden or a file of the system if the other one is. Whether a file is
// read-only is not passed on: what is to be written to goes on being written to.
void TakeRightsOf(const std::wstring& other, const std::wstring& file);

}  // namespace tavel
