#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavel {

// The lower case of a letter that a drive may have; 0 for any other character.
char DriveLetter(char c);

// The letter in a name of a drive ("e", "e:", "e:\\", "e: [LABEL]"), lower case; 0 for another
// text.
char DriveLetterOf(std::string_view name);

// A drive path taken apart: the letter, and the names below the drive's root with "." and ".."
// resolved.
struct DrivePath {
    char letter = 'c';               // lower case
    std::string drive = "c:";        // letter and colon as they were written
    std::vector<std::string> names;  // empty: the root
    bool endsInSeparator = false;

    // The path written out, without a separator at its end unless it is the root.
    std::string Text() const;

    // Goes down, and with ".." up, by the names in a text; from the root there is no way up.
    void Descend(std::string_view rest, char separator = '\\');

    // One of the names is a drive itself, a letter and a colon alone. Such a path can be read where
    // the host has the name, and nothing is ever made at it.
    bool HasSecondDrive() const;
};

// Nothing for a text that can be no path: the empty one, and one with a NUL. A path without a drive
// starts at the current folder, or at the root of its drive.
std::optional<DrivePath> ParseDrivePath(std::string_view text, const DrivePath& currentFolder);

// The text of an entry of the folder that `folder` names.
std::string PathBelow(std::string_view folder, std::string_view name);

}  // namespace tavel
