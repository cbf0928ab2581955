#include "library/Identifiers.h"
#include "library/LibraryFixture.h"
#include "platform/Failure.h"

#include <filesystem>
#include <set>

namespace tavel::test {
namespace {

class Identifiers : public LibraryTest {
  protected:
    // Without its random letters, which are checked on the way.
    static std::string Fixed(const std::string& sID) {
        const std::string letters = sID.substr(sID.size() - 11);
        EXPECT_EQ(letters.find_first_not_of("abcdefghijklmnopqrstuvwxyz"), std::string::npos)
            << sID;
        return sID.substr(0, sID.size() - 11);
    }

    std::string ItemID(const std::string& name, std::size_t size = 9, Integer iType = mtPhoto) {
        return Fixed(MakeDBID(Write(name, std::string(size, 'x')), iType));
    }
};

TEST_F(Identifiers, An_items_id_is_prefix_head_tail_size_and_letters) {
    const std::string sID = MakeDBID(Write("Holiday 2.jpg", std::string(120488, 'x')), mtPhoto);
    EXPECT_EQ(Fixed(sID), "ph_Holid2yadi12048");
    EXPECT_EQ(sID.size(), 29U);
}

TEST_F(Identifiers, A_groups_id_is_prefix_head_tail_and_letters) {
    const std::string sID = MakeDBID("Summer", mtMagazine);
    EXPECT_EQ(Fixed(sID), "ma_Summeremmu");
    EXPECT_EQ(sID.size(), 24U);
}

TEST_F(Identifiers, Each_type_has_its_prefix) {
    const std::string sPath = Write("abcde.mp4", "");
    EXPECT_EQ(Fixed(MakeDBID(sPath, mtPhoto)), "ph_abcdeedcba00000");
    EXPECT_EQ(Fixed(MakeDBID(sPath, mtVideo)), "vd_abcdeedcba00000");
    EXPECT_EQ(Fixed(MakeDBID(sPath, mtMusic)), "mu_abcdeedcba00000");
    EXPECT_EQ(Fixed(MakeDBID("abcde", mtMagazine)), "ma_abcdeedcba");
    EXPECT_EQ(Fixed(MakeDBID("abcde", mtPhotoAlbum)), "pa_abcdeedcba");
    EXPECT_EQ(Fixed(MakeDBID("abcde", mtVidSeries)), "vs_abcdeedcba");
}

TEST_F(Identifiers, Every_playlist_has_the_same_id) {
    EXPECT_EQ(MakeDBID("Party", mtPlaylist), "pl_");
    EXPECT_EQ(MakeDBID("", mtPlaylist), "pl_");
}

TEST_F(Identifiers, Short_names_are_filled_with_the_character_at_their_end) {
    EXPECT_EQ(ItemID("a b.mp3"), "ph_abbbbbaaaa00009");
    EXPECT_EQ(ItemID("ab.mp3"), "ph_abbbbbaaaa00009");
    EXPECT_EQ(ItemID("x.mp3"), "ph_xxxxxxxxxx00009");
    EXPECT_EQ(ItemID("a.b.mp3"), "ph_a.bbbb.aaa00009");
}

TEST_F(Identifiers, The_size_is_its_first_five_digits_filled_with_zeros) {
    EXPECT_EQ(ItemID("abcde.jpg", 9).substr(13), "00009");
    EXPECT_EQ(ItemID("abcde.jpg", 12345).substr(13), "12345");
    EXPECT_EQ(ItemID("abcde.jpg", 123456).substr(13), "12345");
    Write("large.jpg", "");
    std::filesystem::resize_file(temp.HostPath("large.jpg"), 5'000'000'000);
    EXPECT_EQ(Fixed(MakeDBID(temp.DrivePath("large.jpg"), mtPhoto)), "ph_largeegral50000");
}

TEST_F(Identifiers, A_character_of_several_bytes_counts_as_one) {
    EXPECT_EQ(Fixed(MakeDBID("\xC3\x84\xC3\x96\xC3\x9Cxyz", mtMagazine)),
              "ma_\xC3\x84\xC3\x96\xC3\x9Cxyzyx\xC3\x9C\xC3\x96");
}

TEST_F(Identifiers, A_name_that_runs_out_into_a_blank_overflows) {
    for (const char* name : {"", " ", "   ", "abc ", " abc", "  x"}) {
        for (const MediaType type : {mtMagazine, mtPhotoAlbum, mtVidSeries})
            EXPECT_EQ(FailureOf([&] { MakeDBID(name, type); }), failure::Overflow) << name;
    }
    for (const char* name : {".mp3", "abc .mp3", " abc.mp3"})
        EXPECT_EQ(FailureOf([&] { ItemID(name); }), failure::Overflow) << name;
}

TEST_F(Identifiers, Blanks_at_the_ends_do_no_harm_to_a_name_of_five_letters) {
    EXPECT_EQ(Fixed(MakeDBID(" abcde ", mtMagazine)), "ma_abcdeedcba");
    EXPECT_EQ(ItemID(" abcde .jpg"), "ph_abcdeedcba00009");
}

TEST_F(Identifiers, Other_white_space_is_gathered) {
    EXPECT_EQ(Fixed(MakeDBID("a\tb\u00a0c", mtMagazine)), "ma_a\tb\u00a0cc\u00a0b\ta");
}

TEST_F(Identifiers, A_groups_name_is_taken_whole) {
    EXPECT_EQ(Fixed(MakeDBID("Vol.1", mtMagazine)), "ma_Vol.11.loV");
    EXPECT_EQ(Fixed(MakeDBID("C:\\x", mtPhotoAlbum)), "pa_C:\\xxx\\:CC");
}

TEST_F(Identifiers, The_walk_over_a_name_is_counted_in_an_Integer) {
    const auto blanks = [](std::size_t count) { return "abcde" + std::string(count, ' ') + "x"; };
    EXPECT_EQ(Fixed(MakeDBID(blanks(32762), mtMagazine)), "ma_abcdexedcb");
    EXPECT_EQ(FailureOf([&] { MakeDBID(blanks(32763), mtMagazine); }), failure::Overflow);
}

TEST_F(Identifiers, An_items_file_must_exist) {
    for (const MediaType type : {mtPhoto, mtVideo, mtMusic}) {
        EXPECT_EQ(FailureOf([&] { MakeDBID(temp.DrivePath("none.jpg"), type); }),
                  failure::FileNotFound);
    }
}

TEST_F(Identifiers, A_file_without_an_extension_overflows) {
    EXPECT_EQ(FailureOf([&] { ItemID("README"); }), failure::Overflow);
}

TEST_F(Identifiers, The_same_file_gets_another_id_each_time) {
    const std::string sPath = Write("abc.jpg", "x");
    std::set<std::string> ids;
    for (int i = 0; i < 200; ++i) ids.insert(MakeDBID(sPath, mtPhoto));
    EXPECT_EQ(ids.size(), 200U);
}

TEST(GetDBIDType, Tells_the_type_by_the_prefix) {
    const struct {
        const char* id;
        Integer type;
    } rows[] = {{"ph_x", 0},
                {"ma_x", 1},
                {"pa_x", 2},
                {"vd_x", 3},
                {"vs_x", 4},
                {"mu_x", 5},
                {"pl_", 8},
                {"pl_x", 8},
                {"-1", -1},
                {"", -1},
                {"p", -1},
                {"ph", -1},
                {"phx_", -1},
                {"xx_abc", 0},
                {"PL_x", 0},
                {"___", 0},
                {"\xC3\xA4\xC3\xA4_x", 0},
                {"\xC3\xA4_x", -1}};
    for (const auto& row : rows) EXPECT_EQ(GetDBIDType(row.id), row.type) << row.id;
}

TEST(GetMediaClass, Gives_the_item_type_of_a_types_kind) {
    const struct {
        Integer type;
        Integer mediaClass;
    } rows[] = {{0, 0}, {1, 0}, {2, 0}, {3, 3}, {4, 3}, {5, 5}, {8, 5}, {6, 0}, {7, 0}, {-1, 0}};
    for (const auto& row : rows) EXPECT_EQ(GetMediaClass(row.type), row.mediaClass) << row.type;
}

TEST(GetGroupType, Gives_the_type_of_an_automatic_group) {
    const struct {
        Integer type;
        Integer group;
    } rows[] = {{0, 1}, {3, 4}, {5, 8}, {1, 0}, {2, 0}, {4, 0}, {8, 0}, {99, 0}, {-1, 0}};
    for (const auto& row : rows) EXPECT_EQ(GetGroupType(row.type), row.group) << row.type;
}

}  // namespace
}  // namespace tavel::test
