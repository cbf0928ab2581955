#pragma once

#include <string>

namespace tavel {

// Gives a file the owner and the access list of another, as far as the user may and the file system
// has them.
void TakeAccessOf(const std::wstring& other, const std::wstring& file);

// What people see of the other one, too: a file that is hidden, or the system's. Whether it is
// read-only is not passed on: what is to be written to goes on being written to.
void TakeRightsOf(const std::wstring& other, const std::wstring& file);

}  // namespace tavel
