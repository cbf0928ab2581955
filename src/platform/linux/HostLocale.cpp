#include "platform/HostLocale.h"

#include <langinfo.h>
#include <locale.h>

#include <array>
#include <cstdlib>
#include <optional>
#include <utility>

namespace tavel {

namespace {

// The categories that are used. A locale is made whole or not at all, and one that is not installed
// may well be named for another category.
constexpr int used = LC_TIME_MASK | LC_NUMERIC_MASK;

// A locale of the user's settings; the C locale where they name one that is not installed.
class UserLocale {
  public:
    UserLocale() : m_locale(newlocale(used, "", nullptr)) {
        if (m_locale == nullptr) m_locale = newlocale(used, "C", nullptr);
    }
    ~UserLocale() { freelocale(m_locale); }
    UserLocale(const UserLocale&) = delete;
    UserLocale& operator=(const UserLocale&) = delete;

    locale_t Get() const { return m_locale; }

  private:
    locale_t m_locale;
};

std::string LocaleSettings() {
    std::string settings;
    for (const char* name : {"LC_ALL", "LC_NUMERIC", "LC_TIME", "LANG"}) {
        const char* const value = std::getenv(name);
        settings.append(value != nullptr ? value : "").append("\n");
    }
    return settings;
}

// Kept for as long as the settings stay: every file that is added is a line of the log, and making
// a locale reads the host's files for each of its categories.
locale_t LocaleOfUser() {
    static std::optional<UserLocale> locale;
    static std::string madeFor;
    std::string settings = LocaleSettings();
    if (!locale || settings != madeFor) {
        locale.emplace();
        madeFor = std::move(settings);
    }
    return locale->Get();
}

}  // namespace

std::string HostDecimalMark() { return nl_langinfo_l(RADIXCHAR, LocaleOfUser()); }

std::string HostDateTimeText(std::time_t when) {
    std::tm parts{};
    if (localtime_r(&when, &parts) == nullptr) return {};
    std::array<char, 200> text{};
    const std::size_t length =
        strftime_l(text.data(), text.size(), "%x %X", &parts, LocaleOfUser());
    return {text.data(), length};
}

}  // namespace tavel
