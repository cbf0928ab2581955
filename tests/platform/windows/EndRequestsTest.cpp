#include "platform/windows/WindowsApi.h"
#include "support/HeardRequests.h"

#include <gtest/gtest.h>

#include <cstdint>

namespace tavel::test {

namespace {

// What the host does with its console's events: a thread of the process runs this for each.
HANDLE Press(DWORD event) {
    const auto routine = reinterpret_cast<LPTHREAD_START_ROUTINE>(reinterpret_cast<void*>(
        ::GetProcAddress(::GetModuleHandleW(L"kernelbase.dll"), "CtrlRoutine")));
    return routine == nullptr
               ? nullptr
               : ::CreateThread(nullptr, 0, routine, reinterpret_cast<void*>(std::uintptr_t{event}),
                                0, nullptr);
}

}  // namespace

TEST(EndRequests, the_keys_of_a_console_are_heard_and_end_nothing) {
    for (const DWORD event : {CTRL_C_EVENT, CTRL_BREAK_EVENT}) {
        HeardRequests heard;
        EXPECT_EQ(heard.Count(), 0);
        ASSERT_NE(Press(event), nullptr);
        EXPECT_TRUE(heard.AreMoreThan(0)) << event;
        ASSERT_NE(Press(event), nullptr);
        EXPECT_TRUE(heard.AreMoreThan(1)) << event;
    }
}

// The host ends the process when the thread that tells of such an event has ended.
TEST(EndRequests, a_console_that_is_closed_waits_until_the_program_has_ended_itself) {
    HANDLE thread = nullptr;
    {
        HeardRequests heard;
        thread = Press(CTRL_CLOSE_EVENT);
        ASSERT_NE(thread, nullptr);
        EXPECT_TRUE(heard.AreMoreThan(0));
        EXPECT_EQ(::WaitForSingleObject(thread, 100), DWORD{WAIT_TIMEOUT});
    }
    EXPECT_EQ(::WaitForSingleObject(thread, 10'000), DWORD{WAIT_OBJECT_0});
    ::CloseHandle(thread);
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
