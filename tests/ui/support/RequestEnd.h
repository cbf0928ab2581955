#pragma once

namespace tavel::test {

// The host asks the program to end: heard in the event loop, not at once.
void RequestEnd();

}  // namespace tavel::test
