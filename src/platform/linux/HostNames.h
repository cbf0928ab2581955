#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tavel {

// The rules for names of files and folders, the same on every drive: those of the file systems
// that a memory stick may carry.

// What a new entry asked for as `name` is called on the host: valid UTF-8, without the blanks and
// dots at its end that those file systems drop. Empty when they refuse the name.
std::string NameToCreate(std::string_view name);

// The name without the blanks and dots at its end.
std::string_view WithoutDroppedEnd(std::string_view name);

// Equal without regard to case and to how the host spells the characters.
bool NamesMatch(std::string_view a, std::string_view b);

// The names in an open folder in byte order, without "." and "..". Sets `error` to the host's
// error, 0 when there is none.
std::vector<std::string> NamesIn(int folder, int& error);

// The one of the names that matches, the first of several in their order; empty when none does.
std::string_view MatchingName(const std::vector<std::string>& names, std::string_view name);

}  // namespace tavel
