#pragma once

#include <string>

namespace tavel {

// Puts a tag (as TagBuffer makes it) into an MP3 file, which nobody else may be writing.
//
// A tag that is smaller than the first one of the file takes the place of that one, whose size it
// keeps; what it does not cover stays behind it. Any other makes the file grow in front: room goes
// before the whole old file, an old tag at its start included, and the new tag is laid over the
// beginning. Where an old tag does not stand at the start, that may cover bytes in front of it.
//
// Growing makes the new file in the folder for temporary files, or beside the program where there
// is none, deletes the MP3 file, and moves the new one to its path, with the old one's owner and
// mode, and with its name where no new file would get the path's. A link becomes a file of its own.
// What a failure leaves:
// - up to the deletion, a failed one included: the old file. Where the deletion failed, the
//   temporary file stays as well, else it is gone.
// - a move that failed: the temporary file, whole, and no file at the path, or that one too if it
//   was whole by then. Where it lies is told as what was being done (platform/Activity.h).
// - behind the move: the new file, its room still empty.
// - while the tag is laid over the file: the bytes that were there, as far as the disk takes them
//   back.
// A file on a stick is on the stick when this returns. A close that fails is not noticed.
//
// Fails with the file service's numbers: 53 where there is no file, 70 where it is open or may not
// be written; with 57 when it cannot be read, with 5 when it is empty; and with 6, the file
// unchanged, where the size that the header is to tell passes 65,535 or the old tag begins beyond
// 2 GiB.
void WriteTag(const std::string& sMP3File, std::string tag);

}  // namespace tavel
