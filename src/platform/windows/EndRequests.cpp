#include "platform/EndRequests.h"

#include "platform/windows/WindowsApi.h"

#include <mutex>
#include <utility>

namespace tavel {

namespace {

// The host calls the handler on a thread that it makes for each event.
std::mutex s_mutex;
const std::function<void()>* s_heard = nullptr;

bool Tell() {
    const std::lock_guard lock(s_mutex);
    if (s_heard == nullptr) return false;
    (*s_heard)();
    return true;
}

// Behind these the host ends the process as soon as the handler returns, or after some seconds.
bool IsEndOfAll(DWORD event) {
    return event == CTRL_CLOSE_EVENT || event == CTRL_LOGOFF_EVENT || event == CTRL_SHUTDOWN_EVENT;
}

BOOL WINAPI HearEvent(DWORD event) {
    if (!Tell()) return FALSE;
    if (IsEndOfAll(event)) ::Sleep(INFINITE);
    return TRUE;
}

}  // namespace

// A Ctrl+C that is ignored for this process does not get to its handlers.
class EndRequests::Listener {
  public:
    explicit Listener(std::function<void()> heard) : m_heard(std::move(heard)) {
        Use(&m_heard);
        // Where that fails the events keep their usual meaning.
        ::SetConsoleCtrlHandler(HearEvent, TRUE);
    }
    ~Listener() {
        ::SetConsoleCtrlHandler(HearEvent, FALSE);
        Use(nullptr);
    }
    Listener(const Listener&) = delete;
    Listener& operator=(const Listener&) = delete;

  private:
    // Waits for a handler that is telling of a request.
    static void Use(const std::function<void()>* heard) {
        const std::lock_guard lock(s_mutex);
        s_heard = heard;
    }

    std::function<void()> m_heard;
};

EndRequests::EndRequests(std::function<void()> heard)
    : m_listener(std::make_unique<Listener>(std::move(heard))) {}

EndRequests::~EndRequests() = default;

}  // namespace tavel
