#pragma once

#include <string>

namespace tavel::bench {

// The text of a db.txt with `perKind` photos, tracks and videos, and a hundredth of that many
// magazines, albums and series of 20 members each; the single playlist that a library can hold
// stands beside them. Extension lists and options are those of an installation.
std::string SampleLibrary(int perKind);

}  // namespace tavel::bench
