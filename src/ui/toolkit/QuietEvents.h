#pragma once

namespace tavel {

// Two ways to let the window system have its turn while the program's handlers rest: no timer, no
// user input and no request to end gets through. Posted events do: what Tavel posts itself (a tree
// or a list that catches up with what it shows) may touch windows and reads the collections only
// between two steps of the engine.

// Takes what concerns the windows alone: painting, places, focus. User input is kept for later.
void TakeWindowEvents();

// Takes all that has come, and drops the user's clicks and keys: they were meant for windows that
// did not answer.
void DropInput();

// True while one of the two runs.
bool HandlersRest();

}  // namespace tavel
