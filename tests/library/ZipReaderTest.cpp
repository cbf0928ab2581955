#include "library/ZipReaderFixture.h"
#include "platform/Text.h"

#include <ctime>

namespace tavel::test {
namespace {

TEST_F(ZipReaderTest, An_archive_tells_its_path_and_its_entries_by_number) {
    Open({{"in/"}, {"in/a.jpg"}, {"b.jpg"}});
    EXPECT_EQ(zip.ZipFile(), temp.DrivePath("archive.zip"));
    ASSERT_EQ(zip.Count(), 3u);
    EXPECT_EQ(zip.Item(0).Name(), "in\\");
    EXPECT_EQ(zip.Item(1).Name(), "in\\a.jpg");
    EXPECT_EQ(zip.Item(2).Name(), "b.jpg");
}

TEST_F(ZipReaderTest, A_name_in_UTF_8_that_stands_beside_the_stored_one_is_taken) {
    ZipItem item{"___.jpg", "x"};
    // Its length, a version, the checksum of the stored name, the name.
    item.extra = std::string("up\x0F\x00\x01\xEE\xBF\x2E\xF6", 9) + "Жук.jpg";
    Open({item});
    EXPECT_EQ(zip.Item(0).Name(), "Жук.jpg");
}

TEST_F(ZipReaderTest, A_file_is_written_below_the_folder_under_its_path_in_the_archive) {
    const std::string big(3'000'000, 'x');
    Open({{"a.jpg", "stored"}, {"in/deep/b.jpg", big, true}, {"in/deep/empty.jpg"}});
    EXPECT_EQ(Extract(1), out + "\\in\\deep\\b.jpg");
    EXPECT_EQ(Extract(0), out + "\\a.jpg");
    EXPECT_EQ(Extract(2), out + "\\in\\deep\\empty.jpg");
    EXPECT_EQ(temp.Read("out/a.jpg"), "stored");
    EXPECT_TRUE(temp.Read("out/in/deep/b.jpg") == big);
    EXPECT_EQ(temp.Read("out/in/deep/empty.jpg"), "");
}

TEST_F(ZipReaderTest, Without_its_path_a_file_is_written_into_the_folder_itself) {
    Open({{"in/deep/a.jpg", "x"}});
    EXPECT_EQ(Extract(0, false), out + "\\a.jpg");
    EXPECT_EQ(temp.Read("out/a.jpg"), "x");
}

TEST_F(ZipReaderTest, What_lies_there_is_written_over_in_any_case_of_letters) {
    Write("out/IN/A.JPG", "a longer text");
    fs::permissions(temp.HostPath("out/IN/A.JPG"), fs::perms::owner_read);
    Open({{"in/a.jpg", "new"}});
    Extract(0);
    EXPECT_EQ(files.ReadWhole(out + "\\in\\a.jpg"), "new");
    EXPECT_EQ(files.GetFolder(out + "\\in").Files.size(), 1u);
    EXPECT_EQ(files.GetFolder(out).SubFolders.size(), 1u);
}

TEST_F(ZipReaderTest, An_archive_is_not_written_over_by_its_own_file) {
    const std::string bytes = MakeZip({{"archive.zip", "x"}});
    zip.ZipFile(Write("out/archive.zip", bytes));
    EXPECT_EQ(FailureOf([&] { Extract(0); }), failure::PermissionDenied);
    EXPECT_EQ(temp.Read("out/archive.zip"), bytes);
}

TEST_F(ZipReaderTest, A_folder_that_lies_where_a_file_goes_is_a_failure) {
    fs::create_directory(temp.HostPath("out/a.jpg"));
    EXPECT_EQ(FailureOfExtracting({"a.jpg", "x"}), failure::PermissionDenied);
    Write("out/in", "a file");
    EXPECT_EQ(FailureOfExtracting({"in/a.jpg", "x"}), failure::FileAlreadyExists);
}

TEST_F(ZipReaderTest, The_date_is_kept) {
    const auto dateOf = [&](const ZipItem& item) {
        ExtractOnly(item);
        return ModifiedAt(temp.HostPath("out/a.jpg"));
    };
    std::tm date{};
    date.tm_year = 106;
    date.tm_mon = 10;
    date.tm_mday = 21;
    date.tm_hour = 14;
    date.tm_min = 5;
    date.tm_sec = 8;
    date.tm_isdst = -1;
    EXPECT_EQ(dateOf({"a.jpg", "x"}), mktime(&date));
    // The exact date beside it.
    ZipItem exact{"a.jpg", "x"};
    exact.extra = std::string("UT\x05\0\x01\x55\x05\x63\x45", 9);
    EXPECT_EQ(dateOf(exact), 0x45630555);
    // One of another kind of date, and one that is cut.
    exact.extra = std::string("UT\x05\0\x02\x55\x05\x63\x45", 9);
    EXPECT_EQ(dateOf(exact), mktime(&date));
    exact.extra = std::string("UT\x03\0\x01\x55\x05", 7);
    EXPECT_EQ(dateOf(exact), mktime(&date));
}

TEST_F(ZipReaderTest, Names_that_lead_out_of_the_folder_are_refused) {
    for (const char* name : {"../a.jpg", "..\\a.jpg", "in/../../a.jpg", "in/../a.jpg", "/a.jpg",
                             "\\a.jpg", "C:\\a.jpg", "C:a.jpg", "in/c:/a.jpg", "..", ""})
        ExpectRefused({name, "x"});
    EXPECT_FALSE(fs::exists(temp.HostPath("a.jpg")));
}

TEST_F(ZipReaderTest, Names_that_the_drive_does_not_make_are_refused) {
    for (const char* name : {"a?.jpg", "a*.jpg", "<a>.jpg", "a|b.jpg", "\"a\".jpg", "a\x01.jpg",
                             "a\n.jpg", "con.jpg", "COM1", "nul", "...", ".. /a.jpg", "in/con.jpg",
                             "in/a?.jpg", "in/.. /a.jpg", "in/deep/nul/a.jpg"})
        ExpectRefused({name, "x"});
    // More than a host's name can hold.
    const std::string half(100, 'a');
    ExpectRefused({half + "äöü" + half + std::string(50, 'a') + ".jpg", "x"});
    ExpectRefused({"in/" + std::string("äöüäöüäöüäöü") + half + half + std::string(30, 'a'), "x"});
    files.Refuse("a.jpg");
    ExpectRefused({"a.jpg", "x"});
}

TEST_F(ZipReaderTest, A_path_of_more_than_254_characters_is_refused) {
    const std::size_t room = MaxPathCharacters - CharacterCount(out) - 1;
    const std::string half(100, 'a');
    std::string name = half + "/" + half + "/";
    name = name.substr(0, room / 2) + "/";
    while (CharacterCount(name) < room) name += "ä";
    EXPECT_EQ(CharacterCount(ExtractOnly({name, "x"})), MaxPathCharacters);
    fs::remove_all(temp.HostPath("out"));
    fs::create_directory(temp.HostPath("out"));
    ExpectRefused({name + "ä", "x"});
}

TEST_F(ZipReaderTest, Links_are_refused) {
    ZipItem link{"a.jpg", "/etc/passwd"};
    link.attributes = 0120777u << 16;
    ExpectRefused(link);
    link.system = 19;
    ExpectRefused(link);
}

TEST_F(ZipReaderTest, Encrypted_entries_are_refused) {
    ZipItem encrypted{"a.jpg", "twelve bytes and more"};
    encrypted.flags = 1;
    ExpectRefused(encrypted);
    encrypted.flags = 1 | 1 << 6;  // strong encryption
    ExpectRefused(encrypted);
    encrypted.flags = 1;
    encrypted.method = 99;
    encrypted.extra = std::string("\x01\x99\x07\0\x02\0AE\x03\x08\0", 11);
    ExpectRefused(encrypted);
}

TEST_F(ZipReaderTest, Entries_packed_by_an_unknown_method_are_refused) {
    for (const unsigned method : {1u, 6u, 9u, 97u, 98u, 1234u}) {
        ZipItem item{"a.jpg", "x"};
        item.method = static_cast<std::uint16_t>(method);
        ExpectRefused(item);
    }
}

TEST_F(ZipReaderTest, What_is_refused_does_not_keep_the_others_from_being_extracted) {
    ZipItem encrypted{"b.jpg", "twelve bytes and more"};
    encrypted.flags = 1;
    Open({{"../a.jpg", "x"}, encrypted, {"c.jpg", "c"}});
    EXPECT_EQ(Extract(0), "");
    EXPECT_EQ(Extract(1), "");
    EXPECT_EQ(Extract(2), out + "\\c.jpg");
}

// What is refused is not looked into.
TEST_F(ZipReaderTest, A_damaged_entry_that_is_refused_for_its_name_or_as_a_link_is_no_failure) {
    for (const char* name : {"../a.jpg", "a?.jpg", "in/con.jpg"}) {
        ZipItem item{name, "x"};
        item.offset = 1'000'000;
        ExpectRefused(item);
    }
    ZipItem link{"a.jpg", "x"};
    link.attributes = 0120777u << 16;
    link.offset = 1'000'000;
    ExpectRefused(link);
}

TEST_F(ZipReaderTest, A_wrong_checksum_is_a_failure_and_leaves_what_was_written) {
    for (const bool isDeflated : {false, true}) {
        ZipItem item{"a.jpg", "some bytes", isDeflated};
        item.checksum = 0x12345678;
        EXPECT_EQ(FailureOfExtracting(item), failure::InvalidFileFormat);
        EXPECT_EQ(temp.Read("out/a.jpg"), "some bytes");
    }
}

TEST_F(ZipReaderTest, More_bytes_than_declared_are_a_failure_and_are_not_written) {
    for (const bool isDeflated : {false, true}) {
        for (const std::uint32_t size : {0u, 100u, 1'999'999u}) {
            ZipItem item{"a.jpg", std::string(2'000'000, 'x'), isDeflated};
            item.size = size;
            EXPECT_EQ(FailureOfExtracting(item), failure::InvalidFileFormat) << size;
            EXPECT_EQ(fs::file_size(temp.HostPath("out/a.jpg")), size);
        }
    }
}

TEST_F(ZipReaderTest, Fewer_bytes_than_declared_are_a_failure) {
    for (const bool isDeflated : {false, true}) {
        ZipItem item{"a.jpg", "some bytes", isDeflated};
        item.size = 11;
        EXPECT_EQ(FailureOfExtracting(item), failure::InvalidFileFormat);
        EXPECT_EQ(temp.Read("out/a.jpg"), "some bytes");
    }
}

TEST_F(ZipReaderTest, An_offset_that_leads_nowhere_is_a_failure) {
    for (const std::uint32_t offset : {7u, 60u, 1'000'000u, 0xFFFFFFFEu}) {
        ZipItem item{"a.jpg", "some bytes"};
        item.offset = offset;
        EXPECT_EQ(FailureOfExtracting(item), failure::InvalidFileFormat) << offset;
    }
}

TEST_F(ZipReaderTest, Damaged_packed_bytes_are_a_failure) {
    std::string bytes = MakeZip({{"a.jpg", std::string(5000, 'x') + "tail", true}});
    bytes[45] ^= 0x55;
    OpenBytes(bytes);
    EXPECT_EQ(FailureOf([&] { Extract(0); }), failure::InvalidFileFormat);
}

TEST_F(ZipReaderTest, What_is_no_archive_does_not_open) {
    const std::string good = MakeZip({{"a.jpg", "some bytes"}});
    for (const std::string& bytes :
         {std::string(), std::string("PK"), std::string(100'000, 'x'), good.substr(0, 60),
          good.substr(0, good.size() - 3), good.substr(30)}) {
        EXPECT_EQ(FailureOf([&] { OpenBytes(bytes); }), failure::InvalidFileFormat) << bytes.size();
    }
}

TEST_F(ZipReaderTest, An_archive_with_a_comment_opens_unless_it_is_cut_off) {
    const std::string bytes = MakeZip({{"a.jpg", "some bytes"}}, "taken at the sea");
    OpenBytes(bytes);
    EXPECT_EQ(Extract(0), out + "\\a.jpg");
    zip.Close();
    for (const std::size_t cut : {1u, 8u, 16u}) {
        const std::string sCut = Write("cut.zip", bytes.substr(0, bytes.size() - cut));
        EXPECT_EQ(FailureOf([&] { zip.ZipFile(sCut); }), failure::InvalidFileFormat) << cut;
    }
}

TEST_F(ZipReaderTest, Bytes_in_front_that_the_offsets_do_not_count_do_no_harm) {
    for (const std::size_t comment : {0u, 16u, 65535u}) {
        for (const std::size_t count : {1u, 14u, 5000u, 100'000u}) {
            const std::string bytes = MakeZip({{"in/a.jpg", "some bytes", true}, {"b.jpg", "b"}},
                                              std::string(comment, 'c'));
            OpenBytes(std::string(count, 'x') + bytes);
            ASSERT_EQ(zip.Count(), 2u);
            Extract(0);
            Extract(1);
            EXPECT_EQ(temp.Read("out/in/a.jpg"), "some bytes") << count;
            EXPECT_EQ(temp.Read("out/b.jpg"), "b") << count;
            fs::remove_all(temp.HostPath("out/in"));
        }
    }
}

TEST_F(ZipReaderTest, Of_two_archives_in_one_file_the_last_is_read) {
    const std::string bytes = MakeZip({{"a.jpg", "some bytes"}}) + MakeZip({{"b.jpg", "b"}});
    OpenBytes(bytes);
    ASSERT_EQ(zip.Count(), 1u);
    EXPECT_EQ(Extract(0), out + "\\b.jpg");
    EXPECT_EQ(temp.Read("out/b.jpg"), "b");
}

TEST_F(ZipReaderTest, Of_two_archives_that_are_alike_the_last_is_read_too) {
    const std::string bytes =
        MakeZip({{"a.jpg", "some bytes"}}) + MakeZip({{"b.jpg", "more bytes"}});
    OpenBytes(bytes);
    ASSERT_EQ(zip.Count(), 1u);
    EXPECT_EQ(Extract(0), out + "\\b.jpg");
}

TEST_F(ZipReaderTest, What_is_left_of_an_archive_that_was_cut_off_is_not_an_archive_stored_in_it) {
    const std::string inner = MakeZip({{"i.jpg", "inside"}});
    const std::string bytes =
        MakeZip({{"a.jpg", "some bytes"}, {"in.zip", inner}, {"b.jpg", std::string(100, 'b')}});
    const std::string cut = bytes.substr(0, bytes.find("bbbb") + 50);
    EXPECT_EQ(FailureOf([&] { OpenBytes(cut); }), failure::InvalidFileFormat);
}

TEST_F(ZipReaderTest, A_comment_may_hold_what_looks_like_the_end_of_an_archive) {
    const std::string bytes =
        MakeZip({{"a.jpg", "some bytes"}}, "a PK\5\6 in the words of " + std::string(30, 'c'));
    for (const std::size_t count : {0u, 100u}) {
        OpenBytes(std::string(count, 'x') + bytes);
        EXPECT_EQ(zip.Count(), 1u) << count;
    }
}

TEST_F(ZipReaderTest, A_name_marked_as_UTF_8_that_is_none_keeps_the_archive_from_opening) {
    ZipItem item{"a\x81.jpg", "x"};
    Open({item});
    item.flags = 1 << 11;
    EXPECT_EQ(FailureOf([&] { Open({item}); }), failure::InvalidFileFormat);
}

TEST_F(ZipReaderTest, A_file_that_cannot_be_opened_fails_as_the_file_service_does) {
    EXPECT_EQ(FailureOf([&] { zip.ZipFile(temp.DrivePath("none.zip")); }), failure::FileNotFound);
    EXPECT_EQ(FailureOf([&] { zip.ZipFile(temp.DrivePath("none\\a.zip")); }),
              failure::PathNotFound);
    EXPECT_EQ(FailureOf([&] { zip.ZipFile(out); }), failure::PermissionDenied);
}

TEST_F(ZipReaderTest, An_archive_that_cannot_be_read_fails_wherever_that_happens) {
    const std::string bytes = MakeZip({{"a.jpg", std::string(100'000, 'x')}, {"b.jpg", "b"}});
    Write("archive.zip", bytes);
    for (std::int64_t readable = 0; readable < 110'000; readable += 1'013) {
        files.FailReadAfter("archive.zip", readable);
        EXPECT_EQ(FailureOf([&] {
                      zip.ZipFile(temp.DrivePath("archive.zip"));
                      Extract(0);
                  }),
                  failure::DeviceIO)
            << readable;
    }
}

TEST_F(ZipReaderTest, A_disk_that_is_full_fails_and_leaves_what_was_written) {
    fs::create_directory(temp.HostPath("stick"));
    files.Plug('e', temp.HostPath("stick")).bytesUntilFull = 1'500'000;
    out = "e:";
    EXPECT_EQ(FailureOfExtracting({"a.jpg", std::string(5'000'000, 'x'), true}), failure::DiskFull);
    EXPECT_EQ(fs::file_size(temp.HostPath("stick/a.jpg")), 1'500'000u);
}

TEST_F(ZipReaderTest, A_file_that_does_not_close_well_fails) {
    files.FailClose("a.jpg");
    EXPECT_EQ(FailureOfExtracting({"a.jpg", "x"}), failure::DeviceIO);
}

TEST_F(ZipReaderTest, A_drive_that_is_pulled_fails_wherever_that_happens) {
    Write("stick/archive.zip", MakeZip({{"in/a.jpg", std::string(50'000, 'x'), true}}));
    int failures = 0;
    for (std::int64_t operations = 0;; ++operations) {
        fs::remove_all(temp.HostPath("stick/in"));
        files.Plug('e', temp.HostPath("stick")).operationsUntilGone = operations;
        const Long number = FailureOf([&] {
            zip.ZipFile("e:\\archive.zip");
            zip.Item(0).Extract("e:");
        });
        zip.Close();
        if (number == 0) break;
        EXPECT_TRUE(number == failure::DiskNotReady || number == failure::DeviceIO ||
                    number == failure::PathNotFound || number == failure::PermissionDenied)
            << number;
        ++failures;
    }
    EXPECT_GT(failures, 5);
}

TEST_F(ZipReaderTest, An_entry_is_read_and_written_in_blocks) {
    ExtractOnly({"a.jpg", std::string(2'500'000, 'x')});
    Texts writes;
    for (const std::string& call : files.rawCalls) {
        if (call.rfind("Write ", 0) == 0) writes.push_back(call.substr(call.rfind(' ') + 1));
    }
    EXPECT_EQ(writes, (Texts{"1048576", "1048576", "402848"}));
}

TEST_F(ZipReaderTest, A_closed_archive_can_be_written_to_again) {
    Open({{"a.jpg", "x"}});
    Long error = 0;
    EXPECT_FALSE(files.OpenRaw(zip.ZipFile(), RawMode::Create, error));
    zip.Close();
    EXPECT_TRUE(files.OpenRaw(zip.ZipFile(), RawMode::Create, error));
}

}  // namespace
}  // namespace tavel::test
