#include "library/Folders.h"
#include "library/Groups.h"
#include "library/LibraryFixture.h"
#include "library/Scan.h"
#include "platform/Failure.h"
#include "support/FaultyFileService.h"

#include <filesystem>

namespace tavel::test {
namespace {

const Texts Tree = {
    "\\Photos", "\\Photos\\Magazines", "\\Photos\\PhotoAlbums", "\\Music", "\\Music\\Playlists",
    "\\Videos", "\\Videos\\VidSeries", "\\Videos\\Thumbnails"};

class Folders : public LibraryTest {
  protected:
    Folders() { Service<FileService>::Use(&files); }

    Texts CallsOf(const std::string& start) const {
        Texts found;
        for (const std::string& call : files.calls) {
            if (call.rfind(start, 0) == 0) found.push_back(call.substr(start.size()));
        }
        return found;
    }

    // The tree, without what MakeDBFolders asked of the file service.
    void MakeTree() {
        ASSERT_TRUE(MakeDBFolders(root));
        files.calls.clear();
    }

    FaultyFileService files;
    std::string root = temp.DrivePath("library");
};

TEST_F(Folders, The_tree_is_made_in_its_order) {
    Contain("[options]\r\nsDefaultDBPath=x\r\n");
    EXPECT_TRUE(MakeDBFolders(root));
    Texts expected{root};
    for (const std::string& folder : Tree) expected.push_back(root + folder);
    EXPECT_EQ(CallsOf("CreateFolder "), expected);
    for (const std::string& folder : expected) EXPECT_TRUE(files.FolderExists(folder)) << folder;
    EXPECT_EQ(sDefaultDBPath, root);
    EXPECT_EQ(DB(), "[options]\r\nsDefaultDBPath=x\r\n");
}

TEST_F(Folders, A_tree_that_is_there_is_left_alone) {
    MakeTree();
    sDefaultDBPath = "elsewhere";
    EXPECT_TRUE(MakeDBFolders(root));
    EXPECT_EQ(CallsOf("CreateFolder "), Texts{});
    EXPECT_EQ(sDefaultDBPath, root);
}

TEST_F(Folders, What_is_missing_in_a_tree_is_added) {
    MakeTree();
    std::filesystem::remove_all(temp.HostPath("library/Music"));
    EXPECT_TRUE(MakeDBFolders(root));
    EXPECT_EQ(CallsOf("CreateFolder "), (Texts{root + "\\Music", root + "\\Music\\Playlists"}));
}

TEST_F(Folders, A_root_without_its_parent_cannot_be_made) {
    sDefaultDBPath = "before";
    EXPECT_FALSE(MakeDBFolders(temp.DrivePath("none\\library")));
    EXPECT_EQ(sDefaultDBPath, "before");
}

TEST_F(Folders, A_failure_on_the_way_leaves_what_was_made) {
    for (const char* call : {"CreateFolder ", "FolderExists "}) {
        SCOPED_TRACE(call);
        std::filesystem::remove_all(temp.HostPath("library"));
        sDefaultDBPath = "before";
        files.FailOn(call + root + "\\Music", failure::DiskFull, 1);
        EXPECT_FALSE(MakeDBFolders(root));
        EXPECT_TRUE(files.FolderExists(root + "\\Photos\\PhotoAlbums"));
        EXPECT_FALSE(files.FolderExists(root + "\\Videos"));
        EXPECT_EQ(sDefaultDBPath, "before");
    }
}

TEST_F(Folders, A_file_in_the_place_of_a_folder_is_a_failure) {
    sDefaultDBPath = "before";
    for (const char* name : {"root", "library/Music"}) {
        Write(name, "a file");
        EXPECT_FALSE(
            MakeDBFolders(temp.DrivePath(name == std::string("root") ? "root" : "library")));
        EXPECT_EQ(temp.Read(name), "a file");
    }
    EXPECT_EQ(sDefaultDBPath, "before");
}

TEST_F(Folders, A_photo_moves_under_its_name_in_the_library) {
    MakeTree();
    Photo& photo = Give(colPhoto, "ph_a", Write("TEMPUNZIP/page 1.JPG", "picture"));
    photo.sName = "Renamed";
    MoveToDBFolder("ph_a");
    EXPECT_EQ(photo.sPath(), root + "\\Photos\\Renamed.jpg");
    EXPECT_EQ(temp.Read("library/Photos/Renamed.jpg"), "picture");
    EXPECT_FALSE(std::filesystem::exists(temp.HostPath("TEMPUNZIP/page 1.JPG")));
}

TEST_F(Folders, A_photo_whose_name_is_taken_cannot_move) {
    MakeTree();
    Write("library/Photos/a.jpg", "first");
    Photo& photo = Give(colPhoto, "ph_a", Write("in/a.jpg", "second"));
    photo.sName = "a";
    EXPECT_EQ(FailureOf([] { MoveToDBFolder("ph_a"); }), failure::FileAlreadyExists);
    EXPECT_EQ(photo.sPath(), temp.DrivePath("in\\a.jpg"));
    EXPECT_EQ(temp.Read("library/Photos/a.jpg"), "first");
}

TEST_F(Folders, A_photo_whose_file_or_target_folder_is_not_there_cannot_move) {
    Photo& photo = Give(colPhoto, "ph_a", Write("in/a.jpg", "x"));
    photo.sName = "a";
    sDefaultDBPath = root;
    EXPECT_EQ(FailureOf([] { MoveToDBFolder("ph_a"); }), failure::PathNotFound);
    EXPECT_EQ(temp.Read("in/a.jpg"), "x");
    MakeTree();
    std::filesystem::remove(temp.HostPath("in/a.jpg"));
    EXPECT_EQ(FailureOf([] { MoveToDBFolder("ph_a"); }), failure::FileNotFound);
    EXPECT_EQ(photo.sPath(), temp.DrivePath("in\\a.jpg"));
}

TEST_F(Folders, A_photo_that_lies_there_already_cannot_move_in_any_spelling) {
    MakeTree();
    Give(colPhoto, "ph_a", Write("library/Photos/a.JPG", "x")).sName = "a";
    EXPECT_EQ(FailureOf([] { MoveToDBFolder("ph_a"); }), failure::FileAlreadyExists);
    EXPECT_EQ(temp.Read("library/Photos/a.JPG"), "x");
}

class MagazineMove : public Folders {
  protected:
    MagazineMove() {
        MakeTree();
        Give(colPhoto, "ph_a", Write("in/one.jpg", "1")).sName = "other";
        Give(colPhoto, "ph_b", Write("in/two.JPG", "2")).sName = "names";
        Magazine& magazine = Give(colMagazine, "ma_a");
        magazine.sName = "Summer";
        magazine.iPages = 2;
        magazine.Redim_sPageID(1, false);
        magazine.Set_sPageID(0, "ph_a");
        magazine.Set_sPageID(1, "ph_b");
    }
    std::string folder = root + "\\Photos\\Magazines\\Summer\\";
};

TEST_F(MagazineMove, Moves_each_page_under_its_files_own_name) {
    MoveToDBFolder("ma_a");
    EXPECT_EQ(colPhoto.Item("ph_a").sPath(), folder + "one.jpg");
    EXPECT_EQ(colPhoto.Item("ph_b").sPath(), folder + "two.JPG");
    EXPECT_EQ(temp.Read("library/Photos/Magazines/Summer/one.jpg"), "1");
    EXPECT_EQ(temp.Read("library/Photos/Magazines/Summer/two.JPG"), "2");
}

TEST_F(MagazineMove, Reuses_a_folder_and_fails_on_a_name_that_it_holds) {
    Write("library/Photos/Magazines/Summer/two.JPG", "kept");
    EXPECT_EQ(FailureOf([] { MoveToDBFolder("ma_a"); }), failure::FileAlreadyExists);
    EXPECT_EQ(colPhoto.Item("ph_a").sPath(), folder + "one.jpg");
    EXPECT_EQ(temp.Read("library/Photos/Magazines/Summer/two.JPG"), "kept");
}

TEST_F(MagazineMove, Fails_without_the_folder_of_all_magazines) {
    std::filesystem::remove(temp.HostPath("library/Photos/Magazines"));
    EXPECT_EQ(FailureOf([] { MoveToDBFolder("ma_a"); }), failure::PathNotFound);
    EXPECT_FALSE(files.FolderExists(root + "\\Photos\\Magazines"));
    EXPECT_EQ(temp.Read("in/one.jpg"), "1");
}

TEST_F(MagazineMove, Fails_on_a_page_that_is_no_photo_of_the_library) {
    colMagazine.Item("ma_a").Set_sPageID(0, "ph_gone");
    EXPECT_EQ(FailureOf([] { MoveToDBFolder("ma_a"); }), failure::InvalidProcedureCall);
}

TEST_F(MagazineMove, The_scan_knows_a_moved_file_by_its_new_path_alone) {
    const std::string sOld = colPhoto.Item("ph_a").sPath();
    EXPECT_TRUE(IsFileInDB(sOld));
    MoveToDBFolder("ma_a");
    EXPECT_FALSE(IsFileInDB(sOld));
    EXPECT_TRUE(IsFileInDB(folder + "one.jpg"));
}

TEST_F(Folders, Videos_and_music_are_refused_by_the_file_service) {
    MakeTree();
    Video& video = Give(colVideo, "vd_a", Write("in/film.MP4", "v"));
    Music& music = Give(colMusic, "mu_a", Write("in/song.mp3", "m"));
    for (const char* sID : {"vd_a", "mu_a"})
        EXPECT_EQ(FailureOf([&] { MoveToDBFolder(sID); }), failure::BadFileName) << sID;
    EXPECT_EQ(
        CallsOf("MoveFile "),
        (Texts{video.sPath() + " -> " + root + "\\Video\\" + temp.DrivePath("in\\film.mp4"),
               music.sPath() + " -> " + root + "\\Music\\" + temp.DrivePath("in\\song.mp3")}));
    EXPECT_EQ(video.sPath(), temp.DrivePath("in\\film.MP4"));
    EXPECT_EQ(music.sPath(), temp.DrivePath("in\\song.mp3"));
    EXPECT_EQ(temp.Read("in/film.MP4") + temp.Read("in/song.mp3"), "vm");
}

TEST_F(Folders, An_album_fails_before_anything_is_made_or_moved) {
    MakeTree();
    Give(colPhoto, "ph_a", Write("in/a.jpg", "x"));
    const std::string sID = MakeGroup({"ph_a"}, "Album", mtPhotoAlbum);
    EXPECT_EQ(FailureOf([&] { MoveToDBFolder(sID); }), failure::NoSuchMember);
    EXPECT_EQ(files.calls, Texts{});
    EXPECT_EQ(colPhoto.Item("ph_a").sPath(), temp.DrivePath("in\\a.jpg"));
}

TEST_F(Folders, A_series_gets_its_folder_and_then_fails_with_its_episodes_in_their_place) {
    MakeTree();
    Give(colVideo, "vd_a", Write("in/a.mp4", "x"));
    const std::string sID = MakeGroup({"vd_a"}, "Series", mtVidSeries);
    for (int i = 0; i < 2; ++i)
        EXPECT_EQ(FailureOf([&] { MoveToDBFolder(sID); }), failure::NoSuchMember);
    EXPECT_EQ(CallsOf("CreateFolder "), Texts{root + "\\Videos\\VidSeries\\Series\\"});
    EXPECT_EQ(CallsOf("MoveFile "), Texts{});
    EXPECT_EQ(colVideo.Item("vd_a").sPath(), temp.DrivePath("in\\a.mp4"));
}

TEST_F(Folders, A_playlist_is_looked_for_among_the_magazines_and_not_found) {
    MakeTree();
    Give(colPlaylist, "pl_").sName = "List";
    EXPECT_EQ(FailureOf([] { MoveToDBFolder("pl_"); }), failure::InvalidProcedureCall);
    EXPECT_EQ(CallsOf("CreateFolder "), Texts{});
}

TEST_F(Folders, Any_other_id_moves_nothing) {
    MoveToDBFolder("-1");
    MoveToDBFolder("");
    EXPECT_EQ(files.calls, Texts{});
}

TEST_F(Folders, An_id_that_leads_nowhere_fails) {
    for (const char* sID : {"ph_x", "ma_x", "pa_x", "vd_x", "vs_x", "mu_x", "xx_x"}) {
        EXPECT_EQ(FailureOf([&] { MoveToDBFolder(sID); }), failure::InvalidProcedureCall) << sID;
    }
}

}  // namespace
}  // namespace tavel::test
