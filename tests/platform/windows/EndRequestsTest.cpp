#include "platform/windows/WindowsApi.h"
#include "support/HeardRequests.h"

#include <gtest/gtest.h>

#include <cstdint>

namespace tavel::test {

namespace {

// What the host does with its console's events: a thread of the process runs this for each.
void Press(DWORD event) {
    const auto routine = reinterpret_cast<LPTHREAD_START_ROUTINE>(reinterpret_cast<void*>(
        ::GetProcAddress(::GetModuleHandleW(L"kernelbase.dll"), "CtrlRoutine")));
    ASSERT_NE(routine, nullptr);
    const HANDLE thread = ::CreateThread(
        nullptr, 0, routine, reinterpret_cast<void*>(std::uintptr_t{event}), 0, nullptr);
    ASSERT_NE(thread, nullptr);
    ::CloseHandle(thread);
}

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

TEST(EndRequests, a_console_that_is_closed_waits_for_the_program_to_end_itself) {
    HeardRequests heard;
    ASSERT_NO_FATAL_FAILURE(Press(CTRL_CLOSE_EVENT));
    EXPECT_TRUE(heard.AreMoreThan(0)) << "and the host has not ended the process";
}

TEST(EndRequestsDeathTest, afterwards_the_keys_end_the_program_again) {
    const auto end = [] {
        {
            const EndRequests requests([] {});
        }
        Press(CTRL_BREAK_EVENT);
        ::Sleep(INFINITE);
    };
    EXPECT_EXIT(
        end(), [](int) { return true; }, "");
}

}  // namespace tavel::test
