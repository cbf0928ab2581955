#pragma once

namespace tavel {

// The life of the process: Main brings everything up in its fixed order, ShutDown is the only
// regular way out and the only moment at which the library is saved.
void Main();
void StartUp();
void SetupStyle();
void ShutDown();

}  // namespace tavel
