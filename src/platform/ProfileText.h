#pragma once

#include "platform/ProfileSpelling.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <list>
#include <map>
#include <memory_resource>
#include <optional>
#include <string>
#include <string_view>

namespace tavel {

// The lines of a profile file in memory, with the values of its keys looked up and edited; no file
// is touched. Any bytes are a profile. A line ends at CR LF, LF or CR; a first visible character
// ";" makes it a comment, "[" a header up to the first "]", anything else with a name before a "="
// a key. Blanks around names do not count. Only the first of equal sections is known, and in it the
// first of equal keys. Keys before the first header, or behind a header without a name, cannot be
// reached.
class ProfileText {
  public:
    // What a file may hold: places in a line are 32-bit numbers.
    static constexpr std::size_t MaxSize = std::size_t{1} << 30;

    // Takes at most MaxSize bytes.
    explicit ProfileText(std::string bytes);
    ProfileText(const ProfileText&) = delete;
    ProfileText& operator=(const ProfileText&) = delete;

    // The value as it reads: without the blanks around it, then without one pair of equal quotes.
    // A NUL ends it. The view is good until the next Write.
    std::optional<std::string_view> Value(std::string_view section, std::string_view key);

    // Replaces the value in place, or puts the new key behind the last key of its section, or a
    // new section at the end; a value that reads the same already changes nothing. A NUL ends the
    // value, a line break in it becomes one blank, and one that would not survive its reading gets
    // an extra pair of quotes. False, with nothing changed, for a new key or section of a name
    // that could not be found again: an empty one, one with "=" or a line break or a NUL, one that
    // begins with ";" or "[", and a section with "]".
    bool Write(std::string_view section, std::string_view key, std::string_view value);

    // True once Write has changed something.
    bool IsChanged() const { return m_isChanged; }

    // The whole file as it stands, in pieces.
    using Sink = std::function<void(std::string_view)>;
    void Tell(const Sink& sink) const;

  private:
    // A header or a key with its line break or, without a name, what stands between those.
    struct Line {
        explicit Line(std::string_view whole) : Line(whole, whole.substr(0, 0), whole) {}
        // Name and value are parts of the text.
        Line(std::string_view whole, std::string_view name, std::string_view value)
            : text(whole),
              nameAt(static_cast<std::uint32_t>(name.data() - whole.data())),
              nameSize(static_cast<std::uint32_t>(name.size())),
              valueAt(static_cast<std::uint32_t>(value.data() - whole.data())),
              valueSize(static_cast<std::uint32_t>(value.size())) {}

        std::string_view Name() const { return {text.data() + nameAt, nameSize}; }
        std::string_view Value() const { return {text.data() + valueAt, valueSize}; }

        std::string_view text;
        std::uint32_t nameAt;
        std::uint32_t nameSize;
        std::uint32_t valueAt;
        std::uint32_t valueSize;
    };
    using Lines = std::pmr::list<Line>;

    // An ordered map, since no file can be made that it becomes slow with.
    template <class Named>
    using Index = std::pmr::map<std::string_view, Named, NameOrder>;

    struct Section {
        Lines::iterator header;
        Lines::iterator last;  // its last key; the header when it has none
        std::size_t keyCount = 0;
        Index<Line*> keys;  // empty until one of many is looked for
    };

    void Parse(std::string_view text);
    Section* ParseHeader(std::string_view line, std::string_view name);
    bool ParseKey(Section& section, std::string_view line, std::string_view content);
    void AddOther(std::string_view line);
    Section* FindSection(std::string_view name);
    Line* FindKey(Section& section, std::string_view name);
    Section& AddSection(const Line& header);
    Line& AddKey(Section& section, const Line& key, Lines::iterator place);
    Section& AppendSection(std::string_view name);
    void AppendKey(Section& section, std::string_view name, std::string_view value);
    void Replace(Line& line, std::string_view value);
    void Finish(Line& line);
    template <class... Parts>
    std::string_view Keep(Parts... parts);

    const std::string m_read;
    std::string_view m_mark;                     // a UTF-8 mark at its start
    std::pmr::monotonic_buffer_resource m_room;  // for all below, and for the text that is written
    Lines m_lines{&m_room};
    Index<Section> m_sections{&m_room};
    Index<Section>::iterator m_last = m_sections.end();  // where a section was looked for last
    bool m_isChanged = false;
};

}  // namespace tavel
