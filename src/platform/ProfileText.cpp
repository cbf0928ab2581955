#include "platform/ProfileText.h"

#include "platform/ProfileLines.h"

#include <algorithm>
#include <utility>

namespace tavel {

namespace {

constexpr std::string_view utf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view newLine = "\r\n";

bool IsLineBreak(char c) { return c == '\r' || c == '\n'; }

bool CanBeSection(std::string_view name) {
    return CanBeKey(name) && name.find(']') == std::string_view::npos;
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

// True when both hold the same keys in the same order and to put `after` in the place of `before`
// leaves what stands around changed values as it was.
bool DifferOnlyInValues(std::string_view before, std::string_view after) {
    LineReader old(before, 0);
    LineReader fresh(after, 0);
    while (!old.AtEnd() && !fresh.AtEnd()) {
        const std::size_t start = old.Next();
        const std::string_view oldLine = old.Take();
        const std::string_view line = fresh.Take();
        if (before.substr(start + oldLine.size(), old.Next() - start - oldLine.size()) != newLine) {
            return false;
        }
        if (oldLine == line) continue;
        const std::size_t equals = line.find('=');
        if (oldLine.substr(0, equals + 1) != line.substr(0, equals + 1)) return false;
        const std::string_view oldValue = oldLine.substr(equals + 1);
        if (WithoutBlanks(oldValue) != oldValue) return false;
        if (ValueAsRead(oldValue) == ValueAsRead(line.substr(equals + 1))) return false;
    }
    return old.AtEnd() && fresh.AtEnd();
}

}  // namespace

ProfileText::ProfileText(std::string bytes) : m_read(std::move(bytes)) { Parse(); }

void ProfileText::Parse() {
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
    section.body = std::string_view(m_read).substr(nextLine, 0);
    return AddSection(section);
}

void ProfileText::ParseKey(std::string_view line, std::uint32_t section, std::uint32_t nextLine) {
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos) return;
    const std::string_view name = WithoutBlanksAfter(line.substr(0, equals));
    if (name.empty()) return;
    Section& owner = m_sections[section];
    owner.insertAt = nextLine;
    owner.body = {owner.body.data(),
                  static_cast<std::size_t>(m_read.data() + nextLine - owner.body.data())};
    if (FindKey(section, name) != None) return;
    const std::string_view value = WithoutBlanks(line.substr(equals + 1));
    owner.endKey = AddKey(owner.keyNames, name, value, Origin::Read) + 1;
}

std::uint32_t ProfileText::AddKey(NameTable::Group& group, std::string_view name,
                                  std::string_view value, Origin origin) {
    const auto index = static_cast<std::uint32_t>(m_keys.size());
    const auto nameSize = static_cast<std::uint32_t>(name.size());
    const auto valueSize = static_cast<std::uint32_t>(value.size());
    m_keys.push_back({name.data(), value.data(), nameSize, valueSize, None, origin});
    m_names.Insert(group, HashOfName(name), index);
    return index;
}

std::uint32_t ProfileText::FindSection(std::string_view name) {
    const auto isNamed = [&](std::uint32_t index) {
        return SameName(m_sections[index].name, name);
    };
    if (m_lastSection != None && isNamed(m_lastSection)) return m_lastSection;
    const std::uint32_t next = m_lastSection + 1;
    if (next < m_sections.size() && isNamed(next)) return m_lastSection = next;
    const std::uint32_t found = m_names.Find(m_sectionNames, HashOfName(name), isNamed);
    if (found != None) m_lastSection = found;
    return found;
}

std::uint32_t ProfileText::FindKey(std::uint32_t section, std::string_view name) {
    if (!m_sections[section].unlisted.empty()) ListKeys(section);
    const auto isNamed = [&](std::uint32_t index) { return SameName(m_keys[index].Name(), name); };
    const Section& owner = m_sections[section];
    const std::uint32_t next = m_lastKey + 1;
    if (next >= owner.firstKey && next < owner.endKey && isNamed(next)) return m_lastKey = next;
    const std::uint32_t found = m_names.Find(owner.keyNames, HashOfName(name), isNamed);
    if (found != None) m_lastKey = found;
    return found;
}

std::uint32_t ProfileText::AddSection(const Section& section) {
    const auto index = static_cast<std::uint32_t>(m_sections.size());
    m_sections.push_back(section);
    m_names.Insert(m_sectionNames, HashOfName(section.name), index);
    return m_lastSection = index;
}

std::optional<std::string_view> ProfileText::Value(std::string_view section, std::string_view key) {
    const std::uint32_t inSection = FindSection(section);
    if (inSection == None) return std::nullopt;
    const std::uint32_t found = FindKey(inSection, WithoutBlanks(key));
    if (found == None) return std::nullopt;
    return ValueAsRead(m_keys[found].Value());
}

bool ProfileText::Write(std::string_view section, std::string_view key, std::string_view value) {
    key = WithoutBlanks(key);
    std::string room;
    value = ValueAsStored(value, room);
    std::uint32_t inSection = FindSection(section);
    const std::uint32_t found = inSection == None ? None : FindKey(inSection, key);
    if (found != None) {
        if (ValueAsRead(m_keys[found].Value()) == ValueAsRead(value)) return true;
        m_isChanged = m_sections[inSection].isEdited = true;
        Replace(found, value);
        return true;
    }
    if (!CanBeKey(key) || (inSection == None && !CanBeSection(section))) return false;
    if (inSection == None) inSection = AppendSection(section);
    m_isChanged = m_sections[inSection].isEdited = true;
    AppendKey(inSection, key, value);
    return true;
}

bool ProfileText::Write(std::string_view section, const ProfileLines& lines) {
    if (lines.Bytes().empty()) return true;
    const std::uint32_t inSection = FindSection(section);
    if (inSection == None) {
        if (!CanBeSection(section)) return false;
        m_isChanged = true;
        Section& added = m_sections[AppendSection(section)];
        added.body = added.unlisted = Kept(lines.Bytes());
        return true;
    }
    Section& present = m_sections[inSection];
    if (!present.isEdited) {
        if (present.body == lines.Bytes()) return true;
        if (DifferOnlyInValues(present.body, lines.Bytes())) {
            PutInPlaceOfBody(present, lines.Bytes());
            return true;
        }
    }
    for (LineReader reader(lines.Bytes(), 0); !reader.AtEnd();) {
        const std::string_view line = reader.Take();
        const std::size_t equals = line.find('=');
        Write(section, line.substr(0, equals), ValueAsRead(line.substr(equals + 1)));
    }
    return true;
}

// What stands in the read bytes goes, and the lines are new ones of the section.
void ProfileText::PutInPlaceOfBody(Section& section, std::string_view lines) {
    if (!section.isNew && !section.isBodyNew) {
        const auto at = static_cast<std::uint32_t>(section.body.data() - m_read.data());
        m_replaced.push_back({None, at, static_cast<std::uint32_t>(section.body.size())});
    }
    section.body = section.unlisted = Kept(lines);
    section.isBodyNew = m_isChanged = true;
    section.keyNames = {};
    section.firstKey = section.endKey = 0;
    section.firstNew = section.lastNew = None;
}

std::string_view ProfileText::Kept(std::string_view text) {
    char* const place = m_added.Take(text.size());
    std::copy(text.begin(), text.end(), place);
    return {place, text.size()};
}

void ProfileText::Replace(std::uint32_t index, std::string_view value) {
    Key& key = m_keys[index];
    if (key.origin == Origin::Read) {
        const auto at = static_cast<std::uint32_t>(key.value - m_read.data());
        m_replaced.push_back({index, at, key.valueSize});
    }
    key.value = Kept(value).data();
    key.valueSize = static_cast<std::uint32_t>(value.size());
    key.origin = Origin::Apart;
}

std::uint32_t ProfileText::AppendSection(std::string_view name) {
    Section added;
    added.name = Kept(name);
    added.insertAt = static_cast<std::uint32_t>(m_read.size());
    added.isNew = true;
    return AddSection(added);
}

// The whole line is kept in one piece, so that it goes into the file in one.
void ProfileText::AppendKey(std::uint32_t section, std::string_view name, std::string_view value) {
    char* const line = m_added.Take(name.size() + 1 + value.size() + newLine.size());
    char* const equals = std::copy(name.begin(), name.end(), line);
    *equals = '=';
    char* const end = std::copy(value.begin(), value.end(), equals + 1);
    std::copy(newLine.begin(), newLine.end(), end);
    AddNewLine(section, {line, name.size()}, {equals + 1, value.size()});
}

void ProfileText::AddNewLine(std::uint32_t section, std::string_view name, std::string_view value) {
    Section& owner = m_sections[section];
    const std::uint32_t index = AddKey(owner.keyNames, name, value, Origin::NewLine);
    (owner.lastNew == None ? owner.firstNew : m_keys[owner.lastNew].nextNew) = index;
    owner.lastNew = index;
}

void ProfileText::ListKeys(std::uint32_t section) {
    for (LineReader reader(std::exchange(m_sections[section].unlisted, {}), 0); !reader.AtEnd();) {
        const std::string_view line = reader.Take();
        const std::size_t equals = line.find('=');
        AddNewLine(section, line.substr(0, equals), line.substr(equals + 1));
    }
}

// Passes the read bytes on, with the replaced values in their places, and what is put between.
class ProfileText::Output {
  public:
    Output(const ProfileText& text, const Sink& sink)
        : m_text(text), m_sink(sink), m_replaced(text.m_replaced) {
        m_buffer.reserve(bufferSize);
        std::sort(m_replaced.begin(), m_replaced.end(),
                  [](const Replaced& a, const Replaced& b) { return a.at < b.at; });
        m_next = m_replaced.begin();
    }

