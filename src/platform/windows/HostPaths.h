#pragma once

#include "platform/DrivePath.h"

#include <optional>
#include <string>
#include <string_view>

namespace tavel {

// Paths of the host, as texts: a drive and names (`C:\Music`), or a folder that another computer
// shares (`\\server\share\Music`), for which `drive` of a drive path is `\\server\share` and
// `letter` 0. They may have the prefix `\\?\`, and slashes for separators, as Qt has.

// Nothing for a text that is no whole path: without a drive, or with a NUL.
std::optional<DrivePath> ParseHostPath(std::string_view text);
// Nothing for a text that does not begin with two separators, a computer and what it shares.
std::optional<DrivePath> ParseSharePath(std::string_view text);

// What the wide calls are given: the prefix `\\?\` takes away the limit of 260 characters, and the
// host's own reading of the path, which would drop dots and blanks at the end and find devices in
// names. Empty for what is no whole path, which no call finds.
std::wstring CallPath(std::string_view hostPath);
std::wstring CallPathBelow(const std::wstring& folder, std::string_view name);

// The way back: a plain path. One to which a plain path does not lead keeps the prefix, so that
// libraries that open files themselves find it.
std::string HostPathOf(const std::wstring& callPath);

// What stands behind the last separator.
std::wstring_view LastName(std::wstring_view callPath);
// What stands in front of it; the root of a drive with the separator.
std::wstring FolderOf(const std::wstring& callPath);

}  // namespace tavel
