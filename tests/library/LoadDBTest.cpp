#include "library/LibraryFile.h"
#include "library/LibraryFixture.h"
#include "platform/Failure.h"

namespace tavel::test {
namespace {

class LoadDBTest : public LibraryTest {
  protected:
    // A library of sections, each given as its lines.
    void ContainSections(const Texts& sections) const {
        std::string text = "[DB]\r\nNoOfItems=" + std::to_string(sections.size()) + "\r\n";
        for (std::size_t i = 0; i < sections.size(); ++i)
            text += "[" + std::to_string(i + 1) + "]\r\n" + sections[i];
        Contain(text);
    }

    Long FailureOfLoading(const Texts& sections) const {
        ReleaseCollections();
        ContainSections(sections);
        return FailureOf(LoadDB);
    }
};

constexpr const char* Photo1 =
    "ID=ph_a\r\nName=Holiday 2\r\nType=0\r\nPath=C:\\Pictures\\Holiday 2.jpg\r\nFormat=jpg\r\n"
    "Size=120488\r\nSizeW=640\r\nSizeH=480\r\nNoOfGroups=2\r\ngroup0=ma_a\r\ngroup1=pa_b\r\n";

TEST_F(LoadDBTest, A_photo_comes_with_width_and_height_crossed) {
    ContainSections({Photo1});
    LoadDB();
    const Photo& photo = colPhoto.Item("ph_a");
    EXPECT_EQ(photo.sDBID, "ph_a");
    EXPECT_EQ(photo.sName, "Holiday 2");
    EXPECT_EQ(photo.sPath(), "C:\\Pictures\\Holiday 2.jpg");
    EXPECT_EQ(photo.sFormat, "jpg");
    EXPECT_EQ(photo.iSize, 120488);
    EXPECT_EQ(photo.iSizeH, 640);
    EXPECT_EQ(photo.iSizeW, 480);
    EXPECT_EQ(GroupsOf(photo), (Texts{"ma_a", "pa_b"}));
    EXPECT_EQ(FailureOf([&] { photo.Get_sGroups(2); }), failure::SubscriptOutOfRange);
    EXPECT_EQ(curPhoto, &photo);
}

TEST_F(LoadDBTest, Music_and_video_come_with_all_their_fields) {
    ContainSections(
        {"ID=mu_a\r\nName=Song\r\nType=5\r\nPath=C:\\a.mp3\r\nSize=7\r\nFormat=mp3\r\n"
         "Artist=Someone\r\nAlbum=Something\r\nNoOfGroups=1\r\ngroup0=pl_\r\n",
         "ID=vd_a\r\nName=Film\r\nType=3\r\nPath=C:\\a.mp4\r\nFormat=mp4\r\nSize=8\r\n"
         "ThumbPath=C:\\a.THM\r\nNoOfGroups=0\r\n"});
    LoadDB();
    const Music& music = colMusic.Item("mu_a");
    EXPECT_EQ(music.sName + "|" + music.sPath() + "|" + music.sFormat, "Song|C:\\a.mp3|mp3");
    EXPECT_EQ(music.sArtist + "|" + music.sAlbum, "Someone|Something");
    EXPECT_EQ(music.iSize, 7);
    EXPECT_EQ(GroupsOf(music), Texts{"pl_"});
    EXPECT_EQ(curMusic, &music);
    const Video& video = colVideo.Item("vd_a");
    EXPECT_EQ(video.sName + "|" + video.sPath() + "|" + video.sFormat, "Film|C:\\a.mp4|mp4");
    EXPECT_EQ(video.sThumbPath, "C:\\a.THM");
    EXPECT_EQ(video.iSize, 8);
    EXPECT_EQ(video.iNoGroups, 0);
    EXPECT_EQ(curVideo, &video);
}

TEST_F(LoadDBTest, Each_kind_of_group_comes_with_its_members) {
    ContainSections({"ID=ma_a\r\nName=M\r\nType=1\r\nNoOfPages=2\r\n0=ph_a\r\n1=ph_b\r\n",
                     "ID=pa_a\r\nName=A\r\nType=2\r\nNoOfPages=1\r\n0=ph_a\r\n",
                     "ID=vs_a\r\nName=S\r\nType=4\r\nNoOfEpisodes=1\r\n0=vd_a\r\n",
                     "ID=pl_\r\nName=P\r\nType=8\r\nNoOfTracks=1\r\n0=mu_a\r\n"});
    LoadDB();
    EXPECT_EQ(MembersOf(colMagazine.Item("ma_a")), (Texts{"ph_a", "ph_b"}));
    EXPECT_EQ(MembersOf(colPhotoAlbum.Item("pa_a")), Texts{"ph_a"});
    EXPECT_EQ(MembersOf(colVidSeries.Item("vs_a")), Texts{"vd_a"});
    EXPECT_EQ(MembersOf(colPlaylist.Item("pl_")), Texts{"mu_a"});
    EXPECT_EQ(curMagazine->sName + curPhotoAlbum->sName + curVidSeries->sName + curPlaylist->sName,
              "MASP");
    const Group* groups[] = {curMagazine, curPhotoAlbum, curVidSeries, curPlaylist};
    for (const Group* group : groups) {
        EXPECT_EQ(group->iSize, 0);
        EXPECT_EQ(FailureOf([&] { group->Members().Get(group->Count()); }),
                  failure::SubscriptOutOfRange);
    }
}

TEST_F(LoadDBTest, Keys_that_a_former_tenant_left_are_not_asked_for) {
    ContainSections(
        {"ID=ph_a\r\nType=0\r\nSizeW=1\r\nSizeH=1\r\nSize=1\r\nNoOfGroups=1\r\ngroup0=ma_a\r\n"
         "group1=ma_old\r\nNoOfPages=x\r\n0=ph_old\r\nArtist=old\r\n",
         "ID=ma_a\r\nType=1\r\nNoOfPages=1\r\n0=ph_a\r\n1=ph_old\r\nSize=x\r\nSizeW=x\r\n"
         "NoOfGroups=x\r\nNoOfTracks=x\r\n"});
    LoadDB();
    EXPECT_EQ(GroupsOf(*curPhoto), Texts{"ma_a"});
    EXPECT_EQ(FailureOf([] { curPhoto->Get_sGroups(1); }), failure::SubscriptOutOfRange);
    EXPECT_EQ(MembersOf(*curMagazine), Texts{"ph_a"});
    EXPECT_EQ(FailureOf([] { curMagazine->Get_sPageID(1); }), failure::SubscriptOutOfRange);
    EXPECT_EQ(curMagazine->iSize, 0);
}

TEST_F(LoadDBTest, Neither_side_of_a_link_is_made_up_from_the_other) {
    const std::string photo = "Type=0\r\nSizeW=1\r\nSizeH=1\r\nSize=1\r\n";
    ContainSections({"ID=ph_a\r\nNoOfGroups=0\r\n" + photo,
                     "ID=ph_b\r\nNoOfGroups=1\r\ngroup0=ma_a\r\n" + photo,
                     "ID=ma_a\r\nType=1\r\nNoOfPages=1\r\n0=ph_a\r\n"});
    LoadDB();
    EXPECT_EQ(GroupsOf(colPhoto.Item("ph_a")), Texts{});
    EXPECT_EQ(GroupsOf(colPhoto.Item("ph_b")), Texts{"ma_a"});
    EXPECT_EQ(MembersOf(colMagazine.Item("ma_a")), Texts{"ph_a"});
}

TEST_F(LoadDBTest, The_order_of_the_file_is_the_order_of_the_collection) {
    const std::string rest = "Type=3\r\nSize=1\r\nNoOfGroups=0\r\n";
    ContainSections({"ID=vd_z\r\n" + rest, "ID=vd_a\r\n" + rest});
    LoadDB();
    EXPECT_EQ(colVideo.Item(1).sDBID + colVideo.Item(2).sDBID, "vd_zvd_a");
    EXPECT_EQ(curVideo, &colVideo.Item(2));
}

TEST_F(LoadDBTest, An_empty_library_still_logs_that_it_was_loaded) {
    for (const char* text : {"[DB]\r\nNoOfItems=0\r\n", "", "[db]\r\nnoofitems=many\r\n",
                             "[db]\r\nnoofitems=-5\r\n", "[db]\r\nnoofitems=40000\r\n"}) {
        windows.calls.clear();
        Contain(text);
        LoadDB();
        EXPECT_EQ(windows.calls, Calls{"Log DB: DB Loaded"}) << text;
        EXPECT_EQ(colPhoto.Count(), 0);
    }
}

TEST_F(LoadDBTest, A_missing_file_is_an_empty_library) {
    LoadDB();
    EXPECT_EQ(windows.calls, Calls{"Log DB: DB Loaded"});
}

TEST_F(LoadDBTest, Other_types_are_skipped) {
    ContainSections({"ID=a\r\nType=6\r\n", "ID=b\r\nType=7\r\n", "ID=c\r\nType=9\r\n",
                     "ID=d\r\nType=-1\r\n", Photo1});
    LoadDB();
    EXPECT_EQ(colPhoto.Count(), 1);
    EXPECT_EQ(colMagazine.Count() + colPhotoAlbum.Count() + colVideo.Count() +
                  colVidSeries.Count() + colMusic.Count() + colPlaylist.Count(),
              0);
}

TEST_F(LoadDBTest, Loading_changes_nothing_in_the_file) {
    ContainSections({Photo1});
    const std::string before = DB();
    LoadDB();
    EXPECT_EQ(DB(), before);
}

TEST_F(LoadDBTest, Sections_beyond_the_count_are_not_read) {
    Contain(std::string("[DB]\r\nNoOfItems=1\r\n[1]\r\n") + Photo1 + "[2]\r\nType=bad\r\n");
    EXPECT_EQ(FailureOf(LoadDB), 0);
}

TEST_F(LoadDBTest, A_section_that_is_missing_or_has_no_type_fails) {
    Contain("[DB]\r\nNoOfItems=1\r\n");
    EXPECT_EQ(FailureOf(LoadDB), failure::TypeMismatch);
    EXPECT_EQ(FailureOfLoading({"ID=ph_a\r\nType=\r\n"}), failure::TypeMismatch);
    EXPECT_EQ(FailureOfLoading({"ID=ph_a\r\nType=photo\r\n"}), failure::TypeMismatch);
}

TEST_F(LoadDBTest, Numbers_that_are_missing_or_do_not_convert_fail) {
    const struct {
        const char* section;
        Long number;
    } rows[] = {
        {"Type=0\r\nSizeH=1\r\nSize=1\r\nNoOfGroups=0\r\n", failure::TypeMismatch},
        {"Type=0\r\nSizeW=x\r\nSizeH=1\r\nSize=1\r\nNoOfGroups=0\r\n", failure::TypeMismatch},
        {"Type=0\r\nSizeW=1\r\nSize=1\r\nNoOfGroups=0\r\n", failure::TypeMismatch},
        {"Type=0\r\nSizeW=40000\r\nSizeH=1\r\nSize=1\r\nNoOfGroups=0\r\n", failure::Overflow},
        {"Type=0\r\nSizeW=1\r\nSizeH=1\r\nNoOfGroups=0\r\n", failure::TypeMismatch},
        {"Type=0\r\nSizeW=1\r\nSizeH=1\r\nSize=1\r\n", failure::TypeMismatch},
        {"Type=0\r\nSizeW=\r\nSizeH=1\r\nSize=1\r\nNoOfGroups=0\r\n", failure::TypeMismatch},
        {"Type=0\r\nSizeW=1\r\nSizeH=1\r\nSize=1\r\nNoOfGroups=\r\n", failure::TypeMismatch},
        {"Type=3\r\nSize=big\r\nNoOfGroups=0\r\n", failure::TypeMismatch},
        {"Type=3\r\nSize=3000000000\r\nNoOfGroups=0\r\n", failure::Overflow},
        {"Type=5\r\nSize=1\r\n", failure::TypeMismatch},
        {"Type=1\r\n", failure::TypeMismatch},
        {"Type=2\r\nNoOfPages=x\r\n", failure::TypeMismatch},
        {"Type=4\r\n", failure::TypeMismatch},
        {"Type=8\r\nNoOfTracks=\r\n", failure::TypeMismatch},
        {"Type=3\r\nSize=1\r\nNoOfGroups=-1\r\n", failure::SubscriptOutOfRange},
    };
    for (const auto& row : rows)
        EXPECT_EQ(FailureOfLoading({row.section}), row.number) << row.section;
}

// All keys of an entry, but that one of its numbers is a word.
std::string Spoilt(const std::string& section, const std::string& key) {
    const std::size_t value = section.find("\n" + key + "=") + key.size() + 2;
    return section.substr(0, value) + "x" + section.substr(section.find("\r\n", value));
}

TEST_F(LoadDBTest, Keys_are_read_in_a_fixed_order_up_to_the_first_that_fails) {
    const std::string photo =
        "ID=ph_a\r\nNoOfGroups=4\r\nSize=3\r\nSizeH=2\r\nSizeW=1\r\nFormat=f\r\nPath=p\r\nName="
        "n\r\n"
        "Type=0\r\n";
    const struct {
        const char* spoilt;
        const char* read;
    } photos[] = {{"SizeW", "ph_a n p f 0 0 0"},
                  {"SizeH", "ph_a n p f 1 0 0"},
                  {"Size", "ph_a n p f 1 2 0"},
                  {"NoOfGroups", "ph_a n p f 1 2 3"}};
    for (const auto& row : photos) {
        EXPECT_EQ(FailureOfLoading({Spoilt(photo, row.spoilt)}), failure::TypeMismatch);
        const Photo& read = colPhoto.Item("ph_a");
        EXPECT_EQ(read.sDBID + " " + read.sName + " " + read.sPath() + " " + read.sFormat + " " +
                      std::to_string(read.iSizeH) + " " + std::to_string(read.iSizeW) + " " +
                      std::to_string(read.iSize),
                  row.read)
            << row.spoilt;
    }
    const std::string music =
        "ID=mu_a\r\nNoOfGroups=4\r\nFormat=f\r\nSize=3\r\nAlbum=l\r\nArtist=a\r\nPath=p\r\nName="
        "n\r\n"
        "Type=5\r\n";
    for (const char* spoilt : {"Size", "NoOfGroups"}) {
        EXPECT_EQ(FailureOfLoading({Spoilt(music, spoilt)}), failure::TypeMismatch);
        const Music& read = colMusic.Item("mu_a");
        EXPECT_EQ(read.sDBID + read.sName + read.sPath() + read.sArtist + read.sAlbum, "mu_anpal");
        const bool isBehindSize = spoilt == std::string("NoOfGroups");
        EXPECT_EQ(read.iSize, isBehindSize ? 3 : 0);
        EXPECT_EQ(read.sFormat, isBehindSize ? "f" : "");
    }
    const std::string video =
        "ID=vd_a\r\nNoOfGroups=4\r\nThumbPath=t\r\nFormat=f\r\nSize=3\r\nPath=p\r\nName=n\r\nType="
        "3\r\n";
    for (const char* spoilt : {"Size", "NoOfGroups"}) {
        EXPECT_EQ(FailureOfLoading({Spoilt(video, spoilt)}), failure::TypeMismatch);
        const Video& read = colVideo.Item("vd_a");
        EXPECT_EQ(read.sDBID + read.sName + read.sPath(), "vd_anp");
        const bool isBehindSize = spoilt == std::string("NoOfGroups");
        EXPECT_EQ(read.iSize, isBehindSize ? 3 : 0);
        EXPECT_EQ(read.sFormat + read.sThumbPath, isBehindSize ? "ft" : "");
    }
    EXPECT_EQ(FailureOfLoading({"ID=ma_a\r\nNoOfPages=x\r\nName=n\r\nType=1\r\n"}),
              failure::TypeMismatch);
    EXPECT_EQ(colMagazine.Item("ma_a").sDBID + colMagazine.Item("ma_a").sName, "ma_an");
    EXPECT_EQ(windows.calls, Calls{});  // a load that failed is not logged
}

TEST_F(LoadDBTest, A_group_without_members_cannot_be_read) {
    EXPECT_EQ(FailureOfLoading({"ID=ma_a\r\nType=1\r\nNoOfPages=0\r\n"}),
              failure::SubscriptOutOfRange);
    EXPECT_EQ(FailureOfLoading({"ID=vs_a\r\nType=4\r\nNoOfEpisodes=0\r\n"}),
              failure::SubscriptOutOfRange);
}

TEST_F(LoadDBTest, Two_entries_of_a_collection_with_one_id_fail) {
    const std::string rest = "Type=3\r\nSize=1\r\nNoOfGroups=0\r\n";
    EXPECT_EQ(FailureOfLoading({"ID=vd_a\r\n" + rest, "ID=VD_A\r\n" + rest}),
              failure::KeyAlreadyThere);
    EXPECT_EQ(FailureOfLoading({"ID=x\r\n" + rest, "ID=x\r\nType=5\r\nSize=1\r\nNoOfGroups=0\r\n"}),
              0);
    EXPECT_EQ(curVideo->sDBID + curMusic->sDBID, "xx");
}

TEST_F(LoadDBTest, Ids_that_lead_nowhere_are_taken_as_they_stand) {
    EXPECT_EQ(FailureOfLoading({"ID=ma_a\r\nType=1\r\nNoOfPages=2\r\n0=ph_gone\r\n"}), 0);
    EXPECT_EQ(MembersOf(colMagazine.Item("ma_a")), (Texts{"ph_gone", ""}));
}

}  // namespace
}  // namespace tavel::test
