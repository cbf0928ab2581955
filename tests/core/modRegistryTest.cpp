#include "core/modRegistry.h"
#include "platform/ProfileText.h"
#include "support/FaultyFileService.h"
#include "support/Support.h"

#include <filesystem>

namespace tavel::test {
namespace {

class Registry : public ::testing::Test {
  protected:
    void Contain(const std::string& text) const { temp.Write("db.txt", text); }

    std::string Text(std::string_view key, std::string_view defaultValue = "none") const {
        std::string out = "before";
        EXPECT_EQ(ReadValue(db, "s", key, "s", defaultValue, out), 0);
        return out;
    }

    TempFolder temp;
    std::string db = temp.DrivePath("db.txt");
};

TEST_F(Registry, GetRootKey_knows_the_roots_in_any_case) {
    const struct {
        const char* name;
        std::uint32_t handle;
    } rows[] = {{"HKCU", 0x80000001}, {"HKLM", 0x80000002}, {"HKU", 0x80000003},
                {"HKDD", 0x80000006}, {"HKCC", 0x80000005}, {"HKCR", 0x80000000},
                {"hkcu", 0x80000001}, {"hKlM", 0x80000002}, {"hku", 0x80000003},
                {"hkdD", 0x80000006}, {"Hkcc", 0x80000005}, {"hkCR", 0x80000000}};
    for (const auto& row : rows)
        EXPECT_EQ(static_cast<std::uint32_t>(GetRootKey(row.name)), row.handle) << row.name;
}

TEST_F(Registry, GetRootKey_takes_an_ordinary_file_and_nothing_else_for_a_profile) {
    Contain("");
    temp.Write(".hidden", "");
    std::filesystem::create_directory(temp.HostPath("folder"));
    EXPECT_EQ(GetRootKey(db), 1);
    EXPECT_EQ(GetRootKey(temp.DrivePath(".hidden")), 0);
    EXPECT_EQ(GetRootKey(temp.DrivePath("folder")), 0);
    EXPECT_EQ(GetRootKey(temp.DrivePath("missing.txt")), 0);
    EXPECT_EQ(GetRootKey("q:\\db.txt"), 0);
    EXPECT_EQ(GetRootKey(""), 0);
    EXPECT_EQ(GetRootKey("HKXX"), 0);
}

TEST_F(Registry, GetRootKey_takes_a_test_that_fails_for_a_missing_file) {
    Contain("[s]\r\nk=7\r\n");
    for (const char* test : {"FileExists", "GetFile"}) {
        FaultyFileService files;
        Service<FileService>::Use(&files);
        EXPECT_EQ(GetRootKey(db), 1);
        files.FailOn(test, failure::PermissionDenied);
        EXPECT_EQ(GetRootKey(db), 0) << test;
        std::string out;
        EXPECT_EQ(ReadValue(db, "s", "k", "s", "default", out), 99);
        EXPECT_EQ(out, "default");
        Service<FileService>::Use(nullptr);
    }
}

TEST_F(Registry, A_failure_inside_a_wrapper_ends_it_with_the_status_reached_so_far) {
    Contain("[s]\r\nk=7\r\n");
    FaultyFileService files;
    Service<FileService>::Use(&files);
    files.FailOn("HostPath", failure::DeviceIO);
    std::string text = "before";
    Integer number = 1;
    EXPECT_EQ(ReadValue(db, "s", "k", "s", "default", text), 99);
    EXPECT_EQ(ReadValue(db, "s", "k", "s", "5", number), 99);
    EXPECT_EQ(WriteValue(db, "s", "k", "s", "8"), 99);
    Service<FileService>::Use(nullptr);
    EXPECT_EQ(text, "default");
    EXPECT_EQ(number, 5);
    EXPECT_EQ(temp.Read("db.txt"), "[s]\r\nk=7\r\n");
}

TEST_F(Registry, ReadValue_gives_the_value_whatever_the_case_of_the_names) {
    Contain("[DB]\r\nNoOfItems=12\r\n");
    std::string out;
    EXPECT_EQ(ReadValue(db, "db", "noofitems", "S", "0", out), 0);
    EXPECT_EQ(out, "12");
}

TEST_F(Registry, Blanks_around_the_names_do_not_count) {
    Contain("[options ]\r\nbGroupZip =1\r\n");
    std::string out;
    EXPECT_EQ(ReadValue(db, "options", "bGroupZip", "s", "0", out), 0);
    EXPECT_EQ(out, "1");
    EXPECT_EQ(WriteValue(db, " options", "bGroupZip\t", "s", "2"), 0);
    EXPECT_EQ(temp.Read("db.txt"), "[options ]\r\nbGroupZip =2\r\n");
}

TEST_F(Registry, ReadValue_gives_the_default_for_a_missing_key_and_not_for_an_empty_value) {
    Contain("[s]\r\nempty=\r\n");
    EXPECT_EQ(Text("missing"), "none");
    EXPECT_EQ(Text("empty"), "");
}

TEST_F(Registry, ReadValue_cuts_a_value_at_254_characters) {
    Contain("[s]\r\na=" + std::string(254, 'x') + "\r\nb=" + std::string(255, 'x') + "\r\n");
    EXPECT_EQ(Text("a").size(), 254U);
    EXPECT_EQ(Text("b"), std::string(254, 'x'));
}

TEST_F(Registry, A_path_of_157_Cyrillic_characters_comes_back_whole) {
    std::string path = "C:\\";
    for (int i = 3; i < 157; ++i) path += "\u0436";
    Contain("");
    EXPECT_EQ(WriteValue(db, "s", "path", "s", path), 0);
    EXPECT_EQ(Text("path"), path);
}

TEST_F(Registry, Without_the_file_reads_give_the_default_and_writes_do_nothing) {
    std::string out = "before";
    EXPECT_EQ(ReadValue(db, "s", "k", "s", "default", out), 99);
    EXPECT_EQ(out, "default");
    Integer number = 1;
    EXPECT_EQ(ReadValue(db, "s", "k", "s", "60", number), 99);
    EXPECT_EQ(number, 60);
    EXPECT_EQ(WriteValue(db, "s", "k", "s", "v"), 99);
    EXPECT_FALSE(std::filesystem::exists(temp.HostPath("db.txt")));
}

TEST_F(Registry, The_file_is_looked_for_at_every_call) {
    Contain("[s]\r\nk=" + std::string(100000, '7') + "\r\n");  // one that is kept in memory
    std::string out;
    EXPECT_EQ(ReadValue(db, "s", "k", "s", "default", out), 0);
    std::filesystem::remove(temp.HostPath("db.txt"));
    EXPECT_EQ(ReadValue(db, "s", "k", "s", "default", out), 99);
    EXPECT_EQ(out, "default");
    EXPECT_EQ(WriteValue(db, "s", "k", "s", "v"), 99);
    EXPECT_FALSE(std::filesystem::exists(temp.HostPath("db.txt")));
    Contain("[s]\r\nk=8\r\n");
    EXPECT_EQ(Text("k"), "8");
}

TEST_F(Registry, ReadValue_of_another_kind_keeps_the_default_in_a_profile) {
    Contain("[s]\r\nk=7\r\n");
    for (const char* kind : {"B", "D", "d", "x", ""}) {
        std::string text = "before";
        EXPECT_EQ(ReadValue(db, "s", "k", kind, "5", text), 0) << kind;
        EXPECT_EQ(text, "5") << kind;
        Integer number = 1;
        EXPECT_EQ(ReadValue(db, "s", "k", kind, "5", number), 0) << kind;
        EXPECT_EQ(number, 5) << kind;
    }
}

TEST_F(Registry, ReadValue_into_an_Integer_converts_the_text) {
    Contain("[s]\r\nn=42\r\nnegative=-1\r\n");
    Integer number = 0;
    EXPECT_EQ(ReadValue(db, "s", "n", "s", "0", number), 0);
    EXPECT_EQ(number, 42);
    ReadValue(db, "s", "negative", "s", "0", number);
    EXPECT_EQ(number, -1);
    ReadValue(db, "s", "missing", "s", "60", number);
    EXPECT_EQ(number, 60);
}

TEST_F(Registry, ReadValue_into_an_Integer_keeps_the_default_when_the_text_is_no_number) {
    Contain("[s]\r\nword=many\r\nempty=\r\nbig=40000\r\n");
    for (const char* key : {"word", "empty", "big"}) {
        Integer number = 1;
        EXPECT_EQ(ReadValue(db, "s", key, "s", "3", number), 99) << key;
        EXPECT_EQ(number, 3) << key;
    }
}

TEST_F(Registry, WriteValue_replaces_in_place_and_adds_what_is_missing) {
    Contain("[a]\r\nK=1\r\n[b]\r\nother=2\r\n");
    EXPECT_EQ(WriteValue(db, "A", "k", "S", "9"), 0);
    EXPECT_EQ(WriteValue(db, "a", "new", "s", "3"), 0);
    EXPECT_EQ(WriteValue(db, "c", "first", "s", "4"), 0);
    EXPECT_EQ(temp.Read("db.txt"), "[a]\r\nK=9\r\nnew=3\r\n[b]\r\nother=2\r\n[c]\r\nfirst=4\r\n");
}

TEST_F(Registry, WriteValue_of_an_empty_text_empties_the_value_and_removes_nothing) {
    Contain("[s]\r\nk=1\r\nl=2\r\n");
    EXPECT_EQ(WriteValue(db, "s", "k", "s", ""), 0);
    EXPECT_EQ(temp.Read("db.txt"), "[s]\r\nk=\r\nl=2\r\n");
    EXPECT_EQ(Text("k"), "");
}

TEST_F(Registry, WriteValue_of_another_kind_does_nothing_and_succeeds) {
    Contain("[s]\r\nk=7\r\n");
    for (const char* kind : {"B", "D", "x"}) EXPECT_EQ(WriteValue(db, "s", "k", kind, "8"), 0);
    EXPECT_EQ(temp.Read("db.txt"), "[s]\r\nk=7\r\n");
}

TEST_F(Registry, A_write_that_fails_is_not_noticed) {
    Contain("[s]\r\nk=7\r\n");
    // A file this large is no profile, so that nothing can be put in its place.
    constexpr std::uintmax_t tooLarge = ProfileText::MaxSize + std::uintmax_t{1};
    std::filesystem::resize_file(temp.HostPath("db.txt"), tooLarge);
    EXPECT_EQ(WriteValue(db, "s", "k", "s", "8"), 0);
    EXPECT_EQ(std::filesystem::file_size(temp.HostPath("db.txt")), tooLarge);
}

TEST_F(Registry, A_registry_root_has_no_keys_on_this_host) {
    constexpr Long keyNotFound = 2;
    std::string out = "before";
    EXPECT_EQ(ReadValue("HKCU", "Software\\Tavel", "k", "s", "default", out), keyNotFound);
    EXPECT_EQ(out, "default");
    EXPECT_EQ(WriteValue("hklm", "Software\\Tavel", "k", "s", "v"), keyNotFound);
}

}  // namespace
}  // namespace tavel::test
