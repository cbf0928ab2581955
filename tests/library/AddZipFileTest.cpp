#include "library/ZipFixture.h"
#include "support/HostDrives.h"

#include <algorithm>
#include <filesystem>
#include <map>
#include <utility>

namespace tavel::test {
namespace {

namespace fs = std::filesystem;

using AddZipFileTest = ZipImportTest;

TEST_F(AddZipFileTest, Three_pictures_become_three_photos_in_the_library_folder) {
    Import({{"a.jpg", "1"}, {"b.JPG", "2"}, {"c.bmp", Bitmap(40, 30)}});
    ASSERT_EQ(colPhoto.Count(), 3);
    EXPECT_EQ(colPhoto.Item(1).sPath(), root + "\\Photos\\a.jpg");
    EXPECT_EQ(colPhoto.Item(2).sPath(), root + "\\Photos\\b.jpg");
    EXPECT_EQ(colPhoto.Item(3).sPath(), root + "\\Photos\\c.bmp");
    EXPECT_EQ(colPhoto.Item(3).iSizeW, 40);
    EXPECT_EQ(temp.Read("library/Photos/a.jpg"), "1");
    EXPECT_EQ(temp.Read("library/Photos/b.jpg"), "2");
    EXPECT_EQ(colMagazine.Count(), 0);
    EXPECT_TRUE(fs::is_empty(Unzipped("")));
    EXPECT_TRUE(bDBChanged);
}

TEST_F(AddZipFileTest, As_a_group_they_become_one_magazine_named_after_the_archive) {
    bGroupZip = true;
    Import({{"b.JPG", "1"}, {"a.jpg", "2"}, {"c.jpg", "3"}}, "Summer 2006.v2.ZIP");
    ASSERT_EQ(colMagazine.Count(), 1);
    const Magazine& magazine = colMagazine.Item(1);
    EXPECT_EQ(magazine.sName, "Summer 2006.v2");
    EXPECT_EQ(MembersOf(magazine),
              (Texts{colPhoto.Item(1).sDBID, colPhoto.Item(2).sDBID, colPhoto.Item(3).sDBID}));
    const std::string folder = root + "\\Photos\\Magazines\\Summer 2006.v2\\";
    EXPECT_EQ(colPhoto.Item(1).sPath(), folder + "b.JPG");
    EXPECT_EQ(colPhoto.Item(3).sPath(), folder + "c.jpg");
    EXPECT_EQ(temp.Read("library/Photos/Magazines/Summer 2006.v2/b.JPG"), "1");
    EXPECT_EQ(GroupsOf(colPhoto.Item(2)), Texts{magazine.sDBID});
}

TEST_F(AddZipFileTest, Everything_happens_in_its_order) {
    const std::string sZip = Write("a.zip", MakeZip({{"in/"}, {"in/a.jpg", "1"}, {"b.txt", "2"}}));
    RecordFilesToo(sZip);
    AddZipFile(sZip, bGroupZip);
    EXPECT_EQ(windows.calls,
              (Calls{"frmAdd.Show",
                     "OpenRaw Read " + sZip,
                     "FolderExists " + sFolder,
                     "CreateFolder " + sFolder,
                     "frmAdd.SetPath UNZIPPING",
                     "frmAdd.Repaint",
                     "CreateFolder " + sFolder + "\\in",
                     "OpenRaw Create " + sFolder + "\\in\\a.jpg",
                     "Yield",
                     "OpenRaw Create " + sFolder + "\\b.txt",
                     "Yield",
                     "OpenRaw Read " + sFolder + "\\in\\a.jpg",
                     "frmAdd.SetPath " + sFolder + "\\in\\a.jpg",
                     "frmAdd.Repaint",
                     "frmAdd.SetPath " + sFolder + "\\b.txt",
                     "frmAdd.Repaint",
                     "frmInvFiles.AddItem " + sFolder + "\\b.txt",
                     "frmInvFiles.Show",
                     "MoveFile " + sFolder + "\\in\\a.jpg -> " + root + "\\Photos\\a.jpg",
                     "Close " + sZip,
                     "frmAdd.Unload"}));
}

TEST_F(AddZipFileTest, A_group_is_made_before_its_files_are_moved) {
    const std::string sZip = Write("a.zip", MakeZip({{"a.jpg", "1"}, {"b.jpg", "2"}}));
    RecordFilesToo(sZip);
    AddZipFile(sZip, true);
    const std::string sTarget = root + "\\Photos\\Magazines\\a\\";
    const Calls expected{"RefreshCats",
                         "CreateFolder " + sTarget,
                         "MoveFile " + sFolder + "\\a.jpg -> " + sTarget + "a.jpg",
                         "MoveFile " + sFolder + "\\b.jpg -> " + sTarget + "b.jpg",
                         "Close " + sZip,
                         "frmAdd.Unload"};
    ASSERT_GE(windows.calls.size(), expected.size());
    EXPECT_EQ(Calls(windows.calls.end() - static_cast<std::ptrdiff_t>(expected.size()),
                    windows.calls.end()),
              expected);
}

TEST_F(AddZipFileTest, A_path_is_shown_once_its_file_has_its_record) {
    Long shown = 0;
    windows.add.onSetPath = [&](const std::string& sText) {
        if (sText == "UNZIPPING") return;
        EXPECT_EQ(colPhoto.Count(), ++shown);
    };
    Import({{"a.jpg"}, {"b.jpg"}});
    EXPECT_EQ(shown, 2);
}

TEST_F(AddZipFileTest, The_temporary_folder_is_used_as_it_is_found) {
    fs::create_directory(temp.HostPath("library/TempUnzip"));
    Write("library/TempUnzip/rest.jpg", "from before");
    Import({{"a.jpg", "1"}});
    EXPECT_EQ(temp.Read("library/TempUnzip/rest.jpg"), "from before");
    EXPECT_EQ(colPhoto.Count(), 1);
    EXPECT_FALSE(temp.Has("library/TEMPUNZIP"));
}

TEST_F(AddZipFileTest, A_folders_entry_is_passed_over_and_its_files_go_in) {
    Import({{"in/"}, {"in/deep/"}, {"in/deep/a.jpg", "1"}, {"empty/"}});
    EXPECT_EQ(colPhoto.Item(1).sPath(), root + "\\Photos\\a.jpg");
    EXPECT_TRUE(fs::is_empty(Unzipped("in/deep")));
    EXPECT_FALSE(fs::exists(Unzipped("empty")));
}

TEST_F(AddZipFileTest, Files_of_one_name_in_two_folders_collide_in_a_magazine) {
    bGroupZip = true;
    EXPECT_EQ(FailureOf([&] {
                  Import({{"one/a.jpg", "1"}, {"two/a.jpg", "2"}});
              }),
              failure::FileAlreadyExists);
    EXPECT_EQ(temp.Read("library/Photos/Magazines/archive/a.jpg"), "1");
    EXPECT_EQ(UnzippedBytes("two/a.jpg"), "2");
}

TEST_F(AddZipFileTest, A_text_file_behind_the_pictures_is_listed_and_stays) {
    for (const bool bGroup : {false, true}) {
        SCOPED_TRACE(bGroup);
        windows.calls.clear();
        bGroupZip = bGroup;
        Import({{"a.jpg", "1"}, {"b.jpg", "2"}, {"read me.txt", "words"}});
        EXPECT_EQ(Listed(), Texts{sFolder + "\\read me.txt"});
        EXPECT_EQ(UnzippedBytes("read me.txt"), "words");
        EXPECT_EQ(colPhoto.Count(), bGroup ? 4 : 2);
        EXPECT_EQ(windows.calls.back(), "frmAdd.Unload");
    }
}

TEST_F(AddZipFileTest, The_list_of_rejected_files_holds_nothing_up) {
    Import({{"a.txt"}, {"b.jpg", "1"}, {"c.txt"}});
    EXPECT_EQ(Listed(), (Texts{sFolder + "\\a.txt", sFolder + "\\c.txt"}));
    EXPECT_EQ(temp.Read("library/Photos/b.jpg"), "1");
}

TEST_F(AddZipFileTest, Without_one_supported_file_all_are_listed_and_nothing_is_moved) {
    Import({{"a.txt"}, {"b.pdf"}});
    EXPECT_EQ(Listed(), (Texts{sFolder + "\\a.txt", sFolder + "\\b.pdf"}));
    EXPECT_EQ(windows.calls.back(), "frmAdd.Unload");
    EXPECT_TRUE(fs::exists(Unzipped("a.txt")));
}

TEST_F(AddZipFileTest, A_dot_in_front_of_a_name_hides_nothing) {
    Import({{".a.jpg", "1"}, {"in/.b.jpg", "2"}});
    ASSERT_EQ(colPhoto.Count(), 2);
    EXPECT_EQ(colPhoto.Item(1).sPath(), root + "\\Photos\\.a.jpg");
    EXPECT_EQ(temp.Read("library/Photos/.b.jpg"), "2");
}

TEST_F(AddZipFileTest, The_options_of_the_moment_decide_about_the_group) {
    windows.events.onYield = [] { bGroupZip = true; };
    Import({{"a.jpg", "1"}});
    EXPECT_EQ(colMagazine.Count(), 1);
}

TEST_F(AddZipFileTest, The_folder_is_taken_as_it_stands_at_the_time) {
    const auto belowTheProgram = HostFilesBelow(temp.HostPath());
    Service<FileService>::Use(belowTheProgram.get());
    sDefaultDBPath = "0";
    EXPECT_EQ(FailureOf([&] { Import({{"a.jpg", "1"}}); }), failure::PathNotFound);
    EXPECT_EQ(windows.calls, Calls{"frmAdd.Show"});
    fs::create_directories(temp.HostPath("0/Photos"));
    Import({{"a.jpg", "1"}});
    EXPECT_EQ(colPhoto.Item(1).sPath(), "0\\Photos\\a.jpg");
    EXPECT_EQ(temp.Read("0/Photos/a.jpg"), "1");
    EXPECT_TRUE(fs::exists(temp.HostPath("0/TEMPUNZIP")));
    Service<FileService>::Use(&files);
}

TEST_F(AddZipFileTest, A_folder_that_changes_in_the_middle_counts_for_the_moves_alone) {
    const std::string sOther = temp.DrivePath("other");
    MakeDBFolders(sOther);
    sDefaultDBPath = root;
    windows.events.onYield = [&] { sDefaultDBPath = sOther; };
    Import({{"a.jpg", "1"}, {"b.jpg", "2"}, {"c.txt", "3"}});
    EXPECT_EQ(temp.Read("other/Photos/a.jpg"), "1");
    EXPECT_EQ(temp.Read("other/Photos/b.jpg"), "2");
    EXPECT_EQ(UnzippedBytes("c.txt"), "3");
    EXPECT_FALSE(fs::exists(temp.HostPath("other/TEMPUNZIP")));
}

TEST_F(AddZipFileTest, Separators_in_a_row_and_ends_that_a_folders_name_loses_do_no_harm) {
    Import({{"in//a.jpg", "1"},
            {"in\\\\b.jpg", "2"},
            {"Vol. 1 /c.jpg", "3"},
            {"Vol. 1./d.jpg", "4"},
            {"Vol. 1/e.jpg", "5"}});
    for (const auto& [name, bytes] : std::map<std::string, std::string>{
             {"a.jpg", "1"}, {"b.jpg", "2"}, {"c.jpg", "3"}, {"d.jpg", "4"}, {"e.jpg", "5"}})
        EXPECT_EQ(temp.Read("library/Photos/" + name), bytes);
    EXPECT_TRUE(fs::is_directory(Unzipped("Vol. 1")));
    EXPECT_FALSE(temp.Has("library/TEMPUNZIP/Vol. 1 "));
}

// The drive makes them without that end, but the extension is the archive's.
TEST_F(AddZipFileTest, A_picture_whose_name_ends_in_a_blank_or_a_dot_is_rejected) {
    Import({{"a.jpg ", "1"}, {"b.jpg.", "2"}});
    EXPECT_EQ(Listed(), (Texts{sFolder + "\\a.jpg ", sFolder + "\\b.jpg."}));
    EXPECT_EQ(UnzippedBytes("a.jpg"), "1");
}

TEST_F(AddZipFileTest, Cancelling_has_no_effect) {
    windows.add.exitChecked = true;
    Import({{"a.jpg", "1"}, {"b.jpg", "2"}});
    EXPECT_EQ(colPhoto.Count(), 2);
    EXPECT_EQ(std::count(windows.calls.begin(), windows.calls.end(), "frmAdd.Unload"), 1);
}

TEST_F(AddZipFileTest, An_import_during_another_ones_yield_goes_its_own_way) {
    const std::string sOther = Write("other.zip", MakeZip({{"b.jpg", "2"}}));
    bool bStarted = false;
    windows.events.onYield = [&] {
        if (!std::exchange(bStarted, true)) AddZipFile(sOther, bGroupZip);
    };
    Import({{"a.jpg", "1"}, {"c.jpg", "3"}});
    EXPECT_EQ(colPhoto.Count(), 3);
    for (const char* name : {"a.jpg", "b.jpg", "c.jpg"})
        EXPECT_TRUE(fs::exists(temp.HostPath("library/Photos/") + name)) << name;
}

}  // namespace
}  // namespace tavel::test
