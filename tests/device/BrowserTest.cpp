#include "core/PublicStuff.h"
#include "device/Browser.h"
#include "device/DeviceTest.h"
#include "media/TagMaker.h"
#include "support/UsersMark.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <initializer_list>

namespace tavel::test {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace fs = std::filesystem;

namespace {

std::string LittleEndian(std::uint32_t value, int bytes) {
    std::string text;
    for (int i = 0; i < bytes; ++i) text += static_cast<char>(value >> (8 * i) & 0xFF);
    return text;
}

std::string Bitmap(std::uint32_t width, std::uint32_t height) {
    const std::uint32_t row = (width * 3 + 3) / 4 * 4;
    const std::string info = LittleEndian(40, 4) + LittleEndian(width, 4) +
                             LittleEndian(height, 4) + LittleEndian(1, 2) + LittleEndian(24, 2) +
                             std::string(24, '\0');
    const std::string pixels(row * height, '\x40');
    const auto size = static_cast<std::uint32_t>(14 + info.size() + pixels.size());
    return "BM" + LittleEndian(size, 4) + LittleEndian(0, 4) + LittleEndian(54, 4) + info + pixels;
}

std::string Mp3(const std::string& title, const std::string& artist, const std::string& album) {
    const std::string zero(1, '\0');
    return Tag(3, Frame3("TIT2", zero + title) + Frame3("TPE1", zero + artist) +
                      Frame3("TALB", zero + album));
}

class BrowserTest : public DeviceTest {
  protected:
    BrowserTest() {
        Connect();
        sVideoSupport = {"mp4", "avi"};
        sMusicSupport = {"mp3"};
        sPhotoSupport = {"bmp"};
    }

    void PutPhoto(const std::string& sName, const std::string& bytes) {
        Put('e', "PSP/PHOTO/" + sName, bytes);
    }
    void PutTrack(const std::string& sName, const std::string& bytes) {
        Put('e', "PSP/MUSIC/" + sName, bytes);
    }
    void PutVideo(const std::string& sName, const std::string& bytes = "video") {
        Put('e', "MP_ROOT/100MNV01/" + sName, bytes);
    }

    static std::vector<PSPRow> Rows(const std::string& sPath, Integer iType) {
        std::vector<PSPRow> rows;
        ListPSPFiles(sPath, iType, rows);
        return rows;
    }
    // Rows as "key: text | sub-item | sub-item".
    static std::vector<std::string> Listed(const std::string& sPath, Integer iType) {
        std::vector<std::string> texts;
        for (const PSPRow& row : Rows(sPath, iType)) {
            texts.push_back(row.sKey + ": " + row.sText);
            for (const std::string& sSubItem : row.sSubItems) texts.back() += " | " + sSubItem;
        }
        return texts;
    }
    static std::vector<std::string> Videos() { return Listed("e:\\MP_ROOT\\100MNV01\\", 3); }

