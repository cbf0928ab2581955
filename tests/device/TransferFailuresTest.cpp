#include "core/PublicStuff.h"
#include "device/Browser.h"
#include "device/Status.h"
#include "device/Transfer.h"
#include "device/TransferTestBase.h"
#include "support/HostDrives.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <set>

namespace tavel::test {

using ::testing::Contains;
using ::testing::Not;
using ::testing::StartsWith;

namespace fs = std::filesystem;

namespace {

class TransferFailuresTest : public TransferTestBase {
  protected:
    static Long FailureOfSending(const std::vector<std::string>& sIDs) {
        return FailureOf([&] { TransferToPSP(sIDs); });
    }

    void ExpectFinished() { EXPECT_THAT(calls, Contains("labFinish on")); }
    void ExpectNotFinished() { EXPECT_THAT(calls, Not(Contains("labFinish on"))); }
};

}  // namespace

TEST_F(TransferFailuresTest, A_full_stick_cuts_a_chunked_copy_short_without_a_word) {
    const std::string sVideo = AddVideo("Film", std::string(5000, 'v'));
    const std::string sPhoto = AddPhoto("Photo");
    files.At('e').bytesUntilFull = 3000;
    TransferToPSP({sVideo, sPhoto});
    EXPECT_EQ(BytesOn('e', "MP_ROOT/100MNV01/M4V10001.mp4"), std::string(3000, 'v'));
    EXPECT_TRUE(IsOn('e', "PSP/PHOTO/Photo.jpg"));
    EXPECT_EQ(BytesOn('e', "PSP/PHOTO/Photo.jpg"), "");
    EXPECT_EQ(BytesOn('e', "TavelDataFile.tavel"), "[video]\r\nM4V10001=Film\r\n");
    EXPECT_EQ(frmCopy.total.Value(), 2);
    ExpectFinished();
}

TEST_F(TransferFailuresTest,
       A_stick_pulled_in_a_chunked_copy_is_passed_over_until_the_tree_is_read) {
    const std::string sPhoto = AddPhoto("Photo", std::string(5000, 'p'));
    const std::string sTrack = AddTrack("Track");
    const std::string sVideo = AddVideo("Film");
    Put('e', "MP_ROOT/100MNV01/M4V10001.mp4", "taken");
    files.At('e').bytesUntilGone = 3000;
    panels.onRefreshPSPCats = [] { PSPMusicFolders(); };
    EXPECT_EQ(FailureOfSending({sPhoto, sTrack, sVideo}), 76);
    EXPECT_EQ(BytesOn('e', "PSP/PHOTO/Photo.jpg"), std::string(3000, 'p'));
    EXPECT_FALSE(IsOn('e', "PSP/MUSIC/Track.mp3"));
    // The name search found number 1 free, and the title went nowhere.
    EXPECT_THAT(calls, Contains("Create e:\\MP_ROOT\\100MNV01\\M4V10001.mp4"));
    EXPECT_EQ(BytesOn('e', "MP_ROOT/100MNV01/M4V10001.mp4"), "taken");
    EXPECT_EQ(BytesOn('e', "TavelDataFile.tavel"), "");
    ExpectFinished();
    EXPECT_EQ(calls.back(), "RefreshPSPCats");
}

TEST_F(TransferFailuresTest, The_panels_figures_end_the_run_of_a_stick_that_goes_behind_the_tree) {
    StatusPanel panel;
    panels.onRefreshPSPCats = [&] { files.Pull('e'); };
    panels.onRefreshPSPStatus = [&] { UpdateStatusPanel(panel); };
    EXPECT_EQ(FailureOfSending({AddPhoto("Photo")}), 68);
    ExpectFinished();
    EXPECT_EQ(calls.back(), "RefreshPSPStatus");
}

TEST_F(TransferFailuresTest, A_stick_pulled_earlier_ends_the_run_at_the_first_folder_of_a_group) {
    const std::string sAlbum = AddAlbum("Album", {AddPhoto("A")});
    files.Pull('e');
    EXPECT_EQ(FailureOfSending({sAlbum}), 76);
    EXPECT_EQ(calls.back(), "CreateFolder e:\\psp\\photo\\Album\\");
}

TEST_F(TransferFailuresTest, A_full_stick_ends_the_run_in_the_copy_of_a_page) {
    const std::string sAlbum = AddAlbum("Album", {AddPhoto("A", std::string(5000, 'a'))});
    files.At('e').bytesUntilFull = 3000;
    EXPECT_EQ(FailureOfSending({sAlbum}), 61);
    EXPECT_EQ(calls.back(), "CopyFile e:\\psp\\photo\\Album\\A.jpg");
}

TEST_F(TransferFailuresTest, A_stick_pulled_in_the_copy_of_a_page_ends_the_run) {
    const std::string sAlbum = AddAlbum("Album", {AddPhoto("A", std::string(5000, 'a'))});
    files.At('e').bytesUntilGone = 3000;
    EXPECT_NE(FailureOfSending({sAlbum}), 0);
    EXPECT_EQ(calls.back(), "CopyFile e:\\psp\\photo\\Album\\A.jpg");
}

TEST_F(TransferFailuresTest, A_thumbnail_that_cannot_be_copied_ends_the_run_before_the_title) {
    const std::string sVideo = AddVideo("Film");
    temp.Write("lib/1.thm", std::string(5000, 't'));
    colVideo.Item(sVideo).sThumbPath = temp.DrivePath("lib/1.thm");
    files.At('e').bytesUntilFull = 3000;
    EXPECT_EQ(FailureOfSending({sVideo}), 61);
    files.At('e').bytesUntilFull = FakeDrive::plenty;
    files.At('e').bytesUntilGone = 3000;
    EXPECT_NE(FailureOfSending({sVideo}), 0);
    Connect();
    colVideo.Item(sVideo).sThumbPath = temp.DrivePath("lib/none.thm");
    EXPECT_EQ(FailureOfSending({sVideo}), 53);
    EXPECT_EQ(BytesOn('e', "TavelDataFile.tavel"), "");
    ExpectNotFinished();
}

TEST_F(TransferFailuresTest, A_page_that_is_its_own_destination_ends_the_run_unharmed) {
    const std::string sPhoto = AddPhoto("A");
    Put('e', "PSP/PHOTO/Album/A.jpg", "page");
    colPhoto.Item(sPhoto).sPath("e:\\psp\\photo\\Album\\A.jpg");
    EXPECT_EQ(FailureOfSending({AddAlbum("Album", {sPhoto})}), 70);
    EXPECT_EQ(BytesOn('e', "PSP/PHOTO/Album/A.jpg"), "page");
    ExpectNotFinished();
}

TEST_F(TransferFailuresTest, A_missing_library_file_ends_the_run) {
    const std::string sPhoto = AddPhoto("P");
    const std::string sTrack = AddTrack("T");
    const std::string sVideo = AddVideo("V");
    fs::remove_all(temp.HostPath("lib"));
    for (const std::string& sID :
         {sPhoto, sTrack, sVideo, AddMagazine("M", {sPhoto}), AddAlbum("A", {sPhoto}),
          AddPlaylist("L", {sTrack}), AddSeries("S", {sVideo})}) {
        EXPECT_EQ(FailureOfSending({sID}), 53) << sID;
    }
    ExpectNotFinished();
}

TEST_F(TransferFailuresTest, An_id_that_no_collection_holds_ends_the_run) {
    for (const char* sID :
         {"ph_no", "ma_no", "pa_no", "vd_no", "vs_no", "mu_no", "pl_no", "xx_no"}) {
        EXPECT_EQ(FailureOfSending({sID}), 5) << sID;
    }
    for (const std::string& sID : {AddMagazine("M", {"ph_no"}), AddAlbum("A", {"ph_no"}),
                                   AddPlaylist("L", {"mu_no"}), AddSeries("S", {"vd_no"})}) {
        EXPECT_EQ(FailureOfSending({sID}), 5) << sID;
    }
    ExpectNotFinished();
}

TEST_F(TransferFailuresTest, A_member_of_another_kind_than_its_groups_ends_the_run) {
    const std::string sPhoto = AddPhoto("P");
    const std::string sTrack = AddTrack("T");
    for (const std::string& sID : {AddMagazine("M", {sTrack}), AddAlbum("A", {AddVideo("V")}),
                                   AddPlaylist("L", {sPhoto}), AddSeries("S", {sTrack})}) {
        calls.clear();
        EXPECT_EQ(FailureOfSending({sID}), 5) << sID;
        EXPECT_THAT(calls, Not(Contains(StartsWith("CopyFile"))));
        EXPECT_THAT(calls, Not(Contains(StartsWith("Create e:"))));
    }
}

TEST_F(TransferFailuresTest, A_copy_that_wrote_nothing_leaves_a_title_and_its_number_free) {
    const std::string sFirst = AddVideo("First");
    const std::string sSecond = AddVideo("Second");
    files.At('e').bytesUntilFull = 0;
    TransferToPSP({sFirst});
    EXPECT_TRUE(IsOn('e', "MP_ROOT/100MNV01/M4V10001.mp4"));
    EXPECT_EQ(BytesOn('e', "MP_ROOT/100MNV01/M4V10001.mp4"), "");
    EXPECT_EQ(BytesOn('e', "TavelDataFile.tavel"), "[video]\r\nM4V10001=First\r\n");

    fs::remove_all(HostOf('e', "MP_ROOT"));
    TransferToPSP({sFirst, sSecond});
    EXPECT_FALSE(IsOn('e', "MP_ROOT"));
    EXPECT_EQ(BytesOn('e', "TavelDataFile.tavel"), "[video]\r\nM4V10001=Second\r\n");
    ExpectFinished();
}

TEST_F(TransferFailuresTest, A_title_that_cannot_be_written_is_passed_over) {
    SpoilIdentityFile();
    TransferToPSP({AddVideo("Film")});
    EXPECT_EQ(BytesOn('e', "MP_ROOT/100MNV01/M4V10001.mp4"), "video");
    ExpectFinished();
}

TEST_F(TransferFailuresTest, A_series_whose_count_was_never_assigned_ends_the_run) {
    colVidSeries.Add("vs_new", VidSeries());
    EXPECT_EQ(FailureOfSending({"vs_new"}), 13);
}

TEST_F(TransferFailuresTest, A_count_beyond_the_members_ends_the_run) {
    const std::string sID = AddAlbum("A", {AddPhoto("P")});
    colPhotoAlbum.Item(sID).iPages = 2;
    EXPECT_EQ(FailureOfSending({sID}), 9);
}

TEST_F(TransferFailuresTest, A_name_that_the_stick_refuses_is_passed_over_by_the_chunked_copy) {
    for (const char* sName : {"what?", "a:b", "a<b", "a*", "a\"b", "tab\there"}) {
        calls.clear();
        const std::string sID = AddPhoto(sName);
        TransferToPSP({sID, AddTrack(sName)});
        ExpectFinished();
    }
    EXPECT_TRUE(fs::is_empty(HostOf('e', "PSP/PHOTO")));
    EXPECT_TRUE(fs::is_empty(HostOf('e', "PSP/MUSIC")));
}

TEST_F(TransferFailuresTest, A_name_that_the_stick_refuses_ends_the_run_in_the_plain_copy) {
    EXPECT_NE(FailureOfSending({AddAlbum("Album", {AddPhoto("what?")})}), 0);
    EXPECT_EQ(calls.back(), "CopyFile e:\\psp\\photo\\Album\\what?.jpg");
    EXPECT_NE(FailureOfSending({AddAlbum("what?", {})}), 0);
    EXPECT_EQ(calls.back(), "CreateFolder e:\\psp\\photo\\what?\\");
}

TEST_F(TransferFailuresTest, A_stick_without_the_PSPs_folders_takes_chunked_copies_for_nothing) {
    fs::remove_all(HostOf('e', "PSP"));
    const std::string sPhoto = AddPhoto("P");
    TransferToPSP({sPhoto});
    ExpectFinished();
    EXPECT_EQ(FailureOfSending({AddAlbum("A", {sPhoto})}), 76);

    fs::remove_all(HostOf('e', "MP_ROOT"));
    calls.clear();
    TransferToPSP({AddVideo("Film")});
    ExpectFinished();
    EXPECT_FALSE(fs::exists(HostOf('e', "MP_ROOT")));
}

namespace {

class NamesThatClimbTest : public HostDrives {
  protected:
    // Everything in the fixture's folder that is not on the stick, with its bytes.
    std::set<std::string> OutsideTheStick() const {
        std::set<std::string> found;
        for (const auto& entry : fs::recursive_directory_iterator(temp.HostPath())) {
            const std::string path = fs::relative(entry.path(), temp.HostPath()).generic_string();
            if (path.rfind("stick/", 0) == 0) continue;
            found.insert(entry.is_regular_file() ? path + "=" + temp.Read(path) : path);
        }
        return found;
    }
};

}  // namespace

TEST_F(NamesThatClimbTest, Nothing_is_ever_written_outside_the_stick) {
    Link('e', "stick");
    for (const char* folder : {"stick/PSP/PHOTO", "stick/PSP/MUSIC", "stick/MP_ROOT/100MNV01"}) {
        fs::create_directories(temp.HostPath(folder));
    }
    temp.Write("stick/TavelDataFile.tavel", "");
    temp.Write("lib/source.jpg", "hostile");
    temp.Write("a.jpg", "mine");
    Calls calls;
    CopyWindowRecorder frmCopy(calls);
    DevicePanelsRecorder panels(calls);
    Service<FileService>::Use(files.get());
    oPSPDrive = files->GetDrive("e:");
    bPSPConnected = true;
    sPSPDataFile = "e:\\taveldatafile.tavel";

    const std::set<std::string> before = OutsideTheStick();
    for (const char* sName :
         {"..\\a", "..\\..\\..\\..\\a", "../../../../a", "..", "...", "/a", "\\a", "c:\\a", "a\\b",
          "..\\..\\..\\program\\drives\\f", "..\\..\\MP_ROOT\\a"}) {
        ReleaseCollections();
        Photo photo;
        photo.sName = sName;
        photo.sFormat = "jpg";
        photo.sPath(temp.DrivePath("lib/source.jpg"));
        colPhoto.Add("ph_1", photo);
        Music track;
        track.sName = sName;
        track.sFormat = "jpg";
        track.sPath(photo.sPath());
        colMusic.Add("mu_1", track);
        Video video;
        video.sFormat = std::string("mp4\\") + sName;
        video.sPath(photo.sPath());
        colVideo.Add("vd_1", video);
        PhotoAlbum album;
        album.sName = sName;
        album.iPages = 1;
        album.Redim_sPageID(0, false);
        album.Set_sPageID(0, "ph_1");
        colPhotoAlbum.Add("pa_1", album);
        for (const char* sID : {"ph_1", "mu_1", "vd_1", "pa_1"}) {
            FailureOf([&] { TransferToPSP({sID}); });
            EXPECT_EQ(OutsideTheStick(), before) << sName << " " << sID;
        }
    }
    // They went to the stick's own root instead.
    EXPECT_EQ(temp.Read("stick/a.jpg"), "hostile");
    ReleaseCollections();
    ResetPublicStuff();
}

}  // namespace tavel::test
