#include "core/PublicStuff.h"
#include "media/TagMaker.h"
#include "media/cMP3ID3v2.h"
#include "support/HostDrives.h"
#include "support/linux/ExfatStick.h"
#include "support/linux/HostCalls.h"
#include "support/linux/Mounted.h"
#include "support/linux/TempPath.h"

#include <gmock/gmock.h>
#include <stdlib.h>
#include <sys/stat.h>

#include <cerrno>
#include <filesystem>
#include <fstream>

// Updates of files on a stick, and with a folder for temporary files on another file system.

namespace tavel::test {

namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::MatchesRegex;
using ::testing::StartsWith;

const std::string audio = "\xFF\xFB" + std::string(10000, 'a') + "end";

class TagUpdatePlaces : public HostDrives {
  protected:
    void SetUp() override {
        Link('e', "card");
        temp.Write("card/one.mp3", audio);
        UseTempFolder(temp.HostPath("temp"));
        Service<FileService>::Use(files.get());
    }
    void TearDown() override { Service<FileService>::Use(nullptr); }

    void UseTempFolder(const std::string& folder) {
        fs::create_directories(folder);
        tempPath.Use(folder);
    }

    void SetTitle(const std::string& path, const std::string& title) {
        tag.MP3File(path);
        tag.Title(title);
    }

    static std::string WithTag(const std::string& title) {
        const std::string tag =
            TagOfSize(3, 2048, Frame3("TIT2", "\0"s + title) + std::string(4, '\0'));
        return tag + std::string(2048 - tag.size(), '\0') + audio;
    }

    static bool AreOnOneFileSystem(const std::string& a, const std::string& b) {
        struct stat one {};
        struct stat other {};
        return stat(a.c_str(), &one) == 0 && stat(b.c_str(), &other) == 0 &&
               one.st_dev == other.st_dev;
    }

    TempPath tempPath;
    const std::string source = "Tavel.cMP3ID3v2";
    cMP3ID3v2 tag;
};

// A real memory-stick file system; the temporary files are on another one.
class TagUpdateOnExfat : public TagUpdatePlaces {
  protected:
    void SetUp() override {
        if (!stick.WhyNot().empty()) GTEST_SKIP() << stick.WhyNot();
        TagUpdatePlaces::SetUp();
        fs::create_directory_symlink(stick.MountFolder(), temp.HostPath("program/drives/f"));
    }

    ExfatStick stick{24};
};

// A folder for temporary files on another file system.
class TagUpdateAcross : public TagUpdatePlaces {
  protected:
    void SetUp() override {
        TagUpdatePlaces::SetUp();
        if (other.HostPath().empty() || AreOnOneFileSystem(temp.HostPath(), "/dev/shm"))
            GTEST_SKIP() << "needs a second file system at /dev/shm";
        UseTempFolder(other.HostPath());
    }

    class SharedMemoryFolder {
      public:
        SharedMemoryFolder() {
            if (mkdtemp(m_path.data()) == nullptr) m_path.clear();
        }
        ~SharedMemoryFolder() {
            if (!m_path.empty()) fs::remove_all(m_path);
        }
        const std::string& HostPath() const { return m_path; }

      private:
        std::string m_path = "/dev/shm/tavel-test-XXXXXX";
    };
    SharedMemoryFolder other;
};

}  // namespace

TEST_F(TagUpdatePlaces, A_file_on_a_stick_is_there_with_all_its_bytes_when_the_update_returns) {
    SetTitle("e:\\ONE.mp3", "title");
    HostCalls calls(temp.HostPath());
    tag.Update();
    EXPECT_TRUE(temp.Read("card/ONE.mp3") == WithTag("title"));
    EXPECT_FALSE(fs::exists(temp.HostPath("card/one.mp3")));
    const std::vector<std::string> made = calls.Take();
    ASSERT_EQ(made.size(), 11u);
    EXPECT_THAT(made[0], MatchesRegex("flush temp/.*\\.tmp 12053"));
    EXPECT_EQ(made[1], "flush folder temp");
    EXPECT_EQ(made[2], "flush card/one.mp3 10005");  // open for writing, and closed unchanged
    EXPECT_EQ(made[3], "remove card/one.mp3");
    EXPECT_EQ(made[4], "flush folder card");
    EXPECT_THAT(made[5], MatchesRegex("rename temp/.*\\.tmp -> card/ONE.mp3"));
    EXPECT_EQ(made[6], "flush card/ONE.mp3 12053");
    EXPECT_EQ(made.back(), "flush card/ONE.mp3 12053");  // the tag
}

