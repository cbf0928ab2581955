#include "library/SizeText.h"
#include "support/UsersMark.h"

#include <gtest/gtest.h>

namespace tavel::test {

TEST(SizeTextTest, Shows_megabytes_at_two_decimals_in_the_shortest_form) {
    const std::pair<double, const char*> cases[] = {
        {0, "0 Mb"},
        {4'999, "0 Mb"},
        {5'000, "0 Mb"},
        {5'001, "0.01 Mb"},
        {15'000, "0.02 Mb"},
        {25'000, "0.02 Mb"},
        {1'500'000, "1.5 Mb"},
        {2'000'000, "2 Mb"},
        {2'147'483'647, "2147.48 Mb"},
        {12'345'678'901, "12345.68 Mb"},
    };
    for (const auto& [bytes, text] : cases) EXPECT_EQ(SizeText(bytes), text);
}

TEST(SizeTextTest, Writes_the_users_decimal_mark) {
    const UsersMark comma(",");
    EXPECT_EQ(SizeText(1'500'000), "1,5 Mb");
}

}  // namespace tavel::test
