#include "platform/ProfileText.h"

#include <algorithm>
#include <utility>

namespace tavel {

namespace {

constexpr std::string_view utf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view newLine = "\r\n";

bool IsBlank(char c) { return c == ' ' || c == '\t'; }
bool IsLineBreak(char c) { return c == '\r' || c == '\n'; }
bool IsQuote(char c) { return c == '"' || c == '\''; }

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

// Of blanks alone the beginning is left, so that a value goes directly behind its "=".
std::string_view WithoutBlanks(std::string_view text) {
    return WithoutBlanksBefore(WithoutBlanksAfter(text));
}

bool IsQuoted(std::string_view value) {
    return value.size() >= 2 && IsQuote(value.front()) && value.front() == value.back();
}

std::string_view AsRead(std::string_view stored) {
    const std::size_t end = stored.find('\0');
    if (end != std::string_view::npos) stored = WithoutBlanksAfter(stored.substr(0, end));
    return IsQuoted(stored) ? stored.substr(1, stored.size() - 2) : stored;
}

bool NeedsQuotes(std::string_view value) {
    if (value.empty()) return false;
    return IsBlank(value.front()) || IsBlank(value.back()) || IsQuoted(value);
}

bool IsOneLine(std::string_view value) {
    return std::none_of(value.begin(), value.end(),
                        [](char c) { return c == '\0' || IsLineBreak(c); });
}

std::string OnOneLine(std::string_view value) {
    value = value.substr(0, value.find('\0'));
    std::string line;
    for (std::size_t i = 0; i < value.size(); ++i) {
        line.push_back(IsLineBreak(value[i]) ? ' ' : value[i]);
        if (value.substr(i, newLine.size()) == newLine) ++i;
    }
    return line;
}

bool CanBeFoundAgain(std::string_view name) {
    if (name.empty() || name.front() == ';' || name.front() == '[') return false;
    return IsOneLine(name) && name.find('=') == std::string_view::npos;
}

// Walks over lines. The next LF is remembered, so that a file without any is searched only once.
class LineReader {
  public:
    LineReader(std::string_view text, std::size_t start) : m_text(text), m_next(start) {}

    bool AtEnd() const { return m_next == m_text.size(); }
    std::size_t Next() const { return m_next; }  // where the line after the one taken starts

    std::string_view Take() {
        const std::size_t start = m_next;
        if (m_feed < start || start == 0)
            m_feed = std::min(m_text.find('\n', start), m_text.size());
        const std::string_view upToFeed = m_text.substr(start, m_feed - start);
        const std::size_t size = std::min(upToFeed.find('\r'), upToFeed.size());
        m_next = start + size;
        if (m_next < m_feed) ++m_next;
        if (m_next == m_feed && m_next < m_text.size()) ++m_next;
        return upToFeed.substr(0, size);
    }

  private:
    std::string_view m_text;
    std::size_t m_next;
    std::size_t m_feed = 0;
};

std::size_t SizeOfMark(std::string_view bytes) {
    return bytes.substr(0, utf8Mark.size()) == utf8Mark ? utf8Mark.size() : 0;
}

bool EndsUnfinished(std::string_view bytes) {
    return bytes.size() > SizeOfMark(bytes) && !IsLineBreak(bytes.back());
}

}  // namespace

ProfileText::ProfileText(std::string bytes) : m_read(std::move(bytes)) { Parse(); }

void ProfileText::Parse() {
    constexpr std::size_t usualBytesPerKey = 24;
    m_keys.reserve(m_read.size() / usualBytesPerKey);
    m_keyTable.Reserve(m_read.size() / usualBytesPerKey);
    std::uint32_t section = None;
    LineReader lines(m_read, SizeOfMark(m_read));
    while (!lines.AtEnd()) {
        const std::string_view line = WithoutBlanksBefore(lines.Take());
        const auto nextLine = static_cast<std::uint32_t>(lines.Next());
        if (line.empty() || line.front() == ';') continue;
        if (line.front() != '[') {
            if (section != None) ParseKey(line, section, nextLine);
        } else if (line.find(']') != std::string_view::npos) {
            section = ParseHeader(line, nextLine);
        }
    }
}

// The section that the keys behind the header belong to; None when they are out of reach.
std::uint32_t ProfileText::ParseHeader(std::string_view line, std::uint32_t nextLine) {
    const std::string_view name = line.substr(1, line.find(']') - 1);
    if (name.empty() || FindSection(name) != None) return None;
    Section section;
    section.name = name;
    section.firstKey = section.endKey = static_cast<std::uint32_t>(m_keys.size());
    section.insertAt = nextLine;
    return AddSection(section);
}

void ProfileText::ParseKey(std::string_view line, std::uint32_t section, std::uint32_t nextLine) {
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos) return;
    Key key;
    key.name = WithoutBlanksAfter(line.substr(0, equals));
    if (key.name.empty()) return;
    m_sections[section].insertAt = nextLine;
    if (FindKey(section, key.name) != None) return;
    key.value = WithoutBlanks(line.substr(equals + 1));
    key.section = section;
    key.valueAt = static_cast<std::uint32_t>(key.value.data() - m_read.data());
    key.valueSize = static_cast<std::uint32_t>(key.value.size());
    m_sections[section].endKey = AddKey(key) + 1;
}

