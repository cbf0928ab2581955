#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tavel {

// The profile service: text files of `[section]` and `key=value` lines, under the platform's
// classic rules. Names match without regard to (ASCII) case and to blanks around them; only the
// first of equal sections is looked at, and in it the first of equal keys. Paths are drive paths.

// The value, at most `size` - 1 characters of it (a UTF-8 sequence is one); the default, without
// its trailing blanks and cut likewise, when the file or the key is not there.
std::string GetPrivateProfileString(std::string_view section, std::string_view key,
                                    std::string_view defaultValue, std::size_t size,
                                    std::string_view path);

// The leading sign and digits of the value as a number that wraps; the default when it is missing.
unsigned GetPrivateProfileInt(std::string_view section, std::string_view key, int defaultValue,
                              std::string_view path);

// Replaces the value in place, or adds key or section; every other byte stays. Creates a missing
// file, but no folder. An unchanged value writes nothing. False when it could not be written. A
// name that could not be found again writes nothing and is false too.
bool WritePrivateProfileString(std::string_view section, std::string_view key,
                               std::string_view value, std::string_view path);

// While one lives, the file at `path` is looked at once and what is written to it stays in memory;
// its end, by failure too, brings all of it to the file in one atomic step. One file at a time: a
// batch within another on the same file joins it, one on another file fails with 5. A file that has
// gone meanwhile is not made anew.
class ProfileBatch {
  public:
    explicit ProfileBatch(std::string_view path);
    ~ProfileBatch();
    ProfileBatch(const ProfileBatch&) = delete;
    ProfileBatch& operator=(const ProfileBatch&) = delete;
};

// True when an ordinary file (not hidden, not a folder) is at the path; inside a batch on that
// path, what was true at its start.
bool ProfileFileExists(std::string_view path);

}  // namespace tavel
