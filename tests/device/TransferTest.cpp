#include "core/PublicStuff.h"
#include "device/Transfer.h"
#include "device/TransferTestBase.h"
#include "library/LibraryFile.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace tavel::test {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;

namespace {

class TransferTest : public TransferTestBase {
  protected:
    // The calls of a run of one item: what stands between the start and the end of every run.
    Calls CallsOf(const std::string& sID) {
        calls.clear();
        TransferToPSP({sID});
        const Calls start = {"frmCopy.Show", "frmCopy.Repaint", "pgbTotal.Min 0", "pgbTotal.Max 1",
                             "pgbTotal.Value 0"};
        const Calls end = {"pgbTotal.Value 1", "labFinish on", "cmdOK on", "RefreshPSPCats",
                           "RefreshPSPStatus"};
        EXPECT_TRUE(std::equal(start.begin(), start.end(), calls.begin()));
        EXPECT_TRUE(std::equal(end.rbegin(), end.rend(), calls.rbegin()));
        return Calls(calls.begin() + static_cast<std::ptrdiff_t>(start.size()),
                     calls.end() - static_cast<std::ptrdiff_t>(end.size()));
    }
};

// The chunked copy of a file of a few bytes.
Calls Chunked(const std::string& sDest, const std::string& sBytes) {
    return {"pgbCurr.Max " + sBytes, "Create " + sDest, "pgbCurr.Value " + sBytes,
            "pgbCurr.Repaint", "pgbCurr.Value 0"};
}

Calls Joined(std::initializer_list<Calls> parts) {
    Calls all;
    for (const Calls& part : parts) all.insert(all.end(), part.begin(), part.end());
    return all;
}

}  // namespace

TEST_F(TransferTest, Says_that_no_PSP_is_connected_and_shows_no_window) {
    const std::string sID = AddPhoto("A");
    bPSPConnected = false;
    boxes.Expect("No PSP Connected", MsgBoxAnswer::OK);
    TransferToPSP({sID});
    EXPECT_THAT(calls, ElementsAre("MsgBox Tavel: No PSP Connected (OK)"));
    EXPECT_FALSE(IsOn('e', "PSP/PHOTO/A.jpg"));
}

TEST_F(TransferTest, Sends_a_photo) {
    const std::string sID = AddPhoto("Sea Side");
    EXPECT_EQ(CallsOf(sID), Joined({{"labFile Sea Side", "labSubFile off", "frmCopy.Repaint"},
                                    Chunked("e:\\psp\\photo\\Sea Side.jpg", "5")}));
    EXPECT_EQ(BytesOn('e', "PSP/PHOTO/Sea Side.jpg"), "photo");
}

TEST_F(TransferTest, Sends_a_track) {
    const std::string sID = AddTrack("Song");
    EXPECT_EQ(CallsOf(sID), Joined({{"labFile Song-Artist", "labSubFile off", "frmCopy.Repaint"},
                                    Chunked("e:\\psp\\music\\Song.mp3", "5")}));
    EXPECT_EQ(BytesOn('e', "PSP/MUSIC/Song.mp3"), "track");
}

TEST_F(TransferTest, Sends_a_video_and_stores_its_title) {
    const std::string sID = AddVideo("The Film");
    EXPECT_EQ(CallsOf(sID), Joined({{"labFile The Film", "labSubFile off", "frmCopy.Repaint"},
                                    Chunked("e:\\MP_ROOT\\100MNV01\\M4V10001.mp4", "5")}));
    EXPECT_EQ(BytesOn('e', "MP_ROOT/100MNV01/M4V10001.mp4"), "video");
    EXPECT_EQ(BytesOn('e', "TavelDataFile.tavel"), "[video]\r\nM4V10001=The Film\r\n");
    EXPECT_FALSE(IsOn('e', "MP_ROOT/100MNV01/M4V10001.THM"));
}

