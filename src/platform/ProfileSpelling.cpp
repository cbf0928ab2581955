#include "platform/ProfileSpelling.h"

namespace tavel {

namespace {

bool IsBlank(char c) { return c == ' ' || c == '\t'; }
bool EndsLine(char c) { return c == '\0' || IsLineBreak(c); }
bool IsQuote(char c) { return c == '"' || c == '\''; }

bool IsQuoted(std::string_view value) {
    return value.size() >= 2 && IsQuote(value.front()) && value.front() == value.back();
}

bool NeedsQuotes(std::string_view value) {
    if (value.empty()) return false;
    return IsBlank(value.front()) || IsBlank(value.back()) || IsQuoted(value);
}

bool IsOneLine(std::string_view text) { return std::none_of(text.begin(), text.end(), EndsLine); }

std::string OnOneLine(std::string_view text) {
    text = text.substr(0, text.find('\0'));
    std::string line;
    for (std::size_t i = 0; i < text.size(); ++i) {
        line.push_back(IsLineBreak(text[i]) ? ' ' : text[i]);
        if (text.substr(i, 2) == "\r\n") ++i;
    }
    return line;
}

}  // namespace

std::string_view WithoutBlanksBefore(std::string_view text) {
    while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
    return text;
}

std::string_view WithoutBlanksAfter(std::string_view text) {
    while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
    return text;
}

std::string_view WithoutBlanks(std::string_view text) {
    return WithoutBlanksBefore(WithoutBlanksAfter(text));
}

bool NameOrder::operator()(std::string_view a, std::string_view b) const {
    if (a.size() != b.size()) return a.size() < b.size();
    return std::ranges::lexicographical_compare(a, b, {}, AsciiLower, AsciiLower);
}

bool CanBeKey(std::string_view name) {
    if (name.empty() || name.front() == ';' || name.front() == '[') return false;
    return IsOneLine(name) && name.find('=') == std::string_view::npos;
}

bool CanBeSection(std::string_view name) {
    return CanBeKey(name) && name.find(']') == std::string_view::npos;
}

std::string_view ValueAsRead(std::string_view stored) {
    const std::size_t end = stored.find('\0');
    if (end != std::string_view::npos) stored = WithoutBlanksAfter(stored.substr(0, end));
    return IsQuoted(stored) ? stored.substr(1, stored.size() - 2) : stored;
}

std::string_view ValueAsStored(std::string_view value, std::string& room) {
    if (!IsOneLine(value)) value = room = OnOneLine(value);
    if (NeedsQuotes(value)) value = room = '"' + std::string(value) + '"';
    return value;
}

}  // namespace tavel
