#include "platform/ProfileLines.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace tavel {

namespace {

bool IsBlank(char c) { return c == ' ' || c == '\t'; }
bool IsLineBreak(char c) { return c == '\r' || c == '\n'; }
bool IsQuote(char c) { return c == '"' || c == '\''; }

bool IsQuoted(std::string_view value) {
    return value.size() >= 2 && IsQuote(value.front()) && value.front() == value.back();
}

bool NeedsQuotes(std::string_view value) {
    if (value.empty()) return false;
    return IsBlank(value.front()) || IsBlank(value.back()) || IsQuoted(value);
}

// True for eight bytes that are all 0x10 and above: nearly every text is made of such bytes alone,
// and has neither line breaks nor NULs.
bool IsPlain(const char* bytes) {
    constexpr std::uint64_t each = 0x0101010101010101;
    std::uint64_t word = 0;
    std::memcpy(&word, bytes, sizeof word);
    return ((word - 0x10 * each) & ~word & 0x80 * each) == 0;
}

bool IsOneLine(std::string_view value) {
    if (value.size() >= 8) {
        bool isPlain = IsPlain(value.data() + value.size() - 8);  // overlaps the last whole eight
        for (std::size_t at = 0; at + 8 <= value.size(); at += 8)
            isPlain &= IsPlain(value.data() + at);
        if (isPlain) return true;
    }
    const auto ends = [](char c) { return c == '\0' || IsLineBreak(c); };
    return std::none_of(value.begin(), value.end(), ends);
}

std::string OnOneLine(std::string_view value) {
    value = value.substr(0, value.find('\0'));
    std::string line;
    for (std::size_t i = 0; i < value.size(); ++i) {
        line.push_back(IsLineBreak(value[i]) ? ' ' : value[i]);
        if (value.substr(i, 2) == "\r\n") ++i;
    }
    return line;
}

}  // namespace

std::string_view WithoutBlanksBefore(std::string_view text) {
    std::size_t blanks = 0;
    while (blanks < text.size() && IsBlank(text[blanks])) ++blanks;
    return text.substr(blanks);
}

std::string_view WithoutBlanksAfter(std::string_view text) {
    std::size_t size = text.size();
    while (size > 0 && IsBlank(text[size - 1])) --size;
    return text.substr(0, size);
}

std::string_view WithoutBlanks(std::string_view text) {
    return WithoutBlanksBefore(WithoutBlanksAfter(text));
}

std::string_view ValueAsRead(std::string_view stored) {
    const std::size_t end = stored.find('\0');
    if (end != std::string_view::npos) stored = WithoutBlanksAfter(stored.substr(0, end));
    return IsQuoted(stored) ? stored.substr(1, stored.size() - 2) : stored;
}

bool IsStoredAsItIs(std::string_view value) { return IsOneLine(value) && !NeedsQuotes(value); }

std::string_view ValueAsStored(std::string_view value, std::string& room) {
    if (!IsOneLine(value)) value = room = OnOneLine(value);
    if (NeedsQuotes(value)) value = room = '"' + std::string(value) + '"';
    return value;
}

bool CanBeKey(std::string_view name) {
    if (name.empty() || name.front() == ';' || name.front() == '[') return false;
    return IsOneLine(name) && name.find('=') == std::string_view::npos;
}

}  // namespace tavel
