#pragma once

#include "media/FileBytes.h"
#include "platform/Numbers.h"

#include <functional>
#include <string>
#include <string_view>

namespace tavel {

// The reader of tags: a plain byte walker. It takes every size as a plain number, looks at no
// flags, and trusts nothing: a size that reaches too far, or a negative one, ends the walk with
// what was read until then.

struct TagFrame {
    std::string Id;    // four characters; empty for an id of version 2 that has no newer form
    std::string Text;  // the frame's body without its NUL bytes
};

// A size as it stands in a tag: a plain number, the most significant byte first. Four bytes give a
// signed number.
Long SwapEndian(std::string_view bytes);

// The position, from 1, of the byte behind the first "ID3" of the file, or 0. The search starts at
// the beginning and ends with the first chunk of 4096 bytes that holds the sync of an MPEG audio
// frame (FF FB); the last byte of the file is never looked at. Fails with 5 on an empty file.
std::int64_t FindTag(FileBytes& file);

using FrameSink = std::function<void(TagFrame)>;

// Reads the tag whose version byte is next: sets the version as the tag tells it, and hands over
// the frames of a version 2, 3 or 4 one by one, so that whoever takes them keeps those that came
// before a read failure.
void ReadFrames(FileBytes& file, unsigned char& version, const FrameSink& sink);

}  // namespace tavel