    static std::vector<std::string> Names(const std::vector<FolderEntry>& folders) {
        std::vector<std::string> names;
        for (const FolderEntry& folder : folders) names.push_back(folder.Path + "=" + folder.Name);
        return names;
    }
};

}  // namespace

TEST_F(BrowserTest, Group_folders_are_those_of_one_level) {
    fs::create_directories(HostOf('e', "PSP/MUSIC/Mix/Deeper"));
    fs::create_directories(HostOf('e', "PSP/PHOTO/Trip/Deeper"));
    fs::create_directories(HostOf('e', "PSP/PHOTO/album"));
    PutPhoto("a.bmp", "x");
    EXPECT_THAT(Names(PSPMusicFolders()), ElementsAre("e:\\psp\\music\\Mix=Mix"));
    EXPECT_THAT(Names(PSPPhotoFolders()),
                ElementsAre("e:\\psp\\photo\\album=album", "e:\\psp\\photo\\Trip=Trip"));
}

TEST_F(BrowserTest, A_stick_without_the_PSPs_folders_fails) {
    fs::remove_all(HostOf('e', "PSP"));
    EXPECT_EQ(FailureOf([] { PSPMusicFolders(); }), 76);
    EXPECT_EQ(FailureOf([] { PSPPhotoFolders(); }), 76);
    for (const Integer iType : std::initializer_list<Integer>{0, 3, 5, 8}) {
        EXPECT_EQ(FailureOf([&] { Rows("e:psp\\PHOTO\\", iType); }), 76) << iType;
    }
}

TEST_F(BrowserTest, Photos_show_width_and_height_whatever_the_file_is) {
    PutPhoto("Sea.Side.BMP", Bitmap(3, 2));
    PutPhoto("wide.bmp", Bitmap(400, 100));
    PutPhoto("text.txt", "no picture");
    PutPhoto("empty.jpg", "");
    PutPhoto(".hidden.bmp", Bitmap(1, 1));
    PutPhoto("kind.tga", std::string("\0\0\2\0\0\0\0\0\0\0\0\0\1\0\1\0\x18\0BGR", 21));
    PutPhoto("cut.bmp", Bitmap(50, 40).substr(0, 100));  // its header tells the size all the same
    PutPhoto("Trip/one.bmp", Bitmap(1, 1));
    const std::string sFolder = "e:\\psp\\PHOTO\\";
    EXPECT_THAT(Listed("e:psp\\PHOTO\\", 0),
                ElementsAre("ID1: .hidden | 1 X 1 | bmp | 0 Mb | " + sFolder + ".hidden.bmp",
                            "ID2: cut | 50 X 40 | bmp | 0 Mb | " + sFolder + "cut.bmp",
                            "ID3: empty | 0 X 0 | jpg | 0 Mb | " + sFolder + "empty.jpg",
                            "ID4: kind | 0 X 0 | tga | 0 Mb | " + sFolder + "kind.tga",
                            "ID5: Sea.Side | 3 X 2 | bmp | 0 Mb | " + sFolder + "Sea.Side.BMP",
                            "ID6: text | 0 X 0 | txt | 0 Mb | " + sFolder + "text.txt",
                            "ID7: wide | 400 X 100 | bmp | 0.12 Mb | " + sFolder + "wide.bmp"));
}

TEST_F(BrowserTest, A_group_lists_its_own_files_alone) {
    PutPhoto("Trip/one.bmp", Bitmap(1, 1));
    PutPhoto("Trip/Deeper/two.bmp", Bitmap(1, 1));
    EXPECT_THAT(Listed("e:\\psp\\photo\\Trip", 0),
                ElementsAre("ID1: one | 1 X 1 | bmp | 0 Mb | e:\\psp\\photo\\Trip\\one.bmp"));
}

TEST_F(BrowserTest, Tracks_show_their_tags_and_no_file_name) {
    PutTrack("a.mp3", Mp3("Title", "Artist", "Album"));
    PutTrack("b.mp3", std::string(1'500'000, 'x'));
    PutTrack("c.txt", "no track");
    PutTrack(".d.mp3", "hidden");
    EXPECT_THAT(Listed("e:psp\\MUSIC\\", 5),
                ElementsAre("ID1:  |  |  | mp3 | 0 Mb | e:\\psp\\MUSIC\\.d.mp3",
                            "ID2: Title | Artist | Album | mp3 | 0 Mb | e:\\psp\\MUSIC\\a.mp3",
                            "ID3:  |  |  | mp3 | 1.5 Mb | e:\\psp\\MUSIC\\b.mp3",
                            "ID4:  |  |  | txt | 0 Mb | e:\\psp\\MUSIC\\c.txt"));
}

TEST_F(BrowserTest, Each_track_is_read_by_itself) {
    PutTrack("a.mp3", Mp3("Title", "Artist", "Album"));
    PutTrack("b.mp3", std::string(100, 'x'));
    const std::vector<PSPRow> rows = Rows("e:psp\\MUSIC\\", 5);
    ASSERT_EQ(rows.size(), 2u);
    EXPECT_EQ(rows[1].sText, "");
    EXPECT_EQ(rows[1].sSubItems[0], "");
}

TEST_F(BrowserTest, A_track_that_cannot_be_read_fails) {
    PutTrack("a.mp3", "");
    EXPECT_EQ(FailureOf([] { Rows("e:psp\\MUSIC\\", 5); }), 5);
    PutTrack("a.mp3", Mp3("Title", "Artist", "Album"));
    files.FailOn("OpenRaw Read", 70);
    EXPECT_EQ(FailureOf([] { Rows("e:psp\\MUSIC\\", 5); }), 70);
}

TEST_F(BrowserTest, Videos_show_the_stored_title_or_the_number_and_thumbnails_have_no_row) {
    PutVideo("M4V10001.mp4", std::string(2'000'000, 'v'));
    PutVideo("M4V10001.THM");
    PutVideo("M4V10002.avi");
    Put('e', "TavelDataFile.tavel", "[VIDEO]\r\nm4v10001=The Film\r\n");
    // The keys count the thumbnail, too; by name it stands between the two.
    EXPECT_THAT(Videos(),
                ElementsAre("ID1: The Film | mp4 | 2 Mb | e:\\MP_ROOT\\100MNV01\\M4V10001.mp4",
                            "ID3: M4V10002 | avi | 0 Mb | e:\\MP_ROOT\\100MNV01\\M4V10002.avi"));
    fs::remove(HostOf('e', "TavelDataFile.tavel"));
    EXPECT_EQ(Videos()[0].substr(0, 13), "ID1: M4V10001");
}

TEST_F(BrowserTest, A_video_whose_stored_title_is_the_default_itself_shows_its_number) {
    PutVideo("M4V10001.mp4");
    PutVideo("M4V10002.mp4");
    Put('e', "TavelDataFile.tavel", "[video]\r\nM4V10001=####\r\nM4V10002=\r\n");
    const std::vector<PSPRow> rows = Rows("e:\\MP_ROOT\\100MNV01\\", 3);
    ASSERT_EQ(rows.size(), 2u);
    EXPECT_EQ(rows[0].sText, "M4V10001");
    EXPECT_EQ(rows[1].sText, "");  // an empty title is one
}

TEST_F(BrowserTest, Any_supported_file_is_listed_among_the_videos) {
    PutVideo("a.mp3");
    PutVideo("b.BMP");
    PutVideo("c.txt");
    sVideoSupport.push_back("thm");
    PutVideo("d.THM");
    std::vector<std::string> keys;
    for (const PSPRow& row : Rows("e:\\MP_ROOT\\100MNV01\\", 3)) {
        keys.push_back(row.sKey + row.sText);
    }
    EXPECT_THAT(keys, ElementsAre("ID1a", "ID2b", "ID4d"));
}

TEST_F(BrowserTest, Other_types_have_no_rows) {
    PutPhoto("a.bmp", Bitmap(1, 1));
    for (const Integer iType : std::initializer_list<Integer>{-1, 1, 2, 4, 8}) {
        EXPECT_THAT(Listed("e:psp\\PHOTO\\", iType), IsEmpty()) << iType;
    }
}

TEST_F(BrowserTest, A_file_without_a_dot_cannot_be_listed) {
    PutPhoto("noext", Bitmap(1, 1));
    EXPECT_EQ(FailureOf([] { Rows("e:psp\\PHOTO\\", 0); }), 6);
    PutTrack("noext", "x");
    EXPECT_EQ(FailureOf([] { Rows("e:psp\\MUSIC\\", 5); }), 6);
    PutVideo("noext");
    EXPECT_EQ(FailureOf([] { Videos(); }), 6);
}

TEST_F(BrowserTest, The_rows_before_a_file_that_fails_are_there) {
    PutVideo("a.mp4");
    PutVideo("b.mp4");
    PutVideo("noext");
    PutVideo("z.mp4");
    std::vector<PSPRow> rows;
    EXPECT_EQ(FailureOf([&] { ListPSPFiles("e:\\MP_ROOT\\100MNV01\\", 3, rows); }), 6);
    ASSERT_EQ(rows.size(), 2u);
    EXPECT_EQ(rows[1].sText, "b");
}

TEST_F(BrowserTest, Sizes_have_the_users_decimal_mark) {
    const UsersMark comma(",");
    PutVideo("a.mp4", std::string(1'500'000, 'v'));
    EXPECT_EQ(Rows("e:\\MP_ROOT\\100MNV01\\", 3)[0].sSubItems[1], "1,5 Mb");
}

TEST_F(BrowserTest, A_listing_reads_the_stick_anew_and_lets_no_window_event_run) {
    PutVideo("a.mp4");
    EXPECT_EQ(Videos().size(), 1u);
    PutVideo("b.mp4");
    EXPECT_EQ(Videos().size(), 2u);
    EXPECT_THAT(calls, IsEmpty());
}

namespace {

class DeletePSPFileTest : public BrowserTest {
  protected:
    // Deletes the row of that text.
    static void Delete(const std::string& sPath, Integer iType, const std::string& sText) {
        for (const PSPRow& row : Rows(sPath, iType)) {
            if (row.sText == sText) DeletePSPFile(row, iType);
        }
    }
};

}  // namespace

TEST_F(DeletePSPFileTest, Deletes_photos_tracks_and_videos_by_their_path) {
    PutPhoto("a.bmp", Bitmap(1, 1));
    PutPhoto("b.bmp", Bitmap(1, 1));
    PutTrack("a.mp3", Mp3("Title", "Artist", "Album"));
    PutVideo("a.mp4");
    Delete("e:psp\\PHOTO\\", 0, "a");
    EXPECT_FALSE(IsOn('e', "PSP/PHOTO/a.bmp"));
    EXPECT_TRUE(IsOn('e', "PSP/PHOTO/b.bmp"));
    Delete("e:psp\\MUSIC\\", 5, "Title");
    EXPECT_FALSE(IsOn('e', "PSP/MUSIC/a.mp3"));
    Delete("e:\\MP_ROOT\\100MNV01\\", 3, "a");
    EXPECT_FALSE(IsOn('e', "MP_ROOT/100MNV01/a.mp4"));
}

TEST_F(DeletePSPFileTest, Deletes_in_a_group_folder_and_leaves_the_empty_folder) {
    PutPhoto("Trip/a.bmp", Bitmap(1, 1));
    Delete("e:\\psp\\photo\\Trip", 0, "a");
    EXPECT_FALSE(IsOn('e', "PSP/PHOTO/Trip/a.bmp"));
    EXPECT_TRUE(IsOn('e', "PSP/PHOTO/Trip"));
}

TEST_F(DeletePSPFileTest, Takes_a_videos_thumbnail_with_it_and_leaves_its_title) {
    PutVideo("M4V10001.mp4");
    PutVideo("M4V10001.thm");
    PutVideo("M4V10002.THM");
    const std::string sTitles = "[video]\r\nM4V10001=Film\r\n";
    Put('e', "TavelDataFile.tavel", sTitles);
    files.calls.clear();
    DeletePSPFile({"ID1", "Film", {"mp4", "0 Mb", "e:\\MP_ROOT\\100MNV01\\M4V10001.mp4"}}, 3);
    const std::string sStart = "e:\\MP_ROOT\\100MNV01\\M4V10001.";
    EXPECT_THAT(files.calls,
                ElementsAre("DeleteFile " + sStart + "mp4", "FileExists " + sStart + "THM",
                            "DeleteFile " + sStart + "THM"));
    EXPECT_FALSE(IsOn('e', "MP_ROOT/100MNV01/M4V10001.thm"));
    EXPECT_TRUE(IsOn('e', "MP_ROOT/100MNV01/M4V10002.THM"));
    EXPECT_EQ(BytesOn('e', "TavelDataFile.tavel"), sTitles);
}

TEST_F(DeletePSPFileTest, Deletes_nothing_for_another_type) {
    PutPhoto("a.bmp", "x");
    const std::string sPath = "e:\\psp\\photo\\a.bmp";
    for (const Integer iType : std::initializer_list<Integer>{-1, 1, 2, 4, 8}) {
        DeletePSPFile({"ID1", "a", {sPath, sPath, sPath, sPath, sPath}}, iType);
    }
    EXPECT_TRUE(IsOn('e', "PSP/PHOTO/a.bmp"));
}

TEST_F(DeletePSPFileTest, Fails_for_a_file_that_has_gone_or_is_read_only_or_on_a_pulled_stick) {
    const PSPRow row{"ID1", "a", {"1 X 1", "bmp", "0 Mb", "e:\\psp\\photo\\a.bmp"}};
    EXPECT_EQ(FailureOf([&] { DeletePSPFile(row, 0); }), 53);
    PutPhoto("a.bmp", "x");
    fs::permissions(HostOf('e', "PSP/PHOTO/a.bmp"), fs::perms::owner_read);
    EXPECT_EQ(FailureOf([&] { DeletePSPFile(row, 0); }), 70);
    EXPECT_TRUE(IsOn('e', "PSP/PHOTO/a.bmp"));
    files.Pull('e');
    EXPECT_NE(FailureOf([&] { DeletePSPFile(row, 0); }), 0);
}

TEST_F(DeletePSPFileTest, Fails_for_a_row_without_the_cell_of_the_path) {
    EXPECT_EQ(FailureOf([] { DeletePSPFile({"ID1", "a", {"1 X 1"}}, 0); }), 9);
}

}  // namespace tavel::test
