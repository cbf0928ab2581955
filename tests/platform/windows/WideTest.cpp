#include "platform/windows/Wide.h"

#include <gtest/gtest.h>

namespace tavel::test {

TEST(Wide, Text_goes_over_and_back) {
    for (const std::string text : {"", "a.jpg", "\u00e4\u20ac\u0436", "\U0001f3b5 x"})
        EXPECT_EQ(FromWide(ToWide(text)), text);
    EXPECT_EQ(ToWide("\U0001f3b5"), L"\xd83c\xdfb5");
}

TEST(Wide, Bytes_that_are_no_utf8_are_windows_1252) {
    EXPECT_EQ(ToWide("caf\xe9 \x80"), L"caf\u00e9 \u20ac");
    EXPECT_EQ(ToWide("\xed"
                     "a"),
              L"\u00ed"
              L"a");
}

// Such names are made by programs that cut a name in two.
TEST(Wide, Half_a_surrogate_pair_comes_back_as_it_was) {
    for (const std::wstring name : {L"a\xd83c", L"\xdfb5\xd83c", L"\xd83c\xd83c\xdfb5z", L"\xdfff"})
        EXPECT_EQ(ToWide(FromWide(name)), name);
    EXPECT_EQ(FromWide(L"a\xd83c"
                       L"b"),
              "a\xed\xa0\xbc"
              "b");
}

}  // namespace tavel::test