TEST_F(TagUpdatePlaces, A_tag_written_in_place_is_on_the_stick_when_the_update_returns) {
    SetTitle("e:\\one.mp3", "title");
    tag.Update();
    SetTitle("e:\\one.mp3", "other");
    HostCalls calls(temp.HostPath());
    tag.Update();
    EXPECT_THAT(calls.Take(), ElementsAre("flush card/one.mp3 12053"));
    EXPECT_TRUE(temp.Read("card/one.mp3") == WithTag("other"));
}

TEST_F(TagUpdatePlaces, A_stick_may_hold_the_temporary_files_as_well) {
    UseTempFolder(temp.HostPath("card/temp"));
    SetTitle("e:\\one.mp3", "title");
    tag.Update();
    EXPECT_TRUE(temp.Read("card/one.mp3") == WithTag("title"));
    EXPECT_TRUE(fs::is_empty(temp.HostPath("card/temp")));
}

TEST_F(TagUpdatePlaces, A_stick_that_was_pulled_before_the_update_gets_nothing) {
    SetTitle("e:\\one.mp3", "title");
    Unlink('e');
    EXPECT_EQ(FullFailureOf([&] { tag.Update(); }), "76 Path not found Tavel.cMP3ID3v2");
    EXPECT_TRUE(temp.Read("card/one.mp3") == audio);
}

// What the host has done and cannot bring to the medium is done all the same.
TEST_F(TagUpdatePlaces, Whichever_flush_on_the_stick_fails_a_whole_file_is_left) {
    const std::string moved = std::string(2048, '\0') + audio;
    std::string states;
    for (int flush = 1; flush < 20; ++flush) {
        fs::remove_all(temp.HostPath("temp"));
        fs::create_directory(temp.HostPath("temp"));
        temp.Write("card/one.mp3", audio);
        SetTitle("e:\\one.mp3", "title");
        HostCalls calls(temp.HostPath());
        calls.FailFlush(flush, EIO);
        if (FailureOf([&] { tag.Update(); }) == 0) break;
        const bool isThere = fs::exists(temp.HostPath("card/one.mp3"));
        const bool isLeft = !fs::is_empty(temp.HostPath("temp"));
        EXPECT_NE(isThere, isLeft) << flush;
        if (isLeft) {
            const fs::path left = fs::directory_iterator(temp.HostPath("temp"))->path();
            EXPECT_TRUE(temp.Read("temp/" + left.filename().string()) == moved);
            states += "temporary ";
        } else {
            const std::string bytes = temp.Read("card/one.mp3");
            EXPECT_TRUE(bytes == audio || bytes == moved) << flush;
            states += bytes == moved ? "new " : "old ";
        }
    }
    // The copy, its entry, the file itself; the deletion; the moved file and the folders.
    EXPECT_EQ(states, "old old old temporary new new new new ");
}

TEST_F(TagUpdatePlaces, A_link_to_a_file_becomes_a_file_of_its_own_when_it_grows) {
    fs::create_symlink(temp.HostPath("card/one.mp3"), temp.HostPath("link.mp3"));
    SetTitle(temp.DrivePath("link.mp3"), "title");
    tag.Update();
    EXPECT_TRUE(temp.Read("link.mp3") == WithTag("title"));
    EXPECT_FALSE(fs::is_symlink(temp.HostPath("link.mp3")));
    EXPECT_TRUE(temp.Read("card/one.mp3") == audio);
}

// Files of the host may have names that Tavel gives to none.
TEST_F(TagUpdatePlaces, A_file_keeps_a_name_that_no_new_file_would_get) {
    for (const char* name : {"What?.mp3", "a:b.mp3", "con.mp3", "end.", "caf\xE9.mp3"}) {
        temp.Write("music/"s + name, audio);
        SetTitle(temp.DrivePath("music/"s + name), "title");
        EXPECT_EQ(FullFailureOf([&] { tag.Update(); }), "") << name;
        ASSERT_TRUE(fs::exists(temp.HostPath("music/"s + name))) << name;
        EXPECT_TRUE(temp.Read("music/"s + name) == WithTag("title")) << name;
    }
    EXPECT_EQ(std::distance(fs::directory_iterator(temp.HostPath("music")), {}), 5);
    EXPECT_TRUE(fs::is_empty(temp.HostPath("temp")));
}

TEST_F(TagUpdatePlaces, A_file_beside_one_whose_name_differs_in_case_keeps_its_place) {
    for (const std::string& folder : {"e:\\"s, temp.DrivePath("card\\")}) {
        temp.Write("card/one.mp3", audio);
        temp.Write("card/One.mp3", audio + "other");
        SetTitle(folder + "one.mp3", "title");
        EXPECT_EQ(FullFailureOf([&] { tag.Update(); }), "") << folder;
        EXPECT_EQ(std::distance(fs::directory_iterator(temp.HostPath("card")), {}), 2);
        EXPECT_TRUE(temp.Read("card/one.mp3") == WithTag("title"));
        EXPECT_TRUE(temp.Read("card/One.mp3") == audio + "other");
    }
}

