#include "core/UsefulFunctions.h"

#include "platform/Clock.h"
#include "platform/Failure.h"
#include "platform/FileService.h"
#include "platform/Text.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>

namespace tavel {

namespace {

constexpr std::size_t WalkLimit = std::numeric_limits<Integer>::max();

// A value from 0 up to, but not, 1. Ids differ by their letters alone and are made faster than the
// timer moves, so each seed takes in what was drawn before it as well as the timer.
double Draw() {
    static std::uint64_t state =
        (std::uint64_t{std::random_device{}()} << 32) ^ std::random_device{}();
    state =
        (state ^ std::bit_cast<std::uint64_t>(Service<Clock>::Get().Timer())) + 0x9E3779B97F4A7C15U;
    std::uint64_t mixed = state;
    mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9U;
    mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EBU;
    mixed ^= mixed >> 31;
    return static_cast<double>(mixed >> 40) / static_cast<double>(1U << 24);
}

// Where the last "." is. The walk to it counts characters in an Integer: it fails when there is
// no "." and when that lies farther from the end than an Integer counts.
std::size_t LastDot(std::string_view sPath) {
    const std::size_t dot = sPath.rfind('.');
    if (dot == std::string_view::npos) Fail(failure::Overflow);
    const std::string_view walked = sPath.substr(dot);
    if (walked.size() > WalkLimit && CharacterCount(walked) > WalkLimit) Fail(failure::Overflow);
    return dot;
}

}  // namespace

Integer RandomInt(Integer iUpper, Integer iLower) {
    const Integer span = ToInteger(ToInteger(iUpper - iLower) + 1);
    return ToInteger(static_cast<std::int64_t>(std::floor(span * Draw())) + iLower);
}

std::string GetAppPath() {
    std::string path = ProgramFolder();
    if (path.empty() || path.back() != '\\') path += '\\';
    return path;
}

std::string GetFileExt(std::string_view sPath) {
    return LowerCase(sPath.substr(LastDot(sPath) + 1));
}

std::string PadZeros(std::string_view sValue, Integer iWidth) {
    const auto length = static_cast<std::int64_t>(CharacterCount(sValue));
    std::string padded;
    if (length < iWidth) padded.assign(static_cast<std::size_t>(iWidth - length), '0');
    return padded.append(sValue);
}

std::string StripExt(std::string_view sPath) {
    return std::string(sPath.substr(0, LastDot(sPath)));
}

std::string RandomLetters(Integer iCount) {
    std::string letters;
    for (Long i = 0; i <= iCount; ++i) letters += static_cast<char>(RandomInt('z', 'a'));
    return letters;
}

std::string GetFileName(std::string_view sPath) {
    const std::size_t backslash = sPath.rfind('\\');
    return std::string(backslash == std::string_view::npos ? sPath : sPath.substr(backslash + 1));
}

}  // namespace tavel
