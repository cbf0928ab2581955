#include "platform/HostLocale.h"
#include "support/Support.h"
#include "support/linux/HostVariable.h"

#include <gtest/gtest.h>
#include <stdlib.h>
#include <time.h>

#include <cstdlib>
#include <optional>
#include <string>

// glibc never frees the list of folders that it makes of LOCPATH.
extern "C" const char* __lsan_default_suppressions();
extern "C" const char* __lsan_default_suppressions() { return "leak:argz_add_sep\n"; }

namespace tavel::test {
namespace {

class TimeZone {
  public:
    explicit TimeZone(const char* name) {
        m_environment.emplace("TZ", name);
        tzset();
    }
    ~TimeZone() {
        m_environment.reset();
        tzset();
    }
    TimeZone(const TimeZone&) = delete;
    TimeZone& operator=(const TimeZone&) = delete;

  private:
    std::optional<HostVariable> m_environment;
};

TEST(HostLocale, The_date_is_short_and_the_time_long) {
    const TimeZone zone("UTC");
    const HostVariable locale("LC_ALL", "C");
    EXPECT_EQ(HostDateTimeText(1234567890), "02/13/09 23:31:30");
}

TEST(HostLocale, The_time_is_the_local_one) {
    const TimeZone zone("XXX-5");
    const HostVariable locale("LC_ALL", "C");
    EXPECT_EQ(HostDateTimeText(0), "01/01/70 05:00:00");
}

TEST(HostLocale, Date_time_and_decimal_mark_are_those_of_the_users_locale) {
    const TempFolder folder;
    const std::string make = "localedef -i de_DE -f UTF-8 " + folder.HostPath("de_DE.UTF-8");
    if (std::system(make.c_str()) != 0) GTEST_SKIP() << "no source of a German locale here";
    const TimeZone zone("UTC");
    const HostVariable place("LOCPATH", folder.HostPath().c_str());
    const auto expectGerman = [] {
        EXPECT_EQ(HostDateTimeText(1234567890), "13.02.2009 23:31:30");
        EXPECT_EQ(HostDecimalMark(), ",");
    };
    {
        const HostVariable locale("LC_ALL", "de_DE.UTF-8");
        expectGerman();
    }
    // Neither of the last two is installed, and neither is asked for dates or numbers.
    const HostVariable all("LC_ALL", "");
    const HostVariable dates("LC_TIME", "");
    const HostVariable numbers("LC_NUMERIC", "");
    const HostVariable most("LANG", "de_DE.UTF-8");
    const HostVariable words("LC_MESSAGES", "xx_XX");
    const HostVariable letters("LC_CTYPE", "UTF-8");
    expectGerman();
}

TEST(HostLocale, A_locale_that_is_not_installed_falls_back) {
    const TimeZone zone("UTC");
    const HostVariable locale("LC_ALL", "xx_XX.nothing");
    EXPECT_EQ(HostDateTimeText(1234567890), "02/13/09 23:31:30");
    EXPECT_EQ(HostDecimalMark(), ".");
}

}  // namespace
}  // namespace tavel::test
