#pragma once

#include <cstdint>
#include <string_view>

namespace tavel {

// A number as a text spells it: a decimal one, or the bits that &H or &O name.
struct ParsedNumber {
    bool isBits = false;
    std::uint64_t bits = 0;
    double value = 0;
};

// Takes blanks and tabs around a number, a sign, "." or `decimalMark` before decimals, and an
// exponent after "e" or "d"; or &H or &O and digits. Fails with 13 for any other text and with 6
// for a number beyond the bounds of its kind.
ParsedNumber ParseNumber(std::string_view text, std::string_view decimalMark);

}  // namespace tavel
