#include "platform/HostLocale.h"

#include <langinfo.h>
#include <locale.h>

#include <array>

namespace tavel {

namespace {

// A locale of the user's settings; the C locale where they name one that is not installed.
class UserLocale {
  public:
    UserLocale() : m_locale(newlocale(LC_ALL_MASK, "", nullptr)) {
        if (m_locale == nullptr) m_locale = newlocale(LC_ALL_MASK, "C", nullptr);
    }
    ~UserLocale() { freelocale(m_locale); }
    UserLocale(const UserLocale&) = delete;
    UserLocale& operator=(const UserLocale&) = delete;

    locale_t Get() const { return m_locale; }

  private:
    locale_t m_locale;
};

}  // namespace

std::string HostDecimalMark() {
    const UserLocale locale;
    return nl_langinfo_l(RADIXCHAR, locale.Get());
}

std::string HostDateTimeText(std::time_t when) {
    std::tm parts{};
    if (localtime_r(&when, &parts) == nullptr) return {};
    const UserLocale locale;
    std::array<char, 200> text{};
    const std::size_t length = strftime_l(text.data(), text.size(), "%x %X", &parts, locale.Get());
    return {text.data(), length};
}

}  // namespace tavel
