#include "library/Collections.h"
#include "library/Records.h"
#include "platform/Failure.h"
#include "support/Support.h"

#include <numeric>
#include <random>
#include <tuple>

namespace tavel::test {
namespace {

TEST(TextArray, Is_unallocated_until_its_first_resize) {
    TextArray array;
    EXPECT_EQ(FailureOf([&] { array.Get(0); }), failure::SubscriptOutOfRange);
    EXPECT_EQ(FailureOf([&] { array.Set(0, "a"); }), failure::SubscriptOutOfRange);
}

TEST(TextArray, Has_the_bounds_0_to_its_upper_bound) {
    TextArray array;
    array.Redim(1, false);
    array.Set(0, "a");
    array.Set(1, "b");
    EXPECT_EQ(array.Get(0) + array.Get(1), "ab");
    for (const int i : {-1, 2, 32767}) {
        const auto index = static_cast<Integer>(i);
        EXPECT_EQ(FailureOf([&] { array.Get(index); }), failure::SubscriptOutOfRange) << i;
        EXPECT_EQ(FailureOf([&] { array.Set(index, "x"); }), failure::SubscriptOutOfRange) << i;
    }
}

TEST(TextArray, Resizing_keeps_or_clears_as_told) {
    TextArray array;
    array.Redim(1, false);
    array.Set(0, "a");
    array.Set(1, "b");
    array.Redim(2, true);
    EXPECT_EQ(array.Get(1), "b");
    EXPECT_EQ(array.Get(2), "");
    array.Redim(0, true);
    EXPECT_EQ(array.Get(0), "a");
    EXPECT_EQ(FailureOf([&] { array.Get(1); }), failure::SubscriptOutOfRange);
    array.Redim(1, false);
    EXPECT_EQ(array.Get(0), "");
}

TEST(TextArray, An_upper_bound_of_minus_1_fails_and_leaves_the_entries) {
    TextArray array;
    array.Redim(0, false);
    array.Set(0, "a");
    EXPECT_EQ(FailureOf([&] { array.Redim(-1, true); }), failure::SubscriptOutOfRange);
    EXPECT_EQ(FailureOf([&] { array.Redim(-1, false); }), failure::SubscriptOutOfRange);
    EXPECT_EQ(array.Get(0), "a");
}

std::string AllOf(const TextArray& array, Integer iCount) {
    std::string all;
    for (Integer i = 0; i < iCount; ++i) all += array.Get(i);
    return all;
}

TextArray ArrayOf(const std::string& letters) {
    TextArray array;
    array.Redim(static_cast<Integer>(letters.size() - 1), false);
    for (Integer i = 0; const char letter : letters) array.Set(i++, std::string(1, letter));
    return array;
}

TEST(TextArray, Taking_one_out_moves_those_behind_it_down) {
    TextArray array = ArrayOf("abcde");
    array.TakeOut(1);
    EXPECT_EQ(AllOf(array, 4), "acde");
    array.TakeOut(3);
    EXPECT_EQ(AllOf(array, 3), "acd");
    array.TakeOut(0);
    EXPECT_EQ(AllOf(array, 2), "cd");
    for (const int i : {-1, 2}) {
        EXPECT_EQ(FailureOf([&] { array.TakeOut(static_cast<Integer>(i)); }),
                  failure::SubscriptOutOfRange);
    }
    array.Redim(2, true);
    array.Set(2, "f");
    EXPECT_EQ(AllOf(array, 3), "cdf");
}

TEST(TextArray, The_last_of_equal_entries_is_found_among_the_first_ones) {
    TextArray array = ArrayOf("abaca");
    EXPECT_EQ(array.LastOf("a", 5), 4);
    EXPECT_EQ(array.LastOf("a", 4), 2);
    EXPECT_EQ(array.LastOf("a", 2), 0);
    EXPECT_EQ(array.LastOf("c", 3), std::nullopt);
    EXPECT_EQ(array.LastOf("", 5), std::nullopt);
    EXPECT_EQ(array.LastOf("a", 0), std::nullopt);
    EXPECT_EQ(FailureOf([&] { array.LastOf("a", 6); }), failure::SubscriptOutOfRange);
    EXPECT_EQ(FailureOf([] { TextArray().LastOf("a", 1); }), failure::SubscriptOutOfRange);
}

TEST(TextArray, A_search_sees_what_changed_since_the_one_before) {
    TextArray array = ArrayOf("abc");
    EXPECT_EQ(array.LastOf("c", 3), 2);
    array.Set(2, "d");
    EXPECT_EQ(array.LastOf("c", 3), std::nullopt);
    EXPECT_EQ(array.LastOf("d", 3), 2);
    array.TakeOut(0);
    EXPECT_EQ(array.LastOf("d", 2), 1);
    array.Redim(3, true);
    EXPECT_EQ(array.LastOf("", 4), 3);
    array.Redim(0, true);
    EXPECT_EQ(array.LastOf("d", 1), std::nullopt);
    array.Redim(0, false);
    EXPECT_EQ(array.LastOf("b", 1), std::nullopt);
}

TEST(TextArray, A_copy_goes_its_own_way) {
    TextArray array = ArrayOf("ab");
    array.LastOf("a", 2);
    TextArray copy = array;
    copy.Set(0, "c");
    EXPECT_EQ(AllOf(array, 2) + AllOf(copy, 2), "abcb");
    EXPECT_EQ(copy.LastOf("a", 2), std::nullopt);
    array = copy;
    EXPECT_EQ(array.LastOf("c", 2), 0);
    TextArray moved = std::move(array);
    EXPECT_EQ(AllOf(moved, 2), "cb");
}

TEST(TextArray, Does_as_a_plain_list_of_texts_does) {
    std::mt19937 random(11);
    TextArray array = ArrayOf("a");
    std::vector<std::string> plain{"a"};
    const auto place = [&] { return static_cast<Integer>(random() % plain.size()); };
    for (int round = 0; round < 3000; ++round) {
        const std::string text(1, static_cast<char>('a' + random() % 8));
        const unsigned kind = random() % 4;
        if (kind == 0 && plain.size() > 1) {
            const Integer i = place();
            array.TakeOut(i);
            plain.erase(plain.begin() + i);
        } else if (kind == 1) {
            const auto iUpper = static_cast<Integer>(random() % 40);
            array.Redim(iUpper, true);
            plain.resize(static_cast<std::size_t>(iUpper) + 1);
        } else if (kind == 2) {
            const Integer i = place();
            array.Set(i, text);
            plain[static_cast<std::size_t>(i)] = text;
        }
        const Integer iCount = place();
        std::optional<Integer> expected;
        for (Integer i = 0; i < iCount; ++i) {
            if (plain[static_cast<std::size_t>(i)] == text) expected = i;
        }
        ASSERT_EQ(array.LastOf(text, iCount), expected) << round;
        ASSERT_EQ(AllOf(array, static_cast<Integer>(plain.size())),
                  std::accumulate(plain.begin(), plain.end(), std::string()));
    }
}

TEST(Records, Items_share_the_groups_trio) {
    Photo photo;
    Video video;
    Music music;
    for (Item* item :
         {static_cast<Item*>(&photo), static_cast<Item*>(&video), static_cast<Item*>(&music)}) {
        item->Redim_sGroups(0, true);
        item->Set_sGroups(0, "ma_x");
        EXPECT_EQ(item->Get_sGroups(0), "ma_x");
        EXPECT_EQ(FailureOf([&] { item->Redim_sGroups(-1, true); }), failure::SubscriptOutOfRange);
    }
}

TEST(Records, Each_group_has_members_and_count_under_its_own_names) {
    Magazine magazine;
    magazine.Redim_sPageID(0, false);
    magazine.Set_sPageID(0, "ph_a");
    magazine.iPages = 1;
    EXPECT_EQ(magazine.Get_sPageID(0), "ph_a");
    EXPECT_EQ(magazine.Count(), 1);

    PhotoAlbum album;
    album.Redim_sPageID(0, false);
    album.Set_sPageID(0, "ph_b");
    album.iPages = 1;
    EXPECT_EQ(album.Get_sPageID(0), "ph_b");
    EXPECT_EQ(album.Count(), 1);

    VidSeries series;
    series.Redim_sEpisodeID(0, false);
    series.Set_sEpisodeID(0, "vd_a");
    series.iEpisodes(1);
    EXPECT_EQ(series.Get_sEpisodeID(0), "vd_a");
    EXPECT_EQ(series.Count(), 1);

    Playlist playlist;
    playlist.Redim_sTrackID(0, false);
    playlist.Set_sTrackID(0, "mu_a");
    playlist.iTracks = 1;
    EXPECT_EQ(playlist.Get_sTrackID(0), "mu_a");
    EXPECT_EQ(playlist.Count(), 1);
}

TEST(Records, A_series_without_a_count_fails_when_it_is_asked_for_it) {
    VidSeries series;
    EXPECT_EQ(FailureOf([&] { series.iEpisodes(); }), failure::TypeMismatch);
    series.iEpisodes(0);
    EXPECT_EQ(series.iEpisodes(), 0);
}

TEST(Collections, Keep_their_order_and_are_reached_by_position_and_by_key_in_any_case) {
    Collection<std::string> texts;
    texts.Add("B", "first");
    texts.Add("a", "second");
    texts.Add("ma_\u00c4", "third");
    EXPECT_EQ(texts.Item(1) + texts.Item(2), "firstsecond");
    EXPECT_EQ(texts.Item("b"), "first");
    EXPECT_EQ(texts.Item("A"), "second");
    EXPECT_EQ(texts.Item("MA_\u00e4"), "third");
    texts.Remove("b");
    EXPECT_EQ(texts.Item(1), "second");
    EXPECT_EQ(texts.Count(), 2);
}

TEST(Collections, Positions_are_right_whichever_entries_have_gone_and_come) {
    Collection<std::string> texts;
    const auto all = [&] {
        std::string joined;
        for (Long i = 1; i <= texts.Count(); ++i) joined += texts.Item(i);
        return joined;
    };
    for (const char* key : {"a", "b", "c", "d", "e"}) texts.Add(key, key);
    texts.Remove("e");
    texts.Add("f", "f");
    EXPECT_EQ(all(), "abcdf");
    texts.Remove("b");
    texts.Remove("f");
    texts.Add("g", "g");
    EXPECT_EQ(all(), "acdg");
    texts.Remove("a");
    EXPECT_EQ(texts.Item(3), "g");
    texts.Clear();
    texts.Add("h", "h");
    EXPECT_EQ(all(), "h");
    texts.Remove("h");
    texts.Add("i", "i");
    EXPECT_EQ(FailureOf([&] { texts.Add("I", "j"); }), failure::KeyAlreadyThere);
    EXPECT_EQ(all(), "i");
}

TEST(Collections, An_entry_can_be_removed_by_its_position) {
    Collection<std::string> texts;
    for (const char* key : {"a", "b", "c", "d", "e"}) texts.Add(key, key);
    texts.Remove("b");
    texts.Remove(2);
    EXPECT_EQ(texts.Item(1) + texts.Item(2) + texts.Item(3), "ade");
    EXPECT_FALSE(texts.Has("c"));
    texts.Add("c", "c");
    texts.Remove(4);
    texts.Remove(1);
    EXPECT_EQ(texts.Item(1) + texts.Item(2), "de");
    for (const Long position : {0, 3, -1})
        EXPECT_EQ(FailureOf([&] { texts.Remove(position); }), failure::SubscriptOutOfRange);
    EXPECT_EQ(texts.Count(), 2);
}

TEST(Collections, A_moved_one_has_its_entries) {
    Collection<std::string> texts;
    texts.Add("a", "first");
    texts.Add("b", "second");
    Collection<std::string> moved = std::move(texts);
    moved.Add("c", "third");
    moved.Remove("a");
    EXPECT_EQ(moved.Item("B") + moved.Item(2), "secondthird");
}

TEST(Collections, A_key_twice_a_missing_key_and_a_position_outside_fail) {
    Collection<std::string> texts;
    texts.Add("a\u00e4", "x");
    EXPECT_EQ(FailureOf([&] { texts.Add("A\u00c4", "y"); }), failure::KeyAlreadyThere);
    EXPECT_EQ(FailureOf([&] { texts.Item("b"); }), failure::InvalidProcedureCall);
    EXPECT_EQ(FailureOf([&] { texts.Remove("b"); }), failure::InvalidProcedureCall);
    EXPECT_EQ(FailureOf([&] { texts.Item(0); }), failure::SubscriptOutOfRange);
    EXPECT_EQ(FailureOf([&] { texts.Item(2); }), failure::SubscriptOutOfRange);
    EXPECT_EQ(texts.Count(), 1);
}

class LookUps : public ::testing::Test {
  protected:
    ~LookUps() override { ReleaseCollections(); }
};

template <class T>
void ExpectFound(Collection<T>& collection, MediaType type, const std::string& sID) {
    T& record = collection.Add(sID, T{});
    EXPECT_EQ(&RecordOf(type, sID), &record) << sID;
    EXPECT_EQ(IsItemType(type), type == mtPhoto || type == mtVideo || type == mtMusic);
    EXPECT_NE(IsItemType(type), IsGroupType(type));
    EXPECT_EQ(FailureOf([&] { RecordOf(type, "none"); }), failure::InvalidProcedureCall);
    RemoveRecord(type, sID);
    EXPECT_EQ(collection.Count(), 0);
}

TEST_F(LookUps, Each_type_has_a_collection_of_its_own) {
    ExpectFound(colPhoto, mtPhoto, "ph_a");
    ExpectFound(colMagazine, mtMagazine, "ma_a");
    ExpectFound(colPhotoAlbum, mtPhotoAlbum, "pa_a");
    ExpectFound(colVideo, mtVideo, "vd_a");
    ExpectFound(colVidSeries, mtVidSeries, "vs_a");
    ExpectFound(colMusic, mtMusic, "mu_a");
    ExpectFound(colPlaylist, mtPlaylist, "pl_");
}

TEST_F(LookUps, The_types_6_and_7_are_neither_items_nor_groups) {
    for (const int type : {-1, 6, 7, 9}) {
        EXPECT_FALSE(IsItemType(static_cast<Integer>(type)));
        EXPECT_FALSE(IsGroupType(static_cast<Integer>(type)));
    }
}

TEST_F(LookUps, Removing_a_record_lets_go_of_the_working_reference_to_it_alone) {
    colPhoto.Add("ph_a", Photo{});
    curPhoto = &colPhoto.Add("ph_b", Photo{});
    RemoveRecord(mtPhoto, "ph_a");
    EXPECT_EQ(curPhoto, &colPhoto.Item("ph_b"));
    RemoveRecord(mtPhoto, "PH_B");
    EXPECT_EQ(curPhoto, nullptr);
}

template <class T>
struct Filled {
    Collection<T>& collection;
    T*& current;

    Filled(Collection<T>& records, T*& reference) : collection(records), current(reference) {
        current = &collection.Add("a", T{});
    }
    void ExpectReleased() const {
        EXPECT_EQ(collection.Count(), 0);
        EXPECT_EQ(current, nullptr);
    }
};

TEST_F(LookUps, Releasing_empties_the_collections_and_drops_the_working_references) {
    const std::tuple all{Filled(colPhoto, curPhoto),           Filled(colMagazine, curMagazine),
                         Filled(colPhotoAlbum, curPhotoAlbum), Filled(colVideo, curVideo),
                         Filled(colVidSeries, curVidSeries),   Filled(colMusic, curMusic),
                         Filled(colPlaylist, curPlaylist)};
    ReleaseCollections();
    std::apply([](const auto&... filled) { (filled.ExpectReleased(), ...); }, all);
}

}  // namespace
}  // namespace tavel::test
