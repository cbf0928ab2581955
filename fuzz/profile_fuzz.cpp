// Feeds a profile file of any bytes, and edits of any names and values, to the profile's parser.
// The input is a file and, behind "%%", edits: section, key and value, each ended by byte 1F.

#include "platform/ProfileLines.h"
#include "platform/ProfileText.h"

#include <algorithm>
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
    std::string_view section;
    std::string_view key;
    std::string_view value;
};

constexpr char separator = '\x1F';

std::string_view Take(std::string_view& text, std::string_view end) {
    const std::size_t at = text.find(end);
    const std::string_view part = text.substr(0, at);
    text.remove_prefix(at == std::string_view::npos ? text.size() : at + end.size());
    return part;
}

std::vector<Edit> EditsIn(std::string_view text) {
    constexpr std::size_t enough = 8;
    std::vector<Edit> edits;
    while (!text.empty() && edits.size() < enough) {
        Edit edit;
        edit.section = Take(text, {&separator, 1});
        edit.key = Take(text, {&separator, 1});
        edit.value = Take(text, {&separator, 1});
        edits.push_back(edit);
    }
    return edits;
}

// The value that a written one comes back as.
std::string Plain(std::string_view value) {
    std::string plain;
    for (std::size_t i = 0; i < value.size() && value[i] != '\0'; ++i) {
        const bool isBreak = value[i] == '\n' || value[i] == '\r';
        if (value[i] == '\n' && i > 0 && value[i - 1] == '\r') continue;
        plain += isBreak ? ' ' : value[i];
    }
    return plain;
}

Value Read(ProfileText& profile, const Edit& place) {
    const std::optional<std::string_view> value = profile.Value(place.section, place.key);
    return value ? Value(*value) : Value();
}

// Every place that the input names, and every crossing of its section and key names.
std::vector<Edit> Places(const std::vector<Edit>& edits) {
    std::vector<Edit> places;
    for (const Edit& a : edits) {
        for (const Edit& b : edits) places.push_back({a.section, b.key, {}});
    }
    return places;
}

std::vector<Value> ReadAll(ProfileText& profile, const std::vector<Edit>& places) {
    std::vector<Value> values;
    for (const Edit& place : places) values.push_back(Read(profile, place));
    return values;
}

std::size_t Lines(std::string_view text) {
    std::size_t lines = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool isSecondHalf = text[i] == '\n' && i > 0 && text[i - 1] == '\r';
        if ((text[i] == '\n' || text[i] == '\r') && !isSecondHalf) ++lines;
    }
    return lines;
}

std::string_view WithoutBlanks(std::string_view text) {
    const std::size_t first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

bool IsSamePlace(const Edit& a, const Edit& b) {
    return tavel::SameName(a.section, b.section) &&
           tavel::SameName(WithoutBlanks(a.key), WithoutBlanks(b.key));
}

void Apply(ProfileText& profile, const Edit& edit, const std::vector<Edit>& places) {
    const std::vector<Value> before = ReadAll(profile, places);
    const std::string bytesBefore = profile.Bytes();
    profile.MarkSaved();
    const bool isWritten = profile.Write(edit.section, edit.key, edit.value);
    const std::vector<Value> after = ReadAll(profile, places);
    const std::string bytes = profile.Bytes();

    Check(isWritten || bytes == bytesBefore, "a refused write changed the file");
    Check(profile.IsChanged() || bytes == bytesBefore, "bytes changed behind the mark");
    Check(Lines(bytes) <= Lines(bytesBefore) + 3, "a write added lines of its value");
    if (isWritten) Check(Read(profile, edit) == Plain(edit.value), "a value does not read back");
    for (std::size_t i = 0; i < places.size(); ++i) {
        const bool isTarget = isWritten && IsSamePlace(places[i], edit);
        Check(isTarget || before[i] == after[i], "another value changed");
    }
    ProfileText again(bytes);
    Check(ReadAll(again, places) == after, "the file reads otherwise than the memory");
    Check(again.Bytes() == bytes, "reading changed bytes");
}

// The edits of the first edit's section, each key once, in one go and one by one.
void ApplyTogether(std::string_view file, const std::vector<Edit>& edits) {
    if (edits.empty()) return;
    const std::string_view section = edits.front().section;
    ProfileText single{std::string(file)};
    ProfileText whole{std::string(file)};
    tavel::ProfileLines lines;
    std::vector<Edit> added;
    for (Edit edit : edits) {
        edit.section = section;
        edit.key = WithoutBlanks(edit.key);
        const auto isSame = [&](const Edit& other) { return IsSamePlace(edit, other); };
        const bool isTwice = std::find_if(added.begin(), added.end(), isSame) != added.end();
        if (isTwice || !tavel::CanBeKey(edit.key)) continue;
        added.push_back(edit);
        lines.Add(edit.key, edit.value);
    }
    for (int round = 0; round < 2; ++round) {
        for (const Edit& edit : added) single.Write(section, edit.key, edit.value);
        whole.Write(section, lines);
        Check(whole.Bytes() == single.Bytes(), "in one go is not what one by one is");
        Check(ReadAll(whole, added) == ReadAll(single, added), "values read otherwise");
        if (added.empty()) return;
        single.Write(section, added.front().key, "changed");
        whole.Write(section, added.front().key, "changed");
        Check(whole.Bytes() == single.Bytes(), "an edit behind it is another");
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string_view input(reinterpret_cast<const char*>(data), size);
    const std::string_view file = Take(input, "%%");
    const std::vector<Edit> edits = EditsIn(input);
    const std::vector<Edit> places = Places(edits);
    ProfileText profile{std::string(file)};
    Check(profile.Bytes() == file, "reading changed bytes");
    for (const Edit& edit : edits) Apply(profile, edit, places);
    ApplyTogether(file, edits);
    return 0;
}
