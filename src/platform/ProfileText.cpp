#include "platform/ProfileText.h"

#include <algorithm>
#include <utility>

namespace tavel {

using namespace std::string_view_literals;

namespace {

constexpr std::string_view utf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view newLine = "\r\n";

// Takes the first line off the text, with its line break.
std::string_view TakeLine(std::string_view& text) {
    const auto end = std::find_if(text.begin(), text.end(), IsLineBreak);
    auto size = static_cast<std::size_t>(end - text.begin());
    if (size < text.size()) size += text.substr(size, 2) == newLine ? 2 : 1;
    const std::string_view line = text.substr(0, size);
    text.remove_prefix(size);
    return line;
}

std::string_view WithoutBreak(std::string_view line) {
    return line.substr(0, line.find_last_not_of(newLine) + 1);
}

}  // namespace

// The parts put together, for as long as the profile lives.
template <class... Parts>
std::string_view ProfileText::Keep(Parts... parts) {
    const std::size_t size = (parts.size() + ...);
    char* const text = static_cast<char*>(m_room.allocate(size, 1));
    char* end = text;
    ((end = std::copy(parts.begin(), parts.end(), end)), ...);
    return {text, size};
}

ProfileText::ProfileText(std::string bytes) : m_read(std::move(bytes)) {
    std::string_view text = m_read;
    if (text.starts_with(utf8Mark)) m_mark = utf8Mark;
    text.remove_prefix(m_mark.size());
    Parse(text);
}

void ProfileText::Parse(std::string_view text) {
    Section* section = nullptr;
    while (!text.empty()) {
        const std::string_view line = TakeLine(text);
        const std::string_view content = WithoutBlanksBefore(WithoutBreak(line));
        const std::size_t bracket = content.starts_with('[') ? content.find(']') : content.npos;
        const bool isHeader = bracket != content.npos;
        if (isHeader) section = ParseHeader(line, WithoutBlanks(content.substr(1, bracket - 1)));
        const bool isKnown = section != nullptr && (isHeader || ParseKey(*section, line, content));
        if (!isKnown) AddOther(line);
    }
}

// Null when the keys behind the header are out of reach.
ProfileText::Section* ProfileText::ParseHeader(std::string_view line, std::string_view name) {
    if (name.empty() || FindSection(name) != nullptr) return nullptr;
    return &AddSection(Line(line, name, name));
}

bool ProfileText::ParseKey(Section& section, std::string_view line, std::string_view content) {
    if (content.starts_with(';') || content.starts_with('[')) return false;
    const std::size_t equals = content.find('=');
    if (equals == content.npos) return false;
    const std::string_view name = WithoutBlanksAfter(content.substr(0, equals));
    if (name.empty()) return false;
    AddKey(section, Line(line, name, WithoutBlanks(content.substr(equals + 1))), m_lines.end());
    return true;
}

void ProfileText::AddOther(std::string_view line) {
    if (m_lines.empty() || m_lines.back().nameSize != 0) {
        m_lines.emplace_back(line);
    } else {
        std::string_view& before = m_lines.back().text;
        before = {before.data(), before.size() + line.size()};
    }
}

// A library is read and written in the order of its sections: most of them are, or would be, where
// the last one is or right behind it.
ProfileText::Section* ProfileText::FindSection(std::string_view name) {
    const auto end = m_sections.end();
    const auto isHere = [&] { return m_last != end && SameName(m_last->first, name); };
    const auto isBehind = [&] { return m_last != end && NameOrder()(m_last->first, name); };
    if (isHere()) return &m_last->second;
    const bool isBehindLast = isBehind();
    if (isBehindLast) ++m_last;
    if (!isBehindLast || isBehind()) m_last = m_sections.lower_bound(name);
    return isHere() ? &m_last->second : nullptr;
}

// Of the few keys that most sections have, each is looked at.
ProfileText::Line* ProfileText::FindKey(Section& section, std::string_view name) {
    constexpr std::size_t few = 32;
    if (name.empty()) return nullptr;
    const auto first = std::next(section.header);
    const auto end = std::next(section.last);
    if (section.keyCount <= few) {
        const auto isNamed = [&](const Line& line) { return SameName(line.Name(), name); };
        const auto found = std::find_if(first, end, isNamed);
        return found == end ? nullptr : &*found;
    }
    if (section.keys.empty()) {
        for (auto line = first; line != end; ++line)
            section.keys.try_emplace(section.keys.end(), line->Name(), &*line);
    }
    const auto found = section.keys.find(name);
    return found == section.keys.end() ? nullptr : found->second;
}

std::optional<std::string_view> ProfileText::Value(std::string_view section, std::string_view key) {
    Section* const inSection = FindSection(WithoutBlanks(section));
    if (inSection == nullptr) return std::nullopt;
    const Line* const line = FindKey(*inSection, WithoutBlanks(key));
    if (line == nullptr) return std::nullopt;
    return ValueAsRead(line->Value());
}

bool ProfileText::Write(std::string_view section, std::string_view key, std::string_view value) {
    section = WithoutBlanks(section);
    key = WithoutBlanks(key);
    Section* inSection = FindSection(section);
    Line* const line = inSection == nullptr ? nullptr : FindKey(*inSection, key);
    // As nearly all of a save.
    if (line != nullptr && ValueAsRead(line->Value()) == value) return true;
    std::string room;
    const std::string_view stored = ValueAsStored(value, room);
    if (line != nullptr) {
        if (ValueAsRead(line->Value()) == ValueAsRead(stored)) return true;
        Replace(*line, stored);
    } else {
        if (!CanBeKey(key) || (inSection == nullptr && !CanBeSection(section))) return false;
        if (inSection == nullptr) inSection = &AppendSection(section);
        AppendKey(*inSection, key, stored);
    }
    m_isChanged = true;
    return true;
}

void ProfileText::Replace(Line& line, std::string_view value) {
    const std::string_view before = line.text.substr(0, line.valueAt);
    const std::string_view after = line.text.substr(line.valueAt + line.valueSize);
    line.text = Keep(before, value, after);
    line.valueSize = static_cast<std::uint32_t>(value.size());
    // Where reading the file anew would find it.
    if (value.empty()) line.valueAt = static_cast<std::uint32_t>(line.text.find('=') + 1);
}

void ProfileText::AppendKey(Section& section, std::string_view name, std::string_view value) {
    Finish(*section.last);
    const std::string_view text = Keep(name, "="sv, value, newLine);
    const Line line(text, text.substr(0, name.size()), text.substr(name.size() + 1, value.size()));
    Line& key = AddKey(section, line, std::next(section.last));
    if (!section.keys.empty()) section.keys.try_emplace(key.Name(), &key);
}

ProfileText::Section& ProfileText::AppendSection(std::string_view name) {
    if (!m_lines.empty()) Finish(m_lines.back());
    const std::string_view line = Keep("["sv, name, "]"sv, newLine);
    name = line.substr(1, name.size());
    return AddSection(Line(line, name, name));
}

ProfileText::Section& ProfileText::AddSection(const Line& header) {
    const auto line = m_lines.insert(m_lines.end(), header);
    Section section{line, line, 0, Index<Line*>(&m_room)};
    m_last = m_sections.try_emplace(m_last, line->Name(), std::move(section));
    return m_last->second;
}

ProfileText::Line& ProfileText::AddKey(Section& section, const Line& key, Lines::iterator place) {
    section.last = m_lines.insert(place, key);
    ++section.keyCount;
    return *section.last;
}

// An unfinished last line of the file is finished before something is put behind it.
void ProfileText::Finish(Line& line) {
    if (!IsLineBreak(line.text.back())) line.text = Keep(line.text, newLine);
}

void ProfileText::Tell(const Sink& sink) const {
    constexpr std::size_t enough = 64 * 1024;
    std::string piece(m_mark);
    for (const Line& line : m_lines) {
        piece += line.text;
        if (piece.size() < enough) continue;
        sink(piece);
        piece.clear();
    }
    sink(piece);
}

}  // namespace tavel
