#include "platform/Text.h"

#include <utf8proc.h>

#include <algorithm>
#include <array>

namespace tavel {

namespace {

// What Windows-1252 has in the place of the control codes 0x80 to 0x9F. Its five undefined bytes
// stand for the control code of the same number, so that no byte is lost on the way.
constexpr std::array<char16_t, 32> upperControls{
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

constexpr char32_t replacement = 0xFFFD;

unsigned char ByteAt(std::string_view text, std::size_t position) {
    return static_cast<unsigned char>(text[position]);
}

char32_t OfLoneByte(unsigned char byte) {
    return byte >= 0x80 && byte <= 0x9F ? upperControls[byte - 0x80] : char32_t{byte};
}

struct Character {
    char32_t code;
    std::size_t length;  // in bytes
};

Character CharacterAt(std::string_view text, std::size_t position) {
    const unsigned char lead = ByteAt(text, position);
    if (lead < 0x80) return {lead, 1};
    utf8proc_int32_t code = 0;
    const utf8proc_ssize_t length =
        utf8proc_iterate(reinterpret_cast<const utf8proc_uint8_t*>(text.data()) + position,
                         static_cast<utf8proc_ssize_t>(text.size() - position), &code);
    if (length < 1) return {OfLoneByte(lead), 1};
    return {static_cast<char32_t>(code), static_cast<std::size_t>(length)};
}

void AppendUtf8(std::string& out, char32_t code) {
    std::array<utf8proc_uint8_t, 4> bytes{};
    const utf8proc_ssize_t length =
        utf8proc_encode_char(static_cast<utf8proc_int32_t>(code), bytes.data());
    out.append(bytes.begin(), bytes.begin() + length);
}

void AppendUtf16(std::u16string& out, char32_t code) {
    if (code < 0x10000) {
        out.push_back(static_cast<char16_t>(code));
        return;
    }
    out.push_back(static_cast<char16_t>(0xD800 + ((code - 0x10000) >> 10)));
    out.push_back(static_cast<char16_t>(0xDC00 + ((code - 0x10000) & 0x3FF)));
}

char32_t LowerOf(char32_t code) {
    return static_cast<char32_t>(utf8proc_tolower(static_cast<utf8proc_int32_t>(code)));
}

// Windows-1252 has the lower case of all its letters.
char LowerOfLoneByte(unsigned char byte) {
    const char32_t lower = LowerOf(OfLoneByte(byte));
    unsigned char found = 0xFF;
    while (OfLoneByte(found) != lower) --found;
    return static_cast<char>(found);
}

}  // namespace

bool IsAscii(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return (c & 0x80) == 0; });
}

std::size_t CharacterLength(std::string_view text, std::size_t position) {
    return CharacterAt(text, position).length;
}

std::u16string ToUnicode(std::string_view text) {
    std::u16string result;
    result.reserve(text.size());
    for (std::size_t i = 0; i < text.size();) {
        const Character character = CharacterAt(text, i);
        AppendUtf16(result, character.code);
        i += character.length;
    }
    return result;
}

std::string FromUnicode(std::u16string_view text) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t unit = text[i];
        const bool isHigh = unit >= 0xD800 && unit <= 0xDBFF;
        if (isHigh && i + 1 < text.size() && text[i + 1] >= 0xDC00 && text[i + 1] <= 0xDFFF) {
            ++i;
            AppendUtf8(result, 0x10000 + (char32_t{unit} - 0xD800) * 0x400 + (text[i] - 0xDC00));
        } else {
            AppendUtf8(result, unit >= 0xD800 && unit <= 0xDFFF ? replacement : char32_t{unit});
        }
    }
    return result;
}

std::string ToUtf8(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t i = 0; i < text.size();) {
        const Character character = CharacterAt(text, i);
        AppendUtf8(result, character.code);
        i += character.length;
    }
    return result;
}

std::vector<std::string_view> Characters(std::string_view text) {
    std::vector<std::string_view> result;
    result.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); i += result.back().size()) {
        result.push_back(text.substr(i, CharacterLength(text, i)));
    }
    return result;
}

std::size_t CharacterCount(std::string_view text) {
    std::size_t count = 0;
    for (std::size_t i = 0; i < text.size(); i += CharacterLength(text, i)) ++count;
    return count;
}

std::string_view CutAt(std::string_view text, std::size_t characters) {
    if (text.size() <= characters) return text;
    std::size_t end = 0;
    for (; characters > 0 && end < text.size(); --characters) end += CharacterLength(text, end);
    return text.substr(0, end);
}

std::string LowerCase(std::string_view text) {
    std::string result(text);
    if (IsAscii(text)) {
        std::transform(result.begin(), result.end(), result.begin(), AsciiLower);
        return result;
    }
    result.clear();
    for (std::size_t i = 0; i < text.size();) {
        const Character character = CharacterAt(text, i);
        if (character.length > 1) {
            AppendUtf8(result, LowerOf(character.code));
        } else if (character.code < 0x80) {
            result.push_back(AsciiLower(text[i]));
        } else {
            result.push_back(LowerOfLoneByte(ByteAt(text, i)));
        }
        i += character.length;
    }
    return result;
}

bool EqualsIgnoringCase(std::string_view a, std::string_view b) {
    if (IsAscii(a) && IsAscii(b)) {
        return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                          [](char x, char y) { return AsciiLower(x) == AsciiLower(y); });
    }
    return LowerCase(a) == LowerCase(b);
}

std::string_view Trim(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return text.substr(0, 0);
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::vector<std::string> Split(std::string_view text, char separator) {
    std::vector<std::string> parts;
    for (;;) {
        const std::size_t end = text.find(separator);
        parts.emplace_back(text.substr(0, end));
        if (end == std::string_view::npos) return parts;
        text.remove_prefix(end + 1);
    }
}

}  // namespace tavel
