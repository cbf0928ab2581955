#include "platform/HostLocale.h"

#include "platform/windows/Handle.h"
#include "platform/windows/Wide.h"

#include <array>
#include <optional>

namespace tavel {

namespace {

// Longer than any that the host has: the formats may be the user's own.
using LocaleText = std::array<wchar_t, 256>;

// The number of characters counts the NUL behind them; 0 is a failure.
std::string TextOf(const LocaleText& text, int count) {
    return count > 0 ? FromWide({text.data(), static_cast<std::size_t>(count) - 1}) : std::string();
}

std::string DateText(const SYSTEMTIME& local) {
    LocaleText text{};
    return TextOf(text, ::GetDateFormatEx(LOCALE_NAME_USER_DEFAULT, DATE_SHORTDATE, &local, nullptr,
                                          text.data(), text.size(), nullptr));
}

std::string TimeText(const SYSTEMTIME& local) {
    LocaleText text{};
    return TextOf(text, ::GetTimeFormatEx(LOCALE_NAME_USER_DEFAULT, 0, &local, nullptr, text.data(),
                                          text.size()));
}

}  // namespace

std::string HostDecimalMark() {
    LocaleText text{};
    return TextOf(text, ::GetLocaleInfoEx(LOCALE_NAME_USER_DEFAULT, LOCALE_SDECIMAL, text.data(),
                                          text.size()));
}

// Summer time counts by the date that is told, and by the rules that its year had.
std::string HostDateTimeText(std::time_t when) {
    const std::optional<FILETIME> time = HostTime(when);
    SYSTEMTIME utc{};
    SYSTEMTIME local{};
    TIME_ZONE_INFORMATION rules{};
    if (!time || ::FileTimeToSystemTime(&*time, &utc) == 0 ||
        ::GetTimeZoneInformationForYear(utc.wYear, nullptr, &rules) == 0 ||
        ::SystemTimeToTzSpecificLocalTime(&rules, &utc, &local) == 0)
        return {};
    return DateText(local) + ' ' + TimeText(local);
}

}  // namespace tavel
