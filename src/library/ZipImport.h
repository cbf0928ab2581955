#pragma once

#include <string>

namespace tavel {

// Unpacks an archive of pictures into the folder TEMPUNZIP below sDefaultDBPath, adds its files and
// moves them to their places in the library folders; with bMakeGroup as a magazine named after the
// archive. bMakeGroup is looked at behind the last file, since the option can change while the
// import is yielded. What is rejected stays in the temporary folder and is
// listed in frmInvFiles. What the archive's reader refuses is not unpacked, and is listed under its
// name in the archive.
//
// Fails with 9 on an archive without a file, and as the reading, the adding, the grouping and the
// moving do; what was unpacked and added until then stays.
void AddZipFile(const std::string& sZipPath, const bool& bMakeGroup);

}  // namespace tavel
