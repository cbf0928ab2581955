#pragma once

#include "platform/EndRequests.h"

#include <chrono>
#include <condition_variable>
#include <mutex>

namespace tavel::test {

// Counts the requests to end that are heard.
class HeardRequests {
  public:
    // True as soon as there are more than `count`; false when none comes.
    bool AreMoreThan(int count) {
        std::unique_lock lock(m_mutex);
        return m_changed.wait_for(lock, std::chrono::seconds(10), [&] { return m_count > count; });
    }
    int Count() {
        const std::lock_guard lock(m_mutex);
        return m_count;
    }

  private:
    void Hear() {
        const std::lock_guard lock(m_mutex);
        ++m_count;
        m_changed.notify_all();
    }

    std::mutex m_mutex;
    std::condition_variable m_changed;
    int m_count = 0;
    EndRequests m_requests{[this] { Hear(); }};
};

}  // namespace tavel::test
