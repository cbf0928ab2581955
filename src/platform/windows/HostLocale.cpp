#include "platform/HostLocale.h"

#include "platform/windows/Wide.h"
#include "platform/windows/WindowsApi.h"

#include <array>
#include <cstdint>

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

// Seconds from 1970 on in the host's ticks of 100 ns from 1601 on.
FILETIME FileTimeOf(std::time_t when) {
    constexpr std::int64_t ticks = 10'000'000;
    constexpr std::int64_t secondsTo1970 = 11'644'473'600;
    const auto all = static_cast<std::uint64_t>((when + secondsTo1970) * ticks);
    return {static_cast<DWORD>(all), static_cast<DWORD>(all >> 32)};
}

}  // namespace

std::string HostDecimalMark() {
    LocaleText text{};
    return TextOf(text, ::GetLocaleInfoEx(LOCALE_NAME_USER_DEFAULT, LOCALE_SDECIMAL, text.data(),
                                          text.size()));
}

// Summer time counts by the date that is told, and not by the present one.
std::string HostDateTimeText(std::time_t when) {
    const FILETIME time = FileTimeOf(when);
    SYSTEMTIME utc{};
    SYSTEMTIME local{};
    if (::FileTimeToSystemTime(&time, &utc) == 0 ||
        ::SystemTimeToTzSpecificLocalTime(nullptr, &utc, &local) == 0)
        return {};
    return DateText(local) + ' ' + TimeText(local);
}

}  // namespace tavel
