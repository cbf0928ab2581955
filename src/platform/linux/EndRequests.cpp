#include "platform/EndRequests.h"

#include "platform/linux/Descriptor.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <thread>
#include <utility>

namespace tavel {

namespace {

constexpr std::array signals{SIGTERM, SIGINT, SIGHUP};

// A signal's handler may do little more than write to a descriptor.
volatile std::sig_atomic_t s_writer = -1;

void HearSignal(int) {
    const int error = errno;
    const char request = 0;
    // A pipe that is full says what there is to say.
    (void)!::write(s_writer, &request, sizeof request);
    errno = error;
}

}  // namespace

// A pipe from the signals' handler to the thread that tells of them.
class EndRequests::Listener {
  public:
    explicit Listener(std::function<void()> heard) {
        std::array<int, 2> ends{-1, -1};
        // Without a pipe the signals keep their usual meaning.
        if (::pipe2(ends.data(), O_CLOEXEC) != 0) return;
        m_reader = Descriptor(ends[0]);
        m_writer = Descriptor(ends[1]);
        ::fcntl(m_writer.Get(), F_SETFL, O_NONBLOCK);
        s_writer = m_writer.Get();
        m_thread = std::thread([this, heard = std::move(heard)] { Listen(heard); });
        for (std::size_t i = 0; i < signals.size(); ++i) Hear(signals[i], m_former[i]);
    }
    ~Listener() {
        if (!m_writer.IsOpen()) return;
        for (std::size_t i = 0; i < signals.size(); ++i)
            ::sigaction(signals[i], &m_former[i], nullptr);
        s_writer = -1;
        m_writer.Close();  // the end of the pipe, and of the thread
        m_thread.join();
    }
    Listener(const Listener&) = delete;
    Listener& operator=(const Listener&) = delete;

  private:
    static void Hear(int signal, struct sigaction& former) {
        ::sigaction(signal, nullptr, &former);
        if (former.sa_handler == SIG_IGN) return;
        struct sigaction hear = {};
        hear.sa_handler = HearSignal;
        hear.sa_flags = SA_RESTART;
        ::sigaction(signal, &hear, nullptr);
    }

    void Listen(const std::function<void()>& heard) const {
        std::array<char, 64> requests{};
        for (;;) {
            const ssize_t count = ::read(m_reader.Get(), requests.data(), requests.size());
            if (count == 0) return;
            if (count > 0) heard();
            if (count < 0 && errno != EINTR) return;
        }
    }

    Descriptor m_reader;
    Descriptor m_writer;
    std::thread m_thread;
    std::array<struct sigaction, signals.size()> m_former{};
};

EndRequests::EndRequests(std::function<void()> heard)
    : m_listener(std::make_unique<Listener>(std::move(heard))) {}

EndRequests::~EndRequests() = default;

}  // namespace tavel
