#include "core/modRegistry.h"
#include "library/Adding.h"
#include "library/Groups.h"
#include "library/LibraryFile.h"
#include "library/LibraryFixture.h"
#include "media/TagMaker.h"
#include "platform/Failure.h"

namespace tavel::test {
namespace {

class SaveDBTest : public LibraryTest {
  protected:
    static Photo& GivePhoto(const std::string& sID) {
        Photo& photo = Give(colPhoto, sID, "C:\\Pictures\\Holiday 2.jpg");
        photo.sName = "Holiday 2";
        photo.sFormat = "jpg";
        photo.iSize = 120488;
        photo.iSizeW = 640;
        photo.iSizeH = 480;
        return photo;
    }

    template <class T>
    static void GiveGroup(Collection<T>& collection, const std::string& sID, const Texts& members) {
        T& group = Give(collection, sID);
        group.sName = "N" + sID;
        group.SetCount(static_cast<Integer>(members.size()));
        for (Integer i = 0; i < group.Count(); ++i) {
            group.Members().Redim(i, true);
            group.Members().Set(i, members[static_cast<std::size_t>(i)]);
        }
    }

    static void Link(Item& item, const std::string& sGroupID) {
        item.Redim_sGroups(item.iNoGroups, true);
        item.Set_sGroups(item.iNoGroups++, sGroupID);
    }

