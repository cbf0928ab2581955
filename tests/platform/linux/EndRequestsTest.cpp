#include "platform/EndRequests.h"

#include <gtest/gtest.h>
#include <poll.h>

#include <csignal>

namespace tavel::test {

namespace {

bool Heard(const EndRequests& requests) {
    pollfd end{requests.Handle(), POLLIN, 0};
    return ::poll(&end, 1, 0) == 1;
}

void Ignore(int signal) { std::signal(signal, SIG_IGN); }

void EndByDefault(int signal) { std::signal(signal, SIG_DFL); }

}  // namespace

TEST(EndRequests, a_signal_that_asks_for_the_end_is_heard_and_ends_nothing) {
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        const EndRequests requests;
        EXPECT_FALSE(Heard(requests));
        std::raise(signal);
        EXPECT_TRUE(Heard(requests)) << signal;
        EXPECT_TRUE(Heard(requests)) << "it is not taken back";
    }
}

TEST(EndRequests, a_thousand_requests_do_not_stop_the_program) {
    const EndRequests requests;
    for (int i = 0; i < 100'000; ++i) std::raise(SIGTERM);
    EXPECT_TRUE(Heard(requests));
}

TEST(EndRequests, a_signal_that_the_program_was_started_to_ignore_stays_ignored) {
    Ignore(SIGHUP);
    {
        const EndRequests requests;
        std::raise(SIGHUP);
        EXPECT_FALSE(Heard(requests));
        std::raise(SIGTERM);
        EXPECT_TRUE(Heard(requests));
    }
    EndByDefault(SIGHUP);
}

TEST(EndRequestsDeathTest, afterwards_a_signal_ends_the_program_again) {
    const auto end = [] {
        { const EndRequests requests; }
        std::raise(SIGTERM);
    };
    EXPECT_EXIT(end(), testing::KilledBySignal(SIGTERM), "");
}

}  // namespace tavel::test
