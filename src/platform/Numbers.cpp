#include "platform/Numbers.h"

#include "platform/Failure.h"
#include "platform/NumberStyle.h"
#include "platform/NumberText.h"
#include "platform/Text.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace tavel {

namespace {

std::string_view DecimalMark() { return Service<NumberStyle>::Get().DecimalMark(); }

template <class Narrow>
Narrow Narrowed(std::int64_t value) {
    if (value < std::numeric_limits<Narrow>::min() || value > std::numeric_limits<Narrow>::max()) {
        Fail(failure::Overflow);
    }
    return static_cast<Narrow>(value);
}

// Rounding comes before the check of the bounds: 32767.4 fits, 32767.5 does not.
template <class Narrow>
Narrow RoundedTo(double value) {
    const double whole = std::nearbyint(value);
    const bool fits =
        whole >= std::numeric_limits<Narrow>::min() && whole <= std::numeric_limits<Narrow>::max();
    if (!fits) Fail(failure::Overflow);
    return static_cast<Narrow>(whole);
}

// &H and &O give the bits of the wanted type: "&HFFFF" is -1 as an Integer and 65535 as a Long.
template <class Narrow, class Bits>
Narrow FromText(std::string_view text) {
    const ParsedNumber number = ParseNumber(text, DecimalMark());
    if (!number.isBits) return RoundedTo<Narrow>(number.value);
    if (number.bits > std::numeric_limits<Bits>::max()) Fail(failure::Overflow);
    return static_cast<Narrow>(static_cast<Bits>(number.bits));
}

// What the run-time's general form is for most numbers: the shortest form that gives the number
// back, when that is 15 digits or less. Nothing for other numbers. Lists of thousands of sizes are
// made of it, and rounding to 15 digits takes several times as long.
std::string ShortForm(double value) {
    const double size = std::abs(value);
    if (!(size >= 1e-4 && size < 1e15)) return {};
    std::array<char, 40> buffer{};
    const auto end =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::fixed)
            .ptr;
    std::string text(buffer.data(), end);
    const std::size_t first = text.find_first_of("123456789");
    const bool hasPoint = text.find('.', first) != std::string::npos;
    return text.size() - first - (hasPoint ? 1 : 0) <= 15 ? text : std::string();
}

template <class Number>
std::string GeneralForm(Number value, int digits) {
    std::array<char, 40> buffer{};
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                   std::chars_format::general, digits)
                         .ptr;
    return {buffer.data(), end};
}

std::string InUsersForm(std::string text) {
    if (const std::size_t point = text.find('.'); point != std::string::npos) {
        text.replace(point, 1, DecimalMark());
    }
    if (const std::size_t exponent = text.find('e'); exponent != std::string::npos) {
        text[exponent] = 'E';
    }
    return text;
}

// Every size that a list shows is rounded to two decimals, and pow takes its time.
double PowerOfTen(int exponent) {
    constexpr int mostExact = 22;
    if (exponent > mostExact) return std::pow(10.0, exponent);
    double power = 1;
    for (int i = 0; i < exponent; ++i) power *= 10;
    return power;
}

}  // namespace

Integer ToInteger(std::int64_t value) { return Narrowed<Integer>(value); }

Long ToLong(std::int64_t value) { return Narrowed<Long>(value); }

Integer RoundToInteger(double value) { return RoundedTo<Integer>(value); }

Long RoundToLong(double value) { return RoundedTo<Long>(value); }

double Round(double value, int decimals) {
    if (decimals < 0) Fail(failure::InvalidProcedureCall);
    const double scale = PowerOfTen(decimals);
    const double scaled = value * scale;
    if (!std::isfinite(scaled)) return value;
    return std::nearbyint(scaled) / scale;
}

Integer TextToInteger(std::string_view text) { return FromText<Integer, std::uint16_t>(text); }

Long TextToLong(std::string_view text) { return FromText<Long, std::uint32_t>(text); }

bool TextToBoolean(std::string_view text) {
    if (EqualsIgnoringCase(text, "true")) return true;
    if (EqualsIgnoringCase(text, "false")) return false;
    const ParsedNumber number = ParseNumber(text, DecimalMark());
    return number.isBits ? number.bits != 0 : number.value != 0;
}

std::string TextOfSingle(float value) {
    if (value == 0) return "0";  // a negative zero too
    return InUsersForm(GeneralForm(value, 7));
}

std::string TextOfDouble(double value) {
    if (value == 0) return "0";
    const std::string text = ShortForm(value);
    return InUsersForm(text.empty() ? GeneralForm(value, 15) : text);
}

}  // namespace tavel
