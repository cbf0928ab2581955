#pragma once

#include <string>
#include <string_view>

namespace tavel {

// An entry's path as an archive stores it, in engine text. Bytes that are no valid UTF-8 are code
// page 437, which is what an archive without a mark for UTF-8 is in. "/" counts as a backslash, a
// part "." as nothing; a folder's path ends in a backslash.
std::string ZipEntryName(std::string_view sStored);

// Whether a file could be put under such a path in a folder and be below that folder: it has a
// name, no "..", no drive and no separator in front.
bool StaysBelow(std::string_view sName);

}  // namespace tavel
