#include "media/TagReader.h"
#include "support/MemoryFile.h"
#include "support/Support.h"

#include <gtest/gtest.h>

namespace tavel::test {

namespace {

const std::string sync = "\xFF\xFB";

std::string Blank(std::size_t size) { return std::string(size, 'x'); }

// `bytes` with `text` laid over them at an offset.
std::string With(std::string bytes, std::size_t offset, const std::string& text) {
    return bytes.replace(offset, text.size(), text);
}

struct Search {
    std::int64_t Position;
    int Reads;
};

Search SearchIn(const std::string& bytes) {
    MemoryFile raw(bytes);
    FileBytes file(raw);
    const std::int64_t position = FindTag(file);
    return {position, raw.Reads};
}

}  // namespace

TEST(FindTag, A_tag_at_the_start_is_behind_its_three_letters_and_costs_one_read) {
    const Search search = SearchIn("ID3" + Blank(9000));
    EXPECT_EQ(search.Position, 4);
    EXPECT_EQ(search.Reads, 1);
}

TEST(FindTag, A_file_without_tag_and_sync_is_scanned_to_its_end) {
    const Search search = SearchIn(Blank(4096 * 3));
    EXPECT_EQ(search.Position, 0);
    EXPECT_EQ(search.Reads, 4);  // the chunks overlap by three bytes
}

TEST(FindTag, A_first_chunk_with_the_sync_and_no_tag_costs_one_read) {
    const Search search = SearchIn(With(With(Blank(20000), 100, sync), 5000, "ID3"));
    EXPECT_EQ(search.Position, 0);
    EXPECT_EQ(search.Reads, 1);
}

TEST(FindTag, A_tag_behind_5000_bytes_without_the_sync_is_found) {
    EXPECT_EQ(SearchIn(With(Blank(20000), 5000, "ID3")).Position, 5004);
}

TEST(FindTag, A_tag_behind_the_sync_in_the_same_chunk_is_found) {
    EXPECT_EQ(SearchIn(With(With(Blank(20000), 10, sync), 4000, "ID3")).Position, 4004);
}

TEST(FindTag, Other_forms_of_the_sync_do_not_end_the_search) {
    for (const char* other : {"\xFF\xFA", "\xFF\xF3", "\xFB\xFF", "\xFF\xE3"}) {
        EXPECT_EQ(SearchIn(With(With(Blank(20000), 10, other), 5000, "ID3")).Position, 5004);
    }
}

TEST(FindTag, A_tag_astride_two_chunks_is_found) {
    for (const std::size_t offset : {4093, 4094, 4095, 4096, 8186, 8187, 8188, 8189}) {
        const auto expected = static_cast<std::int64_t>(offset) + 4;
        EXPECT_EQ(SearchIn(With(Blank(20000), offset, "ID3")).Position, expected) << offset;
    }
}

TEST(FindTag, A_sync_astride_two_chunks_ends_the_search_in_the_overlap) {
    // The pair at 4095 and 4096 is in no first chunk, and in the second one with the tag.
    const std::string astride = With(Blank(20000), 4095, sync);
    EXPECT_EQ(SearchIn(With(astride, 6000, "ID3")).Position, 6004);
    EXPECT_EQ(SearchIn(With(astride, 9000, "ID3")).Position, 0);
}

TEST(FindTag, The_last_byte_of_the_file_is_never_looked_at) {
    EXPECT_EQ(SearchIn("ID3").Position, 0);
    EXPECT_EQ(SearchIn("ID3x").Position, 4);
    for (const std::size_t size : {4095, 4096, 4097, 4098, 8190, 8191, 12000}) {
        EXPECT_EQ(SearchIn(Blank(size) + "ID3").Position, 0) << size;
        EXPECT_EQ(SearchIn(Blank(size) + "ID3x").Position, static_cast<int>(size) + 4) << size;
    }
}

TEST(FindTag, The_sync_does_not_end_the_search_before_its_own_chunk_was_searched) {
    EXPECT_EQ(SearchIn(sync + Blank(4090) + "ID3" + Blank(5000)).Position, 4096);
    EXPECT_EQ(SearchIn(sync + Blank(4092) + "ID3" + Blank(5000)).Position, 0);
}

TEST(FindTag, The_letters_are_matched_with_their_case) {
    EXPECT_EQ(SearchIn("id3" + Blank(100) + "Id3" + Blank(10)).Position, 0);
}

TEST(FindTag, The_first_of_several_tags_is_taken) {
    EXPECT_EQ(SearchIn(Blank(7) + "ID3ID3" + Blank(7)).Position, 11);
}

TEST(FindTag, The_smallest_files_have_no_tag) {
    for (const std::size_t size : {1, 2, 3, 4}) EXPECT_EQ(SearchIn(Blank(size)).Position, 0);
}

TEST(FindTag, An_empty_file_asks_for_less_than_nothing) {
    EXPECT_EQ(FailureOf([] { SearchIn(""); }), failure::InvalidProcedureCall);
}

TEST(FindTag, A_file_that_goes_away_fails) {
    MemoryFile raw(Blank(20000));
    raw.FailAt = 1;
    FileBytes file(raw);
    EXPECT_EQ(FailureOf([&] { FindTag(file); }), failure::DeviceIO);
}

TEST(FindTag, A_file_that_shrinks_while_it_is_searched_has_no_tag) {
    MemoryFile raw(Blank(5000));
    raw.Told = 50000;
    FileBytes file(raw);
    EXPECT_EQ(FindTag(file), 0);
}

}  // namespace tavel::test
