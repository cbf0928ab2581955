#include "support/HeardRequests.h"

#include <gtest/gtest.h>

#include <csignal>

namespace tavel::test {

namespace {

void Ignore(int signal) { std::signal(signal, SIG_IGN); }

void EndByDefault(int signal) { std::signal(signal, SIG_DFL); }

}  // namespace

TEST(EndRequests, a_signal_that_asks_for_the_end_is_heard_and_ends_nothing) {
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        HeardRequests heard;
        EXPECT_EQ(heard.Count(), 0);
        std::raise(signal);
        EXPECT_TRUE(heard.AreMoreThan(0)) << signal;
        const int before = heard.Count();
        std::raise(signal);
        EXPECT_TRUE(heard.AreMoreThan(before)) << signal;
    }
}

TEST(EndRequests, a_thousand_requests_do_not_stop_the_program) {
    HeardRequests heard;
    for (int i = 0; i < 100'000; ++i) std::raise(SIGTERM);
    EXPECT_TRUE(heard.AreMoreThan(0));
}

TEST(EndRequests, a_signal_that_the_program_was_started_to_ignore_stays_ignored) {
    Ignore(SIGHUP);
    {
        HeardRequests heard;
        std::raise(SIGHUP);
        std::raise(SIGTERM);
        EXPECT_TRUE(heard.AreMoreThan(0));
        EXPECT_EQ(heard.Count(), 1);
    }
    EndByDefault(SIGHUP);
}

TEST(EndRequestsDeathTest, afterwards_a_signal_ends_the_program_again) {
    const auto end = [] {
        {
            const EndRequests requests([] {});
        }
        std::raise(SIGTERM);
    };
    EXPECT_EXIT(end(), testing::KilledBySignal(SIGTERM), "");
}

}  // namespace tavel::test
