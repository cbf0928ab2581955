#include "media/PartsOf.h"

#include <gtest/gtest.h>

#include <vector>

namespace tavel::test {

namespace {

using namespace std::string_literals;

struct Entry {
    std::uint32_t Tag;
    std::uint32_t Type;
    std::uint32_t Value;
    std::uint32_t Count = 1;
};

constexpr std::uint32_t shortType = 3;
constexpr std::uint32_t longType = 4;

const std::string tiffData = "three times four pixels: 123456789012345";

// A file whose pixels stand behind its header, and whose directory ends it.
std::string Tiff(const std::vector<Entry>& entries, const std::string& tail = "") {
    std::string file = "II*\0"s + LittleEndian(static_cast<std::uint32_t>(8 + tiffData.size()), 4) +
                       tiffData + LittleEndian(static_cast<std::uint32_t>(entries.size()), 2);
    for (const Entry& entry : entries) {
        file += LittleEndian(entry.Tag, 2) + LittleEndian(entry.Type, 2) +
                LittleEndian(entry.Count, 4) + LittleEndian(entry.Value, 4);
    }
    return file + std::string(4, '\0') + tail;
}

// A grey picture of 4 by 3 in one strip.
std::vector<Entry> Grey() {
    return {{256, shortType, 4}, {257, shortType, 3}, {258, shortType, 8}, {262, shortType, 1},
            {273, longType, 8},  {277, shortType, 1}, {279, longType, 12}};
}

std::vector<Entry> With(std::vector<Entry> entries, Entry other) {
    for (Entry& entry : entries) {
        if (entry.Tag == other.Tag) {
            entry = other;
            return entries;
        }
    }
    entries.push_back(other);
    return entries;
}

// The tags of the directory that a file's header leads to.
std::vector<std::uint32_t> Tags(const std::string& file) {
    const auto number = [&](std::size_t place, int bytes) {
        std::uint32_t value = 0;
        while (bytes > 0) value = value << 8 | static_cast<unsigned char>(file.at(place + --bytes));
        return value;
    };
    const std::size_t directory = number(4, 4);
    std::vector<std::uint32_t> tags;
    for (std::uint32_t i = 0; i < number(directory, 2); ++i)
        tags.push_back(number(directory + 2 + 12 * i, 2));
    EXPECT_EQ(number(directory + 2 + 12 * tags.size(), 4), 0U) << "there is a second directory";
    return tags;
}

// Whether a grey picture with these bytes as its one JPEG strip has parts.
bool IsTrustedStrip(const std::string& strip) {
    const auto size = static_cast<std::uint32_t>(strip.size());
    const std::vector<Entry> entries =
        With(With(Grey(), {259, shortType, 7}), {279, longType, size});
    const auto place = static_cast<std::uint32_t>(Tiff(entries).size());
    return !Parts(Tiff(With(entries, {273, longType, place}), strip)).empty();
}

const std::string frameRest = "\0\x0B\x08\0\3\0\4\1\1\x11\0"s;
const std::string scan = "\xFF\xDA\0\x08\1\1\0\0\x3F\0data\xFF\0\xFF\xD0"s;

}  // namespace

TEST(TiffParts, Are_the_pixels_and_what_tells_how_to_read_them) {
    const std::string whole = Tiff(Grey());
    const std::string kept = Parts(whole);
    EXPECT_EQ(kept.substr(8, tiffData.size()), tiffData);
    EXPECT_EQ(Tags(kept),
              (std::vector<std::uint32_t>{256, 257, 258, 259, 262, 273, 277, 278, 279}));
    std::vector<Entry> dressed = Grey();
    for (const std::uint32_t tag : {254U, 269U, 270U, 271U, 274U, 282U, 305U, 306U, 315U, 330U,
                                    700U, 33723U, 34377U, 34665U, 34675U, 34853U, 65000U}) {
        dressed.push_back({tag, longType, 8});
    }
    EXPECT_EQ(Tags(Parts(Tiff(dressed))), Tags(kept));
}

TEST(TiffParts, Are_those_that_some_forms_need) {
    std::string colours;
    for (int i = 0; i < 3 * 256; ++i) colours += LittleEndian(static_cast<std::uint32_t>(i), 2);
    std::vector<Entry> entries =
        With(With(With(Grey(), {262, shortType, 3}), {259, shortType, 5}), {317, shortType, 2});
    entries.push_back({266, shortType, 2});
    const auto place = static_cast<std::uint32_t>(Tiff(entries).size() + 12);
    entries.push_back({320, shortType, place, 3 * 256});
    const std::string kept = Parts(Tiff(entries, colours));
    EXPECT_EQ(Tags(kept), (std::vector<std::uint32_t>{256, 257, 258, 259, 262, 266, 273, 277, 278,
                                                      279, 317, 320}));
    EXPECT_NE(kept.rfind(colours), kept.find(colours)) << "a copy of the colours";
}

TEST(TiffParts, Are_tables_of_a_jpeg_of_reasonable_size) {
    constexpr std::uint32_t bytesType = 7;
    const auto tags = [&](std::uint32_t size) {
        std::vector<Entry> entries = With(Grey(), {259, shortType, 7});
        const auto place = static_cast<std::uint32_t>(Tiff(entries).size() + 12);
        entries.push_back({347, bytesType, place, size});
        const std::string strip = "\xFF\xD8 a strip";
        const auto pixels = static_cast<std::uint32_t>(place + size);
        const std::vector<Entry> placed =
            With(With(entries, {273, longType, pixels}),
                 {279, longType, static_cast<std::uint32_t>(strip.size())});
        return Tags(Parts(Tiff(placed, std::string(size, 't') + strip)));
    };
    EXPECT_EQ(tags(500).back(), 347U);
    EXPECT_EQ(tags(65536).back(), 279U);
}

TEST(TiffParts, Of_any_other_form_are_none) {
    EXPECT_NE(Parts(Tiff(Grey())), "");
    for (const Entry& other : std::vector<Entry>{
             {256, shortType, 0},     {257, shortType, 0},     {257, 2, 3},
             {258, shortType, 2},     {258, shortType, 16},    {258, shortType, 64},
             {259, shortType, 6},     {259, shortType, 4},     {259, shortType, 34676},
             {259, shortType, 34712}, {262, shortType, 4},     {262, shortType, 6},
             {262, shortType, 8},     {262, shortType, 32845}, {262, shortType, 2},
             {273, longType, 8, 2},   {277, shortType, 2},     {277, shortType, 0},
             {277, shortType, 65535}, {278, shortType, 0},     {278, shortType, 1},
             {279, longType, 12, 0},  {279, longType, 500},    {279, 2, 12},
             {284, shortType, 2},     {322, shortType, 16},    {339, shortType, 3},
             {339, shortType, 2},     {339, shortType, 1, 2}}) {
        EXPECT_EQ(Parts(Tiff(With(Grey(), other))), "") << other.Tag << " " << other.Value;
    }
}

TEST(TiffParts, Are_none_when_the_directory_leads_nowhere) {
    const std::string whole = Tiff(Grey());
    for (std::size_t cut = 0; cut < whole.size() - 4; ++cut)
        EXPECT_EQ(Parts(whole.substr(0, cut)), "") << cut;
    std::string away = whole;
    away.replace(4, 4, "\xFF\xFF\xFF\xFF");
    EXPECT_EQ(Parts(away), "");
    EXPECT_EQ(Parts(Tiff(With(Grey(), {258, shortType, 0xFFFFFFF0, 3}))), "");
}

// Strips that overlap would let a small file be read for hours.
TEST(TiffParts, With_more_bytes_in_strips_than_in_the_file_are_none) {
    std::vector<Entry> entries = With(Grey(), {278, shortType, 1});
    const auto place = static_cast<std::uint32_t>(Tiff(entries).size());
    const auto withSizes = [&](std::uint32_t size) {
        const std::string offsets = LittleEndian(8, 4) + LittleEndian(8, 4) + LittleEndian(8, 4);
        const std::string sizes = LittleEndian(4, 4) + LittleEndian(4, 4) + LittleEndian(size, 4);
        return Tiff(With(With(entries, {273, longType, place, 3}), {279, longType, place + 12, 3}),
                    offsets + sizes);
    };
    const auto whole = static_cast<std::uint32_t>(withSizes(0).size());
    EXPECT_NE(Parts(withSizes(whole - 8)), "");
    EXPECT_EQ(Parts(withSizes(whole - 7)), "");
    EXPECT_EQ(Parts(withSizes(0xFFFFFFFF)), "");
}

TEST(TiffParts, Of_a_jpeg_that_goes_over_its_strip_again_and_again_are_none) {
    const auto isTrusted = [](const std::string& frame, const std::string& scans) {
        return IsTrustedStrip("\xFF\xD8" + frame + frameRest + scans + "\xFF\xD9");
    };
    for (const char* frame : {"\xFF\xC0", "\xFF\xC1", "\xFF\xC9"})
        EXPECT_TRUE(isTrusted(frame, scan));
    for (const char* frame : {"\xFF\xC2", "\xFF\xCA", "\xFF\xFF\xC2", "no marker\xFF\xC2"})
        EXPECT_FALSE(isTrusted(frame, scan));
    EXPECT_FALSE(isTrusted("\xFF\xC0", scan + scan));
    EXPECT_FALSE(isTrusted("\xFF\xC0", scan + "between" + scan));
    EXPECT_FALSE(isTrusted("\xFF\xC0", scan + "\xFF\x50\0\x20" + scan));
    EXPECT_FALSE(isTrusted("\xFF\xC0", scan + "\xFF\xDB\0\1"s + scan));
    EXPECT_FALSE(isTrusted("\xFF\xC0", scan + "\xFF\xD8" + scan));
    EXPECT_TRUE(isTrusted("\xFF\xC0", scan + "\xFF\xD9" + scan)) << "nobody looks behind the end";
    EXPECT_FALSE(IsTrustedStrip(""));
    EXPECT_FALSE(IsTrustedStrip("no JPEG"));
}

TEST(TiffParts, Of_a_jpeg_whose_tables_hold_what_looks_like_markers_are_there) {
    const std::string table = "\xFF\xDB\0\x0Btable\xFF\xC2\xFF\xDA"s;
    EXPECT_TRUE(
        IsTrustedStrip("\xFF\xD8" + table + table + "\xFF\xC0" + frameRest + scan + "\xFF\xD9"));
}

TEST(TiffParts, Are_let_through_up_to_600_megabytes) {
    const auto isTrusted = [](std::uint32_t width, std::uint32_t height) {
        return !Parts(Tiff(With(With(Grey(), {256, longType, width}), {257, longType, height})))
                    .empty();
    };
    EXPECT_TRUE(isTrusted(20000, 10000));
    EXPECT_FALSE(isTrusted(20000, 10001));
    EXPECT_FALSE(isTrusted(65536, 1));
    EXPECT_FALSE(isTrusted(0xFFFFFFFF, 0xFFFFFFFF));
}

}  // namespace tavel::test
