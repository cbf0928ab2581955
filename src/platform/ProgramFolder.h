#pragma once

namespace tavel {

// The program folder is where the running program lies or, when the system has installed it for all
// its users, a folder of this user's own. FileService.h tells its path.

// To be called once, at the start and before the folder is used: where the folder is the user's
// own, makes it and whatever is missing in it of what was installed. Fails as file operations do.
void FillProgramFolder();

}  // namespace tavel
