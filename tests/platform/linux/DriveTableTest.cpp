#include "support/linux/MountedDrives.h"

#include <gmock/gmock.h>
#include <sys/statvfs.h>
#include <sys/sysmacros.h>

#include <cstdio>
#include <filesystem>
#include <optional>

// Drives as the file service shows them: letters, media, and what a path on them can reach.

namespace tavel::test {

namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;

class DriveTables : public MountedDrives {
  protected:
    std::string MakeFolder(const std::string& name) const {
        fs::create_directories(temp.HostPath(name));
        return temp.HostPath(name);
    }
    void Mount(const std::string& name) { mounts.Mount(MakeFolder(name), name); }
    void Unmount(const std::string& name) { mounts.Unmount(temp.HostPath(name)); }

    static std::optional<dev_t> AnyBlockDevice() {
        std::error_code none;
        unsigned number[2] = {};
        for (const fs::directory_entry& entry : fs::directory_iterator("/sys/dev/block", none)) {
            const std::string name = entry.path().filename().string();
            if (sscanf(name.c_str(), "%u:%u", &number[0], &number[1]) == 2)
                return makedev(number[0], number[1]);
        }
        return std::nullopt;
    }

    Long OpenError(const std::string& path, RawMode mode) {
        Long error = 0;
        EXPECT_FALSE(files->OpenRaw(path, mode, error));
        return error;
    }
};

}  // namespace

TEST_F(DriveTables, The_hosts_root_is_c_a_fixed_drive) {
    EXPECT_THAT(files->DriveTexts(), ElementsAre("c:"));
    const std::shared_ptr<Drive> drive = files->GetDrive("C:\\");
    EXPECT_EQ(drive->Path(), "c:");
    EXPECT_EQ(drive->DriveType(), DriveFixed);
    struct statvfs figures {};
    ASSERT_EQ(statvfs("/", &figures), 0);
    EXPECT_EQ(drive->TotalSize(),
              static_cast<double>(figures.f_blocks) * static_cast<double>(figures.f_frsize));
    EXPECT_GT(drive->FreeSpace(), 0);
    EXPECT_LE(drive->FreeSpace(), drive->TotalSize());
}

TEST_F(DriveTables, Mounted_drives_get_letters_in_order_and_keep_them) {
    Mount("one");
    Mount("two");
    EXPECT_THAT(files->DriveTexts(), ElementsAre("c:", "d: [one]", "e: [two]"));
    Unmount("one");
    EXPECT_THAT(files->DriveTexts(), ElementsAre("c:", "e: [two]"));
    Mount("three");
    EXPECT_THAT(files->DriveTexts(), ElementsAre("c:", "e: [two]", "f: [three]"));
}

TEST_F(DriveTables, Of_the_free_letters_a_mount_gets_the_one_that_was_unused_longest) {
    Link('d', "card");
    Mount("one");
    Mount("two");
    EXPECT_THAT(files->DriveTexts(), ElementsAre("c:", "d: [card]", "e: [one]", "f: [two]"));
    Unmount("two");
    files->DriveTexts();
    Unlink('d');
    files->DriveTexts();
    Unmount("one");
    files->DriveTexts();
    for (int i = 0; i < 23; ++i) Mount("m" + std::to_string(i));
    const std::vector<std::string> texts = files->DriveTexts();
    ASSERT_EQ(texts.size(), 24u);
    EXPECT_EQ(texts[4], "g: [m0]");
    EXPECT_EQ(texts[3], "f: [m20]");
    EXPECT_EQ(texts[1], "d: [m21]");
    EXPECT_EQ(texts[2], "e: [m22]");
}

TEST_F(DriveTables, A_mount_elsewhere_gets_another_letter_than_one_that_went_in_the_same_reading) {
    Mount("one");
    EXPECT_THAT(files->DriveTexts(), ElementsAre("c:", "d: [one]"));
    Unmount("one");
    Mount("two");
    EXPECT_THAT(files->DriveTexts(), ElementsAre("c:", "e: [two]"));
}

