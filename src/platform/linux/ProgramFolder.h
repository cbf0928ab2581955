#pragma once

#include <string>

namespace tavel {

// Where a program keeps what belongs to its user; host paths.
struct ProgramPlace {
    std::string folder;     // the program folder
    std::string installed;  // what it is filled from; empty where the program itself lies in it
};

// The place of the program at a host path without links. In a folder `bin` with `share/tavel`
// beside that folder it is one that the system has installed for all its users, and each of them
// has a folder of their own, `Tavel` where the desktop's programs keep such data ($XDG_DATA_HOME,
// else
// ~/.local/share). Anywhere else the program lies in its folder.
ProgramPlace PlaceOfProgramAt(const std::string& program);

// The running program's, as it was at the start: an update may replace what lies there.
std::string ProgramFolderOfHost();

}  // namespace tavel
