#pragma once

#include "media/FrameList.h"
#include "platform/Numbers.h"

#include <cstddef>
#include <string>

namespace tavel {

// A tag as it is written: version 3, no flags, every size a plain number. It is a private dialect
// that ReadFrames understands.
//
//   "ID3", 3, 0, 0, the size of the whole     10 bytes
//   id, body length, two zero bytes           10 bytes, then the body: a zero byte and the text
//   ...
//   zero bytes                                4, which end the walk of a reader

inline constexpr std::size_t TagSizeAt = 6;  // where the size stands in it

// Stores a number in four bytes, the most significant first. Fails with 6 when it does not fit into
// two, since no tag or frame of 64 KiB or more is written.
void PutSize(std::string& buffer, std::size_t index, Long value);

// The tag that holds all frames, but for those whose id has "ID3" in it. Of longer ids the first
// four characters are written. Fails with 5 at an id of fewer, and where a frame lacks its count or
// a text; with 6 where a body or the whole has 65,536 bytes or more.
std::string TagBuffer(const FrameList& frames);

// The size that a tag of so many bytes is given when it has to grow: the next multiple of 2048,
// which leaves at least one byte of room.
Long SizeWithRoom(Long size);

}  // namespace tavel
