#include "platform/Numbers.h"
#include "support/Support.h"
#include "support/UsersMark.h"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cmath>
#include <cstdio>
#include <limits>
#include <random>

namespace tavel::test {
namespace {

class Numbers : public ::testing::Test {
  protected:
    UsersMark point{"."};
};

TEST_F(Numbers, Narrowing_overflows_instead_of_wrapping) {
    EXPECT_EQ(ToInteger(32767), 32767);
    EXPECT_EQ(ToInteger(-32768), -32768);
    EXPECT_EQ(FailureOf([] { ToInteger(32768); }), failure::Overflow);
    EXPECT_EQ(FailureOf([] { ToInteger(-32769); }), failure::Overflow);
    EXPECT_EQ(ToLong(2147483647), 2147483647);
    EXPECT_EQ(ToLong(-2147483648LL), std::numeric_limits<Long>::min());
    EXPECT_EQ(FailureOf([] { ToLong(2147483648LL); }), failure::Overflow);
    EXPECT_EQ(FailureOf([] { ToLong(-2147483649LL); }), failure::Overflow);
}

TEST_F(Numbers, Rounding_to_whole_numbers_takes_ties_to_even) {
    EXPECT_EQ(RoundToInteger(0.5), 0);
    EXPECT_EQ(RoundToInteger(1.5), 2);
    EXPECT_EQ(RoundToInteger(2.5), 2);
    EXPECT_EQ(RoundToInteger(-2.5), -2);
    EXPECT_EQ(RoundToInteger(2.51), 3);
    EXPECT_EQ(RoundToInteger(32767.4), 32767);
    EXPECT_EQ(RoundToLong(2147483646.5), 2147483646);
}

TEST_F(Numbers, Rounding_to_whole_numbers_overflows_after_rounding) {
    EXPECT_EQ(FailureOf([] { RoundToInteger(32767.5); }), failure::Overflow);
    EXPECT_EQ(RoundToInteger(-32768.5), -32768);
    EXPECT_EQ(FailureOf([] { RoundToLong(2147483647.5); }), failure::Overflow);
    EXPECT_EQ(FailureOf([] { RoundToLong(std::nan("")); }), failure::Overflow);
    EXPECT_EQ(FailureOf([] { RoundToLong(-HUGE_VAL); }), failure::Overflow);
}

TEST_F(Numbers, Round_takes_ties_of_the_scaled_number_to_even) {
    struct {
        double value;
        int decimals;
        double rounded;
    } const rows[] = {
        {0.5, 0, 0},
        {1.5, 0, 2},
        {2.5, 0, 2},
        {-0.5, 0, 0},
        {-1.5, 0, -2},
        {0.125, 2, 0.12},
        {0.375, 2, 0.38},
        {1.005, 2, 1},
        {2.675, 2, 2.68},
        {1.5, 2, 1.5},
        {49.95, 1, 50},
        {31914.872832, 2, 31914.87},
        {0.25, 1, 0.2},
        {0.35, 1, 0.4},
        {0, 2, 0},
        {1e300, 2, 1e300},
        {123456.789, 0, 123457},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(Round(row.value, row.decimals), row.rounded) << row.value;
    }
}

TEST_F(Numbers, Round_refuses_a_negative_number_of_decimals_and_leaves_what_cannot_be_scaled) {
    EXPECT_EQ(FailureOf([] { Round(1, -1); }), failure::InvalidProcedureCall);
    EXPECT_EQ(Round(1e308, 2), 1e308);
}

TEST_F(Numbers, Text_becomes_an_Integer) {
    struct {
        const char* text;
        int value;
    } const rows[] = {
        {"0", 0},           {"-1", -1},          {"+5", 5},
        {"007", 7},         {"1.5", 2},          {"2.5", 2},
        {"-0.5", 0},        {".5", 0},           {"5.", 5},
        {"1e3", 1000},      {"1E+3", 1000},      {"1d2", 100},
        {"15e-1", 2},       {" 42 ", 42},        {"\t42\t", 42},
        {"&HFF", 255},      {"&hff", 255},       {"&O17", 15},
        {"&HFFFF", -1},     {"&H8000", -32768},  {"32767", 32767},
        {"32767.4", 32767}, {"-32768", -32768},  {"1e-400", 0},
        {"0e999", 0},       {"0.5000000001", 1}, {"-32768.5", -32768},
    };
    for (const auto& row : rows) EXPECT_EQ(TextToInteger(row.text), row.value) << row.text;
}

TEST_F(Numbers, Text_that_is_no_number_is_a_type_mismatch) {
    for (const char* text :
         {"",     " ",     "abc", "1 2", "1x",  "x1",  "-",    "+",     ".",
          "--1",  "1.2.3", "1e",  "1e+", "e5",  "&",   "&H",   "&HG",   "&O8",
          "&H 1", "-&H1",  "&17", "1,5", "nan", "inf", "0x10", "1_000", "True"}) {
        EXPECT_EQ(FailureOf([&] { TextToInteger(text); }), failure::TypeMismatch) << text;
        EXPECT_EQ(FailureOf([&] { TextToLong(text); }), failure::TypeMismatch) << text;
    }
    EXPECT_EQ(FailureOf([] { TextToLong(std::string_view("1\0002", 3)); }), failure::TypeMismatch);
}

TEST_F(Numbers, Text_of_a_number_that_does_not_fit_overflows) {
    for (const char* text : {"32768", "32767.5", "-32769", "1e400", "-1e400", "&H10000",
                             "1e9999999999", "&HFFFFFFFFFFFFFFFFF"}) {
        EXPECT_EQ(FailureOf([&] { TextToInteger(text); }), failure::Overflow) << text;
    }
    for (const char* text : {"2147483648", "-2147483649", "2147483647.5", "&H100000000"}) {
        EXPECT_EQ(FailureOf([&] { TextToLong(text); }), failure::Overflow) << text;
    }
}

TEST_F(Numbers, A_number_too_small_to_tell_from_nothing_is_nothing) {
    EXPECT_EQ(TextToLong("0." + std::string(400, '0') + "1"), 0);
    EXPECT_EQ(TextToLong("1e-99999999999"), 0);
    EXPECT_EQ(TextToLong("1" + std::string(400, '0') + "e-400"), 1);
}

TEST_F(Numbers, Text_becomes_a_Long) {
    EXPECT_EQ(TextToLong("2147483647"), 2147483647);
    EXPECT_EQ(TextToLong("-2147483648"), std::numeric_limits<Long>::min());
    EXPECT_EQ(TextToLong("120488"), 120488);
    EXPECT_EQ(TextToLong("&HFFFF"), 65535);
    EXPECT_EQ(TextToLong("&HFFFFFFFF"), -1);
    EXPECT_EQ(TextToLong("1e5"), 100000);
}

TEST_F(Numbers, The_users_decimal_mark_is_taken_beside_the_point) {
    const UsersMark comma(",");
    EXPECT_EQ(TextToInteger("3,5"), 4);
    EXPECT_EQ(TextToInteger("3.5"), 4);
    EXPECT_EQ(FailureOf([] { TextToInteger("1.2,3"); }), failure::TypeMismatch);
    const UsersMark arabic("\xD9\xAB");
    EXPECT_EQ(TextToInteger("3\xD9\xAB"
                            "5"),
              4);
}

TEST_F(Numbers, Text_becomes_a_Boolean) {
    for (const char* text : {"1", "-1", "True", "true", "TRUE", "0.4", "2", " 1 ", "&H1"}) {
        EXPECT_TRUE(TextToBoolean(text)) << text;
    }
    for (const char* text : {"0", "False", "FALSE", "0.0", "-0", "&H0"}) {
        EXPECT_FALSE(TextToBoolean(text)) << text;
    }
    for (const char* text : {"", " ", "yes", "no", "truee", "t"}) {
        EXPECT_EQ(FailureOf([&] { TextToBoolean(text); }), failure::TypeMismatch) << text;
    }
}

TEST_F(Numbers, Text_of_a_single_has_up_to_seven_digits_and_no_trailing_zeros) {
    struct {
        float value;
        const char* text;
    } const rows[] = {
        {0, "0"},
        {-0.0F, "0"},
        {50, "50"},
        {1.5F, "1.5"},
        {0.1F, "0.1"},
        {33.3F, "33.3"},
        {-2.25F, "-2.25"},
        {31914.87F, "31914.87"},
        {1234567, "1234567"},
        {12345678, "1.234568E+07"},
        {0.00001F, "1E-05"},
        {1e10F, "1E+10"},
    };
    for (const auto& row : rows) EXPECT_EQ(TextOfSingle(row.value), row.text);
}

TEST_F(Numbers, A_double_has_the_15_digits_that_the_c_library_gives_it) {
    std::mt19937_64 random(1);
    for (int i = 0; i < 100000; ++i) {
        const double anything = std::bit_cast<double>(random());
        const double size = static_cast<double>(random() % 10'000'000'000) / 100;
        for (const double value : {anything, size, -size, 1 / size}) {
            if (!std::isfinite(value)) continue;
            std::array<char, 64> expected{};
            std::snprintf(expected.data(), expected.size(), "%.15G", value);
            ASSERT_EQ(TextOfDouble(value), expected.data());
        }
    }
}

TEST_F(Numbers, Text_of_a_double_has_up_to_fifteen_digits) {
    EXPECT_EQ(TextOfDouble(0.1), "0.1");
    EXPECT_EQ(TextOfDouble(1.0 / 3), "0.333333333333333");
    EXPECT_EQ(TextOfDouble(0.1 + 0.2), "0.3");
    EXPECT_EQ(TextOfDouble(123456789012345), "123456789012345");
    EXPECT_EQ(TextOfDouble(1e15), "1E+15");
    EXPECT_EQ(TextOfDouble(-1.5), "-1.5");
    EXPECT_EQ(TextOfDouble(0.00012345), "0.00012345");
    EXPECT_EQ(TextOfDouble(0.000012345), "1.2345E-05");
    EXPECT_EQ(TextOfDouble(999999999999999), "999999999999999");
    EXPECT_EQ(TextOfDouble(123456789012345.6), "123456789012346");
}

TEST_F(Numbers, Text_of_a_number_has_the_users_decimal_mark) {
    const UsersMark comma(",");
    EXPECT_EQ(TextOfSingle(1.5F), "1,5");
    EXPECT_EQ(TextOfDouble(-0.25), "-0,25");
    EXPECT_EQ(TextOfDouble(2), "2");
}

}  // namespace
}  // namespace tavel::test
