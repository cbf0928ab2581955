#include "platform/Clock.h"

#include "platform/HostLocale.h"

#include <chrono>
#include <ctime>

namespace tavel {

namespace {

class SystemClock : public Clock {
  public:
    std::string NowText() override { return HostDateTimeText(std::time(nullptr)); }

    double Timer() override {
        using std::chrono::system_clock;
        const auto now = system_clock::now();
        const std::time_t second = system_clock::to_time_t(now);
        if (second != m_second) {
            m_second = second;
            m_secondOfDay = LocalSecondOfDay(second);
        }
        const std::chrono::duration<double> fraction = now - system_clock::from_time_t(second);
        return m_secondOfDay + fraction.count();
    }

  private:
    static int LocalSecondOfDay(std::time_t when) {
        const std::tm* local = std::localtime(&when);
        return local->tm_hour * 3600 + local->tm_min * 60 + local->tm_sec;
    }

    // Each letter of an id asks for the timer, and the host looks at its time zone's file whenever
    // it tells the local time: within one second it is the same.
    std::time_t m_second = -1;
    int m_secondOfDay = 0;
};

}  // namespace

template <>
Clock* OwnService<Clock>() {
    static SystemClock host;
    return &host;
}

}  // namespace tavel
