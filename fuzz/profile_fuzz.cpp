// Feeds a profile file of any bytes, and edits of any names and values, to the profile's parser,
// and holds each answer against a plain reading of the file from its first line on. The input is a
// file and, behind "%%", edits: section, key and value, each ended by byte 1F.

#include "platform/ProfileText.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace {

using tavel::ProfileText;
using Value = std::optional<std::string>;

void Check(bool holds, const char* what) {
    if (holds) return;
    std::fprintf(stderr, "%s\n", what);
    std::abort();
}

struct Edit {
    std::string section;
    std::string key;
    std::string value;
};

std::string Take(std::string& text, const std::string& end) {
    const std::size_t at = text.find(end);
    const std::string part = text.substr(0, at);
    text.erase(0, at == std::string::npos ? at : at + end.size());
    return part;
}

std::vector<Edit> EditsIn(std::string text) {
    constexpr std::size_t enough = 64;
    std::vector<Edit> edits;
    while (!text.empty() && edits.size() < enough) {
        Edit edit;
        for (std::string* part : {&edit.section, &edit.key, &edit.value})
            *part = Take(text, "\x1F");
        edits.push_back(edit);
    }
    return edits;
}

std::string Trimmed(const std::string& text) {
    const std::size_t first = text.find_first_not_of(" \t");
    if (first == std::string::npos) return {};
    return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

// What tells names apart.
std::string Folded(const std::string& name) {
    std::string folded = Trimmed(name);
    for (char& c : folded) {
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    }
    return folded;
}

std::vector<std::string> LinesOf(const std::string& text) {
    std::vector<std::string> lines;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool isSecondHalf = text[i] == '\n' && i > 0 && text[i - 1] == '\r';
        const bool isBehindEnd = i == 0 || text[i - 1] == '\n' || text[i - 1] == '\r';
        if (isBehindEnd && !isSecondHalf) lines.emplace_back();
        lines.back() += text[i];
    }
    return lines;
}

std::string AsRead(std::string stored) {
    const std::size_t end = stored.find('\0');
    if (end != std::string::npos) {
        stored.resize(end);
        while (!stored.empty() && (stored.back() == ' ' || stored.back() == '\t'))
            stored.pop_back();
    }
    const bool isQuoted = stored.size() > 1 && stored.front() == stored.back() &&
                          (stored.front() == '"' || stored.front() == '\'');
    return isQuoted ? stored.substr(1, stored.size() - 2) : stored;
}

// The value that a written one comes back as.
std::string OnOneLine(const std::string& value) {
    std::string plain;
    for (std::size_t i = 0; i < value.size() && value[i] != '\0'; ++i) {
        const bool isBreak = value[i] == '\n' || value[i] == '\r';
        if (value[i] == '\n' && i > 0 && value[i - 1] == '\r') continue;
        plain += isBreak ? ' ' : value[i];
    }
    return plain;
}

std::string AsStored(const std::string& plain) {
    return AsRead(Trimmed(plain)) == plain ? plain : '"' + plain + '"';
}

bool CanBeName(const std::string& name) {
    return !name.empty() && name[0] != ';' && name[0] != '[' &&
           name.find_first_of(std::string("=\r\n\0", 4)) == std::string::npos;
}

// A file line by line, each with its line break, that is read from its first line on each time.
class PlainFile {
  public:
    explicit PlainFile(const std::string& bytes)
        : m_mark(bytes.compare(0, 3, "\xEF\xBB\xBF") == 0 ? bytes.substr(0, 3) : ""),
          m_lines(LinesOf(bytes.substr(m_mark.size()))) {}

    std::string Bytes() const {
        std::string bytes = m_mark;
        for (const std::string& line : m_lines) bytes += line;
        return bytes;
    }

    Value Read(const Edit& edit) const {
        const Place place = Find(edit);
        if (!place.line) return std::nullopt;
        return AsRead(m_lines[*place.line].substr(place.valueAt, place.valueSize));
    }

