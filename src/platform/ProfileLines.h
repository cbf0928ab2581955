#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

namespace tavel {

// How keys and values are spelt in the lines of a profile file.

// What a stored value reads as: it ends at a NUL, and one pair of equal quotes around it is left
// out.
std::string_view ValueAsRead(std::string_view stored);

// How a value is stored so that it reads as it is: with a pair of quotes around it where its own
// blanks or quotes would be lost. Line breaks become blanks and a NUL ends it, which cannot be
// undone. `room` holds the result where it is not the value itself.
std::string_view ValueAsStored(std::string_view value, std::string& room);

bool IsStoredAsItIs(std::string_view value);

// False for a name that could not be found again: an empty one, one with "=", a line break or a
// NUL, one that begins with ";" or "[".
bool CanBeKey(std::string_view name);

std::string_view WithoutBlanksBefore(std::string_view text);
std::string_view WithoutBlanksAfter(std::string_view text);

// Of blanks alone the beginning is left, so that a value goes directly behind its "=".
std::string_view WithoutBlanks(std::string_view text);

// The lines of several keys of one section, put together to be written in one go.
class ProfileLines {
  public:
    // The key can be one (see CanBeKey), has no blanks around it and was not added before.
    void Add(std::string_view key, std::string_view value) {
        if (IsStoredAsItIs(value)) {
            Append(key, value);
        } else {
            std::string room;
            Append(key, ValueAsStored(value, room));
        }
    }

    // "key=value", CR and LF for each, in the order of adding.
    std::string_view Bytes() const { return {m_bytes.data(), m_size}; }
    void Clear() { m_size = 0; }

  private:
    // In the header, since a save has a few hundred thousand short keys of known length.
    void Append(std::string_view key, std::string_view stored) {
        const std::size_t size = m_size + key.size() + 1 + stored.size() + 2;
        if (size > m_bytes.size()) m_bytes.resize(size * 2);
        char* at = m_bytes.data() + m_size;
        at = std::copy(key.begin(), key.end(), at);
        *at++ = '=';
        at = std::copy(stored.begin(), stored.end(), at);
        *at++ = '\r';
        *at = '\n';
        m_size = size;
    }

    std::string m_bytes;  // of which the first m_size count
    std::size_t m_size = 0;
};

}  // namespace tavel
