#include "platform/windows/Handle.h"
#include "platform/windows/HostErrors.h"

#include <gtest/gtest.h>

#include <string>

// Wine shows a file of Linux that is always full.

namespace tavel::test {

TEST(FullMedium, Nothing_more_is_written_and_the_reason_told) {
    const Handle file(CreateFileW(L"\\\\?\\Z:\\dev\\full", GENERIC_WRITE, 0, nullptr, OPEN_EXISTING,
                                  FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file.IsOpen()) GTEST_SKIP() << "needs Wine";
    std::size_t written = 1;
    EXPECT_FALSE(file.Write(std::string(2'500'000, 'x'), written));
    EXPECT_EQ(FailureOfHostError(GetLastError()), 61);
    EXPECT_EQ(written, 0u);
}

}  // namespace tavel::test
