#pragma once

#include "platform/linux/Places.h"

namespace tavel {

// What makes changes last through a power cut or a pulled stick. False when the host reports a
// failure; errno says why.

// What has happened to the entries of a place's folder: a file's data are of no use without one.
bool FlushFolderOf(const Place& place);

// The same where no file's own flush writes the entry: one that is gone, or a new folder's. On FAT
// the first entries of a folder that was made since the mount reach the medium with the folder that
// it lies in.
bool FlushEntriesOf(const Place& place);

// The file at a place to which it has been renamed. On FAT the new entry is at first one without
// data, and the file's own flush is what makes it tell where they lie.
bool FlushRenamed(const Place& place);

}  // namespace tavel
