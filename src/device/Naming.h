#pragma once

#include "platform/Numbers.h"

#include <string>
#include <string_view>

namespace tavel {

// Where things go on the stick. Each is joined to the drive's path, which has no separator at its
// end. The browser's literals are relative to the drive's current folder, which is its root.
inline constexpr std::string_view PhotoFolder = "\\psp\\photo\\";
inline constexpr std::string_view MusicFolder = "\\psp\\music\\";
inline constexpr std::string_view VideoFolder = "\\MP_ROOT\\100MNV01\\";
inline constexpr std::string_view BrowsedPhotoFolder = "psp\\PHOTO\\";
inline constexpr std::string_view BrowsedMusicFolder = "psp\\MUSIC\\";

// The identity file in the root of the stick, where it is looked for and where it is made, and as
// the connected state keeps it. A drive's look-up does not regard case.
inline constexpr std::string_view IdentityFile = "\\TavelDataFile.tavel";
inline constexpr std::string_view ConnectedIdentityFile = "\\taveldatafile.tavel";

// A folder of the connected drive, whose path is asked for anew. Fails with 91 while no device has
// been connected yet; a device that has gone since keeps its path.
std::string PSPPath(std::string_view sFolder);

// The first free numbered name in the video folder for an extension, without a path: "M4V1", four
// digits, ".", extension. oPSPDrive must be set. Past 32767 it fails with 6.
std::string NextVideoName(const std::string& sFormat);

}  // namespace tavel