    void CopyUpTo(std::size_t place) {
        const std::string_view read = m_text.m_read;
        for (; m_next != m_replaced.end() && m_next->at <= place; ++m_next) {
            Put(read.substr(m_done, m_next->at - m_done));
            if (m_next->key != None) Put(m_text.m_keys[m_next->key].Value());
            m_done = m_next->at + m_next->size;
        }
        Put(read.substr(m_done, place - m_done));
        m_done = place;
    }

    void Put(std::string_view bytes) {
        if (m_buffer.size() + bytes.size() > bufferSize) Flush();
        if (bytes.size() > bufferSize) {
            m_sink(bytes);
        } else {
            m_buffer += bytes;
        }
    }

    void Flush() {
        m_sink(m_buffer);
        m_buffer.clear();
    }

  private:
    static constexpr std::size_t bufferSize = 128 * 1024;

    const ProfileText& m_text;
    const Sink& m_sink;
    std::vector<Replaced> m_replaced;  // in the order of the read bytes
    std::vector<Replaced>::const_iterator m_next;
    std::size_t m_done = 0;
    std::string m_buffer;
};

void ProfileText::Tell(const Sink& sink) const {
    Output output(*this, sink);
    bool endIsUnfinished = EndsUnfinished(m_read);
    for (const Section& section : m_sections) {
        if (section.firstNew == None && section.unlisted.empty()) continue;
        output.CopyUpTo(section.insertAt);
        const bool isAtEnd = section.insertAt == m_read.size();
        if (isAtEnd && std::exchange(endIsUnfinished, false)) output.Put(newLine);
        PutNew(section, output);
    }
    output.CopyUpTo(m_read.size());
    output.Flush();
}

void ProfileText::PutNew(const Section& section, Output& output) const {
    if (section.isNew) {
        output.Put("[");
        output.Put(section.name);
        output.Put("]\r\n");
    }
    output.Put(section.unlisted);
    for (std::uint32_t i = section.firstNew; i != None; i = m_keys[i].nextNew) {
        const Key& key = m_keys[i];
        if (key.origin == Origin::NewLine) {
            output.Put({key.name, key.nameSize + 1 + key.valueSize + newLine.size()});
            continue;
        }
        output.Put(key.Name());
        output.Put("=");
        output.Put(key.Value());
        output.Put(newLine);
    }
}

std::string ProfileText::Bytes() const {
    std::string bytes;
    Tell([&](std::string_view piece) { bytes += piece; });
    return bytes;
}

}  // namespace tavel
