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
// mode, and with its name where no new file would get the path's or another has it. A link becomes
// a file of its own, and a file with several names is parted from the others. What a failure
// leaves:
// - up to the deletion: the old file, and no temporary one, unless that cannot be deleted either.
// - a deletion that failed: the temporary file, whole, beside the old file; or alone, where the old
//   one had gone and only that could not be brought to the medium.
// - a move that failed: the temporary file, whole, and none of it at the path, or all of it there,
//   too; or the new file at the path alone, where it had been moved and only that could not be
//   brought to the medium.
// - behind the move: the new file, its room still empty.
// - while the tag is laid over the file: the bytes that were there, as far as the disk takes them
//   back. Of a tag that reaches beyond the file's end, as an old one may tell that it does, the end
//   stays behind them.
// Where a temporary file may be left, its place is told as what was being done
// (platform/Activity.h). A file on a stick is on the stick when this returns, unless its last close
// fails: that is not noticed.
//
// Fails with the file service's numbers: 53 where there is no file, 70 where it is open or may not
// be written; with the file's own number, or 57, when it cannot be read or ends before its size;
// with 5 when it is empty; and with 6, the file unchanged, where the size that the header is to
// tell passes 65,535, the old tag begins beyond 2 GiB, or its negative size asks for more than 2
// GiB of room.
void WriteTag(const std::string& sMP3File, std::string tag);

}  // namespace tavel
