#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

namespace tavel::test {

// Takes a superuser's rights away while it lives: root may read and write everything.
class PlainUser {
  public:
    PlainUser() { EXPECT_EQ(seteuid(m_user == 0 ? nobody : m_user), 0); }
    ~PlainUser() { EXPECT_EQ(seteuid(m_user), 0); }
    PlainUser(const PlainUser&) = delete;
    PlainUser& operator=(const PlainUser&) = delete;

  private:
    static constexpr uid_t nobody = 65534;
    uid_t m_user = geteuid();
};

}  // namespace tavel::test
