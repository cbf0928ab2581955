#pragma once

#include "media/FileBytes.h"
#include "platform/Numbers.h"

#include <string>
#include <vector>

namespace tavel {

// The reader of tags: a plain byte walker. It takes every size as a plain number, looks at no
// flags, and trusts nothing: a size that reaches too far, or a negative one, ends the walk with
// what was read until then.

struct TagFrame {
    std::string Id;    // four characters; empty for an id of version 2 that has no newer form
    std::string Text;  // the frame's body without its NUL bytes
};

// The position, from 1, of the byte behind the first "ID3" of the file, or 0. The search starts at
// the beginning and ends with the first chunk of 4096 bytes that holds the sync of an MPEG audio
// frame (FF FB); the last byte of the file is never looked at. Fails with 5 on an empty file.
std::int64_t FindTag(FileBytes& file);

struct TagContents {
    unsigned char Version = 0;  // as the tag tells it; only 2, 3 and 4 have frames
    std::vector<TagFrame> Frames;
};

// Reads the tag whose version byte is next.
TagContents ReadFrames(FileBytes& file);

}  // namespace tavel
