#include "platform/OnEachDrive.h"

namespace tavel::test {

namespace {

using FileNames = OnEachDrive;

INSTANTIATE_TEST_SUITE_P(Drives, FileNames, ::testing::Values('c', 'e'),
                         [](const auto& drive) { return std::string(1, drive.param); });

}  // namespace

TEST_P(FileNames, Names_match_without_regard_to_case) {
    Put("PSP/Photo/Bild \xc3\x84.JPG", "upper");
    EXPECT_TRUE(files->FileExists(At("psp\\PHOTO\\bild \xc3\xa4.jpg")));
    EXPECT_EQ(files->ReadWhole(At("psp\\photo\\BILD \xc3\xa4.jpg")), "upper");
}

TEST_P(FileNames, A_name_in_the_8_bit_page_is_made_with_its_letters) {
    files->CreateTextFile(At("na\xefve.txt"), true);
    EXPECT_TRUE(Has("na\xc3\xafve.txt"));
    EXPECT_TRUE(files->FileExists(At("na\xefve.txt")));
}

TEST_P(FileNames, Dots_are_taken_lexically_and_never_leave_the_drive) {
    Put("psp/a.txt", "x");
    EXPECT_TRUE(files->FileExists(At(".\\none\\..\\psp\\.\\a.txt")));
    EXPECT_TRUE(files->FolderExists("e:\\..\\..\\psp\\.."));
    EXPECT_TRUE(files->FileExists("e:\\..\\..\\psp\\a.txt"));
    EXPECT_TRUE(files->FolderExists("c:\\..\\..\\.."));
}

TEST_P(FileNames, Names_that_a_stick_refuses_are_created_on_no_drive) {
    Put("a.bin", "x");
    for (const std::string name : {"a<b", "a>b", "a:b", "a\"b", "a/b", "a|b", "a?b", "a*b", "a\nb",
                                   "con", "NUL", "nul.txt", "Com1.x.y", "LPT9", "aux ", "..."}) {
        SCOPED_TRACE(name);
        Long error = 0;
        EXPECT_FALSE(files->OpenRaw(At(name), RawMode::Create, error));
        EXPECT_EQ(error, 52);
        EXPECT_EQ(FailureOf([&] { files->CreateFolder(At(name)); }), 52);
        EXPECT_EQ(FailureOf([&] { files->CreateTextFile(At(name), true); }), 52);
        EXPECT_EQ(FailureOf([&] { files->CopyFile(At("a.bin"), At(name), true); }), 52);
        EXPECT_EQ(FailureOf([&] { files->MoveFile(At("a.bin"), At(name)); }), 52);
        EXPECT_FALSE(files->FileExists(At(name)));
    }
    EXPECT_EQ(std::distance(fs::directory_iterator(Host("")), fs::directory_iterator()), 1);
}

TEST_P(FileNames, Names_that_only_look_like_devices_are_created) {
    for (const std::string name : {"console", "com10", "com", "nul_.txt", "lpt0", "a.con"}) {
        files->CreateTextFile(At(name), true);
        EXPECT_TRUE(Has(name)) << name;
    }
}

TEST_P(FileNames, Blanks_and_dots_at_the_end_of_a_new_name_are_dropped_and_still_found) {
    files->CreateFolder(At("Vol. 1. .\\"));
    EXPECT_TRUE(Has("Vol. 1"));
    EXPECT_TRUE(files->FolderExists(At("vol. 1...")));
    files->CreateTextFile(At("Vol. 1. .\\a.txt. "), true);
    EXPECT_TRUE(Has("Vol. 1/a.txt"));
    EXPECT_EQ(FailureOf([&] { files->CreateFolder(At("VOL. 1.")); }), 58);
}

TEST_P(FileNames, A_host_separator_in_a_name_finds_nothing) {
    Put("psp/a.txt", "x");
    EXPECT_FALSE(files->FileExists(At("psp/a.txt")));
    EXPECT_FALSE(files->FileExists(At("psp/..\\psp\\a.txt")));
    EXPECT_FALSE(files->FolderExists(At("../card")));
    EXPECT_EQ(FailureOf([&] { files->CreateFolder(At("psp/photo\\x")); }), 76);
}

TEST_P(FileNames, HostPath_is_the_hosts_spelling) {
    Put("PSP/A.txt", "x");
    EXPECT_TRUE(fs::equivalent(files->HostPath(At("psp\\a.TXT")), Host("PSP/A.txt")));
    EXPECT_TRUE(fs::equivalent(files->HostPath(At("psp\\")), Host("PSP")));
    const fs::path created = files->HostPath(At("psp\\new.txt"));
    EXPECT_TRUE(fs::equivalent(created.parent_path(), Host("PSP")));
    EXPECT_EQ(created.filename(), "new.txt");
    EXPECT_EQ(files->HostPath(At("none\\new.txt")), "");
    EXPECT_EQ(files->HostPath(At("psp\\n?w.txt")), "");
    EXPECT_EQ(files->HostPath("y:\\new.txt"), "");
}

}  // namespace tavel::test