TEST_F(DriveTables, A_mount_in_the_folder_of_one_that_went_in_the_same_reading_gets_its_letter) {
    Mount("one");
    Mount("two");
    EXPECT_THAT(files->DriveTexts(), ElementsAre("c:", "d: [one]", "e: [two]"));
    Unmount("one");
    Unmount("two");
    Mount("three");
    mounts.Mount(temp.HostPath("two"), "next");
    mounts.Mount(temp.HostPath("one"), "other");
    EXPECT_THAT(files->DriveTexts(), ElementsAre("c:", "d: [other]", "e: [next]", "f: [three]"));
}

TEST_F(DriveTables, A_letter_that_a_link_waits_for_goes_to_the_link_when_its_mount_is_replaced) {
    Mount("one");
    EXPECT_THAT(files->DriveTexts(), ElementsAre("c:", "d: [one]"));
    Link('d', "linked");
    Unmount("one");
    mounts.Mount(temp.HostPath("one"), "other");
    const std::vector<std::string> texts = files->DriveTexts();
    ASSERT_EQ(texts.size(), 3u);
    EXPECT_EQ(texts[2], "e: [other]");
    EXPECT_EQ(texts[1].substr(0, 2), "d:");
}

TEST_F(DriveTables, A_mount_in_the_folder_of_one_that_was_seen_to_go_gets_another_letter) {
    Mount("one");
    EXPECT_THAT(files->DriveTexts(), ElementsAre("c:", "d: [one]"));
    Unmount("one");
    EXPECT_THAT(files->DriveTexts(), ElementsAre("c:"));
    mounts.Mount(temp.HostPath("one"), "other");
    EXPECT_THAT(files->DriveTexts(), ElementsAre("c:", "e: [other]"));
}

TEST_F(DriveTables, A_stick_of_another_name_in_the_same_slot_gets_the_letter_in_the_same_reading) {
    const std::optional<dev_t> slot = AnyBlockDevice();
    if (!slot) GTEST_SKIP() << "the host tells of no block device";
    Mount("one");
    mounts.mounts[0].first.device = *slot;
    EXPECT_THAT(files->DriveTexts(), ElementsAre("c:", "d: [one]"));
    Unmount("one");
    Mount("two");
    mounts.mounts[0].first.device = *slot;
    EXPECT_THAT(files->DriveTexts(), ElementsAre("c:", "d: [two]"));
}

TEST_F(DriveTables, The_mount_table_is_read_only_when_it_has_changed) {
    Mount("one");
    for (char letter = 'b'; letter <= 'z'; ++letter) files->DriveExists(std::string(1, letter));
    files->FileExists("d:\\a.txt");
    EXPECT_EQ(mounts.readings, 1);
    Mount("two");
    EXPECT_TRUE(files->DriveExists("e"));
    EXPECT_EQ(mounts.readings, 2);
}

TEST_F(DriveTables, More_mounts_than_letters_leave_the_last_without_one) {
    for (int i = 0; i < 24; ++i) Mount("m" + std::to_string(i));
    EXPECT_EQ(files->DriveTexts().size(), 24u);
    EXPECT_EQ(files->DriveTexts().back(), "z: [m22]");
    Unmount("m0");
    EXPECT_EQ(files->DriveTexts()[1], "d: [m23]");
}

