#include "platform/NumberText.h"

#include "platform/Failure.h"

#include <algorithm>
#include <charconv>
#include <string>
#include <system_error>

namespace tavel {

namespace {

constexpr std::string_view blanks = " \t";

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

std::string_view WithoutBlanks(std::string_view text) {
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

std::string_view TakeDigits(std::string_view& text) {
    std::size_t length = 0;
    while (length < text.size() && IsDigit(text[length])) ++length;
    const std::string_view digits = text.substr(0, length);
    text.remove_prefix(length);
    return digits;
}

bool Take(std::string_view& text, std::string_view wanted) {
    if (wanted.empty() || text.substr(0, wanted.size()) != wanted) return false;
    text.remove_prefix(wanted.size());
    return true;
}

bool TakeAnyOf(std::string_view& text, std::string_view wanted) {
    if (text.empty() || wanted.find(text.front()) == std::string_view::npos) return false;
    text.remove_prefix(1);
    return true;
}

// The run-time's exponents have "d" beside "e".
std::string TakeExponent(std::string_view& text) {
    if (!TakeAnyOf(text, "eEdD")) return {};
    const bool isNegative = Take(text, "-");
    if (!isNegative) Take(text, "+");
    const std::string_view digits = TakeDigits(text);
    if (digits.empty()) Fail(failure::TypeMismatch);
    return (isNegative ? "e-" : "e") + std::string(digits);
}

// What from_chars calls out of range is too large or too small, and only one of them fails.
double OutOfRange(std::string_view whole, std::string_view decimals, std::string_view exponent) {
    const std::string digits = std::string(whole) + std::string(decimals);
    const auto leadingZeros = static_cast<double>(digits.find_first_not_of('0'));
    double power = 0;
    if (!exponent.empty()) {
        constexpr std::string_view beyondAll = "999999999";
        const bool isNegative = exponent[1] == '-';
        std::string_view figures = exponent.substr(isNegative ? 2 : 1);
        figures.remove_prefix(std::min(figures.find_first_not_of('0'), figures.size()));
        if (figures.size() > beyondAll.size()) figures = beyondAll;
        for (const char c : figures) power = power * 10 + (c - '0');
        if (isNegative) power = -power;
    }
    if (static_cast<double>(whole.size()) - leadingZeros + power > 0) Fail(failure::Overflow);
    return 0;
}

double ParseDecimal(std::string_view text, std::string_view decimalMark) {
    const bool isNegative = Take(text, "-");
    if (!isNegative) Take(text, "+");
    const std::string_view whole = TakeDigits(text);
    std::string_view decimals;
    if (Take(text, ".") || Take(text, decimalMark)) decimals = TakeDigits(text);
    if (whole.empty() && decimals.empty()) Fail(failure::TypeMismatch);
    const std::string exponent = TakeExponent(text);
    if (!text.empty()) Fail(failure::TypeMismatch);

    std::string plain = "0" + std::string(whole) + "." + std::string(decimals) + "0" + exponent;
    double value = 0;
    const auto result = std::from_chars(plain.data(), plain.data() + plain.size(), value);
    if (result.ec == std::errc::result_out_of_range) value = OutOfRange(whole, decimals, exponent);
    return isNegative ? -value : value;
}

std::uint64_t ParseBits(std::string_view digits, int base) {
    std::uint64_t bits = 0;
    const char* end = digits.data() + digits.size();
    const auto result = std::from_chars(digits.data(), end, bits, base);
    if (result.ec == std::errc::result_out_of_range) Fail(failure::Overflow);
    if (result.ec != std::errc() || result.ptr != end) Fail(failure::TypeMismatch);
    return bits;
}

}  // namespace

ParsedNumber ParseNumber(std::string_view text, std::string_view decimalMark) {
    text = WithoutBlanks(text);
    ParsedNumber number;
    number.isBits = Take(text, "&");
    if (!number.isBits) {
        number.value = ParseDecimal(text, decimalMark);
    } else if (TakeAnyOf(text, "hH")) {
        number.bits = ParseBits(text, 16);
    } else if (TakeAnyOf(text, "oO")) {
        number.bits = ParseBits(text, 8);
    } else {
        Fail(failure::TypeMismatch);
    }
    return number;
}

}  // namespace tavel