// A link, which on a stick is nothing, could lead the new file's name elsewhere.
TEST_F(TagUpdatePlaces, A_file_beside_a_link_whose_name_differs_in_case_keeps_its_place) {
    temp.Write("card/Song.mp3", audio);
    fs::create_symlink("/nowhere", temp.HostPath("card/song.mp3"));
    for (const char* path : {"e:\\Song.mp3", "e:\\SONG.mp3"}) {
        SetTitle(path, std::string(path == "e:\\Song.mp3"s ? 10 : 3000, 't'));
        EXPECT_EQ(FullFailureOf([&] { tag.Update(); }), "") << path;
        EXPECT_TRUE(fs::is_symlink(temp.HostPath("card/song.mp3")));
    }
    EXPECT_FALSE(fs::exists(temp.HostPath("card/Song.mp3")));
    EXPECT_TRUE(fs::exists(temp.HostPath("card/SONG.mp3")));
}

TEST_F(TagUpdatePlaces, A_file_does_not_take_its_own_place) {
    EXPECT_EQ(FailureOf([&] { files->ReplaceFile("e:\\one.mp3", "e:\\ONE.mp3"); }),
              failure::PermissionDenied);
    EXPECT_TRUE(temp.Read("card/one.mp3") == audio);
}

TEST_F(TagUpdatePlaces, No_file_is_deleted_for_a_temporary_one_that_has_gone) {
    const std::string gone = temp.DrivePath("temp\\gone.tmp");
    EXPECT_EQ(FailureOf([&] { files->ReplaceFile("e:\\one.mp3", gone); }), failure::FileNotFound);
    EXPECT_TRUE(temp.Read("card/one.mp3") == audio);
}

TEST_F(TagUpdateOnExfat, What_was_written_is_on_the_stick_when_the_update_returns) {
    std::ofstream(stick.MountFolder() + "/one.mp3", std::ios::binary) << audio;
    for (const char* title : {"title", "other"}) {
        SetTitle("f:\\one.mp3", title);
        tag.Update();
        EXPECT_TRUE(stick.BytesWhenPulled("one.mp3") == WithTag(title)) << title;
    }
    EXPECT_EQ(std::distance(fs::directory_iterator(stick.MountFolder()), {}), 1);
}

TEST_F(TagUpdateOnExfat, A_stick_that_is_pulled_before_the_update_gets_nothing) {
    std::ofstream(stick.MountFolder() + "/one.mp3", std::ios::binary) << audio;
    SetTitle("f:\\one.mp3", "title");
    stick.Pull();
    EXPECT_NE(FailureOf([&] { tag.Update(); }), 0);
    EXPECT_TRUE(fs::is_empty(stick.MountFolder()));
    EXPECT_TRUE(fs::is_empty(temp.HostPath("temp")));
}

TEST_F(TagUpdateAcross, A_file_comes_over_whole_with_its_mode) {
    for (const std::string& path : {"e:\\one.mp3"s, temp.DrivePath("card/one.mp3")}) {
        temp.Write("card/one.mp3", audio);
        fs::permissions(temp.HostPath("card/one.mp3"), fs::perms(0640));
        SetTitle(path, "title");
        tag.Update();
        EXPECT_TRUE(temp.Read("card/one.mp3") == WithTag("title"));
        EXPECT_EQ(fs::status(temp.HostPath("card/one.mp3")).permissions(), fs::perms(0640));
        EXPECT_TRUE(fs::is_empty(other.HostPath()));
        EXPECT_EQ(std::distance(fs::directory_iterator(temp.HostPath("card")), {}), 1);
    }
}

TEST_F(TagUpdateAcross, A_file_that_comes_over_keeps_a_name_that_no_new_file_would_get) {
    temp.Write("card/What?.mp3", audio);
    for (const std::string& path : {"e:\\What?.mp3"s, temp.DrivePath("card/What?.mp3")}) {
        temp.Write("card/What?.mp3", audio);
        SetTitle(path, "title");
        EXPECT_EQ(FullFailureOf([&] { tag.Update(); }), "") << path;
        ASSERT_TRUE(fs::exists(temp.HostPath("card/What?.mp3")));
        EXPECT_TRUE(temp.Read("card/What?.mp3") == WithTag("title"));
        EXPECT_TRUE(fs::is_empty(other.HostPath()));
        EXPECT_EQ(std::distance(fs::directory_iterator(temp.HostPath("card")), {}), 2);
    }
}

