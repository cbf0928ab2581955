#include "platform/Clock.h"
#include "platform/HostLocale.h"
#include "support/HostVariable.h"
#include "support/Support.h"

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

class FixedClock : public Clock {
  public:
    std::string NowText() override { return "then"; }
    double Timer() override { return 12.5; }
};

TEST(Clock, The_date_is_short_and_the_time_long) {
    const TimeZone zone("UTC");
    const HostVariable locale("LC_ALL", "C");
    EXPECT_EQ(HostDateTimeText(1234567890), "02/13/09 23:31:30");
}

TEST(Clock, The_time_is_the_local_one) {
    const TimeZone zone("XXX-5");
    const HostVariable locale("LC_ALL", "C");
    EXPECT_EQ(HostDateTimeText(0), "01/01/70 05:00:00");
}

TEST(Clock, Date_time_and_decimal_mark_are_those_of_the_users_locale) {
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

TEST(Clock, A_locale_that_is_not_installed_falls_back) {
    const TimeZone zone("UTC");
    const HostVariable locale("LC_ALL", "xx_XX.nothing");
    EXPECT_EQ(HostDateTimeText(1234567890), "02/13/09 23:31:30");
    EXPECT_EQ(HostDecimalMark(), ".");
}

double SecondOfDay(time_t when) {
    const tm* local = localtime(&when);
    return local->tm_hour * 3600 + local->tm_min * 60 + local->tm_sec;
}

TEST(Clock, The_timer_counts_the_seconds_of_the_local_day_with_fractions) {
    double fractions = 0;
    for (int round = 0; round < 1000; ++round) {
        const time_t before = time(nullptr);
        const double seconds = Service<Clock>::Get().Timer();
        const time_t after = time(nullptr) + 1;                  // time() may lag a tick behind
        if (SecondOfDay(after) < SecondOfDay(before)) continue;  // midnight
        ASSERT_GE(seconds, SecondOfDay(before));
        ASSERT_LT(seconds, SecondOfDay(after) + 1);
        fractions += seconds - static_cast<int>(seconds);
    }
    EXPECT_GT(fractions, 0);
}

TEST(Clock, The_timer_goes_on_into_the_next_second) {
    Clock& clock = Service<Clock>::Get();
    clock.Timer();
    double seconds = 0;
    time_t before = 0;
    do {
        const time_t start = time(nullptr);
        clock.Timer();
        while (time(nullptr) == start) continue;
        before = time(nullptr);
        seconds = clock.Timer();
    } while (SecondOfDay(before + 2) < SecondOfDay(before));  // midnight
    EXPECT_GE(seconds, SecondOfDay(before));
    EXPECT_LT(seconds, SecondOfDay(before) + 2);
}

TEST(Clock, The_host_tells_the_present_date_and_time) {
    const time_t before = time(nullptr);
    const std::string now = Service<Clock>::Get().NowText();
    bool isPresent = false;
    for (time_t moment = before; moment <= time(nullptr); ++moment)
        isPresent = isPresent || now == HostDateTimeText(moment);
    EXPECT_TRUE(isPresent) << now;
}

TEST(Clock, Another_clock_can_stand_in_and_leave_again) {
    FixedClock fixed;
    Service<Clock>::Use(&fixed);
    EXPECT_EQ(Service<Clock>::Get().NowText(), "then");
    EXPECT_EQ(Service<Clock>::Get().Timer(), 12.5);
    Service<Clock>::Use(nullptr);
    EXPECT_NE(Service<Clock>::Get().NowText(), "then");
}

}  // namespace
}  // namespace tavel::test
