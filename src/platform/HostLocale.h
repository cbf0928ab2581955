#pragma once

#include <ctime>
#include <string>

namespace tavel {

// The user's habits as the host knows them, read from the user's settings without changing the
// locale of the process: numbers in files must not depend on who runs the program.

// Empty when the host tells none.
std::string HostDecimalMark();

// Short date, a blank, long time, in local time.
std::string HostDateTimeText(std::time_t when);

}  // namespace tavel
