#pragma once

#include "platform/Numbers.h"

#include <string>
#include <string_view>

namespace tavel {

// A number from iLower to iUpper, both included; the generator is seeded from the timer each time.
Integer RandomInt(Integer iUpper, Integer iLower);

// The program's folder, ending in a backslash.
std::string GetAppPath();

// What follows the last "." of the text, in lower case. A text without any "." fails with 6
// Overflow: a file without an extension is one that the program can't look at. A "." in a folder
// name counts: `C:\a.b\c` gives `b\c`.
std::string GetFileExt(std::string_view sPath);

// The value with "0" put in front up to the width; a longer one stays as it is.
std::string PadZeros(std::string_view sValue, Integer iWidth);

// The text less its extension and one character more; fails as GetFileExt does.
std::string StripExt(std::string_view sPath);

// iCount plus 1 letters from "a" to "z".
std::string RandomLetters(Integer iCount);

// What follows the last backslash; the whole text when there is none.
std::string GetFileName(std::string_view sPath);

}  // namespace tavel
