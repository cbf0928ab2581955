#pragma once

#include "media/FileBytes.h"

#include <cstdint>

namespace tavel {

// Where in its file an archive begins, from which its offsets count: behind a program that unpacks
// it, when that was put in front and nobody counted it, and nothing but a comment stands behind it.
// 0 for all others, and for what is no archive. Fails with 57 when the file cannot be read.
std::int64_t StartOfArchive(FileBytes& file);

}  // namespace tavel
