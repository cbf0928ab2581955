#include "platform/EndRequests.h"

#include "platform/linux/Descriptor.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <csignal>

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

class EndRequests::Pipe {
  public:
    Pipe() {
        std::array<int, 2> ends{-1, -1};
        // Without a pipe the signals keep their usual meaning.
        if (::pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0) return;
        m_reader = Descriptor(ends[0]);
        m_writer = Descriptor(ends[1]);
        s_writer = m_writer.Get();
        for (std::size_t i = 0; i < signals.size(); ++i) Hear(signals[i], m_former[i]);
    }
    ~Pipe() {
        if (!m_writer.IsOpen()) return;
        for (std::size_t i = 0; i < signals.size(); ++i)
            ::sigaction(signals[i], &m_former[i], nullptr);
    }
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;

    int Reader() const { return m_reader.Get(); }

  private:
    static void Hear(int signal, struct sigaction& former) {
        ::sigaction(signal, nullptr, &former);
        if (former.sa_handler == SIG_IGN) return;
        struct sigaction hear = {};
        hear.sa_handler = HearSignal;
        hear.sa_flags = SA_RESTART;
        ::sigaction(signal, &hear, nullptr);
    }

    Descriptor m_reader;
    Descriptor m_writer;
    std::array<struct sigaction, signals.size()> m_former{};
};

EndRequests::EndRequests() : m_pipe(std::make_unique<Pipe>()) {}

EndRequests::~EndRequests() = default;

int EndRequests::Handle() const { return m_pipe->Reader(); }

}  // namespace tavel
