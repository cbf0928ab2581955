#include "platform/windows/Wide.h"

#include "platform/Text.h"

#include <algorithm>

namespace tavel {

namespace {

static_assert(sizeof(wchar_t) == sizeof(char16_t));

bool IsHigh(wchar_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }
bool IsLow(wchar_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

unsigned ByteAt(std::string_view text, std::size_t position) {
    return static_cast<unsigned char>(text[position]);
}

constexpr std::size_t surrogateLength = 3;  // bytes
constexpr char surrogateLead = '\xED';      // never inside the bytes of another character

bool IsSurrogateAt(std::string_view text, std::size_t position) {
    return text.size() - position >= surrogateLength && text[position] == surrogateLead &&
           ByteAt(text, position + 1) >= 0xA0 && ByteAt(text, position + 1) <= 0xBF &&
           ByteAt(text, position + 2) >= 0x80 && ByteAt(text, position + 2) <= 0xBF;
}

std::size_t FindSurrogate(std::string_view text) {
    std::size_t position = text.find(surrogateLead);
    while (position != std::string_view::npos && !IsSurrogateAt(text, position))
        position = text.find(surrogateLead, position + 1);
    return std::min(position, text.size());
}

wchar_t SurrogateAt(std::string_view text, std::size_t position) {
    return static_cast<wchar_t>(0xD000 | (ByteAt(text, position + 1) & 0x3F) << 6 |
                                (ByteAt(text, position + 2) & 0x3F));
}

std::string BytesOfSurrogate(wchar_t unit) {
    return {surrogateLead, static_cast<char>(0x80 | (unit >> 6 & 0x3F)),
            static_cast<char>(0x80 | (unit & 0x3F))};
}

// Where a surrogate stands alone, or the end.
std::size_t FindLoneSurrogate(std::wstring_view text) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (!IsHigh(text[i]) && !IsLow(text[i])) continue;
        const bool isPair = IsHigh(text[i]) && i + 1 < text.size() && IsLow(text[i + 1]);
        if (!isPair) return i;
        ++i;
    }
    return text.size();
}

}  // namespace

std::wstring ToWide(std::string_view text) {
    std::wstring result;
    for (;;) {
        const std::size_t end = FindSurrogate(text);
        const std::u16string whole = ToUnicode(text.substr(0, end));
        result.append(whole.begin(), whole.end());
        if (end == text.size()) return result;
        result += SurrogateAt(text, end);
        text.remove_prefix(end + surrogateLength);
    }
}

std::string FromWide(std::wstring_view text) {
    std::string result;
    for (;;) {
        const std::size_t end = FindLoneSurrogate(text);
        result += FromUnicode(std::u16string(text.begin(), text.begin() + end));
        if (end == text.size()) return result;
        result += BytesOfSurrogate(text[end]);
        text.remove_prefix(end + 1);
    }
}

}  // namespace tavel
