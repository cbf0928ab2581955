#pragma once

#include <string>

namespace tavel {

// Makes a THM of a picture and returns the path that it gets: the first free number in the
// thumbnail folder of the library. A picture that cannot be read or made a JPEG of, a folder or
// disk that takes no file, and a path that is too long leave no file behind; the path is returned
// all the same, and the next call gives it again. Fails with 6 when all 32,767 numbers are taken,
// with std::bad_alloc when there is no memory for a picture (up to 900 MB), otherwise never.
//
// The picture is told by its content, whatever the name says. Metadata does not get into the THM.
std::string ConvertToTHM(const std::string& sPath);

// The name of the first number from 1 on that no file in the thumbnail folder has: "2.THM".
std::string GetNextFreeThumbName();

}  // namespace tavel
