#include "platform/ProgramFolder.h"

namespace tavel {

// Here the program always lies in its folder, with all that belongs there.
void FillProgramFolder() {}

}  // namespace tavel