TEST_F(TransferTest, Sends_the_thumbnail_of_a_video_behind_it_by_the_plain_copy) {
    const std::string sID = AddVideo("The Film");
    temp.Write("lib/12.thm", "thumbnail");
    colVideo.Item(sID).sThumbPath = temp.DrivePath("lib/12.thm");
    colVideo.Item(sID).sFormat = "avi";
    Put('e', "MP_ROOT/100MNV01/M4V10001.avi", "taken");
    Put('e', "MP_ROOT/100MNV01/M4V10002.thm", "left over");
    EXPECT_EQ(CallsOf(sID), Joined({{"labFile The Film", "labSubFile off", "frmCopy.Repaint"},
                                    Chunked("e:\\MP_ROOT\\100MNV01\\M4V10002.avi", "5"),
                                    {"CopyFile e:\\MP_ROOT\\100MNV01\\M4V10002.THM"}}));
    const auto isAbout = [](const char* file) {
        return [file](const std::string& call) { return call.find(file) != std::string::npos; };
    };
    EXPECT_LT(std::find_if(files.calls.begin(), files.calls.end(), isAbout("M4V10002.THM")),
              std::find_if(files.calls.begin(), files.calls.end(), isAbout("taveldatafile")));
    EXPECT_EQ(BytesOn('e', "MP_ROOT/100MNV01/M4V10002.thm"), "thumbnail");
    EXPECT_EQ(BytesOn('e', "TavelDataFile.tavel"), "[video]\r\nM4V10002=The Film\r\n");
}

TEST_F(TransferTest, Looks_for_a_thumbnail_in_the_record_alone_whatever_the_mode) {
    const std::string sWith = AddVideo("With");
    const std::string sWithout = AddVideo("Without");
    temp.Write("lib/12.thm", "thumbnail");
    colVideo.Item(sWith).sThumbPath = temp.DrivePath("lib/12.thm");
    for (iVidThumbMode = 0; iVidThumbMode <= 4; ++iVidThumbMode) {
        EXPECT_THAT(CallsOf(sWith), Contains(StartsWith("CopyFile"))) << iVidThumbMode;
        EXPECT_THAT(CallsOf(sWithout), Not(Contains(StartsWith("CopyFile")))) << iVidThumbMode;
    }
}

TEST_F(TransferTest, Names_files_and_folders_by_their_records_as_they_are) {
    const std::string sLong(150, 'x');
    for (const std::string& sName : {std::string("Dr. No & Co.\xC3\xA4\xC3\xB6"), sLong}) {
        const std::string sPhoto = AddPhoto(sName);
        const std::string sTrack = AddTrack(sName);
        colPhoto.Item(sPhoto).sFormat = "JPG";
        colMusic.Item(sTrack).sFormat = "M4A";
        TransferToPSP({sPhoto, sTrack, AddAlbum(sName, {sPhoto}), AddPlaylist(sName, {sTrack})});
        for (const std::string& sFolder : {std::string(), sName + "/"}) {
            EXPECT_TRUE(IsOn('e', "PSP/PHOTO/" + sFolder + sName + ".JPG"));
            EXPECT_TRUE(IsOn('e', "PSP/MUSIC/" + sFolder + sName + ".M4A"));
        }
    }
}

