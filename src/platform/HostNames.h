#pragma once

#include <string>
#include <string_view>

namespace tavel {

// The rules for names of files and folders, the same on every drive: those of the file systems
// that a memory stick may carry.

// One of the characters that those file systems refuse.
bool HasRefusedCharacter(std::string_view name);

// What a new entry asked for as `name` is called on the host: valid UTF-8, without the blanks and
// dots at its end that those file systems drop. Empty when they refuse the name.
std::string NameToCreate(std::string_view name);

// The name without the blanks and dots at its end.
std::string_view WithoutDroppedEnd(std::string_view name);

// The same for names that match: without regard to case, and to how the host spells the characters.
std::string MatchKey(std::string_view name);

}  // namespace tavel