std::uint32_t ProfileText::FindSection(std::string_view name) const {
    return m_sectionTable.Find(HashOfName(name, 0), [&](std::uint32_t index) {
        return SameName(m_sections[index].name, name);
    });
}

std::uint32_t ProfileText::FindKey(std::uint32_t section, std::string_view name) const {
    return m_keyTable.Find(HashOfName(name, section), [&](std::uint32_t index) {
        return m_keys[index].section == section && SameName(m_keys[index].name, name);
    });
}

std::uint32_t ProfileText::AddSection(const Section& section) {
    const auto index = static_cast<std::uint32_t>(m_sections.size());
    m_sections.push_back(section);
    m_sectionTable.Insert(HashOfName(section.name, 0), index);
    return index;
}

std::uint32_t ProfileText::AddKey(const Key& key) {
    const auto index = static_cast<std::uint32_t>(m_keys.size());
    m_keys.push_back(key);
    m_keyTable.Insert(HashOfName(key.name, key.section), index);
    return index;
}

std::optional<std::string_view> ProfileText::Value(std::string_view section,
                                                   std::string_view key) const {
    const std::uint32_t inSection = FindSection(section);
    if (inSection == None) return std::nullopt;
    const std::uint32_t found = FindKey(inSection, WithoutBlanks(key));
    if (found == None) return std::nullopt;
    return AsRead(m_keys[found].value);
}

bool ProfileText::Write(std::string_view section, std::string_view key, std::string_view value) {
    key = WithoutBlanks(key);
    if (!CanBeFoundAgain(key) || !CanBeFoundAgain(section)) return false;
    if (section.find(']') != std::string_view::npos) return false;

    std::string changed;
    if (!IsOneLine(value)) value = changed = OnOneLine(value);
    std::uint32_t inSection = FindSection(section);
    const std::uint32_t found = inSection == None ? None : FindKey(inSection, key);
    if (found != None && AsRead(m_keys[found].value) == value) return true;

    if (NeedsQuotes(value)) value = changed = '"' + std::string(value) + '"';
    if (found != None) {
        Replace(m_keys[found], value);
        return true;
    }
    if (inSection == None) {
        Section added;
        added.name = m_added.Keep(section);
        added.insertAt = static_cast<std::uint32_t>(m_read.size());
        added.isNew = true;
        inSection = AddSection(added);
        m_addedBytes += section.size() + 2 + newLine.size();
    }
    Append(inSection, key, value);
    return true;
}

void ProfileText::Replace(Key& key, std::string_view value) {
    key.value = m_added.Keep(value);
    key.isReplaced = true;
    m_addedBytes += value.size();
    m_isChanged = true;
}

void ProfileText::Append(std::uint32_t section, std::string_view name, std::string_view value) {
    Key key;
    key.name = m_added.Keep(name);
    key.value = m_added.Keep(value);
    key.section = section;
    const std::uint32_t index = AddKey(key);
    Section& owner = m_sections[section];
    if (owner.lastNew == None) {
        owner.firstNew = index;
    } else {
        m_keys[owner.lastNew].nextNew = index;
    }
    owner.lastNew = index;
    m_addedBytes += name.size() + 1 + value.size() + newLine.size();
    m_isChanged = true;
}

std::string ProfileText::Bytes() const {
    const std::string_view read = m_read;
    std::string bytes;
    bytes.reserve(read.size() + m_addedBytes + newLine.size());
    std::size_t done = 0;
    bool endIsUnfinished = EndsUnfinished(read);
    const auto copyUpTo = [&](std::size_t place) {
        bytes += read.substr(done, place - done);
        done = place;
    };
    for (const Section& section : m_sections) {
        for (std::uint32_t i = section.firstKey; i < section.endKey; ++i) {
            const Key& key = m_keys[i];
            if (!key.isReplaced) continue;
            copyUpTo(key.valueAt);
            bytes += key.value;
            done += key.valueSize;
        }
        if (section.firstNew == None) continue;
        copyUpTo(section.insertAt);
        if (done == read.size() && std::exchange(endIsUnfinished, false)) bytes += newLine;
        if (section.isNew) {
            bytes += '[';
            bytes += section.name;
            bytes += ']';
            bytes += newLine;
        }
        for (std::uint32_t i = section.firstNew; i != None; i = m_keys[i].nextNew) {
            bytes += m_keys[i].name;
            bytes += '=';
            bytes += m_keys[i].value;
            bytes += newLine;
        }
    }
    copyUpTo(read.size());
    return bytes;
}

}  // namespace tavel