TEST_F(TransferTest, Sends_the_pages_of_magazines_and_albums_by_the_plain_copy) {
    const std::string sPage1 = AddPhoto("Page 1", "one");
    const std::string sPage2 = AddPhoto("Page 2", "two");
    for (const std::string& sID :
         {AddMagazine("News", {sPage2, sPage1}), AddAlbum("Trip", {sPage2, sPage1})}) {
        const std::string sName = sID.substr(3);
        const std::string sFolder = "e:\\psp\\photo\\" + sName + "\\";
        EXPECT_THAT(
            CallsOf(sID),
            ElementsAreArray({"labFile " + sName, std::string("labSubFile on"),
                              std::string("pgbCurr.Min 0"), std::string("pgbCurr.Max 2"),
                              std::string("pgbCurr.Value 0"), "CreateFolder " + sFolder,
                              std::string("labSubFile Page 2"), std::string("frmCopy.Repaint"),
                              "CopyFile " + sFolder + "Page 2.jpg", std::string("pgbCurr.Value 1"),
                              std::string("frmCopy.Repaint"), std::string("labSubFile Page 1"),
                              std::string("frmCopy.Repaint"), "CopyFile " + sFolder + "Page 1.jpg",
                              std::string("pgbCurr.Value 2"), std::string("frmCopy.Repaint")}));
        EXPECT_EQ(BytesOn('e', "PSP/PHOTO/" + sName + "/Page 1.jpg"), "one");
        EXPECT_EQ(BytesOn('e', "PSP/PHOTO/" + sName + "/Page 2.jpg"), "two");
    }
}

TEST_F(TransferTest, Sends_the_tracks_of_a_playlist_by_the_chunked_copy_over_the_same_bar) {
    const std::string sID = AddPlaylist("Mix", {AddTrack("One"), AddTrack("Two")});
    const std::string sFolder = "e:\\psp\\music\\Mix\\";
    EXPECT_EQ(
        CallsOf(sID),
        Joined({{"labFile Mix", "labSubFile on", "pgbCurr.Min 0", "pgbCurr.Max 2",
                 "pgbCurr.Value 0", "CreateFolder " + sFolder, "labSubFile One", "frmCopy.Repaint"},
                Chunked(sFolder + "One.mp3", "5"),
                {"pgbCurr.Value 1", "frmCopy.Repaint", "labSubFile Two", "frmCopy.Repaint"},
                Chunked(sFolder + "Two.mp3", "5"),
                // The step of 1 lands on the 0 that the copy left.
                {"pgbCurr.Value 1", "frmCopy.Repaint"}}));
    EXPECT_EQ(BytesOn('e', "PSP/MUSIC/Mix/Two.mp3"), "track");
}

TEST_F(TransferTest, Sends_episodes_as_numbered_videos_without_thumbnail_and_title) {
    const std::string sFirst = AddVideo("Pilot", "pilot");
    temp.Write("lib/12.thm", "thumbnail");
    colVideo.Item(sFirst).sThumbPath = temp.DrivePath("lib/12.thm");
    const std::string sID = AddSeries("Show", {sFirst, AddVideo("Second", "2")});
    EXPECT_EQ(
        CallsOf(sID),
        Joined({{"labFile Show", "labSubFile on", "pgbCurr.Min 0", "pgbCurr.Max 2",
                 "pgbCurr.Value 0", "labSubFile Pilot", "frmCopy.Repaint"},
                Chunked("e:\\MP_ROOT\\100MNV01\\M4V10001.mp4", "5"),
                {"pgbCurr.Value 1", "frmCopy.Repaint", "labSubFile Second", "frmCopy.Repaint"},
                Chunked("e:\\MP_ROOT\\100MNV01\\M4V10002.mp4", "1"),
                {"pgbCurr.Value 1", "frmCopy.Repaint"}}));
    EXPECT_EQ(BytesOn('e', "MP_ROOT/100MNV01/M4V10001.mp4"), "pilot");
    EXPECT_FALSE(IsOn('e', "MP_ROOT/100MNV01/M4V10001.THM"));
    EXPECT_EQ(BytesOn('e', "TavelDataFile.tavel"), "");
}

