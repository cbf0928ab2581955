#include "ui/main/ItemRows.h"
#include "ui/support/MainWindow.h"

namespace tavel::test {

namespace {

class ItemRowsTest : public MainWindowTest {
  protected:
    static std::string Text(const ListRow& row) {
        std::string text = row.sKey;
        for (std::size_t i = 0; i < row.sCells.Count(); ++i)
            text.append("|").append(row.sCells.Get(i));
        return text;
    }
    // A group of members of these sizes.
    static std::vector<std::string> Photos(std::initializer_list<Long> sizes) {
        std::vector<std::string> ids;
        for (const Long size : sizes) {
            ids.push_back("ph_" + std::to_string(ids.size()));
            AddPhoto(ids.back(), "photo", size);
        }
        return ids;
    }
    static std::vector<std::string> Videos(std::initializer_list<Long> sizes) {
        std::vector<std::string> ids;
        for (const Long size : sizes) {
            ids.push_back("vd_" + std::to_string(ids.size()));
            AddVideo(ids.back(), "video", size);
        }
        return ids;
    }
};

}  // namespace

TEST_F(ItemRowsTest, a_photo_shows_dimensions_format_size_and_path) {
    EXPECT_EQ(Text(PhotoRow(AddPhoto("ph_a", "Beach", 1234567))),
              "IDph_a|Beach|480 X 272|jpg|1.23 Mb|C:\\Pictures\\Beach.jpg");
}

TEST_F(ItemRowsTest, a_video_shows_format_size_and_path) {
    EXPECT_EQ(Text(VideoRow(AddVideo("vd_a", "Film", 999))),
              "IDvd_a|Film|mp4|0 Mb|C:\\Videos\\Film.mp4");
}

TEST_F(ItemRowsTest, a_track_shows_artist_album_format_size_and_path) {
    EXPECT_EQ(Text(MusicRow(AddMusic("mu_a", "Song", "Singer"))),
              "IDmu_a|Song|Singer|Album|mp3|1.5 Mb|C:\\Music\\Song.mp3");
}

TEST_F(ItemRowsTest, a_group_shows_its_count_under_format_and_its_total_under_size) {
    const auto photos = Photos({1400000, 1400000});
    AddMagazine("ma_a", photos);
    AddAlbum("pa_a", photos);
    AddSeries("vs_a", Videos({1400000, 1400000}));
    AddMusic("mu_a", "Song", "Singer");
    AddPlaylist("pl_", {"mu_a"});
    EXPECT_EQ(Text(RowsOfType(mtMagazine).at(0)), "IDma_a|Group ma_a||2 pages|2.8 Mb");
    EXPECT_EQ(Text(RowsOfType(mtPhotoAlbum).at(0)), "IDpa_a|Group pa_a||2 pages|2.8 Mb");
    EXPECT_EQ(Text(RowsOfType(mtVidSeries).at(0)), "IDvs_a|Group vs_a|2 Episodes|2 Mb");
    EXPECT_EQ(Text(RowsOfType(mtPlaylist).at(0)), "IDpl_|Group pl_|||1 tracks|2 Mb");
}

TEST_F(ItemRowsTest, a_group_without_members_shows_zeros) {
    AddSeries("vs_a", {});
    AddMagazine("ma_a", {});
    EXPECT_EQ(Text(RowsOfType(mtVidSeries).at(0)), "IDvs_a|Group vs_a|0 Episodes|0 Mb");
    EXPECT_EQ(Text(RowsOfType(mtMagazine).at(0)), "IDma_a|Group ma_a||0 pages|0 Mb");
}

TEST_F(ItemRowsTest, a_series_loses_the_fraction_of_its_total_member_by_member) {
    AddSeries("vs_a", Videos({500000, 500000, 500000}));
    EXPECT_EQ(TotalVidSeriesSize("vs_a"), "0 Mb");
    for (const char* id : {"vd_0", "vd_1", "vd_2"}) colVideo.Item(id).iSize = 1400000;
    EXPECT_EQ(TotalVidSeriesSize("vs_a"), "3 Mb");
    for (const char* id : {"vd_0", "vd_1", "vd_2"}) colVideo.Item(id).iSize = 1500000;
    EXPECT_EQ(TotalVidSeriesSize("vs_a"), "6 Mb");  // 1.5 to 2, 3.5 to 4, 5.5 to 6
}

TEST_F(ItemRowsTest, a_member_is_rounded_to_two_decimals_before_its_fraction_is_lost) {
    AddSeries("vs_a", Videos({504000}));  // 0.5, and so 0; 0.504 would make 1
    AddMusic("mu_a", "song", "").iSize = 2504000;
    AddPlaylist("pl_", {"mu_a"});
    EXPECT_EQ(TotalVidSeriesSize("vs_a"), "0 Mb");
    EXPECT_EQ(TotalPlaylistSize("pl_"), "2 Mb");
}

TEST_F(ItemRowsTest, a_playlist_loses_the_fraction_of_its_total_member_by_member) {
    std::vector<std::string> ids;
    for (const char* id : {"mu_0", "mu_1", "mu_2", "mu_3"}) {
        AddMusic(id, "song", "").iSize = 400000;
        ids.emplace_back(id);
    }
    AddPlaylist("pl_", ids);
    EXPECT_EQ(TotalPlaylistSize("pl_"), "0 Mb");
}

TEST_F(ItemRowsTest, a_magazine_keeps_the_fraction_of_its_total) {
    AddMagazine("ma_a", Photos({500000, 500000, 500000}));
    EXPECT_EQ(TotalPhotoSeriesSize("ma_a", mtMagazine), "1.5 Mb");
    EXPECT_EQ(TotalPhotoSeriesSize("ma_a", mtVideo), "0 Mb");
}

TEST_F(ItemRowsTest, a_member_that_the_library_lacks_is_named_with_its_group) {
    AddAlbum("pa_a", Photos({500000}));
    colPhoto.Remove("ph_0");
    EXPECT_EQ(FailedActivityOf([] { RowsOfType(mtPhotoAlbum); }), "Listing ph_0 of Group pa_a");
    EXPECT_EQ(FailedActivityOf([] { AddRowsOfGroup("pa_a", [](const ListRow&) {}); }),
              "Listing ph_0 of Group pa_a");
}

TEST_F(ItemRowsTest, a_page_counts_with_its_two_decimals) {
    AddMagazine("ma_a", Photos({4000, 4000, 4000}));
    EXPECT_EQ(TotalPhotoSeriesSize("ma_a", mtMagazine), "0 Mb");
}

TEST_F(ItemRowsTest, the_total_of_pages_has_the_precision_of_a_float) {
    std::vector<std::string> ids = Photos({2147480000});
    ids.resize(20, ids.front());
    AddMagazine("ma_a", ids);
    EXPECT_EQ(TotalPhotoSeriesSize("ma_a", mtMagazine), "42949.61 Mb");
}

TEST_F(ItemRowsTest, the_total_of_pages_is_looked_up_among_the_groups_of_its_type) {
    const auto photos = Photos({1400000, 1400000});
    AddMagazine("ma_a", photos);
    AddAlbum("pa_a", {photos[0]});
    EXPECT_EQ(TotalPhotoSeriesSize("pa_a", mtPhotoAlbum), "1.4 Mb");
    EXPECT_EQ(FailureOf([] { TotalPhotoSeriesSize("pa_a", mtMagazine); }),
              failure::InvalidProcedureCall);
    EXPECT_EQ(FailureOf([] { TotalPhotoSeriesSize("ma_a", mtPhotoAlbum); }),
              failure::InvalidProcedureCall);
}

TEST_F(ItemRowsTest, types_without_a_collection_have_no_rows) {
    AddPhoto("ph_a", "a");
    for (const Integer iType : std::initializer_list<Integer>{-1, 6, 7, 9})
        EXPECT_TRUE(RowsOfType(iType).empty()) << iType;
    AddRowsOfGroup("ph_a", [](const ListRow&) { ADD_FAILURE(); });
}

TEST_F(ItemRowsTest, a_member_that_is_gone_fails) {
    const auto photos = Photos({1});
    AddMagazine("ma_a", photos);
    AddAlbum("pa_a", photos);
    AddSeries("vs_a", Videos({1}));
    AddMusic("mu_a", "song", "");
    AddPlaylist("pl_", {"mu_a"});
    colPhoto.Clear();
    colVideo.Clear();
    colMusic.Clear();
    for (const auto& [id, type] :
         std::initializer_list<std::pair<const char*, MediaType>>{{"ma_a", mtMagazine},
                                                                  {"pa_a", mtPhotoAlbum},
                                                                  {"vs_a", mtVidSeries},
                                                                  {"pl_", mtPlaylist}}) {
        const std::string sID = id;
        const MediaType iType = type;
        EXPECT_EQ(FailureOf([&] { AddRowsOfGroup(sID, [](const ListRow&) {}); }),
                  failure::InvalidProcedureCall)
            << id;
        EXPECT_EQ(FailureOf([&] { RowsOfType(iType); }), failure::InvalidProcedureCall) << id;
    }
}

TEST_F(ItemRowsTest, GetDBID_takes_two_characters_off) {
    EXPECT_EQ(GetDBID("IDph_a"), "ph_a");
    EXPECT_EQ(GetDBID("I"), "");
    EXPECT_EQ(GetDBID(""), "");
}

}  // namespace tavel::test
