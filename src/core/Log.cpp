#include "core/Log.h"

#include "core/LogWindow.h"
#include "platform/Clock.h"
#include "platform/Service.h"
#include "platform/Text.h"

#include <algorithm>
#include <string>

namespace tavel {

namespace {

// Categories are the program's own words, in ASCII.
std::string UpperCase(std::string_view category) {
    std::string upper(category);
    std::transform(upper.begin(), upper.end(), upper.begin(), AsciiUpper);
    return upper;
}

}  // namespace

void AddLog(std::string_view sCategory, std::string_view sMessage) {
    Service<LogWindow>::Get().AddItem(Service<Clock>::Get().NowText() + "\t" +
                                      UpperCase(sCategory) + "\t" + std::string(sMessage));
}

}  // namespace tavel
