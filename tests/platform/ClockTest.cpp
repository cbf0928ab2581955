#include "platform/Clock.h"
#include "platform/HostLocale.h"

#include <gtest/gtest.h>

#include <ctime>
#include <string>

namespace tavel::test {
namespace {

class FixedClock : public Clock {
  public:
    std::string NowText() override { return "then"; }
    double Timer() override { return 12.5; }
};

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
