#include "platform/windows/Patience.h"

#include <gtest/gtest.h>

namespace tavel::test {

namespace {

// Fails as often as it is told to, then not any more.
class Failing {
  public:
    Failing(int failures, DWORD error) : m_left(failures), m_error(error) {}

    bool operator()() {
        ++calls;
        SetLastError(m_error);
        return m_left-- <= 0;
    }

    int calls = 0;

  private:
    int m_left;
    DWORD m_error;
};

}  // namespace

TEST(Patience, What_others_hold_for_a_moment_is_tried_again) {
    for (const DWORD error : {ERROR_SHARING_VIOLATION, ERROR_ACCESS_DENIED, ERROR_DELETE_PENDING}) {
        Failing call(3, error);
        EXPECT_TRUE(Patiently([&] { return call(); }));
        EXPECT_EQ(call.calls, 4);
    }
}

TEST(Patience, What_fails_for_another_reason_fails_at_once) {
    Failing call(3, ERROR_DISK_FULL);
    EXPECT_FALSE(Patiently([&] { return call(); }));
    EXPECT_EQ(call.calls, 1);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_DISK_FULL});
}

TEST(Patience, It_ends) {
    Failing call(1000, ERROR_SHARING_VIOLATION);
    EXPECT_FALSE(Patiently([&] { return call(); }));
    EXPECT_EQ(call.calls, 10);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_SHARING_VIOLATION});
}

}  // namespace tavel::test
