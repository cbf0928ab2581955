#include "support/HeardRequests.h"

#include <gtest/gtest.h>
#include <windows.h>

namespace tavel::test {

namespace {

// Sends the console's event to this process, as pressing the keys does.
void Press(DWORD event) { ASSERT_NE(::GenerateConsoleCtrlEvent(event, 0), 0); }

}  // namespace

TEST(EndRequests, the_keys_of_a_console_are_heard_and_end_nothing) {
    for (const DWORD event : {CTRL_C_EVENT, CTRL_BREAK_EVENT}) {
        HeardRequests heard;
        EXPECT_EQ(heard.Count(), 0);
        ASSERT_NO_FATAL_FAILURE(Press(event));
        EXPECT_TRUE(heard.AreMoreThan(0)) << event;
        ASSERT_NO_FATAL_FAILURE(Press(event));
        EXPECT_TRUE(heard.AreMoreThan(1)) << event;
    }
}

}  // namespace tavel::test