TEST_F(TransferTest, Makes_no_folder_that_is_there_and_overwrites_what_is_in_it) {
    Put('e', "PSP/PHOTO/trip/a.jpg", "older and longer");
    Put('e', "PSP/MUSIC/MIX/b.mp3", "older and longer");
    const std::string sAlbum = AddAlbum("Trip", {AddPhoto("A")});
    const std::string sList = AddPlaylist("Mix", {AddTrack("B")});
    TransferToPSP({sAlbum, sList});
    EXPECT_THAT(calls, Not(Contains(StartsWith("CreateFolder"))));
    EXPECT_EQ(BytesOn('e', "PSP/PHOTO/trip/a.jpg"), "photo");
    EXPECT_EQ(BytesOn('e', "PSP/MUSIC/MIX/b.mp3"), "track");
}

TEST_F(TransferTest, Puts_a_magazine_and_an_album_of_one_name_into_one_folder) {
    const std::string sMagazine = AddMagazine("Same", {AddPhoto("A")});
    const std::string sAlbum = AddAlbum("Same", {AddPhoto("B")});
    TransferToPSP({sMagazine, sAlbum});
    EXPECT_TRUE(IsOn('e', "PSP/PHOTO/Same/A.jpg"));
    EXPECT_TRUE(IsOn('e', "PSP/PHOTO/Same/B.jpg"));
}

TEST_F(TransferTest, Makes_the_folder_of_an_empty_group) {
    const std::string sID = AddAlbum("Nothing", {});
    EXPECT_THAT(CallsOf(sID),
                ElementsAre("labFile Nothing", "labSubFile on", "pgbCurr.Min 0", "pgbCurr.Max 0",
                            "pgbCurr.Value 0", "CreateFolder e:\\psp\\photo\\Nothing\\"));
    EXPECT_TRUE(IsOn('e', "PSP/PHOTO/Nothing"));
}

TEST_F(TransferTest, Sends_in_the_order_of_the_list_and_counts_each_item) {
    const std::string sTrack = AddTrack("T");
    const std::string sPhoto = AddPhoto("P");
    TransferToPSP({sTrack, sPhoto, sTrack});
    Calls seen;
    for (const std::string& call : calls) {
        if (call.rfind("labFile", 0) == 0 || call.rfind("pgbTotal", 0) == 0) seen.push_back(call);
    }
    EXPECT_THAT(seen, ElementsAre("pgbTotal.Min 0", "pgbTotal.Max 3", "pgbTotal.Value 0",
                                  "labFile T-Artist", "pgbTotal.Value 1", "labFile P",
                                  "pgbTotal.Value 2", "labFile T-Artist", "pgbTotal.Value 3"));
}

TEST_F(TransferTest, Writes_a_picture_that_is_listed_twice_twice_into_one_file) {
    const std::string sID = AddPhoto("A");
    TransferToPSP({sID, sID});
    EXPECT_EQ(std::count(calls.begin(), calls.end(), "Create e:\\psp\\photo\\A.jpg"), 2);
    EXPECT_EQ(frmCopy.total.Value(), 2);
    EXPECT_EQ(BytesOn('e', "PSP/PHOTO/A.jpg"), "photo");
}

TEST_F(TransferTest, Gives_two_videos_of_one_title_two_numbers_and_two_lines) {
    const std::string sID = AddVideo("Twin");
    TransferToPSP({sID, sID});
    EXPECT_EQ(BytesOn('e', "TavelDataFile.tavel"), "[video]\r\nM4V10001=Twin\r\nM4V10002=Twin\r\n");
    EXPECT_TRUE(IsOn('e', "MP_ROOT/100MNV01/M4V10002.mp4"));
}

TEST_F(TransferTest, Replaces_the_title_of_a_number_that_is_used_again) {
    Put('e', "TavelDataFile.tavel", "[Data]\r\nPSPName=A\r\n[video]\r\nM4V10001=Gone\r\n");
    TransferToPSP({AddVideo("New")});
    EXPECT_EQ(BytesOn('e', "TavelDataFile.tavel"),
              "[Data]\r\nPSPName=A\r\n[video]\r\nM4V10001=New\r\n");
}

