#include "library/ZipFixture.h"

#include <filesystem>
#include <set>

namespace tavel::test {
namespace {

namespace fs = std::filesystem;

constexpr const char* NothingValid = "No valid picture files found in this Zip file";

class AddZipFailures : public ZipImportTest {
  protected:
    Long FailureOfImport(const std::vector<ZipItem>& items,
                         const std::string& name = "archive.zip") {
        return FailureOf([&] { Import(items, name); });
    }

    static ZipItem Encrypted(const std::string& name) {
        ZipItem item{name, "twelve bytes and more"};
        item.flags = 1;
        return item;
    }

    // All files of the test's folder, by their names.
    std::set<std::string> Files() const {
        std::set<std::string> names;
        for (const auto& entry : fs::recursive_directory_iterator(temp.HostPath())) {
            if (!entry.is_directory())
                names.insert(fs::relative(entry.path(), temp.HostPath()).generic_string());
        }
        return names;
    }
};

TEST_F(AddZipFailures, An_archive_without_a_file_fails_without_a_message) {
    EXPECT_EQ(FailureOfImport({}), failure::SubscriptOutOfRange);
    EXPECT_EQ(FailureOfImport({{"in/"}, {"in/deep/"}}), failure::SubscriptOutOfRange);
    EXPECT_EQ(windows.calls.back(), "frmAdd.Repaint");
    EXPECT_TRUE(fs::is_empty(Unzipped("")));
}

TEST_F(AddZipFailures, When_every_file_is_refused_the_message_comes_and_then_their_names) {
    windows.boxes.Expect(NothingValid, MsgBoxAnswer::OK);
    Import({{"in/"}, {"../a.jpg", "1"}, Encrypted("in/b.jpg"), {"/c.jpg", "3"}});
    EXPECT_EQ(windows.calls,
              (Calls{"frmAdd.Show", "frmAdd.SetPath UNZIPPING", "frmAdd.Repaint", "Yield", "Yield",
                     "Yield", std::string("MsgBox Tavel: ") + NothingValid + " (OK)",
                     "frmInvFiles.AddItem ..\\a.jpg", "frmInvFiles.AddItem in\\b.jpg",
                     "frmInvFiles.AddItem \\c.jpg", "frmInvFiles.Show", "frmAdd.Unload"}));
    EXPECT_TRUE(fs::is_empty(Unzipped("")));
    EXPECT_FALSE(bDBChanged);
}

TEST_F(AddZipFailures, A_refused_file_without_a_name_leaves_nothing_to_list) {
    windows.boxes.Expect(NothingValid, MsgBoxAnswer::OK);
    Import({{"", "1"}});
    EXPECT_EQ(Listed(), Texts{});
    EXPECT_EQ(windows.calls.back(), "frmAdd.Unload");
}

TEST_F(AddZipFailures, Refused_files_are_listed_ahead_of_rejected_ones) {
    Import({{"a.txt", "1"}, {"b.jpg", "2"}, Encrypted("c.jpg"), {"d.txt", "4"}, {"../e.jpg"}});
    EXPECT_EQ(Listed(), (Texts{"c.jpg", "..\\e.jpg", sFolder + "\\a.txt", sFolder + "\\d.txt"}));
    EXPECT_EQ(colPhoto.Count(), 1);
}

TEST_F(AddZipFailures, A_refused_file_at_the_head_does_not_decide_about_the_group) {
    bGroupZip = true;
    Import({Encrypted("a.txt"), {"b.jpg", "2"}});
    EXPECT_EQ(colMagazine.Count(), 1);
}

TEST_F(AddZipFailures, A_group_whose_first_file_was_rejected_fails) {
    bGroupZip = true;
    EXPECT_EQ(FailureOfImport({{"a.txt", "1"}, {"b.jpg", "2"}}), failure::FileNotFound);
    EXPECT_EQ(Listed(), Texts{sFolder + "\\a.txt"});
    EXPECT_EQ(colPhoto.Item(1).sPath(), sFolder + "\\b.jpg");
    EXPECT_TRUE(fs::exists(Unzipped("b.jpg")));
}

TEST_F(AddZipFailures, A_group_of_several_kinds_fails_at_the_first_of_another_kind) {
    bGroupZip = true;
    EXPECT_EQ(FailureOfImport({{"a.jpg", "1"}, {"b.mp4", "2"}, {"c.jpg", "3"}}),
              failure::InvalidProcedureCall);
    EXPECT_EQ(GroupsOf(colPhoto.Item(1)).size(), 1u);
    EXPECT_EQ(GroupsOf(colPhoto.Item(2)).size(), 0u);
}

TEST_F(AddZipFailures, Videos_and_music_cannot_be_moved) {
    EXPECT_EQ(FailureOfImport({{"a.jpg", "1"}, {"b.mp4", "2"}}), failure::BadFileName);
    EXPECT_EQ(temp.Read("library/Photos/a.jpg"), "1");
    EXPECT_EQ(UnzippedBytes("b.mp4"), "2");
    EXPECT_EQ(FailureOfImport({{"c.mp3", "no tag, but bytes"}}), failure::BadFileName);
    bGroupZip = true;
    EXPECT_EQ(FailureOfImport({{"b.mp4", "2"}}), failure::NoSuchMember);
    EXPECT_EQ(FailureOfImport({{"c.mp3", "no tag, but bytes"}}), failure::InvalidProcedureCall);
}

TEST_F(AddZipFailures, The_same_archive_a_second_time_fails_at_the_move) {
    for (const bool bGroup : {false, true}) {
        SCOPED_TRACE(bGroup);
        bGroupZip = bGroup;
        Import({{"a.jpg", "1"}});
        EXPECT_EQ(FailureOfImport({{"a.jpg", "2"}}), failure::FileAlreadyExists);
        EXPECT_EQ(UnzippedBytes("a.jpg"), "2");
    }
    EXPECT_EQ(temp.Read("library/Photos/a.jpg"), "1");
    EXPECT_EQ(temp.Read("library/Photos/Magazines/archive/a.jpg"), "1");
}

TEST_F(AddZipFailures, After_a_failure_the_import_can_be_started_again) {
    files.FailOn("MoveFile " + sFolder + "\\b.jpg", failure::DiskFull, 1);
    EXPECT_EQ(FailureOfImport({{"b.jpg", "2"}}), failure::DiskFull);
    ReleaseCollections();
    Import({{"b.jpg", "2"}});
    EXPECT_EQ(colPhoto.Item(1).sPath(), root + "\\Photos\\b.jpg");
}

TEST_F(AddZipFailures, Two_files_of_one_name_fail_at_the_second_ones_move) {
    EXPECT_EQ(FailureOfImport({{"a.jpg", "1"}, {"A.JPG", "2"}}), failure::FileNotFound);
    EXPECT_EQ(colPhoto.Count(), 2);
    EXPECT_EQ(temp.Read("library/Photos/a.jpg"), "2");
}

TEST_F(AddZipFailures, A_file_without_an_extension_fails_with_everything_still_unzipped) {
    EXPECT_EQ(FailureOfImport({{"a.jpg", "1"}, {"README", "2"}, {"b.jpg", "3"}}),
              failure::Overflow);
    EXPECT_EQ(colPhoto.Count(), 1);
    for (const char* name : {"a.jpg", "README", "b.jpg"})
        EXPECT_TRUE(fs::exists(Unzipped(name))) << name;
}

TEST_F(AddZipFailures, An_archive_without_an_extension_cannot_name_its_group) {
    bGroupZip = true;
    EXPECT_EQ(FailureOfImport({{"a.jpg", "1"}}, "archive"), failure::Overflow);
    EXPECT_EQ(colPhoto.Item(1).sPath(), sFolder + "\\a.jpg");
    EXPECT_EQ(colMagazine.Count(), 0);
}

TEST_F(AddZipFailures, An_archive_that_does_not_open_leaves_no_folder_behind) {
    EXPECT_EQ(FailureOf([&] { ImportBytes("no archive"); }), failure::InvalidFileFormat);
    EXPECT_EQ(FailureOf([&] { AddZipFile(temp.DrivePath("none.zip"), bGroupZip); }),
              failure::FileNotFound);
    EXPECT_EQ(windows.calls, (Calls{"frmAdd.Show", "frmAdd.Show"}));
    EXPECT_FALSE(fs::exists(Unzipped("")));
}

TEST_F(AddZipFailures, A_damaged_file_fails_with_those_before_it_unzipped_and_none_added) {
    ZipItem damaged{"b.jpg", "some bytes"};
    damaged.checksum = 1;
    EXPECT_EQ(FailureOfImport({{"a.jpg", "1"}, damaged, {"c.jpg", "3"}}),
              failure::InvalidFileFormat);
    EXPECT_EQ(UnzippedBytes("a.jpg"), "1");
    EXPECT_EQ(UnzippedBytes("b.jpg"), "some bytes");
    EXPECT_FALSE(fs::exists(Unzipped("c.jpg")));
    EXPECT_EQ(colPhoto.Count(), 0);
}

TEST_F(AddZipFailures, The_message_names_the_archive_and_the_file_in_it) {
    const std::string sZip = temp.DrivePath("archive.zip");
    EXPECT_EQ(FailedActivityOf([&] { ImportBytes("no archive"); }), "Importing " + sZip);
    EXPECT_EQ(FailedActivityOf([&] { Import({}); }), "Importing " + sZip);
    ZipItem damaged{"in/b.jpg", "some bytes"};
    damaged.checksum = 1;
    EXPECT_EQ(FailedActivityOf([&] {
                  Import({{"a.jpg", "1"}, damaged});
              }),
              "Unpacking in\\b.jpg of " + sZip);
    EXPECT_EQ(FailedActivityOf([&] {
                  Import({{"README", "1"}});
              }),
              "Adding " + sFolder + "\\README");
    Write("library/Photos/a.jpg", "mine");
    EXPECT_EQ(FailedActivityOf([&] {
                  Import({{"a.jpg", "1"}});
              }),
              "Moving " + sFolder + "\\a.jpg to " + root + "\\Photos\\a.jpg");
}

TEST_F(AddZipFailures, A_bomb_ends_with_a_full_disk_and_hurts_nothing_else) {
    // 100 entries of 40 MB each, which share their packed bytes: 42 kB that unpack to 4 GB.
    std::vector<ZipItem> bomb{{"a0.jpg", std::string(40'000'000, '\0'), true}};
    for (int i = 1; i < 100; ++i) {
        ZipItem again{"a" + std::to_string(i) + ".jpg"};
        again.method = 8;
        again.offset = 0;
        again.size = 40'000'000;
        bomb.push_back(again);
    }
    const std::string bytes = MakeZip(bomb);
    EXPECT_LT(bytes.size(), 60'000u);
    Write("stick/Media/Photos/mine.jpg", "mine");
    files.Plug('e', temp.HostPath("stick")).bytesUntilFull = 10'000'000;
    sDefaultDBPath = "e:\\Media";
    EXPECT_EQ(FailureOf([&] { ImportBytes(bytes); }), failure::DiskFull);
    EXPECT_EQ(fs::file_size(temp.HostPath("stick/Media/TEMPUNZIP/a0.jpg")), 10'000'000u);
    EXPECT_EQ(Files(), (std::set<std::string>{"archive.zip", "stick/Media/Photos/mine.jpg",
                                              "stick/Media/TEMPUNZIP/a0.jpg"}));
    EXPECT_EQ(colPhoto.Count(), 0);
}

TEST_F(AddZipFailures, A_disk_full_in_the_middle_keeps_what_was_unzipped_for_the_next_try) {
    fs::create_directories(temp.HostPath("stick/Media/Photos"));
    FakeDrive& stick = files.Plug('e', temp.HostPath("stick"));
    stick.bytesUntilFull = 8;
    sDefaultDBPath = "e:\\Media";
    const std::vector<ZipItem> items{{"in/a.jpg", "five!"}, {"in/b.jpg", "six of"}};
    EXPECT_EQ(FailedActivityOf([&] { Import(items); }),
              "Unpacking in\\b.jpg of " + temp.DrivePath("archive.zip"));
    EXPECT_EQ(temp.Read("stick/Media/TEMPUNZIP/in/a.jpg"), "five!");
    EXPECT_EQ(temp.Read("stick/Media/TEMPUNZIP/in/b.jpg"), "six");
    EXPECT_EQ(colPhoto.Count(), 0);
    stick.bytesUntilFull = FakeDrive::plenty;
    Import(items);
    EXPECT_EQ(temp.Read("stick/Media/Photos/a.jpg"), "five!");
    EXPECT_EQ(temp.Read("stick/Media/Photos/b.jpg"), "six of");
}

TEST_F(AddZipFailures, A_failure_of_any_file_operation_is_fatal) {
    const std::vector<ZipItem> items{{"in/a.jpg", "1"}, {"b.txt", "2"}};
    bGroupZip = true;
    Import(items);
    const Texts all = files.calls;
    EXPECT_GT(all.size(), 10u);
    for (const std::string& sCall : all) {
        // A picture that can't be read is still a picture.
        if (sCall.rfind("OpenRaw Read " + sFolder, 0) == 0) continue;
        ReleaseCollections();
        fs::remove_all(Unzipped(""));
        fs::remove_all(temp.HostPath("library/Photos/Magazines/archive"));
        files.FailOn(sCall, failure::DeviceIO, 1);
        EXPECT_EQ(FailureOfImport(items), failure::DeviceIO) << sCall;
    }
}

TEST_F(AddZipFailures, Without_the_library_folder_nothing_is_made) {
    sDefaultDBPath = temp.DrivePath("none");
    EXPECT_EQ(FailureOfImport({{"a.jpg", "1"}}), failure::PathNotFound);
    EXPECT_EQ(Files(), std::set<std::string>{"archive.zip"});
}

TEST_F(AddZipFailures, Nothing_is_written_outside_of_the_library_folder) {
    windows.boxes.Expect(NothingValid, MsgBoxAnswer::OK);
    Import({{"../a.jpg", "x"},
            {"../../a.jpg", "x"},
            {"..\\a.jpg", "x"},
            {"in/../../../a.jpg", "x"},
            {temp.HostPath("a.jpg"), "x"},
            {temp.DrivePath("a.jpg"), "x"},
            {"C:a.jpg", "x"},
            {"\\\\host\\share\\a.jpg", "x"},
            {"c:/a.jpg", "x"}});
    EXPECT_EQ(Files(), std::set<std::string>{"archive.zip"});
    EXPECT_EQ(Listed().size(), 9u);
}

}  // namespace
}  // namespace tavel::test
