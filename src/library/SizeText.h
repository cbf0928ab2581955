#pragma once

#include <string>

namespace tavel {

// A file's size as every list shows it: megabytes of 1000000 bytes, rounded to 2 decimals with ties
// to even, in the shortest form with the user's decimal mark ("1.5 Mb", "0 Mb").
std::string SizeText(double bytes);

}  // namespace tavel
