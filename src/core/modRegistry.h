#pragma once

#include "platform/Numbers.h"

#include <string>
#include <string_view>

namespace tavel {

// Reading and writing of db.txt and of the identity file on the stick go through these.
// `root` is the full path of a profile file or the name of a registry root; `kind` is "S" text,
// "B" boolean or "D" 32-bit number, in either case. All return a status that callers ignore: 0 in
// profile mode, 99 when there is nothing to act on, else the registry's error.

// `out` is given the default first. Values come back as at most 254 characters.
Long ReadValue(std::string_view root, std::string_view section, std::string_view key,
               std::string_view kind, std::string_view defaultValue, std::string& out);

// The text becomes a number inside: text that is none leaves the default in `out`, silently.
Long ReadValue(std::string_view root, std::string_view section, std::string_view key,
               std::string_view kind, std::string_view defaultValue, Integer& out);

Long WriteValue(std::string_view root, std::string_view section, std::string_view key,
                std::string_view kind, std::string_view value);

// What a root stands for: 1 profile mode, 0 nothing to act on, else the registry root's handle.
Long GetRootKey(std::string_view name);

}  // namespace tavel