TEST_F(TagUpdateAcross,
       The_copy_is_whole_on_its_disk_before_it_has_the_name_or_the_other_one_goes) {
    SetTitle("e:\\one.mp3", "title");
    HostCalls calls("/");
    tag.Update();
    std::vector<std::string> made = calls.Take();
    const std::string card = fs::path(temp.HostPath("card")).relative_path().string();
    ASSERT_EQ(made.size(), 11u);
    EXPECT_THAT(made[0], MatchesRegex("flush dev/shm/.*\\.tmp 12053"));
    EXPECT_THAT(made[1], StartsWith("flush folder dev/shm/"));
    EXPECT_EQ(made[3], "remove " + card + "/one.mp3");
    EXPECT_EQ(made[5], "flush " + card + "/.one.mp3.new 12053");
    EXPECT_EQ(made[6], "rename " + card + "/.one.mp3.new -> " + card + "/one.mp3");
    EXPECT_EQ(made[7], "flush " + card + "/one.mp3 12053");
    EXPECT_EQ(made[8], "flush folder " + card);
    EXPECT_THAT(made[9], MatchesRegex("remove dev/shm/.*\\.tmp"));
    EXPECT_EQ(made[10], "flush " + card + "/one.mp3 12053");
}

// Up to the deletion the old file is there, from it on the temporary file, until the new one is.
TEST_F(TagUpdateAcross, Whichever_flush_fails_a_whole_file_is_left) {
    const std::string moved = std::string(2048, '\0') + audio;
    const fs::path host = temp.HostPath("card/one.mp3");
    for (int flush = 1;; ++flush) {
        ASSERT_LT(flush, 20);
        for (const auto& left : fs::directory_iterator(other.HostPath())) fs::remove(left.path());
        temp.Write("card/one.mp3", audio);
        SetTitle("e:\\one.mp3", "title");
        HostCalls calls("/");
        calls.FailFlush(flush, EIO);
        const Long error = FailureOf([&] { tag.Update(); });
        SCOPED_TRACE(flush);
        if (error == 0) {  // the one that closes the file
            EXPECT_EQ(flush, 8);
            EXPECT_TRUE(temp.Read("card/one.mp3") == WithTag("title"));
            break;
        }
        const bool isLeft = !fs::is_empty(other.HostPath());
        if (fs::exists(host)) {
            const std::string bytes = temp.Read("card/one.mp3");
            EXPECT_TRUE(isLeft ? bytes == moved : bytes == audio);
        }
        EXPECT_TRUE(fs::exists(host) || isLeft);
        if (isLeft) {
            const std::string left = fs::directory_iterator(other.HostPath())->path();
            EXPECT_EQ(fs::file_size(left), moved.size());
        }
        EXPECT_FALSE(fs::exists(temp.HostPath("card/.one.mp3.new")));
    }
}

TEST_F(TagUpdateAcross,
       A_disk_that_the_larger_file_does_not_fit_on_leaves_it_in_the_temporary_folder) {
    const Mounted disk("-t tmpfs -o size=64k tmpfs", temp.HostPath("card"));
    if (!disk.WhyNot().empty()) GTEST_SKIP() << disk.WhyNot();
    const std::string large(60000, 'a');
    temp.Write("card/one.mp3", large);
    SetTitle(temp.DrivePath("card/one.mp3"), std::string(5000, 't'));
    EXPECT_EQ(FullFailureOf([&] { tag.Update(); }), "61 Disk full Tavel.cMP3ID3v2");
    EXPECT_TRUE(fs::is_empty(temp.HostPath("card")));
    const std::string left = fs::directory_iterator(other.HostPath())->path();
    EXPECT_EQ(fs::file_size(left), 6144 + large.size());
    EXPECT_EQ(fs::status(left).permissions(), fs::perms(0644));
}

TEST_F(TagUpdateAcross, A_temporary_disk_that_fills_up_leaves_the_old_file_alone) {
    fs::create_directories(temp.HostPath("temp"));
    const Mounted disk("-t tmpfs -o size=8k tmpfs", temp.HostPath("temp"));
    if (!disk.WhyNot().empty()) GTEST_SKIP() << disk.WhyNot();
    UseTempFolder(temp.HostPath("temp"));
    SetTitle("e:\\one.mp3", "title");
    EXPECT_EQ(FullFailureOf([&] { tag.Update(); }), "61 Disk full Tavel.cMP3ID3v2");
    EXPECT_TRUE(temp.Read("card/one.mp3") == audio);
    EXPECT_TRUE(fs::is_empty(temp.HostPath("temp")));
}

}  // namespace tavel::test
