#include "platform/Text.h"

#include "platform/LowerCaseTable.h"

#include <algorithm>
#include <array>
#include <cstdint>

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

bool IsAscii(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return (c & 0x80) == 0; });
}

char32_t OfLoneByte(unsigned char byte) {
    return byte >= 0x80 && byte <= 0x9F ? upperControls[byte - 0x80] : char32_t{byte};
}

// The bounds of the second byte keep out overlong forms, surrogates and what is above U+10FFFF.
bool IsSecondByte(unsigned char lead, unsigned char second) {
    switch (lead) {
        case 0xE0:
            return second >= 0xA0 && second <= 0xBF;
        case 0xED:
            return second >= 0x80 && second <= 0x9F;
        case 0xF0:
            return second >= 0x90 && second <= 0xBF;
        case 0xF4:
            return second >= 0x80 && second <= 0x8F;
        default:
            return second >= 0x80 && second <= 0xBF;
    }
}

std::size_t LengthByLead(unsigned char lead) {
    if (lead >= 0xC2 && lead <= 0xDF) return 2;
    if (lead >= 0xE0 && lead <= 0xEF) return 3;
    if (lead >= 0xF0 && lead <= 0xF4) return 4;
    return 1;
}

char32_t CharacterAt(std::string_view text, std::size_t position, std::size_t length) {
    const unsigned char lead = ByteAt(text, position);
    if (length == 1) return OfLoneByte(lead);
    char32_t code = lead & (0x7F >> length);
    for (std::size_t i = 1; i < length; ++i) code = code << 6 | (ByteAt(text, position + i) & 0x3F);
    return code;
}

void AppendUtf8(std::string& out, char32_t code) {
    const auto tail = [&](int shift) {
        out.push_back(static_cast<char>(0x80 | (code >> shift & 0x3F)));
    };
    if (code < 0x80) {
        out.push_back(static_cast<char>(code));
    } else if (code < 0x800) {
        out.push_back(static_cast<char>(0xC0 | code >> 6));
        tail(0);
    } else if (code < 0x10000) {
        out.push_back(static_cast<char>(0xE0 | code >> 12));
        tail(6);
        tail(0);
    } else {
        out.push_back(static_cast<char>(0xF0 | code >> 18));
        tail(12);
        tail(6);
        tail(0);
    }
}

void AppendUtf16(std::u16string& out, char32_t code) {
    if (code < 0x10000) {
        out.push_back(static_cast<char16_t>(code));
        return;
    }
    out.push_back(static_cast<char16_t>(0xD800 + ((code - 0x10000) >> 10)));
    out.push_back(static_cast<char16_t>(0xDC00 + ((code - 0x10000) & 0x3FF)));
}

char AsciiLower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; }

char LowerOfLoneByte(unsigned char byte) {
    switch (byte) {
        case 0x8A:
        case 0x8C:
        case 0x8E:
            return static_cast<char>(byte + 0x10);
        case 0x9F:
            return '\xFF';
        case 0xD7:
            return '\xD7';
        default:
            return static_cast<char>(byte >= 0xC0 && byte <= 0xDE ? byte + 0x20 : byte);
    }
}

}  // namespace

std::size_t CharacterLength(std::string_view text, std::size_t position) {
    const unsigned char lead = ByteAt(text, position);
    const std::size_t length = LengthByLead(lead);
    if (length == 1 || length > text.size() - position) return 1;
    if (!IsSecondByte(lead, ByteAt(text, position + 1))) return 1;
    for (std::size_t i = 2; i < length; ++i) {
        if ((ByteAt(text, position + i) & 0xC0) != 0x80) return 1;
    }
    return length;
}

std::u16string ToUnicode(std::string_view text) {
    std::u16string result;
    result.reserve(text.size());
    for (std::size_t i = 0; i < text.size();) {
        const std::size_t length = CharacterLength(text, i);
        AppendUtf16(result, CharacterAt(text, i, length));
        i += length;
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
        const std::size_t length = CharacterLength(text, i);
        AppendUtf8(result, CharacterAt(text, i, length));
        i += length;
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

std::string_view CutAt(std::string_view text, std::size_t bytes) {
    if (text.size() <= bytes) return text;
    const std::size_t earliest = bytes < 3 ? 0 : bytes - 3;
    for (std::size_t start = earliest; start < bytes; ++start) {
        if (start + CharacterLength(text, start) > bytes) return text.substr(0, start);
    }
    return text.substr(0, bytes);
}

std::string LowerCase(std::string_view text) {
    std::string result(text);
    if (IsAscii(text)) {
        std::transform(result.begin(), result.end(), result.begin(), AsciiLower);
        return result;
    }
    result.clear();
    for (std::size_t i = 0; i < text.size();) {
        const std::size_t length = CharacterLength(text, i);
        if (length > 1) {
            AppendUtf8(result, LowerOf(CharacterAt(text, i, length)));
        } else if ((text[i] & 0x80) == 0) {
            result.push_back(AsciiLower(text[i]));
        } else {
            result.push_back(LowerOfLoneByte(ByteAt(text, i)));
        }
        i += length;
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
