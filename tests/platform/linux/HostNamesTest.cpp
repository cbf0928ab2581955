#include "platform/OnEachDrive.h"

// Names that this host has and others have not.

namespace tavel::test {

namespace {

class HostNames : public OnEachDrive {};

INSTANTIATE_TEST_SUITE_P(Drives, HostNames, ::testing::Values('c', 'e'),
                         [](const auto& drive) { return std::string(1, drive.param); });

}  // namespace

TEST_P(HostNames, Of_names_that_differ_in_case_alone_the_exact_one_comes_first) {
    Put("a.txt", "small");
    Put("A.TXT", "tall");
    EXPECT_EQ(files->ReadWhole(At("a.txt")), "small");
    EXPECT_EQ(files->ReadWhole(At("A.TXT")), "tall");
    EXPECT_EQ(files->ReadWhole(At("a.Txt")), "tall") << "the first in byte order";
}

TEST_P(HostNames, A_name_in_the_8_bit_page_finds_its_file_however_the_host_spells_it) {
    Put("caf\xe9.txt", "raw");
    EXPECT_EQ(files->ReadWhole(At("caf\xe9.txt")), "raw");
    EXPECT_EQ(files->ReadWhole(At("CAF\xc3\x89.txt")), "raw");
}

TEST_P(HostNames, Nothing_is_put_behind_a_second_drive_even_where_the_host_has_it) {
    Put("a.bin", "x");
    Put("c:/in/taken.bin", "y");
    for (const std::string name : {"c:\\in\\b.bin", "C:\\in\\b.bin", "c:\\in\\taken.bin",
                                   "d:\\b.bin", "c:", "sub\\c:\\b.bin", "c:\\none\\"}) {
        SCOPED_TRACE(name);
        Long error = 0;
        EXPECT_FALSE(files->OpenRaw(At(name), RawMode::Create, error));
        EXPECT_EQ(error, 52);
        EXPECT_EQ(FailureOf([&] { files->CreateFolder(At(name)); }), 52);
        EXPECT_EQ(FailureOf([&] { files->CreateTextFile(At(name), false); }), 52);
        EXPECT_EQ(FailureOf([&] { files->CopyFile(At("a.bin"), At(name), false); }), 52);
        EXPECT_EQ(FailureOf([&] { files->MoveFile(At("a.bin"), At(name)); }), 52);
    }
    EXPECT_EQ(FailureOf([&] { files->CopyFile(At("a.bin"), At("c:\\in\\"), true); }), 52);
    EXPECT_EQ(FailureOf([&] { files->MoveFile(At("none.bin"), At("c:\\b.bin")); }), 53);
    files->MoveFile(At("c:\\in\\taken.bin"), At("b.bin"));
    EXPECT_EQ(files->ReadWhole(At("b.bin")), "y");
    EXPECT_TRUE(fs::is_empty(Host("c:/in")));
    fs::create_directory(Host("c:x"));
    files->CreateTextFile(At("c:x\\b.txt"), true);
    EXPECT_TRUE(Has("c:x/b.txt")) << "no drive";
}

TEST_P(HostNames, Names_that_could_not_be_created_are_found_where_the_host_has_them) {
    for (const std::string name : {"a?b", "12:30.jpg", "nul", "end.", "end "}) {
        Put(name, name);
        EXPECT_EQ(files->ReadWhole(At(name)), name);
    }
}

}  // namespace tavel::test