TEST_F(DriveTables, An_unmounted_drive_is_gone_at_once) {
    Mount("stick");
    temp.Write("stick/a.txt", "x");
    const std::shared_ptr<Drive> drive = files->GetDrive("d");
    EXPECT_TRUE(files->FileExists("d:\\a.txt"));
    Unmount("stick");
    EXPECT_FALSE(files->DriveExists("d"));
    EXPECT_EQ(FailureOf([&] { files->GetDrive("d"); }), 68);
    EXPECT_EQ(drive->Path(), "d:");
    EXPECT_EQ(drive->DriveType(), DriveRemovable);
    EXPECT_EQ(FailureOf([&] { (void)drive->TotalSize(); }), 68);
    EXPECT_EQ(FailureOf([&] { (void)drive->FreeSpace(); }), 68);
    EXPECT_FALSE(files->FileExists("d:\\a.txt"));
    EXPECT_FALSE(files->FolderExists("d:\\"));
    EXPECT_EQ(FailureOf([&] { files->GetFile("d:\\a.txt"); }), 53);
    EXPECT_EQ(FailureOf([&] { files->GetFolder("d:\\"); }), 76);
    EXPECT_EQ(FailureOf([&] { files->CreateFolder("d:\\b"); }), 76);
    EXPECT_EQ(FailureOf([&] { files->CreateTextFile("d:\\b", true); }), 76);
    EXPECT_EQ(FailureOf([&] { files->DeleteFile("d:\\a.txt", true); }), 76);
    EXPECT_EQ(OpenError("d:\\b.txt", RawMode::Create), 76);
    EXPECT_EQ(files->HostPath("d:\\a.txt"), "");
    temp.Write("c.txt", "x");
    EXPECT_EQ(FailureOf([&] { files->CopyFile(temp.DrivePath("c.txt"), "d:\\c.txt", true); }), 76);
    EXPECT_EQ(FailureOf([&] { files->MoveFile(temp.DrivePath("c.txt"), "d:\\c.txt"); }), 76);
    EXPECT_EQ(temp.Read("c.txt"), "x");
}

TEST_F(DriveTables, Nothing_reaches_the_folder_of_a_stick_that_went_before_the_table_was_read) {
    Mount("stick");
    ++mounts.mounts[0].first.id;  // another mount than the one that the folder lies in
    EXPECT_FALSE(files->FolderExists("d:\\"));
    EXPECT_EQ(FailureOf([&] { files->CreateFolder("d:\\b"); }), 76);
    EXPECT_EQ(OpenError("d:\\b.txt", RawMode::Create), 76);
    EXPECT_TRUE(fs::is_empty(temp.HostPath("stick")));
}

TEST_F(DriveTables, A_mounted_drive_whose_device_was_taken_out_is_gone) {
    Mount("stick");
    mounts.mounts[0].first.device = makedev(4095, 4095);
    EXPECT_FALSE(files->DriveExists("d"));
    EXPECT_THAT(files->DriveTexts(), ElementsAre("c:"));
    EXPECT_FALSE(files->FolderExists("d:\\"));
}

TEST_F(DriveTables,
       What_the_host_remembers_of_a_stick_that_was_taken_out_is_gone_by_a_path_that_lasts) {
    Mount("stick");
    temp.Write("stick/a.txt", "x");
    fs::create_directory_symlink(temp.HostPath("stick"), temp.HostPath("link"));
    EXPECT_TRUE(files->FileExists(temp.DrivePath("stick/a.txt")));
    mounts.mounts[0].first.device = makedev(4095, 4095);
    mounts.hasChanged = true;
    for (const std::string folder : {"stick", "STICK", "link"}) {
        const std::string path = temp.DrivePath(folder);
        EXPECT_FALSE(files->FolderExists(path)) << path;
        EXPECT_FALSE(files->FileExists(path + "\\a.txt")) << path;
        EXPECT_EQ(FailureOf([&] { files->GetFile(path + "\\a.txt"); }), 53) << path;
        EXPECT_EQ(FailureOf([&] { files->GetFolder(path); }), 76) << path;
        EXPECT_EQ(FailureOf([&] { files->CreateFolder(path + "\\b"); }), 76) << path;
        EXPECT_EQ(FailureOf([&] { files->DeleteFile(path + "\\a.txt", true); }), 76) << path;
        EXPECT_EQ(OpenError(path + "\\a.txt", RawMode::Read), 76) << path;
        EXPECT_EQ(OpenError(path + "\\b.txt", RawMode::Create), 76) << path;
        EXPECT_EQ(files->HostPath(path + "\\a.txt"), "") << path;
    }
    EXPECT_EQ(temp.Read("stick/a.txt"), "x");
}

