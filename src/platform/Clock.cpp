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
        const std::time_t seconds = system_clock::to_time_t(now);
        const std::tm* local = std::localtime(&seconds);
        const std::chrono::duration<double> fraction = now - system_clock::from_time_t(seconds);
        return local->tm_hour * 3600 + local->tm_min * 60 + local->tm_sec + fraction.count();
    }
};

Clock* current = nullptr;

}  // namespace

Clock& Service<Clock>::Get() {
    static SystemClock host;
    return current != nullptr ? *current : host;
}

void Service<Clock>::Use(Clock* clock) { current = clock; }

}  // namespace tavel
