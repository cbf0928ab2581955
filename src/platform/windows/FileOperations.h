#pragma once

#include "platform/windows/Places.h"

#include <string>
#include <string_view>

namespace tavel {

// What the file service does to whole files and folders; each fails with the run-time's numbers as
// FileService tells. Targets that end in a separator, or that are a drive's root, mean the source's
// name in that folder.

void CreateFolderAt(const Place& place);
void DeleteFileAt(const Place& place, bool force);
void DeleteLinksIn(const Place& folder, std::string_view name);
void CreateTextFileAt(Place place, bool overwrite);
void CopyRightsBetween(const Place& source, const Place& target);
std::string CreateTempFileIn(const HostTree& tree, std::string_view folder,
                             std::string_view prefix);
// A copy that fails leaves no target. It keeps the modification time, and is read-only or hidden as
// its source is.
void CopyFileBetween(const HostTree& tree, std::string_view source, std::string_view target,
                     bool overwrite);
// To another drive it goes under a name of its own at first, and the source stays until all of it
// is on the medium.
void MoveFileBetween(const HostTree& tree, std::string_view source, std::string_view target);
// In one step: the file is not deleted before the other one takes its place.
void ReplaceFileBetween(const HostTree& tree, std::string_view path, std::string_view source);

}  // namespace tavel
