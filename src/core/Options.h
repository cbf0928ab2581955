#pragma once

namespace tavel {

// Reads the seven options from db.txt into PublicStuff. Text that does not convert fails with 13,
// and a number beyond an Integer with 6.
void LoadOptions();

// Reads the three extension lists. A list with no entries fails with 9, and one of -32768 with 6:
// without it the program could take in nothing.
void LoadSupportedExts();

}  // namespace tavel
