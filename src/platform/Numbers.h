#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tavel {

using Integer = std::int16_t;
using Long = std::int32_t;

// Narrowing that fails as the run-time does: 6 Overflow when the value does not fit.
Integer ToInteger(std::int64_t value);
Long ToLong(std::int64_t value);

// A number rounded to nearest, ties to even, then narrowed; 6 Overflow when it does not fit.
Integer RoundToInteger(double value);
Long RoundToLong(double value);

// Rounds to a number of decimals as the run-time does: the double is scaled by the power of ten,
// rounded to nearest with ties to even, and scaled back. What counts as a tie is settled by the
// scaled double: 2.675 gives 267.5 and so 2.68, 1.015 gives 101.49999999999999 and so 1.01.
// Fails with 5 for a negative number of decimals.
double Round(double value, int decimals);

// Text to number: blanks around it, a sign, decimals (rounded, ties to even, after "." or the
// user's mark) and an exponent are taken, as are &H and &O and the bits of the type. 13 Type
// mismatch for any other text, the empty one included; 6 Overflow for a number that does not fit.
Integer TextToInteger(std::string_view text);
Long TextToLong(std::string_view text);

// "True" and "False" in any case, or a number, which is True unless it is 0.
// 13 Type mismatch for any other text, the empty one included.
bool TextToBoolean(std::string_view text);

// The shortest general form: at most 7 significant digits for a single and 15 for a double, no
// trailing zeros, no thousands separators, the user's decimal mark.
std::string TextOfSingle(float value);
std::string TextOfDouble(double value);

}  // namespace tavel
