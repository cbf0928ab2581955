#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tavel {

// Engine text is std::string in the system's 8-bit code page. That page is UTF-8, and a byte that
// is no part of a valid UTF-8 sequence stands for its Windows-1252 character. So every byte string
// is a text, and none is changed by passing through the engine.

// The edge to the windows and to the host's names: these two are the only conversions.
std::u16string ToUnicode(std::string_view text);
std::string FromUnicode(std::u16string_view text);

// The same characters as valid UTF-8: what a file that is newly created is called on the host.
std::string ToUtf8(std::string_view text);

// The length in bytes of the character that starts at `position`; 1 for a lone byte.
// `position` must lie inside the text.
std::size_t CharacterLength(std::string_view text, std::size_t position);

// The characters of a text, each as its bytes, and how many they are.
std::vector<std::string_view> Characters(std::string_view text);
std::size_t CharacterCount(std::string_view text);

// The first `characters` characters of a text, or all of them.
std::string_view CutAt(std::string_view text, std::size_t characters);

bool IsAscii(std::string_view text);

// The lower case of an ASCII letter; any other byte is itself.
constexpr char AsciiLower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}

// The upper case of an ASCII letter; any other byte is itself.
constexpr char AsciiUpper(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - ('a' - 'A')) : c;
}

// Lower case by Unicode's simple mapping, character by character; lone bytes by Windows-1252.
std::string LowerCase(std::string_view text);

// Equal without regard to case, by LowerCase.
bool EqualsIgnoringCase(std::string_view a, std::string_view b);

// Without the blanks (space only) at both ends.
std::string_view Trim(std::string_view text);

// The parts between separators; an empty text gives one empty part.
std::vector<std::string> Split(std::string_view text, char separator);

}  // namespace tavel
