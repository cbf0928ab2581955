#pragma once

namespace tavel::test {

// How often the program has read what is in a folder so far.
int FoldersRead();

}  // namespace tavel::test
