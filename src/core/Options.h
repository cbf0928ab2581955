#pragma once

namespace tavel {

// Reads the seven options from db.txt into PublicStuff. Text that does not convert fails with 13.
void LoadOptions();

// Reads the three extension lists. A list with no entries fails with 9: without it the program
// could take in nothing.
void LoadSupportedExts();

}  // namespace tavel
