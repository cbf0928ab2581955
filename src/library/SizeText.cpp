#include "library/SizeText.h"

#include "platform/Numbers.h"

namespace tavel {

std::string SizeText(double bytes) { return TextOfDouble(Round(bytes / 1000000, 2)) + " Mb"; }

}  // namespace tavel
