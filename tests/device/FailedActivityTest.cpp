#include "core/PublicStuff.h"
#include "device/Browser.h"
#include "device/Discovery.h"
#include "device/Status.h"
#include "device/Transfer.h"
#include "device/TransferTestBase.h"
#include "library/Records.h"

namespace tavel::test {
namespace {

// What the failure message says that the program was doing, for each thing that can fail at the
// stick.
class FailedActivity : public TransferTestBase {
  protected:
    static std::string OfSending(const std::string& sID) {
        return FailedActivityOf([&] { TransferToPSP({sID}); });
    }
};

TEST_F(FailedActivity, Sending_names_the_file_and_its_place_on_the_stick) {
    const std::string sPhoto = AddPhoto("Beach");
    const std::string sPath = colPhoto.Item(sPhoto).sPath();
    const std::string sAlbum = AddAlbum("Summer", {sPhoto});
    files.FailOn("GetFile " + sPath, failure::FileNotFound);
    EXPECT_EQ(OfSending(sPhoto), "Sending " + sPath + " to e:\\psp\\photo\\Beach.jpg");
    files.FailOn("CopyFile", failure::DiskFull);
    EXPECT_EQ(OfSending(sAlbum), "Sending " + sPath + " to e:\\psp\\photo\\Summer\\Beach.jpg");
}

TEST_F(FailedActivity, Sending_names_tracks_videos_and_thumbnails) {
    const std::string sTrack = AddTrack("Song");
    const std::string sList = AddPlaylist("List", {sTrack});
    const std::string sVideo = AddVideo("Film");
    const std::string sSeries = AddSeries("Series", {sVideo});
    Video& video = colVideo.Item(sVideo);
    video.sThumbPath = temp.DrivePath("none.THM");
    EXPECT_EQ(OfSending(sVideo),
              "Sending " + video.sThumbPath + " to e:\\MP_ROOT\\100MNV01\\M4V10001.THM");
    const std::string sTrackPath = colMusic.Item(sTrack).sPath();
    const std::string sVideoPath = video.sPath();
    files.FailOn("GetFile", failure::FileNotFound);
    EXPECT_EQ(OfSending(sTrack), "Sending " + sTrackPath + " to e:\\psp\\music\\Song.mp3");
    EXPECT_EQ(OfSending(sList), "Sending " + sTrackPath + " to e:\\psp\\music\\List\\Song.mp3");
    EXPECT_EQ(OfSending(sSeries),
              "Sending " + sVideoPath + " to e:\\MP_ROOT\\100MNV01\\M4V10002.mp4");
}

TEST_F(FailedActivity, Sending_names_what_the_library_lacks) {
    EXPECT_EQ(OfSending("ph_gone"), "Sending ph_gone");
    EXPECT_EQ(OfSending(AddAlbum("Summer", {"ph_gone"})), "Sending ph_gone of Summer");
}

TEST_F(FailedActivity, Sending_names_the_folder_of_a_group) {
    const std::string sAlbum = AddAlbum("Summer", {AddPhoto("Beach")});
    files.FailOn("CreateFolder", failure::PermissionDenied);
    EXPECT_EQ(OfSending(sAlbum), "Making the folder e:\\psp\\photo\\Summer\\");
}

TEST_F(FailedActivity, Listing_names_the_folder_or_the_file) {
    std::vector<PSPRow> rows;
    const auto list = [&] { ListPSPFiles("e:\\psp\\music", mtMusic, rows); };
    Put('e', "PSP/MUSIC/empty.mp3", "");
    EXPECT_EQ(FailedActivityOf(list), "Listing e:\\psp\\music\\empty.mp3");
    files.Pull('e');
    EXPECT_EQ(FailedActivityOf(list), "Listing e:\\psp\\music");
    EXPECT_EQ(FailedActivityOf(PSPMusicFolders), "Listing e:\\psp\\music\\");
    EXPECT_EQ(FailedActivityOf(PSPPhotoFolders), "Listing e:\\psp\\photo\\");
}

TEST_F(FailedActivity, Deleting_names_the_file) {
    const PSPRow video{"ID1", "a", {"mp4", "0 Mb", "e:\\MP_ROOT\\100MNV01\\M4V10001.mp4"}};
    const PSPRow photo{"ID1", "a", {"1 X 1", "jpg", "0 Mb", "e:\\psp\\photo\\a.jpg"}};
    EXPECT_EQ(FailedActivityOf([&] { DeletePSPFile(photo, mtPhoto); }),
              "Deleting e:\\psp\\photo\\a.jpg");
    Put('e', "MP_ROOT/100MNV01/M4V10001.mp4", "x");
    Put('e', "MP_ROOT/100MNV01/M4V10001.THM", "x");
    files.FailOn("DeleteFile e:\\MP_ROOT\\100MNV01\\M4V10001.THM", failure::PermissionDenied);
    EXPECT_EQ(FailedActivityOf([&] { DeletePSPFile(video, mtVideo); }),
              "Deleting e:\\MP_ROOT\\100MNV01\\M4V10001.THM");
}

TEST_F(FailedActivity, The_figures_of_the_stick_name_the_PSP) {
    StatusPanel panel;
    sPSPName = "Holiday PSP";
    files.At('e').hasMedia = false;
    EXPECT_EQ(FailedActivityOf([&] { UpdateStatusPanel(panel); }),
              "Measuring the space on the PSP Holiday PSP");
}

TEST_F(FailedActivity, The_search_for_a_PSP_names_the_drive_of_the_failure_that_counts) {
    PlugStick('f');
    PlugStick('g');
    files.Pull('e');
    std::string sDrive;
    files.FailOn("GetDrive f", failure::DeviceIO);
    EXPECT_FALSE(FindPSPDrive(sDrive));
    EXPECT_EQ(FailedActivityOf([] { colPhoto.Item("none"); }), "");
    files.FailOn("GetDrive g", failure::DeviceIO);
    EXPECT_EQ(FailedActivityOf([&] { FindPSPDrive(sDrive); }), "Looking for a PSP on g:\\");
}

}  // namespace
}  // namespace tavel::test
