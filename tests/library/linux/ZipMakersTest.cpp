#include "library/ZipFixture.h"
#include "library/ZipReader.h"

#include <sys/stat.h>

#include <cstdlib>
#include <filesystem>
#include <utility>

// Archives as the world makes them.

namespace tavel::test {
namespace {

namespace fs = std::filesystem;

class ZipMakers : public ZipImportTest {
  protected:
    // Runs a command in a folder of its own, in which it makes archive.zip.
    void Make(const std::string& sCommand) {
        fs::create_directories(temp.HostPath("made"));
        const std::string sAll = "cd '" + temp.HostPath("made") + "' && " + sCommand;
        ASSERT_EQ(std::system(sAll.c_str()), 0) << sCommand;
    }
    void Python(const std::string& sProgram) {
        temp.Write("made/make.py", "import os, zipfile\n" + sProgram);
        Make("python3 make.py");
    }

    void ImportMade() { AddZipFile(temp.DrivePath("made/archive.zip"), bGroupZip); }

    std::string Photo(const std::string& sName) const {
        return temp.Read("library/Photos/" + sName);
    }

    const std::string big = std::string(300'000, 'x') + "tail";
};

class InfoZip : public ZipMakers {
  protected:
    InfoZip() {
        Write("made/in/a.jpg", "short");
        Write("made/in/deep/b.jpg", big);
    }
};

TEST_F(InfoZip, Stored_deflated_and_bzip2_files_in_folders_come_in) {
    for (const char* sMethod : {"-0", "-9", "-Z bzip2"}) {
        fs::remove(temp.HostPath("made/archive.zip"));
        fs::remove_all(temp.HostPath("library/Photos"));
        fs::create_directory(temp.HostPath("library/Photos"));
        Make(std::string("zip -q -r ") + sMethod + " archive.zip in");
        ImportMade();
        EXPECT_EQ(Photo("a.jpg"), "short") << sMethod;
        EXPECT_TRUE(Photo("b.jpg") == big) << sMethod;
    }
}

TEST_F(InfoZip, Names_beyond_ASCII_keep_their_letters) {
    Write("made/Straße/Ж ä.jpg", "letters");
    Make("zip -q -r archive.zip Straße");
    ImportMade();
    EXPECT_EQ(colPhoto.Item(1).sName, "Ж ä");
    EXPECT_EQ(Photo("Ж ä.jpg"), "letters");
}

TEST_F(InfoZip, Dates_are_kept_to_the_second) {
    Make("touch -d '2006-11-21 14:05:09 UTC' in/a.jpg && zip -q -r archive.zip in");
    ImportMade();
    struct stat status {};
    ASSERT_EQ(stat(temp.HostPath("library/Photos/a.jpg").c_str(), &status), 0);
    EXPECT_EQ(status.st_mtim.tv_sec, 1'164'117'909);
}

TEST_F(InfoZip, An_archive_with_a_comment_comes_in) {
    Make("zip -q -r archive.zip in && echo 'A comment with PK in it' | zip -q -z archive.zip");
    ImportMade();
    EXPECT_EQ(Photo("a.jpg"), "short");
}

TEST_F(InfoZip, An_archive_behind_a_program_comes_in_whether_or_not_its_offsets_count_that) {
    Make("zip -q -r plain.zip in && head -c 50000 /bin/sh | cat - plain.zip > archive.zip");
    ImportMade();
    EXPECT_EQ(Photo("a.jpg"), "short");
    EXPECT_TRUE(Photo("b.jpg") == big);
    fs::remove_all(temp.HostPath("library/Photos"));
    fs::create_directory(temp.HostPath("library/Photos"));
    Make("zip -q -A archive.zip");
    ImportMade();
    EXPECT_EQ(Photo("a.jpg"), "short");
    EXPECT_TRUE(Photo("b.jpg") == big);
}

TEST_F(InfoZip, An_archive_that_was_written_without_going_back_comes_in) {
    Make("zip -q -r - in | cat > archive.zip");
    ImportMade();
    EXPECT_EQ(Photo("a.jpg"), "short");
    EXPECT_TRUE(Photo("b.jpg") == big);
}

TEST_F(InfoZip, Links_and_encrypted_files_are_refused) {
    fs::create_symlink("/etc/passwd", temp.HostPath("made/in/link.jpg"));
    Make(
        "zip -q -y archive.zip in/link.jpg && zip -q -P secret archive.zip in/deep/b.jpg && "
        "zip -q archive.zip in/a.jpg");
    ImportMade();
    EXPECT_EQ(Listed(), (Texts{"in\\link.jpg", "in\\deep\\b.jpg"}));
    EXPECT_EQ(colPhoto.Count(), 1);
    EXPECT_FALSE(fs::exists(Unzipped("in/link.jpg")));
}

TEST_F(InfoZip, A_part_of_an_archive_in_several_does_not_open) {
    Write("made/noise.jpg", [] {
        std::string bytes;
        for (unsigned i = 0; i < 200'000; ++i) bytes += static_cast<char>(i * 2'654'435'761u >> 24);
        return bytes;
    }());
    Make("zip -q -0 -s 64k archive.zip noise.jpg");
    EXPECT_EQ(FailureOf([&] { ImportMade(); }), failure::InvalidFileFormat);
}

TEST_F(ZipMakers, Bsdtar_writes_names_behind_a_dot_and_sizes_behind_the_bytes) {
    Write("made/in/a ä.jpg", "short");
    Write("made/in/deep/b.jpg", big);
    Make("cd in && LC_ALL=C.UTF-8 bsdtar --format zip -cf ../archive.zip .");
    ImportMade();
    EXPECT_EQ(Photo("a ä.jpg"), "short");
    EXPECT_TRUE(Photo("b.jpg") == big);
    EXPECT_TRUE(fs::is_empty(Unzipped("deep")));
}

TEST_F(ZipMakers, More_than_65535_entries_are_all_seen) {
    std::string sList = "#mtree\n";
    for (int i = 0; i < 100'000; ++i)
        sList += "./folder" + std::to_string(i) + " type=dir mode=0755\n";
    Write("made/list", sList);
    Write("made/last.jpg", "the last");
    Make("bsdtar --format zip -cf archive.zip @list last.jpg");
    ZipReader zip;
    zip.ZipFile(temp.DrivePath("made/archive.zip"));
    ASSERT_EQ(zip.Count(), 100'001u);
    EXPECT_EQ(zip.Item(99'999).Name(), "folder99999\\");
    ImportMade();
    EXPECT_EQ(colPhoto.Count(), 1);
    EXPECT_EQ(Photo("last.jpg"), "the last");
    EXPECT_EQ(fs::directory_iterator(Unzipped("")), fs::directory_iterator());
    // Behind bytes that nobody counted, too.
    fs::remove(temp.HostPath("library/Photos/last.jpg"));
    Make("mv archive.zip plain.zip && (echo in front; cat plain.zip) > archive.zip");
    ImportMade();
    EXPECT_EQ(Photo("last.jpg"), "the last");
}

TEST_F(ZipMakers, Names_in_code_page_437_and_with_backslashes_keep_their_letters) {
    Python(R"(
class Dos(zipfile.ZipInfo):
    def _encodeFilenameFlags(self):
        return self.filename.encode('cp437'), self.flag_bits
with zipfile.ZipFile('archive.zip', 'w') as archive:
    for name in ['Übung\\Straße.jpg', 'Ñandú.jpg']:
        archive.writestr(Dos(name), name)
)");
    ImportMade();
    EXPECT_EQ(Photo("Straße.jpg"), "Übung\\Straße.jpg");
    EXPECT_EQ(Photo("Ñandú.jpg"), "Ñandú.jpg");
    EXPECT_TRUE(fs::is_directory(Unzipped("Übung")));
}

TEST_F(ZipMakers, Names_marked_as_UTF_8_keep_their_letters) {
    Python(R"(
with zipfile.ZipFile('archive.zip', 'w') as archive:
    archive.writestr('Ж.jpg', 'x')
)");
    ImportMade();
    EXPECT_EQ(Photo("Ж.jpg"), "x");
}

TEST_F(ZipMakers, Large_fields_come_in_where_small_ones_would_do) {
    Python(R"(
with zipfile.ZipFile('archive.zip', 'w', zipfile.ZIP_DEFLATED) as archive:
    with archive.open('a.jpg', 'w', force_zip64=True) as file:
        file.write(b'x' * 300000)
)");
    ImportMade();
    EXPECT_EQ(Photo("a.jpg").size(), 300'000u);
}

TEST_F(ZipMakers, Bytes_in_front_of_an_archive_do_no_harm) {
    Python(R"(
open('archive.zip', 'wb').write(b'MZ' + b'unpacks itself elsewhere' * 1000)
with zipfile.ZipFile('archive.zip', 'a') as archive:
    archive.writestr('a.jpg', 'behind')
)");
    ImportMade();
    EXPECT_EQ(Photo("a.jpg"), "behind");
}

TEST_F(ZipMakers, Entries_behind_more_than_4_GiB_come_in) {
    Python(R"(
with open('archive.zip', 'wb') as file:
    file.truncate(5 << 30)
with zipfile.ZipFile('archive.zip', 'a', allowZip64=True) as archive:
    archive.writestr('a.jpg', 'far behind')
    archive.writestr('b.jpg', 'x' * 100000, zipfile.ZIP_DEFLATED)
)");
    EXPECT_GT(fs::file_size(temp.HostPath("made/archive.zip")), std::uint64_t{5} << 30);
    ImportMade();
    EXPECT_EQ(Photo("a.jpg"), "far behind");
    EXPECT_EQ(Photo("b.jpg").size(), 100'000u);
}

TEST_F(ZipMakers, An_entry_of_more_than_4_GiB_fills_the_disk) {
    // Stored bytes that the archive's file has as a hole.
    Python(R"(
with zipfile.ZipFile('archive.zip', 'w') as archive:
    entry = zipfile.ZipInfo('a.jpg')
    entry.CRC = entry.header_offset = 0
    entry.file_size = entry.compress_size = (4 << 30) + 5
    archive.fp.write(entry.FileHeader(zip64=True))
    archive.fp.seek(entry.file_size, os.SEEK_CUR)
    archive.filelist.append(entry)
    archive.start_dir = archive.fp.tell()
    archive._didModify = True
)");
    fs::create_directory(temp.HostPath("stick"));
    files.Plug('e', temp.HostPath("stick")).bytesUntilFull = 3'000'000;
    sDefaultDBPath = "e:";
    EXPECT_EQ(FailureOf([&] { ImportMade(); }), failure::DiskFull);
    EXPECT_EQ(fs::file_size(temp.HostPath("stick/TEMPUNZIP/a.jpg")), 3'000'000u);
}

TEST_F(ZipMakers, Methods_that_the_reader_does_not_know_are_refused) {
    Python(R"(
with zipfile.ZipFile('archive.zip', 'w') as archive:
    archive.writestr('a.jpg', 'x' * 1000, zipfile.ZIP_LZMA)
    archive.writestr('b.jpg', 'x' * 1000, zipfile.ZIP_BZIP2)
)");
    ImportMade();
    EXPECT_EQ(Listed(), Texts{"a.jpg"});
    EXPECT_EQ(Photo("b.jpg").size(), 1000u);
}

TEST_F(ZipMakers, A_Macs_second_files_are_pictures_that_cannot_be_read) {
    Python(R"(
with zipfile.ZipFile('archive.zip', 'w') as archive:
    archive.writestr('in/a.jpg', 'picture')
    archive.writestr('__MACOSX/in/._a.jpg', 'what a Mac keeps beside it')
    archive.writestr('in/.DS_Store', 'and of the folder')
)");
    ImportMade();
    ASSERT_EQ(colPhoto.Count(), 2);
    EXPECT_EQ(colPhoto.Item(2).sName, "._a");
    EXPECT_EQ(Listed(), Texts{sFolder + "\\in\\.DS_Store"});
}

TEST_F(ZipMakers, Nothing_is_written_into_a_folder_that_is_called_like_a_drive) {
    fs::create_directory(temp.HostPath("C:"));
    windows.boxes.Expect("No valid picture files found in this Zip file", MsgBoxAnswer::OK);
    Import({{"C:a.jpg", "x"}, {"../C:/a.jpg", "x"}, {"c:/a.jpg", "x"}});
    EXPECT_TRUE(fs::is_empty(temp.HostPath("C:")));
    EXPECT_EQ(Listed().size(), 3u);
}

// On the computer an archive may have a name that no folder gets.
TEST_F(ZipMakers, An_archive_whose_name_no_folder_may_have_fails_with_everything_added) {
    bGroupZip = true;
    EXPECT_EQ(FailureOf([&] {
                  Import({{"a.jpg", "1"}, {"b.jpg", "2"}}, "AC?DC.zip");
              }),
              failure::BadFileName);
    ASSERT_EQ(colMagazine.Count(), 1);
    EXPECT_EQ(colMagazine.Item(1).sName, "AC?DC");
    EXPECT_EQ(colMagazine.Item(1).Count(), 2);
    EXPECT_EQ(colPhoto.Item(2).sPath(), sFolder + "\\b.jpg");
    EXPECT_TRUE(fs::exists(Unzipped("a.jpg")) && fs::exists(Unzipped("b.jpg")));
}

}  // namespace
}  // namespace tavel::test
