#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tavel {

// The names in an open folder in byte order, without "." and "..". Sets `error` to the host's
// error, 0 when there is none.
std::vector<std::string> NamesIn(int folder, int& error);

// Those of them that match a name, in byte order; none where the folder can't be read.
//
// The folders asked about last are remembered as long as the kernel tells of every change in them,
// which it does before the change is anybody's to see, so that n new names in one folder cost one
// reading of it. It can't where others than this machine may change a folder: those are read each
// time. Nor does it on a file system of a user process that ignores case and takes each spelling
// of a folder's path for a folder of its own; there a lookup by the exact name, which comes first,
// ignores case as well. So a name that is given may have gone, and has to be looked at.
std::vector<std::string> MatchingNames(int folder, std::string_view name);

}  // namespace tavel
