#pragma once

#include "platform/Text.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace tavel {

// How names and values are spelt in the lines of a profile file. Blanks are spaces and tabs.

inline bool IsLineBreak(char c) { return c == '\r' || c == '\n'; }

std::string_view WithoutBlanksBefore(std::string_view text);
std::string_view WithoutBlanksAfter(std::string_view text);

// Of blanks alone the beginning is left, so that a value goes directly behind its "=".
std::string_view WithoutBlanks(std::string_view text);

// Names of sections and keys match without regard to ASCII case.
inline bool SameName(std::string_view a, std::string_view b) {
    const auto isSame = [](char x, char y) { return x == y || AsciiLower(x) == AsciiLower(y); };
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), isSame);
}

// Sorts names, those that match as equal ones. Shorter ones come first, which makes numbers stand
// in their order.
struct NameOrder {
    bool operator()(std::string_view a, std::string_view b) const;
};

// False for a name that could not be found again: an empty one, one with "=", a line break or a
// NUL, one that begins with ";" or "["; of a section also one with "]".
bool CanBeKey(std::string_view name);
bool CanBeSection(std::string_view name);

// What a stored value reads as: it ends at a NUL, and one pair of equal quotes around it is left
// out.
std::string_view ValueAsRead(std::string_view stored);

// How a value is stored so that it reads as it is: with a pair of quotes around it where its own
// blanks or quotes would be lost. Line breaks become blanks and a NUL ends it, which cannot be
// undone. `room` holds the result where it is not the value itself.
std::string_view ValueAsStored(std::string_view value, std::string& room);

}  // namespace tavel
