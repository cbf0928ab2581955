#pragma once

#include "platform/BlockStore.h"
#include "platform/ProfileNames.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavel {

class ProfileLines;

// The bytes of a profile file with its keys looked up and edited in memory; no file is touched.
// Any bytes are a profile. A line ends at CR LF, LF or CR; a first visible character ";" makes it
// a comment, "[" a header up to the first "]", anything else with a name before a "=" a key. Only
// the first of equal sections is known, and in it the first of equal keys. Keys before the first
// header, or behind a header without a name, cannot be reached.
class ProfileText {
  public:
    // What a file may hold: places in it are 32-bit numbers.
    static constexpr std::size_t MaxSize = std::size_t{1} << 30;

    // Takes at most MaxSize bytes.
    explicit ProfileText(std::string bytes);
    ProfileText(const ProfileText&) = delete;
    ProfileText& operator=(const ProfileText&) = delete;

    // The value as it reads: without the blanks around it, then without one pair of equal quotes.
    // A NUL ends it. Blanks around `key` do not count. The view is good until the next Write.
    std::optional<std::string_view> Value(std::string_view section, std::string_view key);

    // Replaces the value in place, or puts the new key behind the last key of its section, or a
    // new section at the end; a value that reads the same already changes nothing. A NUL ends the
    // value, a line break in it becomes one blank, and one that would not survive its reading gets
    // an extra pair of quotes. False, with nothing changed, for names that could not be found
    // again: empty ones, those with "=" or a line break or a NUL, those that begin with ";" or "[",
    // and sections with "]".
    bool Write(std::string_view section, std::string_view key, std::string_view value);

    // As Write of each of the lines' keys in their order. False only for a section's name.
    bool Write(std::string_view section, const ProfileLines& lines);

    // True when Write has changed something since the last MarkSaved.
    bool IsChanged() const { return m_isChanged; }
    void MarkSaved() { m_isChanged = false; }

    // The whole file as it stands, in pieces of any size and in one.
    using Sink = std::function<void(std::string_view)>;
    void Tell(const Sink& sink) const;
    std::string Bytes() const;

  private:
    static constexpr std::uint32_t None = NameTable::None;

    struct Section {
        std::string_view name;
        std::string_view body;      // from behind its header to behind its last key
        std::string_view unlisted;  // a new section's body whose keys nobody has asked for yet
        NameTable::Group keyNames;
        std::uint32_t firstKey = 0;  // its keys that the read bytes hold, to endKey
        std::uint32_t endKey = 0;
        std::uint32_t insertAt = 0;  // the place in the read bytes where its new keys go
        std::uint32_t firstNew = None;
        std::uint32_t lastNew = None;
        bool isNew = false;
        bool isBodyNew = false;
        bool isEdited = false;  // the body is no longer what it holds
    };

    // Where a key's value is: in the read bytes, in a whole new line, or kept by itself.
    enum class Origin : std::uint32_t { Read, NewLine, Apart };

    struct Key {
        std::string_view Name() const { return {name, nameSize}; }
        std::string_view Value() const { return {value, valueSize}; }

        const char* name;
        const char* value;  // as the file spells it, without the blanks around it
        std::uint32_t nameSize;
        std::uint32_t valueSize;
        std::uint32_t nextNew;
        Origin origin;
    };

    // What the read bytes hold in the place of a key's present value, or with no key, what goes.
    struct Replaced {
        std::uint32_t key;
        std::uint32_t at;
        std::uint32_t size;
    };

    class Output;

    void Parse();
    std::uint32_t ParseHeader(std::string_view line, std::uint32_t nextLine);
    void ParseKey(std::string_view line, std::uint32_t section, std::uint32_t nextLine);
    std::uint32_t FindSection(std::string_view name);
    std::uint32_t FindKey(std::uint32_t section, std::string_view name);
    std::uint32_t AddSection(const Section& section);
    std::uint32_t AppendSection(std::string_view name);
    void AppendKey(std::uint32_t section, std::string_view name, std::string_view value);
    void PutInPlaceOfBody(Section& section, std::string_view lines);
    void AddNewLine(std::uint32_t section, std::string_view name, std::string_view value);
    void ListKeys(std::uint32_t section);
    std::uint32_t AddKey(NameTable::Group& group, std::string_view name, std::string_view value,
                         Origin origin);
    std::string_view Kept(std::string_view text);
    void Replace(std::uint32_t index, std::string_view value);
    void PutNew(const Section& section, Output& output) const;

    std::string m_read;  // never changes: the views below point into it or into m_added
    BlockStore<char> m_added;
    std::vector<Section> m_sections;  // in the order of the file, the new ones last
    std::deque<Key> m_keys;
    std::vector<Replaced> m_replaced;
    NameTable::Group m_sectionNames;
    NameTable m_names;
    // A library is read and written section by section, key by key in much the same order.
    std::uint32_t m_lastSection = None;
    std::uint32_t m_lastKey = None;
    bool m_isChanged = false;
};

}  // namespace tavel
