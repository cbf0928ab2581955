#include "library/Folders.h"
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
    Folders() { UseFileService(&files); }

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
    EXPECT_TRUE(MakeDBFolders(root));
    Texts expected{root};
    for (const std::string& folder : Tree) expected.push_back(root + folder);
    EXPECT_EQ(CallsOf("CreateFolder "), expected);
    for (const std::string& folder : expected) EXPECT_TRUE(files.FolderExists(folder)) << folder;
    EXPECT_EQ(sDefaultDBPath, root);
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
    sDefaultDBPath = "before";
    files.FailOn("CreateFolder " + root + "\\Music", failure::DiskFull);
    EXPECT_FALSE(MakeDBFolders(root));
    EXPECT_TRUE(files.FolderExists(root + "\\Photos\\PhotoAlbums"));
    EXPECT_FALSE(files.FolderExists(root + "\\Videos"));
    EXPECT_EQ(sDefaultDBPath, "before");
}

TEST_F(Folders, A_photo_moves_under_its_name_in_the_library) {
    MakeTree();
    Photo& photo = Give(colPhoto, "ph_a", Write("TEMPUNZIP/page 1.JPG", "picture"));
    photo.sName = "Renamed";
    MoveToDBFolder("ph_a");
    EXPECT_EQ(photo.sPath, root + "\\Photos\\Renamed.jpg");
    EXPECT_EQ(temp.Read("library/Photos/Renamed.jpg"), "picture");
    EXPECT_FALSE(std::filesystem::exists(temp.HostPath("TEMPUNZIP/page 1.JPG")));
}

TEST_F(Folders, A_photo_whose_name_is_taken_cannot_move) {
    MakeTree();
    Write("library/Photos/a.jpg", "first");
    Photo& photo = Give(colPhoto, "ph_a", Write("in/a.jpg", "second"));
    photo.sName = "a";
    EXPECT_EQ(FailureOf([] { MoveToDBFolder("ph_a"); }), failure::FileAlreadyExists);
    EXPECT_EQ(photo.sPath, temp.DrivePath("in\\a.jpg"));
    EXPECT_EQ(temp.Read("library/Photos/a.jpg"), "first");
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
    EXPECT_EQ(colPhoto.Item("ph_a").sPath, folder + "one.jpg");
    EXPECT_EQ(colPhoto.Item("ph_b").sPath, folder + "two.JPG");
    EXPECT_EQ(temp.Read("library/Photos/Magazines/Summer/one.jpg"), "1");
    EXPECT_EQ(temp.Read("library/Photos/Magazines/Summer/two.JPG"), "2");
}

TEST_F(MagazineMove, Reuses_a_folder_and_fails_on_a_name_that_it_holds) {
    Write("library/Photos/Magazines/Summer/two.JPG", "kept");
    EXPECT_EQ(FailureOf([] { MoveToDBFolder("ma_a"); }), failure::FileAlreadyExists);
    EXPECT_EQ(colPhoto.Item("ph_a").sPath, folder + "one.jpg");
    EXPECT_EQ(temp.Read("library/Photos/Magazines/Summer/two.JPG"), "kept");
}

TEST_F(MagazineMove, Fails_on_a_page_that_is_no_photo_of_the_library) {
    colMagazine.Item("ma_a").Set_sPageID(0, "ph_gone");
    EXPECT_EQ(FailureOf([] { MoveToDBFolder("ma_a"); }), failure::InvalidProcedureCall);
}

TEST_F(MagazineMove, The_scan_knows_a_moved_file_by_its_new_path_alone) {
    const std::string sOld = colPhoto.Item("ph_a").sPath;
    EXPECT_TRUE(IsFileInDB(sOld));
    MoveToDBFolder("ma_a");
    EXPECT_FALSE(IsFileInDB(sOld));
    EXPECT_TRUE(IsFileInDB(folder + "one.jpg"));
}

TEST_F(Folders, Videos_and_music_are_refused_by_the_file_service) {
    MakeTree();
    Video& video = Give(colVideo, "vd_a", Write("in/film.mp4", "v"));
    Music& music = Give(colMusic, "mu_a", Write("in/song.mp3", "m"));
    EXPECT_NE(FailureOf([] { MoveToDBFolder("vd_a"); }), 0);
    EXPECT_NE(FailureOf([] { MoveToDBFolder("mu_a"); }), 0);
    EXPECT_EQ(CallsOf("MoveFile "),
              (Texts{video.sPath + " -> " + root + "\\Video\\" + temp.DrivePath("in\\film.mp4"),
                     music.sPath + " -> " + root + "\\Music\\" + temp.DrivePath("in\\song.mp3")}));
    EXPECT_EQ(video.sPath, temp.DrivePath("in\\film.mp4"));
    EXPECT_EQ(temp.Read("in/song.mp3"), "m");
}

TEST_F(Folders, An_album_fails_before_anything_is_made) {
    MakeTree();
    Give(colPhotoAlbum, "pa_a").sName = "Album";
    EXPECT_EQ(FailureOf([] { MoveToDBFolder("pa_a"); }), failure::NoSuchMember);
    EXPECT_EQ(CallsOf("CreateFolder "), Texts{});
}

TEST_F(Folders, A_series_gets_its_folder_and_then_fails) {
    MakeTree();
    Give(colVidSeries, "vs_a").sName = "Series";
    EXPECT_EQ(FailureOf([] { MoveToDBFolder("vs_a"); }), failure::NoSuchMember);
    EXPECT_EQ(CallsOf("CreateFolder "), Texts{root + "\\Videos\\VidSeries\\Series\\"});
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