TEST_F(DriveTables, Links_go_with_the_folder_that_they_are_in) {
    Link('e', "card");
    fs::remove_all(temp.HostPath("program/drives"));
    EXPECT_FALSE(files->DriveExists("e"));
    Link('f', "card");
    EXPECT_TRUE(files->DriveExists("f"));
    fs::rename(temp.HostPath("program/drives"), temp.HostPath("program/away"));
    EXPECT_FALSE(files->DriveExists("f"));
    fs::rename(temp.HostPath("program/away"), temp.HostPath("program/drives"));
    EXPECT_TRUE(files->DriveExists("f"));
}

TEST_F(DriveTables, Links_have_any_one_letter_but_c) {
    for (const char letter : {'a', 'b', 'c', 'G', 'z', '1', '['}) Link(letter, "card");
    fs::create_directory(temp.HostPath("program/drives/h"));
    temp.Write("program/drives/i", "");
    fs::create_directory_symlink(temp.HostPath("card"), temp.HostPath("program/drives/ee"));
    EXPECT_THAT(files->DriveTexts(),
                ElementsAre("a: [card]", "b: [card]", "c:", "g: [card]", "z: [card]"));
}

TEST_F(DriveTables, Mounts_pass_over_letters_of_links_and_keep_theirs_from_later_ones) {
    Link('d', "card");
    Mount("one");
    EXPECT_THAT(files->DriveTexts(), ElementsAre("c:", "d: [card]", "e: [one]"));
    Link('e', "late");
    temp.Write("one/a.txt", "x");
    EXPECT_TRUE(files->FileExists("e:\\a.txt"));
    Unmount("one");
    EXPECT_THAT(files->DriveTexts(), ElementsAre("c:", "d: [card]", "e: [late]"));
}

TEST_F(DriveTables, No_link_leads_out_of_a_removable_drive) {
    Link('e', "card");
    temp.Write("secret/a.txt", "x");
    fs::create_directory_symlink(temp.HostPath("secret"), temp.HostPath("card/out"));
    fs::create_symlink(temp.HostPath("secret/a.txt"), temp.HostPath("card/a.txt"));
    fs::create_symlink("../secret/new.txt", temp.HostPath("card/new.txt"));
    EXPECT_FALSE(files->FileExists("e:\\a.txt"));
    EXPECT_FALSE(files->FileExists("e:\\A.TXT"));
    EXPECT_FALSE(files->FolderExists("e:\\out"));
    EXPECT_FALSE(files->FileExists("e:\\out\\a.txt"));
    EXPECT_FALSE(files->FileExists("e:\\OUT\\a.txt"));
    EXPECT_EQ(OpenError("e:\\a.txt", RawMode::Create), 76);
    EXPECT_EQ(OpenError("e:\\new.txt", RawMode::Create), 76);
    EXPECT_EQ(OpenError("e:\\out\\b.txt", RawMode::Create), 76);
    EXPECT_EQ(FailureOf([&] { files->CreateFolder("e:\\out\\b"); }), 76);
    EXPECT_EQ(FailureOf([&] { files->DeleteFile("e:\\out\\a.txt", true); }), 76);
    const FolderContents contents = files->GetFolder("e:\\");
    EXPECT_TRUE(contents.Files.empty());
    EXPECT_TRUE(contents.SubFolders.empty());
    EXPECT_EQ(temp.Read("secret/a.txt"), "x");
    EXPECT_FALSE(fs::exists(temp.HostPath("secret/new.txt")));
}

TEST_F(DriveTables, Links_on_c_are_followed) {
    temp.Write("real/a.txt", "x");
    fs::create_directory_symlink(temp.HostPath("real"), temp.HostPath("folder"));
    fs::create_symlink(temp.HostPath("real/a.txt"), temp.HostPath("link.txt"));
    EXPECT_TRUE(files->FileExists(temp.DrivePath("folder\\a.txt")));
    EXPECT_TRUE(files->FileExists(temp.DrivePath("FOLDER\\A.txt")));
    EXPECT_EQ(files->GetFile(temp.DrivePath("link.txt")).Size, 1);
    const FolderContents contents = files->GetFolder(temp.DrivePath(""));
    EXPECT_EQ(contents.SubFolders.size(), 2u);
    ASSERT_EQ(contents.Files.size(), 1u);
    EXPECT_EQ(contents.Files[0].Name, "link.txt");
}