    void Reload() const {
        ReleaseCollections();
        LoadDB();
    }
};

TEST_F(SaveDBTest, Each_kind_writes_its_keys_in_its_order) {
    Contain("[options]\r\nbFirstTime=0\r\n");
    GiveGroup(colPlaylist, "pl_", {"mu_a"});
    GiveGroup(colVidSeries, "vs_a", {"vd_a", "vd_b"});
    GiveGroup(colPhotoAlbum, "pa_a", {"ph_a"});
    GiveGroup(colMagazine, "ma_a", {});
    Video& video = Give(colVideo, "vd_a", "C:\\f.mp4");
    video.sName = "Film";
    video.sFormat = "mp4";
    video.iSize = 8;
    video.sThumbPath = "C:\\f.THM";
    Music& music = Give(colMusic, "mu_a", "C:\\s.mp3");
    music.sName = "Song";
    music.sFormat = "mp3";
    music.iSize = 7;
    music.sArtist = "Someone";
    music.sAlbum = "Something";
    Link(GivePhoto("ph_a"), "ma_a");
    SaveDB();
    EXPECT_EQ(DB(),
              "[options]\r\nbFirstTime=0\r\n"
              "[1]\r\nID=ph_a\r\nName=Holiday 2\r\nType=0\r\nPath=C:\\Pictures\\Holiday 2.jpg\r\n"
              "Format=jpg\r\nSize=120488\r\nSizeW=640\r\nSizeH=480\r\nNoOfGroups=1\r\n"
              "group0=ma_a\r\n"
              "[2]\r\nID=mu_a\r\nName=Song\r\nType=5\r\nPath=C:\\s.mp3\r\nSize=7\r\nFormat=mp3\r\n"
              "Artist=Someone\r\nAlbum=Something\r\nNoOfGroups=0\r\n"
              "[3]\r\nID=vd_a\r\nName=Film\r\nType=3\r\nPath=C:\\f.mp4\r\nFormat=mp4\r\nSize=8\r\n"
              "ThumbPath=C:\\f.THM\r\nNoOfGroups=0\r\n"
              "[4]\r\nID=ma_a\r\nName=Nma_a\r\nType=1\r\nNoOfPages=0\r\n"
              "[5]\r\nID=pa_a\r\nName=Npa_a\r\nType=2\r\nNoOfPages=1\r\n0=ph_a\r\n"
              "[6]\r\nID=vs_a\r\nName=Nvs_a\r\nType=4\r\nNoOfEpisodes=2\r\n0=vd_a\r\n1=vd_b\r\n"
              "[7]\r\nID=pl_\r\nName=Npl_\r\nType=8\r\nNoOfTracks=1\r\n0=mu_a\r\n"
              "[DB]\r\nNoOfItems=7\r\n");
}

TEST_F(SaveDBTest, The_kinds_are_parted_and_each_keeps_its_own_order) {
    const std::string rest = "Size=1\r\nSizeW=1\r\nSizeH=1\r\nNoOfGroups=0\r\n";
    Contain("[DB]\r\nNoOfItems=4\r\n[1]\r\nID=vd_z\r\nType=3\r\n" + rest +
            "[2]\r\nID=ph_z\r\nType=0\r\n" + rest + "[3]\r\nID=vd_a\r\nType=3\r\n" + rest +
            "[4]\r\nID=ph_a\r\nType=0\r\n" + rest);
    LoadDB();
    SaveDB();
    std::string ids;
    for (const char* section : {"1", "2", "3", "4"}) {
        std::string sID;
        ReadValue(sDBFile, section, "id", "s", "", sID);
        ids += sID + " ";
    }
    EXPECT_EQ(ids, "ph_z ph_a vd_z vd_a ");
}

TEST_F(SaveDBTest, An_item_that_lost_groups_leaves_their_keys_and_loads_without_them) {
    Contain("");
    Photo& photo = GivePhoto("ph_a");
    for (const char* sGroupID : {"ma_a", "ma_b"}) Link(photo, sGroupID);
    SaveDB();
    for (const Integer left : {Integer{1}, Integer{0}}) {
        colPhoto.Item("ph_a").iNoGroups = left;
        SaveDB();
        const std::string count = "NoOfGroups=" + std::to_string(left);
        EXPECT_NE(DB().find(count + "\r\ngroup0=ma_a\r\ngroup1=ma_b\r\n"), std::string::npos);
        Reload();
        EXPECT_EQ(colPhoto.Item("ph_a").iNoGroups, left);
    }
}

TEST_F(SaveDBTest, A_smaller_library_comes_back_without_what_it_lost) {
    Contain("");
    for (const char* sID : {"ph_a", "ph_b"}) GivePhoto(sID);
    GiveGroup(colMagazine, "ma_a", {"ph_a", "ph_b"});
    SaveDB();
    for (const char* sID : {"ph_a", "ph_b"}) RemoveRecord(mtPhoto, sID);
    SaveDB();
    Reload();
    EXPECT_EQ(colPhoto.Count(), 0);
    ASSERT_EQ(colMagazine.Count(), 1);
    EXPECT_EQ(MembersOf(colMagazine.Item("ma_a")), (Texts{"ph_a", "ph_b"}));
}

TEST_F(SaveDBTest, A_smaller_library_leaves_the_sections_above_its_count) {
    Contain("[DB]\r\nNoOfItems=2\r\n[1]\r\nType=6\r\nOld=1\r\n[2]\r\nType=0\r\nID=ph_old\r\n");
    GiveGroup(colMagazine, "ma_a", {"ph_a"});
    SaveDB();
    EXPECT_EQ(DB(),
              "[DB]\r\nNoOfItems=1\r\n[1]\r\nType=1\r\nOld=1\r\nID=ma_a\r\nName=Nma_a\r\n"
              "NoOfPages=1\r\n0=ph_a\r\n[2]\r\nType=0\r\nID=ph_old\r\n");
}

TEST_F(SaveDBTest, A_skipped_section_is_lost_at_the_next_save) {
    Contain(
        "[DB]\r\nNoOfItems=2\r\n[1]\r\nID=x\r\nType=6\r\n[2]\r\nID=vd_a\r\nType=3\r\nSize=1\r\n"
        "NoOfGroups=0\r\n");
    LoadDB();
    SaveDB();
    Reload();
    EXPECT_EQ(colVideo.Count(), 1);
    EXPECT_EQ(DB().substr(0, 28), "[DB]\r\nNoOfItems=1\r\n[1]\r\nID=v");
}

TEST_F(SaveDBTest, Width_and_height_change_places_at_every_load) {
    Contain("");
    GivePhoto("ph_a");
    SaveDB();
    Reload();
    EXPECT_EQ(colPhoto.Item(1).iSizeW, 480);
    EXPECT_EQ(colPhoto.Item(1).iSizeH, 640);
    SaveDB();
    EXPECT_NE(DB().find("SizeW=480\r\nSizeH=640\r\n"), std::string::npos);
    Reload();
    EXPECT_EQ(colPhoto.Item(1).iSizeW, 640);
}

TEST_F(SaveDBTest, An_empty_group_is_saved_and_fails_at_the_next_load) {
    Contain("");
    GiveGroup(colMagazine, "ma_a", {});
    SaveDB();
    ReleaseCollections();
    EXPECT_EQ(FailureOf(LoadDB), failure::SubscriptOutOfRange);
}

TEST_F(SaveDBTest, A_group_that_was_emptied_is_saved_without_the_member_behind_its_count) {
    Contain("");
    GivePhoto("ph_a");
    RemoveFromGroup("ph_a", MakeGroup({"ph_a"}, "Summer", mtMagazine));
    SaveDB();
    EXPECT_NE(DB().find("Name=Summer\r\nType=1\r\nNoOfPages=0\r\n[DB]"), std::string::npos);
}

TEST_F(SaveDBTest, A_long_value_is_cut_at_254_characters_at_the_next_load) {
    const auto repeated = [](const char* text, int times) {
        std::string all;
        for (int i = 0; i < times; ++i) all += text;
        return all;
    };
    Contain("");
    Photo& photo = GivePhoto("ph_a");
    photo.sName = repeated("n", 300);
    photo.sPath("C:\\" + repeated("\u00e4", 260));
    Link(photo, repeated("\u00e4", 254));
    SaveDB();
    EXPECT_NE(DB().find("Name=" + repeated("n", 300) + "\r\n"), std::string::npos);
    Reload();
    EXPECT_EQ(colPhoto.Item(1).sName, repeated("n", 254));
    EXPECT_EQ(colPhoto.Item(1).sPath(), "C:\\" + repeated("\u00e4", 251));
    EXPECT_EQ(GroupsOf(colPhoto.Item(1)), Texts{repeated("\u00e4", 254)});
}

TEST_F(SaveDBTest, A_path_of_157_Cyrillic_characters_comes_back_whole) {
    std::string sPath = "C:\\";
    for (int i = 3; i < 157; ++i) sPath += "\u0436";
    Contain("");
    GivePhoto("ph_a").sPath(sPath);
    for (int session = 0; session < 2; ++session) {
        SaveDB();
        Reload();
        EXPECT_EQ(colPhoto.Item("ph_a").sPath(), sPath);
    }
}

TEST_F(SaveDBTest, Bytes_of_any_code_page_come_back_as_they_were) {
    Contain("");
    Photo& photo = GivePhoto("ph_a");
    photo.sName = "\xC3\xA4 \xE4 \x80 \xE2\x82\xAC";
    photo.sPath(photo.sName);
    SaveDB();
    Reload();
    EXPECT_EQ(colPhoto.Item(1).sName, "\xC3\xA4 \xE4 \x80 \xE2\x82\xAC");
    EXPECT_EQ(colPhoto.Item(1).sPath(), colPhoto.Item(1).sName);
}

TEST_F(SaveDBTest, Without_its_file_a_save_does_nothing) {
    GivePhoto("ph_a");
    SaveDB();
    EXPECT_FALSE(oFSO().FileExists(sDBFile));
}

TEST_F(SaveDBTest, The_largest_library_comes_back) {
    Contain("");
    for (int i = 1; i <= 32767; ++i) {
        Video& video = Give(colVideo, "vd_" + std::to_string(i));
        video.sName = std::to_string(i);
    }
    SaveDB();
    Reload();
    EXPECT_EQ(colVideo.Count(), 32767);
    EXPECT_EQ(colVideo.Item(32767).sName, "32767");
}

TEST_F(SaveDBTest, Beyond_32767_entries_the_sections_are_written_and_the_count_stays) {
    Contain("[DB]\r\nNoOfItems=1\r\n[32767]\r\nID=old\r\n");
    for (int i = 0; i <= 32767; ++i) Give(colPlaylist, "pl_" + std::to_string(i));
    EXPECT_EQ(FailureOf(SaveDB), failure::Overflow);
    const std::string text = DB();
    EXPECT_EQ(text.substr(0, 19), "[DB]\r\nNoOfItems=1\r\n");
    EXPECT_NE(text.find("[32767]\r\nID=pl_32766\r\n"), std::string::npos);
    EXPECT_EQ(text.find("pl_32767"), std::string::npos);
}

TEST_F(SaveDBTest, A_series_that_never_got_a_count_fails) {
    Contain("");
    Give(colVidSeries, "vs_a");
    EXPECT_EQ(FailureOf(SaveDB), failure::TypeMismatch);
}

TEST_F(SaveDBTest, No_title_in_a_tag_can_add_keys_or_sections) {
    const Texts titles = {"a\r\nType=1",
                          "x\r\n[9]\r\nID=mu_evil",
                          "[9]",
                          "=",
                          "a=b",
                          "..",
                          "\n\n[DB]\nNoOfItems=9",
                          ";c",
                          "\"quoted\"",
                          " blanks around ",
                          "'"};
    Contain("[watch]\r\nnoofflds=0\r\n");
    for (std::size_t i = 0; i < titles.size(); ++i) {
        const std::string sName = "song" + std::to_string(i) + ".mp3";
        AddFile(Write(sName, Tag(3, Frame3("TIT2", std::string(1, '\0') + titles[i]) +
                                        Frame3("TPE1", std::string(1, '\0') + titles[i]))));
    }
    ASSERT_EQ(colMusic.Count(), static_cast<Long>(titles.size()));
    SaveDB();
    const std::string text = DB();
    Long sections = 0;
    for (std::size_t at = text.find("\n["); at != std::string::npos; at = text.find("\n[", at + 1))
        ++sections;
    EXPECT_EQ(sections, static_cast<Long>(titles.size()) + 1);  // each track and DB
    Reload();
    ASSERT_EQ(colMusic.Count(), static_cast<Long>(titles.size()));
    for (Long i = 1; i <= colMusic.Count(); ++i) {
        std::string expected;  // a line break becomes one blank
        for (const char c : titles[static_cast<std::size_t>(i) - 1]) {
            if (c == '\n' && !expected.empty() && expected.back() == '\r') expected.pop_back();
            expected += c == '\n' ? ' ' : c;
        }
        EXPECT_EQ(colMusic.Item(i).sName, expected);
        EXPECT_EQ(colMusic.Item(i).sArtist, expected);
        EXPECT_EQ(colMusic.Item(i).sFormat, "mp3");
        EXPECT_EQ(colMusic.Item(i).iNoGroups, 0);
    }
}

}  // namespace
}  // namespace tavel::test
