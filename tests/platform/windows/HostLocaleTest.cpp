#include "platform/HostLocale.h"
#include "platform/windows/Wide.h"
#include "platform/windows/WindowsApi.h"

#include <gtest/gtest.h>

#include <array>

namespace tavel::test {

namespace {

constexpr std::time_t afternoon = 1'234'567'890;  // 13 February 2009, 23:31:30 UTC

// A setting of the user's region for the life of a test.
class UserSetting {
  public:
    UserSetting(LCTYPE setting, const wchar_t* value) : m_setting(setting) {
        ::GetLocaleInfoW(LOCALE_USER_DEFAULT, setting, m_former.data(),
                         static_cast<int>(m_former.size()));
        EXPECT_NE(::SetLocaleInfoW(LOCALE_USER_DEFAULT, setting, value), 0);
    }
    ~UserSetting() { ::SetLocaleInfoW(LOCALE_USER_DEFAULT, m_setting, m_former.data()); }
    UserSetting(const UserSetting&) = delete;
    UserSetting& operator=(const UserSetting&) = delete;

  private:
    LCTYPE m_setting;
    std::array<wchar_t, 100> m_former{};
};

// The local hour by the host's own rules.
std::wstring LocalHour() {
    const std::tm* local = std::localtime(&afternoon);
    return std::to_wstring(local->tm_hour);
}

}  // namespace

TEST(HostLocale, Date_and_time_have_the_users_own_formats) {
    const UserSetting date(LOCALE_SSHORTDATE, L"dd'.'MM'.'yyyy");
    const UserSetting time(LOCALE_STIMEFORMAT, L"H'-'mm'-'ss");
    const std::string text = HostDateTimeText(afternoon);
    const std::tm* local = std::localtime(&afternoon);
    std::array<char, 100> expected{};
    std::strftime(expected.data(), expected.size(), "%d.%m.%Y ", local);
    EXPECT_EQ(text, expected.data() + FromWide(LocalHour()) + "-31-30");
}

TEST(HostLocale, Letters_of_a_format_are_engine_text) {
    const UserSetting date(LOCALE_SSHORTDATE, L"'\u00e4' d");
    EXPECT_EQ(HostDateTimeText(afternoon).rfind("\u00e4 1", 0), 0u);
}

TEST(HostLocale, The_decimal_mark_is_the_users_own) {
    for (const wchar_t* mark : {L",", L".", L"\u066b"}) {
        const UserSetting setting(LOCALE_SDECIMAL, mark);
        EXPECT_EQ(HostDecimalMark(), FromWide(mark));
    }
}

TEST(HostLocale, A_moment_before_the_hosts_calendar_has_no_text) {
    EXPECT_EQ(HostDateTimeText(-20'000'000'000), "");
}

}  // namespace tavel::test