TEST_F(DriveTables, A_link_to_a_folder_that_leads_to_it_is_passed_over) {
    MakeFolder("top/a");
    MakeFolder("top/b");
    fs::create_directory_symlink(temp.HostPath("top"), temp.HostPath("top/a/up"));
    fs::create_directory_symlink(".", temp.HostPath("top/a/self"));
    EXPECT_TRUE(files->GetFolder(temp.DrivePath("top\\a")).SubFolders.empty());
    // Two folders that hold a link to each other.
    fs::create_directory_symlink(temp.HostPath("top/b"), temp.HostPath("top/a/toB"));
    fs::create_directory_symlink(temp.HostPath("top/a"), temp.HostPath("top/b/toA"));
    EXPECT_EQ(files->GetFolder(temp.DrivePath("top\\a")).SubFolders.size(), 1u);
    EXPECT_TRUE(files->GetFolder(temp.DrivePath("top\\a\\toB")).SubFolders.empty());
}

TEST_F(DriveTables, MoveFile_crosses_file_systems) {
    const fs::path other = "/dev/shm";
    struct stat here {};
    struct stat there {};
    if (stat(temp.HostPath().c_str(), &here) != 0 || stat(other.c_str(), &there) != 0 ||
        here.st_dev == there.st_dev) {
        GTEST_SKIP() << "needs a second file system at /dev/shm";
    }
    const std::string name = fs::path(temp.HostPath()).filename();
    temp.Write("a.txt", "x");
    files->MoveFile(temp.DrivePath("a.txt"), "c:\\dev\\shm\\" + name);
    EXPECT_EQ(files->ReadWhole("c:\\dev\\shm\\" + name), "x");
    EXPECT_FALSE(files->FileExists(temp.DrivePath("a.txt")));
    files->MoveFile("c:\\dev\\shm\\" + name, temp.DrivePath("b.txt"));
    EXPECT_EQ(temp.Read("b.txt"), "x");
    EXPECT_FALSE(fs::exists(other / name));
}

TEST_F(DriveTables, Host_paths_become_paths_that_last) {
    Link('e', "card");
    Mount("stick");
    Mount("card/inner");
    EXPECT_EQ(files->FromHostPath(temp.HostPath("stick")), temp.DrivePath("stick"));
    EXPECT_EQ(files->FromHostPath(temp.HostPath("stick/a.mp3")), temp.DrivePath("stick/a.mp3"));
    EXPECT_EQ(files->FromHostPath(temp.HostPath("card")), "e:\\");
    EXPECT_EQ(files->FromHostPath(temp.HostPath("card/psp/a.txt")), "e:\\psp\\a.txt");
    EXPECT_EQ(files->FromHostPath(temp.HostPath("program/drives/e/a.txt")), "e:\\a.txt");
    EXPECT_EQ(files->FromHostPath(temp.HostPath("card/inner/a.txt")),
              temp.DrivePath("card/inner/a.txt"))
        << "not reached by e:";
    EXPECT_EQ(files->FromHostPath(temp.HostPath("cards/a.txt")), temp.DrivePath("cards/a.txt"));
    EXPECT_EQ(files->FromHostPath("/"), "c:\\");
    EXPECT_EQ(files->FromHostPath("/a//b/./c/../d/"), "c:\\a\\b\\d");
}

TEST_F(DriveTables, A_stick_that_is_mounted_and_linked_goes_by_the_letter_of_the_link) {
    Mount("stick");
    Link('x', "stick");
    EXPECT_EQ(files->FromHostPath(temp.HostPath("stick/a.mp3")), "x:\\a.mp3");
}

