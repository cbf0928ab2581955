#include "platform/EndRequests.h"

#include "platform/windows/WindowsApi.h"

#include <condition_variable>
#include <mutex>
#include <utility>

namespace tavel {

namespace {

// The host calls the handler on a thread that it makes for each event.
std::mutex s_mutex;
std::condition_variable s_changed;
const std::function<void()>* s_heard = nullptr;

// Behind these the host ends the process as soon as the handler returns, or after some seconds.
bool IsEndOfAll(DWORD event) {
    return event == CTRL_CLOSE_EVENT || event == CTRL_LOGOFF_EVENT || event == CTRL_SHUTDOWN_EVENT;
}

BOOL WINAPI HearEvent(DWORD event) {
    std::unique_lock lock(s_mutex);
    if (s_heard == nullptr) return FALSE;
    (*s_heard)();
    if (IsEndOfAll(event)) s_changed.wait(lock, [] { return s_heard == nullptr; });
    return TRUE;
}

}  // namespace

// A Ctrl+C that the process was started to ignore does not get to its handlers.
class EndRequests::Listener {
  public:
    explicit Listener(std::function<void()> heard) : m_heard(std::move(heard)) {
        Use(&m_heard);
        // Where that fails the events keep their usual meaning.
        ::SetConsoleCtrlHandler(HearEvent, TRUE);
    }
    // A handler that waits has to go on first: the host takes none away while one runs.
    ~Listener() {
        Use(nullptr);
        ::SetConsoleCtrlHandler(HearEvent, FALSE);
    }
    Listener(const Listener&) = delete;
    Listener& operator=(const Listener&) = delete;

  private:
    static void Use(const std::function<void()>* heard) {
        const std::lock_guard lock(s_mutex);
        s_heard = heard;
        s_changed.notify_all();
    }

    std::function<void()> m_heard;
};

EndRequests::EndRequests(std::function<void()> heard)
    : m_listener(std::make_unique<Listener>(std::move(heard))) {}

EndRequests::~EndRequests() = default;

}  // namespace tavel