    // False when it is refused.
    bool Write(const Edit& edit) {
        const Place place = Find(edit);
        const std::string plain = OnOneLine(edit.value);
        if (place.line) {
            if (Read(edit) == plain) return true;
            m_lines[*place.line].replace(place.valueAt, place.valueSize, AsStored(plain));
            return true;
        }
        const std::string section = Trimmed(edit.section);
        const std::string key = Trimmed(edit.key);
        if (!CanBeName(key)) return false;
        if (place.section) {
            Insert(place.lastLine + 1, key + "=" + AsStored(plain));
            return true;
        }
        if (!CanBeName(section) || section.find(']') != std::string::npos) return false;
        Insert(m_lines.size(), "[" + section + "]");
        Insert(m_lines.size(), key + "=" + AsStored(plain));
        return true;
    }

  private:
    struct Place {
        std::optional<std::size_t> section;  // the line of the header
        std::size_t lastLine = 0;            // the section's last key, or its header
        std::optional<std::size_t> line;     // the key's
        std::size_t valueAt = 0;
        std::size_t valueSize = 0;
    };

    Place Find(const Edit& edit) const {
        const std::string section = Folded(edit.section);
        const std::string key = Folded(edit.key);
        Place place;
        bool isInside = false;
        for (std::size_t i = 0; i < m_lines.size(); ++i) {
            const std::string content = m_lines[i].substr(0, m_lines[i].find_first_of("\r\n"));
            const std::size_t first = content.find_first_not_of(" \t");
            if (first == std::string::npos || content[first] == ';') continue;
            if (content[first] == '[') {
                const std::size_t end = content.find(']', first);
                if (end == std::string::npos) continue;
                const std::string name = Folded(content.substr(first + 1, end - first - 1));
                isInside = !section.empty() && name == section && !place.section;
                if (isInside) place.section = place.lastLine = i;
                continue;
            }
            const std::size_t equals = content.find('=');
            if (!isInside || equals == std::string::npos || equals == first) continue;
            place.lastLine = i;
            if (place.line || Folded(content.substr(0, equals)) != key) continue;
            place.line = i;
            place.valueSize = Trimmed(content.substr(equals + 1)).size();
            place.valueAt =
                place.valueSize == 0 ? equals + 1 : content.find_first_not_of(" \t", equals + 1);
        }
        return place;
    }

    void Insert(std::size_t at, const std::string& line) {
        const auto place = m_lines.begin() + static_cast<std::ptrdiff_t>(at);
        if (at > 0 && m_lines[at - 1].find_first_of("\r\n") == std::string::npos) {
            m_lines[at - 1] += "\r\n";
        }
        m_lines.insert(place, line + "\r\n");
    }

    const std::string m_mark;
    std::vector<std::string> m_lines;
};

Value Read(ProfileText& profile, const Edit& edit) {
    const std::optional<std::string_view> value = profile.Value(edit.section, edit.key);
    return value ? Value(*value) : Value();
}

std::string BytesOf(const ProfileText& profile) {
    std::string bytes;
    profile.Tell([&](std::string_view piece) { bytes += piece; });
    return bytes;
}

// Each edit's place, and that key in the section of the edit before.
std::vector<Edit> PlacesOf(const std::vector<Edit>& edits) {
    std::vector<Edit> places = edits;
    for (std::size_t i = 1; i < edits.size(); ++i) {
        places.push_back({edits[i - 1].section, edits[i].key, {}});
    }
    return places;
}

void CheckPlaces(ProfileText& profile, const PlainFile& plain, const std::vector<Edit>& edits) {
    for (const Edit& place : PlacesOf(edits)) {
        Check(Read(profile, place) == plain.Read(place), "a value reads otherwise");
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string input(reinterpret_cast<const char*>(data), size);
    const std::string file = Take(input, "%%");
    const std::vector<Edit> edits = EditsIn(input);
    ProfileText profile{file};
    PlainFile plain(file);
    Check(BytesOf(profile) == file, "reading changed bytes");
    CheckPlaces(profile, plain, edits);
    for (const Edit& edit : edits) {
        const bool isWritten = plain.Write(edit);
        Check(profile.Write(edit.section, edit.key, edit.value) == isWritten,
              "a write is refused that should not be, or the other way round");
        if (isWritten) Check(Read(profile, edit) == OnOneLine(edit.value), "a value is another");
    }
    const std::string bytes = BytesOf(profile);
    Check(bytes == plain.Bytes(), "the file is another than it should be");
    Check(profile.IsChanged() || bytes == file, "a change is not told");
    ProfileText again{bytes};
    for (ProfileText* text : {&profile, &again}) CheckPlaces(*text, plain, edits);
    return 0;
}
