#include "platform/ProfileFile.h"
#include "platform/ProfileService.h"
#include "support/linux/FileSizeLimit.h"
#include "support/linux/HostCalls.h"
#include "support/linux/MountedDrives.h"
#include "support/linux/PlainUser.h"

#include <gmock/gmock.h>
#include <sys/stat.h>

#include <cerrno>
#include <filesystem>
#include <fstream>

// The order in which changes are brought to the medium, so that a power cut or a pulled stick
// leaves whole files. On FAT an entry tells where a file's data lie, and renaming a file makes its
// entry anew, in memory at first: a file that has been renamed has to be flushed again.

namespace tavel::test {

namespace {

namespace fs = std::filesystem;
using ::testing::Contains;
using ::testing::ElementsAre;

class PowerCut : public MountedDrives {
  protected:
    void SetUp() override {
        Link('e', "card");
        temp.Write("card/old.txt", "[s]\r\nk=old\r\n");
        calls.Take();
    }

    void WriteRaw(const std::string& path, const std::string& bytes) {
        Long error = 0;
        std::size_t count = 0;
        const auto file = files->OpenRaw(path, RawMode::Create, error);
        ASSERT_TRUE(file);
        EXPECT_TRUE(file->Write(bytes, count));
        EXPECT_TRUE(file->Close());
    }

    // A path of its own; empty where there is no other file system.
    fs::path OnAnotherFileSystem() const {
        struct stat here {};
        struct stat there {};
        const bool areTwo = stat(temp.HostPath().c_str(), &here) == 0 &&
                            stat("/dev/shm", &there) == 0 && here.st_dev != there.st_dev;
        return areTwo ? "/dev/shm" / fs::path(temp.HostPath()).filename() : fs::path();
    }

    // The name that a new file has until it takes its place.
    static std::string SuccessorOf(const fs::path& path) {
        return path.parent_path() / ("." + path.filename().string() + ".new");
    }