TEST_F(TransferTest, Copies_nothing_for_an_id_without_a_type_but_counts_it) {
    for (const char* sID : {"-1", "", "phx", "photo"}) {
        EXPECT_THAT(CallsOf(sID), IsEmpty()) << sID;
    }
    TransferToPSP({"phx", AddPhoto("A")});
    EXPECT_TRUE(IsOn('e', "PSP/PHOTO/A.jpg"));
    EXPECT_EQ(frmCopy.total.Value(), 2);
}

TEST_F(TransferTest, Shows_and_finishes_for_an_empty_list) {
    TransferToPSP({});
    EXPECT_THAT(calls, ElementsAre("frmCopy.Show", "frmCopy.Repaint", "pgbTotal.Min 0",
                                   "pgbTotal.Max 0", "pgbTotal.Value 0", "labFinish on", "cmdOK on",
                                   "RefreshPSPCats", "RefreshPSPStatus"));
}

TEST_F(TransferTest, Lets_no_window_event_run) {
    TransferToPSP({AddVideo("V"), AddAlbum("A", {AddPhoto("P")}), AddSeries("S", {"vd_V"})});
    EXPECT_THAT(calls, Not(Contains("Yield")));
}

TEST_F(TransferTest, Changes_nothing_in_the_library) {
    const std::string sPhoto = AddPhoto("P");
    const std::string sTrack = AddTrack("T");
    const std::string sVideo = AddVideo("V");
    temp.Write("lib/12.thm", "thumbnail");
    colVideo.Item(sVideo).sThumbPath = temp.DrivePath("lib/12.thm");
    const std::vector<std::string> sIDs = {sPhoto,
                                           sTrack,
                                           sVideo,
                                           AddMagazine("M", {sPhoto}),
                                           AddAlbum("A", {sPhoto}),
                                           AddPlaylist("L", {sTrack}),
                                           AddSeries("S", {sVideo})};
    sDBFile = temp.DrivePath("db.txt");
    const auto saved = [&] {
        temp.Write("db.txt", "");
        SaveDB();
        return temp.Read("db.txt");
    };
    const std::string before = saved();
    bDBChanged = false;
    TransferToPSP(sIDs);
    EXPECT_FALSE(bDBChanged);
    EXPECT_EQ(saved(), before);
}

TEST_F(TransferTest, Does_not_ask_for_room_on_the_stick) {
    files.At('e').freeSpace = 0;
    TransferToPSP({AddVideo("V"), AddAlbum("A", {AddPhoto("P")}), "ph_P"});
    for (const char* sFile :
         {"MP_ROOT/100MNV01/M4V10001.mp4", "PSP/PHOTO/A/P.jpg", "PSP/PHOTO/P.jpg"}) {
        EXPECT_TRUE(IsOn('e', sFile)) << sFile;
    }
}

namespace {

// A drive that gets another letter.
class LetteredDrive : public Drive {
  public:
    std::string path = "e:";

    std::string Path() const override { return path; }
    int DriveType() const override { return DriveRemovable; }
    double TotalSize() const override { return 1; }
    double FreeSpace() const override { return 1; }
};

}  // namespace

TEST_F(TransferTest, Asks_the_drive_for_its_path_at_each_item) {
    PlugPSP('f');
    const auto drive = std::make_shared<LetteredDrive>();
    oPSPDrive = drive;
    frmCopy.total.onValue = [&](float value) {
        if (value == 1) drive->path = "f:";
    };
    TransferToPSP({AddPhoto("A"), AddPhoto("B"), AddAlbum("C", {"ph_A"}), AddVideo("D")});
    EXPECT_TRUE(IsOn('e', "PSP/PHOTO/A.jpg"));
    for (const char* sFile :
         {"PSP/PHOTO/B.jpg", "PSP/PHOTO/C/A.jpg", "MP_ROOT/100MNV01/M4V10001.mp4"}) {
        EXPECT_TRUE(IsOn('f', sFile)) << sFile;
    }
}

}  // namespace tavel::test