TEST_F(DriveTables, A_linked_folder_of_a_mounted_stick_goes_by_the_letter_of_the_link) {
    Mount("stick");
    for (const char letter : {'a', 'x'}) {
        Link(letter, "stick/card");
        EXPECT_EQ(files->FromHostPath(temp.HostPath("stick/card/a.mp3")),
                  letter + std::string(":\\a.mp3"));
        EXPECT_EQ(files->FromHostPath(temp.HostPath("stick/cards/a.mp3")),
                  temp.DrivePath("stick/cards/a.mp3"));
        EXPECT_EQ(files->FromHostPath(temp.HostPath("stick/a.mp3")), temp.DrivePath("stick/a.mp3"));
        Unlink(letter);
    }
}

TEST_F(DriveTables, A_path_of_a_mounted_stick_has_one_that_lasts) {
    Mount("stick");
    Link('x', "card");
    temp.Write("stick/Music/a.mp3", "x");
    temp.Write("card/b.mp3", "x");
    EXPECT_EQ(files->StablePath("d:\\"), temp.DrivePath("stick"));
    EXPECT_EQ(files->StablePath("d:\\music\\A.mp3"), temp.DrivePath("stick/Music/a.mp3"));
    EXPECT_EQ(files->StablePath("x:\\b.mp3"), "x:\\b.mp3");
    EXPECT_EQ(files->StablePath(temp.DrivePath("card/b.mp3")), "x:\\b.mp3");
    EXPECT_EQ(files->StablePath("c:\\"), "c:\\");
    EXPECT_EQ(files->StablePath("y:\\none.mp3"), "y:\\none.mp3");
    Unmount("stick");
    Mount("other");
    EXPECT_EQ(files->ReadWhole(temp.DrivePath("stick/Music/a.mp3")), "x");
}

TEST_F(DriveTables, Nothing_is_made_in_the_folder_of_a_stick_that_has_gone_by_the_path_that_lasts) {
    Mount("stick");
    const std::string path = files->StablePath("d:\\") + "\\";
    fs::create_directory_symlink(temp.HostPath("stick"), temp.HostPath("link"));
    files->CreateFolder(path + "Music");
    Unmount("stick");
    fs::remove(temp.HostPath("stick/Music"));
    EXPECT_EQ(FailureOf([&] { files->CreateFolder(path + "Music"); }), 76);
    EXPECT_EQ(FailureOf([&] { files->CreateTextFile(path + "a.txt", true); }), 76);
    EXPECT_EQ(OpenError(path + "a.txt", RawMode::Create), 76);
    EXPECT_EQ(OpenError(temp.DrivePath("link/a.txt"), RawMode::Create), 76);
    EXPECT_EQ(files->HostPath(path + "a.txt"), "");
    EXPECT_TRUE(fs::is_empty(temp.HostPath("stick")));
    files->CreateTextFile(temp.DrivePath("a.txt"), true);
}

TEST_F(DriveTables, No_descriptor_stays_open_between_calls) {
    Link('e', "card");
    temp.Write("card/psp/a.txt", "x");
    const auto count = [] {
        return std::distance(fs::directory_iterator("/proc/self/fd"), fs::directory_iterator());
    };
    files->FileExists("e:\\none.txt");  // the watches over folders stay
    const auto before = count();
    files->GetFolder("e:\\PSP");
    files->CopyFile("e:\\psp\\a.txt", "e:\\psp\\b.txt", true);
    files->MoveFile("e:\\psp\\b.txt", "e:\\psp\\c.txt");
    files->CreateFolder("e:\\new");
    files->FileExists("e:\\none\\a.txt");
    const std::shared_ptr<Drive> drive = files->GetDrive("e");
    (void)drive->FreeSpace();
    Long error = 0;
    const auto file = files->OpenRaw("e:\\psp\\d.txt", RawMode::Create, error);
    EXPECT_TRUE(file->Close());
    EXPECT_EQ(count(), before);
}

TEST(HostFileServices, The_programs_folder_is_where_the_program_is) {
    EXPECT_EQ(oFSO().HostPath(ProgramFolder()), fs::read_symlink("/proc/self/exe").parent_path());
}

}  // namespace tavel::test