    HostCalls calls{temp.HostPath()};
};

}  // namespace

TEST_F(PowerCut, A_profile_is_flushed_under_its_new_name_once_more) {
    Service<FileService>::Use(files.get());
    EXPECT_TRUE(WritePrivateProfileString("s", "k", "new", "e:\\old.txt"));
    EXPECT_THAT(calls.Take(), ElementsAre("flush card/.old.txt.new 12",
                                          "rename card/.old.txt.new -> card/old.txt",  //
                                          "flush card/old.txt 12", "flush folder card"));
    EXPECT_TRUE(WritePrivateProfileString("s", "k", "new", "e:\\fresh.txt"));
    EXPECT_THAT(calls.Take(), ElementsAre("flush card/fresh.txt 0", "flush folder card",  //
                                          "flush card/.fresh.txt.new 12",
                                          "rename card/.fresh.txt.new -> card/fresh.txt",
                                          "flush card/fresh.txt 12", "flush folder card"));
    Service<FileService>::Use(nullptr);
}

TEST_F(PowerCut, A_profile_that_is_written_in_place_is_flushed) {
    fs::create_directory(temp.HostPath("card/.old.txt.new"));
    EXPECT_TRUE(ReplaceHostFile(
        temp.HostPath("card/old.txt"), [](const ByteSink& sink) { sink("new"); }, false));
    EXPECT_THAT(calls.Take(), ElementsAre("flush card/old.txt 3"));
}

TEST_F(PowerCut, A_profile_that_has_been_replaced_is_not_written_once_more_when_that_flush_fails) {
    calls.FailFlush(2, ENOSPC);
    EXPECT_FALSE(ReplaceHostFile(
        temp.HostPath("card/old.txt"), [](const ByteSink& sink) { sink("new"); }, true));
    EXPECT_THAT(calls.Take(), ElementsAre("flush card/.old.txt.new 3",
                                          "rename card/.old.txt.new -> card/old.txt",  //
                                          "flush card/old.txt 3"));
    EXPECT_EQ(temp.Read("card/old.txt"), "new");
}

TEST_F(PowerCut, A_file_on_a_stick_is_flushed_when_it_is_closed_and_a_new_one_with_its_entry) {
    WriteRaw("e:\\new.bin", std::string(3000, 'x'));
    EXPECT_THAT(calls.Take(), ElementsAre("flush card/new.bin 3000", "flush folder card"));
    WriteRaw("e:\\NEW.bin", std::string(4000, 'x'));
    EXPECT_THAT(calls.Take(), ElementsAre("flush card/new.bin 4000"));
    files->CopyFile("e:\\new.bin", "e:\\copy.bin", true);
    EXPECT_THAT(calls.Take(), ElementsAre("flush card/copy.bin 4000", "flush folder card"));
    files->CreateTextFile("e:\\empty.txt", true);
    EXPECT_THAT(calls.Take(), ElementsAre("flush card/empty.txt 0", "flush folder card"));
}

TEST_F(PowerCut, What_of_a_copy_did_not_fit_is_gone_from_the_stick) {
    temp.Write("large.bin", std::string(200, 'x'));
    {
        const FileSizeLimit limit(100);
        EXPECT_EQ(
            FailureOf([&] { files->CopyFile(temp.DrivePath("large.bin"), "e:\\a.bin", true); }),
            61);
    }
    EXPECT_THAT(calls.Take(), ElementsAre("flush card/a.bin 100", "flush folder card",
                                          "remove card/a.bin", "flush folder card"));
}

TEST_F(PowerCut, Folders_made_and_files_removed_on_a_stick_are_so_at_once) {
    files->CreateFolder("e:\\psp");
    EXPECT_THAT(calls.Take(), ElementsAre("flush folder card"));
    files->DeleteFile("e:\\old.txt", false);
    EXPECT_THAT(calls.Take(), ElementsAre("remove card/old.txt", "flush folder card"));
    temp.Write("card/psp/a.txt", "x");
    files->DeleteFile("e:\\psp\\a.txt", false);
    EXPECT_THAT(calls.Take(),
                ElementsAre("remove card/psp/a.txt", "flush folder card/psp", "flush folder card"));
}

TEST_F(PowerCut, A_file_that_moves_within_a_stick_is_flushed_under_its_new_name) {
    fs::create_directory(temp.HostPath("card/psp"));
    files->MoveFile("e:\\old.txt", "e:\\psp\\new.txt");
    EXPECT_THAT(
        calls.Take(),
        ElementsAre("rename card/old.txt -> card/psp/new.txt",  //
                    "flush card/psp/new.txt 12", "flush folder card/psp", "flush folder card"));
}

TEST_F(PowerCut, A_file_that_moves_and_cannot_be_opened_is_flushed_with_its_file_system) {
    fs::permissions(temp.HostPath(), fs::perms(0755));
    fs::permissions(temp.HostPath("card"), fs::perms(0777));
    fs::permissions(temp.HostPath("card/old.txt"), fs::perms(0));
    {
        const PlainUser user;
        files->MoveFile("e:\\old.txt", "e:\\new.txt");
    }
    EXPECT_THAT(calls.Take(), ElementsAre("rename card/old.txt -> card/new.txt", "flush all",
                                          "flush folder card"));
}

TEST_F(PowerCut, A_move_whose_flush_fails_fails_with_the_whole_file_under_its_new_name) {
    fs::create_directory(temp.HostPath("card/psp"));
    for (const int flush : {1, 2, 3}) {
        calls.FailFlush(flush, EIO);
        EXPECT_EQ(FailureOf([&] { files->MoveFile("e:\\old.txt", "e:\\psp\\new.txt"); }), 57);
        EXPECT_FALSE(fs::exists(temp.HostPath("card/old.txt")));
        EXPECT_EQ(temp.Read("card/psp/new.txt"), "[s]\r\nk=old\r\n");
        fs::rename(temp.HostPath("card/psp/new.txt"), temp.HostPath("card/old.txt"));
    }
}

TEST_F(PowerCut, A_folder_that_its_file_system_cannot_flush_alone_needs_no_flush) {
    for (const int error : {EINVAL, ENOTSUP}) {
        calls.FailFlush(1, error);
        files->CreateFolder("e:\\psp" + std::to_string(error));
    }
    EXPECT_THAT(calls.Take(), ElementsAre("flush folder card", "flush folder card"));
    calls.FailFlush(1, EIO);
    EXPECT_EQ(FailureOf([&] { files->CreateFolder("e:\\mp_root"); }), 57);
}

TEST_F(PowerCut, A_move_to_another_file_system_keeps_the_source_when_the_copy_cannot_be_flushed) {
    const fs::path other = OnAnotherFileSystem();
    if (other.empty()) GTEST_SKIP() << "needs a second file system at /dev/shm";
    const std::string otherDrivePath = "c:\\dev\\shm\\" + other.filename().string();
    const std::string name = other.relative_path().string();
    HostCalls all("/");
    all.FailFlush(1, EIO);
    EXPECT_EQ(FailureOf([&] { files->MoveFile(temp.DrivePath("card/old.txt"), otherDrivePath); }),
              57);
    EXPECT_FALSE(fs::exists(other));
    EXPECT_THAT(all.Take(), Contains("remove " + SuccessorOf(name)));
    for (const int flush : {2, 3}) {  // under its name, its entry
        all.FailFlush(flush, EIO);
        EXPECT_EQ(
            FailureOf([&] { files->MoveFile(temp.DrivePath("card/old.txt"), otherDrivePath); }),
            57);
        EXPECT_EQ(temp.Read("card/old.txt"), "[s]\r\nk=old\r\n");
        EXPECT_TRUE(fs::remove(other));
    }
}

TEST_F(PowerCut, A_move_to_another_file_system_flushes_the_copy_before_the_source_goes) {
    const fs::path other = OnAnotherFileSystem();
    if (other.empty()) GTEST_SKIP() << "needs a second file system at /dev/shm";
    const std::string below = fs::path(temp.HostPath()).relative_path().string();
    const std::string name = other.relative_path().string();
    const std::string otherDrivePath = "c:\\dev\\shm\\" + other.filename().string();
    HostCalls all("/");
    files->MoveFile(temp.DrivePath("card/old.txt"), otherDrivePath);
    EXPECT_THAT(all.Take(),
                ElementsAre("flush " + SuccessorOf(name) + " 12",
                            "rename " + SuccessorOf(name) + " -> " + name, "flush " + name + " 12",
                            "flush folder dev/shm", "remove " + below + "/card/old.txt"));
    files->MoveFile(otherDrivePath, "e:\\back.txt");
    const std::string back = below + "/card/back.txt";
    EXPECT_THAT(all.Take(),
                ElementsAre("flush " + SuccessorOf(back) + " 12",
                            "rename " + SuccessorOf(back) + " -> " + back, "flush " + back + " 12",
                            "flush folder " + below + "/card", "remove " + name));
}

TEST_F(PowerCut, A_move_to_another_file_system_keeps_a_source_that_is_cut_short_meanwhile) {
    const fs::path other = OnAnotherFileSystem();
    if (other.empty()) GTEST_SKIP() << "needs a second file system at /dev/shm";
    const std::string otherDrivePath = "c:\\dev\\shm\\" + other.filename().string();
    const fs::path old = temp.HostPath("card/old.txt");
    HostCalls all("/");
    all.Before("rename " + old.relative_path().string(), [&] { fs::resize_file(old, 5); });
    EXPECT_EQ(FailureOf([&] { files->MoveFile(temp.DrivePath("card/old.txt"), otherDrivePath); }),
              57);
    EXPECT_EQ(temp.Read("card/old.txt"), "[s]\r\n");
    EXPECT_FALSE(fs::remove(other));
    EXPECT_FALSE(fs::remove(SuccessorOf(other)));
}

TEST_F(PowerCut, A_move_to_another_file_system_removes_no_file_that_took_the_sources_place) {
    const fs::path other = OnAnotherFileSystem();
    if (other.empty()) GTEST_SKIP() << "needs a second file system at /dev/shm";
    const std::string otherDrivePath = "c:\\dev\\shm\\" + other.filename().string();
    HostCalls all("/");
    all.Before("flush folder dev/shm", [&] {
        temp.Write("card/new.txt", "another program's");
        fs::rename(temp.HostPath("card/new.txt"), temp.HostPath("card/old.txt"));
    });
    files->MoveFile(temp.DrivePath("card/old.txt"), otherDrivePath);
    EXPECT_EQ(temp.Read("card/old.txt"), "another program's");
    EXPECT_TRUE(fs::remove(other));
}

TEST_F(PowerCut, A_move_to_another_file_system_replaces_no_file_that_comes_meanwhile) {
    const fs::path other = OnAnotherFileSystem();
    if (other.empty()) GTEST_SKIP() << "needs a second file system at /dev/shm";
    const std::string otherDrivePath = "c:\\dev\\shm\\" + other.filename().string();
    HostCalls all("/");
    all.Before("flush " + SuccessorOf(other.relative_path()),
               [&] { std::ofstream(other) << "another program's"; });
    EXPECT_EQ(FailureOf([&] { files->MoveFile(temp.DrivePath("card/old.txt"), otherDrivePath); }),
              58);
    EXPECT_EQ(temp.Read("card/old.txt"), "[s]\r\nk=old\r\n");
    std::string kept;
    std::getline(std::ifstream(other), kept);
    EXPECT_EQ(kept, "another program's");
    EXPECT_TRUE(fs::remove(other));
    EXPECT_FALSE(fs::remove(SuccessorOf(other)));
}

TEST_F(PowerCut, A_move_to_another_file_system_keeps_time_mode_and_long_names) {
    const fs::path other = OnAnotherFileSystem();
    if (other.empty()) GTEST_SKIP() << "needs a second file system at /dev/shm";
    fs::create_directory(other);
    const fs::path old = temp.HostPath("card/old.txt");
    fs::permissions(old, fs::perms(0640));
    fs::last_write_time(old, fs::file_time_type{} + std::chrono::hours(1));
    const auto modified = fs::last_write_time(old);
    const std::string longName(255, 'x');
    files->MoveFile(temp.DrivePath("card/old.txt"),
                    "c:\\dev\\shm\\" + other.filename().string() + "\\" + longName);
    EXPECT_EQ(fs::status(other / longName).permissions(), fs::perms(0640));
    EXPECT_EQ(fs::last_write_time(other / longName), modified);
    EXPECT_FALSE(fs::exists(old));
    EXPECT_EQ(fs::remove_all(other), 2u);
}

TEST_F(PowerCut, A_move_to_another_file_system_brings_over_all_of_a_large_file_though_read_only) {
    const fs::path other = OnAnotherFileSystem();
    if (other.empty()) GTEST_SKIP() << "needs a second file system at /dev/shm";
    const std::string otherDrivePath = "c:\\dev\\shm\\" + other.filename().string();
    const std::string bytes = std::string(std::size_t{2} << 20, 'a') + "end";
    temp.Write("card/large.mp3", bytes);
    fs::permissions(temp.HostPath("card/large.mp3"), fs::perms(0444));
    files->MoveFile(temp.DrivePath("card/large.mp3"), otherDrivePath);
    EXPECT_TRUE(files->ReadWhole(otherDrivePath) == bytes);
    EXPECT_FALSE(fs::exists(temp.HostPath("card/large.mp3")));
    EXPECT_TRUE(fs::remove(other));
}

TEST_F(PowerCut, A_file_on_any_drive_is_flushed_when_it_is_closed_where_that_is_asked_for) {
    Long error = 0;
    std::size_t count = 0;
    const auto file = files->OpenRaw(temp.DrivePath("card/old.txt"), RawMode::Create, error);
    file->FlushOnClose();
    EXPECT_TRUE(file->Write(std::string("new"), count));
    EXPECT_TRUE(file->Close());
    EXPECT_THAT(calls.Take(), ElementsAre("flush card/old.txt 3", "flush folder card"));
    const auto read = files->OpenRaw(temp.DrivePath("card/old.txt"), RawMode::Read, error);
    read->FlushOnClose();
    EXPECT_TRUE(read->Close());
    EXPECT_THAT(calls.Take(), ElementsAre());
}

TEST_F(PowerCut, A_file_on_a_stick_that_was_open_for_both_is_flushed_when_it_is_closed) {
    Long error = 0;
    std::size_t count = 0;
    const auto file = files->OpenRaw("e:\\old.txt", RawMode::ReadWrite, error);
    EXPECT_TRUE(file->Write(std::string("new"), count));
    EXPECT_TRUE(file->Close());
    EXPECT_THAT(calls.Take(), ElementsAre("flush card/old.txt 12"));
}

TEST_F(PowerCut, A_path_that_lasts_leads_to_a_stick_as_its_letter_does) {
    EXPECT_FALSE(files->DriveExists("d:"));
    mounts.Mount(temp.HostPath("card"), "card");
    WriteRaw(temp.DrivePath("card/new.bin"), "x");
    EXPECT_THAT(calls.Take(), ElementsAre("flush card/new.bin 1", "flush folder card"));
    files->CreateFolder(temp.DrivePath("card/psp"));
    EXPECT_THAT(calls.Take(), ElementsAre("flush folder card", "flush folder ."));
    files->MoveFile(temp.DrivePath("card/new.bin"), temp.DrivePath("card/psp/new.bin"));
    EXPECT_THAT(calls.Take(),
                ElementsAre("rename card/new.bin -> card/psp/new.bin", "flush card/psp/new.bin 1",
                            "flush folder card/psp", "flush folder card", "flush folder ."));
    files->DeleteFile(temp.DrivePath("card/old.txt"), true);
    EXPECT_THAT(calls.Take(),
                ElementsAre("remove card/old.txt", "flush folder card", "flush folder ."));
}

TEST_F(PowerCut, A_path_that_leads_to_a_stick_through_a_link_does_as_its_letter) {
    mounts.Mount(temp.HostPath("card"), "card");
    fs::create_directory_symlink(temp.HostPath("card"), temp.HostPath("link"));
    WriteRaw(temp.DrivePath("link/new.bin"), "x");
    EXPECT_THAT(calls.Take(), ElementsAre("flush card/new.bin 1", "flush folder card"));
    files->CreateFolder(temp.DrivePath("link/psp"));
    EXPECT_THAT(calls.Take(), ElementsAre("flush folder card", "flush folder ."));
    files->MoveFile(temp.DrivePath("LINK/new.bin"), temp.DrivePath("link/psp/new.bin"));
    EXPECT_THAT(calls.Take(),
                ElementsAre("rename card/new.bin -> card/psp/new.bin", "flush card/psp/new.bin 1",
                            "flush folder card/psp", "flush folder card", "flush folder ."));
    files->DeleteFile(temp.DrivePath("link/old.txt"), true);
    EXPECT_THAT(calls.Take(),
                ElementsAre("remove link/old.txt", "flush folder card", "flush folder ."));
}

TEST_F(PowerCut, The_host_sees_to_other_drives_in_its_own_time) {
    WriteRaw(temp.DrivePath("card/new.bin"), "x");
    files->CreateFolder(temp.DrivePath("card/psp"));
    files->MoveFile(temp.DrivePath("card/new.bin"), temp.DrivePath("card/psp/new.bin"));
    EXPECT_THAT(calls.Take(), ElementsAre("rename card/new.bin -> card/psp/new.bin"));
}

}  // namespace tavel::test
