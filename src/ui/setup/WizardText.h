#pragma once

#include "platform/Numbers.h"

#include <string>
#include <string_view>

namespace tavel {

// The words of a page out of the wizard's text file, a carriage return in front of each line; empty
// when the file has none for it. A line "//" and a number begins a page's words; one without a
// number belongs to no page, and a number that comes twice has the words of both.
//
// Fails with 62 when a line is read behind the last one: in an empty file, or when the page's own
// header is the last line.
std::string WizardWords(std::string_view sFile, Integer iPage);

}  // namespace tavel
