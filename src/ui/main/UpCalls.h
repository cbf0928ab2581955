#pragma once

namespace tavel {

// Gives the engine its windows: from here on every up-call reaches the one instance of its window,
// which comes into being with the first touch. Called once, before Main.
void WireUpCalls();

}  // namespace tavel
