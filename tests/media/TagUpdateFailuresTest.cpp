#include "core/PublicStuff.h"
#include "media/TagUpdateFixture.h"

#include <regex>

// What a failure leaves of an update: the old file, or the new one whole in the folder for
// temporary files, or the new one whole at its path. Each call that an update makes is the failing
// one in turn.

namespace tavel::test {

namespace {

using namespace std::string_literals;
using ::testing::ElementsAre;

const std::string oldTag = TagOfSize(3, 1000, Frame3("TIT2", "\0old"s) + std::string(976, '\0'));

std::string WholeTag(std::size_t bytes, std::uint32_t size) {
    const std::string text(bytes - 25, 't');
    return TagOfSize(3, size, Frame3("TIT2", "\0"s + text) + std::string(4, '\0'));
}

struct Case {
    const char* name;
    std::string before;
    std::size_t tagBytes;
    std::size_t space;  // that goes in front
    std::string after;
};

std::vector<Case> GrowingCases() {
    return {{"no tag", audio, 3000, 4096, WholeTag(3000, 4096) + std::string(1096, '\0') + audio},
            {"old tag", oldTag + audio, 1500, 1048,
             WholeTag(1500, 2048) + (oldTag + audio).substr(1500 - 1048)}};
}

}  // namespace

TEST_F(TagUpdateFailures, An_update_that_grows_the_file_makes_these_calls) {
    Begin(std::string(5000, 'a'), 30);
    std::vector<std::string> all;
    files->onCall = [&](const std::string& call) { all.push_back(call); };
    EXPECT_EQ(Update(), 0);
    const std::string temp = all.at(7).substr(all.at(7).find("t:"));
    EXPECT_TRUE(std::regex_match(temp, std::regex(R"(t:\\[0-9a-f]{8}\.tmp)"))) << temp;
    EXPECT_THAT(
        all,
        ElementsAre("OpenRaw ReadWrite e:\\one.mp3", "Size e:\\one.mp3", "Read e:\\one.mp3 4096",
                    "Seek e:\\one.mp3 4093", "Read e:\\one.mp3 907", "GetTempFolder",
                    "CreateTempFile t:\\", "OpenRaw Create " + temp, "Write " + temp + " 2048",
                    "Seek e:\\one.mp3 0", "Size e:\\one.mp3", "Read e:\\one.mp3 4096",
                    "Write " + temp + " 4096", "Read e:\\one.mp3 904", "Write " + temp + " 904",
                    "CopyRights e:\\one.mp3 -> " + temp, "Close " + temp, "Close e:\\one.mp3",
                    "DeleteFile e:\\one.mp3", "MoveFile " + temp + " -> e:\\one.mp3",
                    "OpenRaw ReadWrite e:\\one.mp3", "Seek e:\\one.mp3 0", "Read e:\\one.mp3 30",
                    "Seek e:\\one.mp3 0", "Write e:\\one.mp3 30", "Close e:\\one.mp3"));
}

TEST_F(TagUpdateFailures, Room_is_made_in_blocks_of_which_the_last_is_cut) {
    Begin(std::string(5, 'a'), 4200);
    EXPECT_EQ(Update(), 0);
    std::vector<std::string> sizes;
    for (const std::string& call : files->rawCalls) {
        if (call.rfind("Write t:", 0) == 0) sizes.push_back(call.substr(call.rfind(' ') + 1));
    }
    EXPECT_THAT(sizes, ElementsAre("4096", "2048", "5"));
}

TEST_F(TagUpdateFailures, An_update_in_place_makes_these_calls) {
    Begin(oldTag, 400);
    std::vector<std::string> all;
    files->onCall = [&](const std::string& call) { all.push_back(call); };
    EXPECT_EQ(Update(), 0);
    EXPECT_THAT(all,
                ElementsAre("OpenRaw ReadWrite e:\\one.mp3", "Size e:\\one.mp3",
                            "Read e:\\one.mp3 1000", "Seek e:\\one.mp3 0", "Read e:\\one.mp3 400",
                            "Seek e:\\one.mp3 0", "Write e:\\one.mp3 400", "Close e:\\one.mp3"));
}

// Once, as a hitch of the disk would be, and from there on, as a dead one would be.
TEST_F(TagUpdateFailures, Whichever_call_fails_the_file_is_old_or_new_or_in_the_temporary_folder) {
    for (const Case& each : GrowingCases()) {
        const std::string moved = std::string(each.space, '\0') + each.before;
        for (const int times : {1, 1'000'000}) {
            int olds = 0;
            int moves = 0;
            int gone = 0;
            for (int call = 0;; ++call) {
                ASSERT_LT(call, 100);
                Begin(each.before, each.tagBytes);
                int callsMade = 0;
                files->onCall = [&](const std::string&) { ++callsMade; };
                files->FailOn("", failure::DeviceIO, times, call);
                const Long error = Update();
                SCOPED_TRACE(each.name + " call "s + std::to_string(call));
                if (callsMade <= call) break;  // none has failed
                if (error == 0) {              // the rights, the last close
                    EXPECT_TRUE(Bytes() == each.after);
                    continue;
                }
                EXPECT_EQ(error, failure::DeviceIO);
                if (!IsThere()) {
                    EXPECT_TRUE(BytesLeft() == moved);
                    ++gone;
                } else if (Bytes() == moved) {
                    EXPECT_TRUE(Left().empty());
                    ++moves;
                } else {
                    EXPECT_TRUE(Bytes() == each.before);
                    ++olds;
                }
            }
            EXPECT_GT(olds, 10);
            // The new opening; reading what is there and writing over it, each behind a seek.
            EXPECT_EQ(moves, 5);
            EXPECT_EQ(gone, 1);  // the move
        }
    }
}

TEST_F(TagUpdateFailures, A_hitch_before_the_deletion_leaves_no_temporary_file) {
    for (int call = 0;; ++call) {
        ASSERT_LT(call, 100);
        Begin(audio, 30);
        std::string failing;
        int callsMade = 0;
        files->onCall = [&](const std::string& made) {
            if (callsMade++ == call) failing = made;
        };
        files->FailOn("", failure::DeviceIO, 1, call);
        Update();
        if (failing.rfind("DeleteFile e:", 0) == 0) {
            EXPECT_TRUE(Bytes() == audio);
            EXPECT_TRUE(BytesLeft() == std::string(2048, '\0') + audio);
            break;
        }
        if (failing.rfind("CopyRights", 0) == 0) continue;  // which fails nothing
        EXPECT_TRUE(Bytes() == audio) << failing;
        EXPECT_TRUE(Left().empty()) << failing;
    }
}

TEST_F(TagUpdateFailures, In_place_whichever_call_fails_the_file_is_the_old_or_the_new_one) {
    for (const auto& [at, last] : {std::pair{0u, 7}, std::pair{5000u, 9}}) {
        const std::string before = std::string(at, 'b') + oldTag + audio;
        const std::string after = std::string(before).replace(at, 400, WholeTag(400, 1000));
        for (int call = 0; call <= last; ++call) {
            Begin(before, 400);
            files->FailOn("", failure::DeviceIO, 1, call);
            const Long error = Update();
            EXPECT_EQ(error, call < last ? failure::DeviceIO : 0) << at << ' ' << call;
            EXPECT_TRUE(Bytes() == (call < last ? before : after));
            EXPECT_TRUE(Left().empty());
        }
    }
}

TEST_F(TagUpdateFailures, A_temporary_disk_that_fills_up_at_any_byte_leaves_the_old_file_alone) {
    const std::int64_t size = 2048 + static_cast<std::int64_t>(audio.size());
    for (std::int64_t room = 0; room < size; room += room < 100 ? 99 : 500) {
        Begin(audio, 30);
        files->At('t').bytesUntilFull = room;
        EXPECT_EQ(Update(), failure::DiskFull) << room;
        EXPECT_TRUE(Bytes() == audio);
        EXPECT_TRUE(Left().empty());
    }
    Begin(audio, 30);
    files->At('t').bytesUntilFull = size;
    EXPECT_EQ(Update(), 0);
}

TEST_F(TagUpdateFailures, A_temporary_disk_that_goes_at_any_byte_leaves_the_old_file) {
    const std::int64_t size = 2048 + static_cast<std::int64_t>(audio.size());
    for (std::int64_t written = 0; written < size; written += 777) {
        Begin(audio, 30);
        files->At('t').bytesUntilGone = written;
        EXPECT_EQ(Update(), failure::DeviceIO) << written;
        EXPECT_TRUE(Bytes() == audio);
    }
}

TEST_F(TagUpdateFailures, A_stick_that_is_pulled_at_any_operation_leaves_one_whole_file) {
    const std::string moved = std::string(2048, '\0') + audio;
    int gone = 0;
    for (std::int64_t operations = 0;; ++operations) {
        ASSERT_LT(operations, 100);
        Begin(audio, 30);
        files->At('e').operationsUntilGone = operations;
        const Long error = Update();
        if (error == 0) break;
        SCOPED_TRACE(operations);
        if (IsThere()) {
            EXPECT_TRUE(Bytes() == audio || Bytes() == moved);
        } else {
            EXPECT_TRUE(BytesLeft() == moved);
            ++gone;
        }
    }
    EXPECT_EQ(gone, 1);
}

TEST_F(TagUpdateFailures,
       A_stick_with_no_room_for_the_larger_file_leaves_it_in_the_temporary_folder) {
    Begin(audio, 30);
    files->At('e').bytesUntilFull = static_cast<std::int64_t>(audio.size()) + 2047;
    EXPECT_EQ(Update(), failure::DiskFull);
    EXPECT_FALSE(IsThere());
    EXPECT_TRUE(BytesLeft() == std::string(2048, '\0') + audio);
}

TEST_F(TagUpdateFailures, Where_the_file_lies_that_could_not_be_moved_is_told) {
    for (const char* call : {"DeleteFile e:", "MoveFile"}) {
        Begin(audio, 30);
        files->FailOn(call, failure::PermissionDenied, 1);
        const std::string told = FailedActivityOf([&] { tag.Update(); });
        ASSERT_EQ(Left().size(), 1u);
        EXPECT_EQ(told, "Moving t:\\" + Left().front().filename().string() + " to e:\\one.mp3");
    }
}

TEST_F(TagUpdateFailures, A_tag_of_which_a_disk_takes_a_part_gives_way_to_the_bytes_before) {
    for (const std::int64_t bytes : {1, 30, 399}) {
        Begin(oldTag + audio, 400);
        files->onCall = [&](const std::string& call) {
            // The fault is a single one: the old bytes are taken again.
            files->At('e').bytesUntilFull =
                call == "Write e:\\one.mp3 400" ? bytes : FakeDrive::plenty;
        };
        EXPECT_EQ(Update(), failure::DiskFull);
        EXPECT_TRUE(Bytes() == oldTag + audio);
    }
}

TEST_F(TagUpdateFailures, A_tag_of_which_a_dead_disk_has_taken_a_part_leaves_all_behind_it) {
    const std::string before = oldTag + audio;
    Begin(before, 400);
    files->At('e').bytesUntilGone = 100;
    EXPECT_EQ(Update(), failure::DeviceIO);
    EXPECT_TRUE(Bytes() == WholeTag(400, 1000).substr(0, 100) + before.substr(100));
}

TEST_F(TagUpdateFailures, A_folder_that_takes_no_temporary_file_leaves_the_old_file) {
    Begin(audio, 30);
    files->FailOn("CreateTempFile", failure::PermissionDenied);
    EXPECT_EQ(Update(), failure::PermissionDenied);
    EXPECT_TRUE(Bytes() == audio);
    EXPECT_EQ(files->calls.back(), "CreateTempFile t:\\");  // there is nothing to delete
}

TEST_F(TagUpdateFailures, Without_a_folder_for_temporary_files_the_programs_own_takes_them) {
    Begin(audio, 30);
    class NoTempFolder : public FaultyFileService {
        using FaultyFileService::FaultyFileService;
        std::string GetTempFolder() override { return {}; }
    } without(realFiles);
    without.Plug('e', folder.HostPath("stick"));
    Service<FileService>::Use(&without);
    const std::string programFolder = ProgramFolder();
    const char drive = programFolder.front();
    if (drive != 'c') without.Plug(drive, {drive, ':'});
    EXPECT_EQ(Update(), 0);
    EXPECT_THAT(without.calls, ::testing::Contains("CreateTempFile " + programFolder));
    EXPECT_TRUE(Bytes() == WholeTag(30, 2048) + std::string(2018, '\0') + audio);
}

TEST_F(TagUpdateFailures, A_read_that_fails_is_told_with_the_files_own_number) {
    for (const std::string& before : {audio, oldTag + audio}) {
        int reads = 0;
        for (int read = 0;; ++read) {
            ASSERT_LT(read, 20);
            Begin(before, 400);
            files->FailOn("Read", failure::DiskNotReady, 1, read);
            const Long error = Update();
            if (error == 0) break;
            EXPECT_EQ(error, failure::DiskNotReady) << read;
            ++reads;
        }
        EXPECT_EQ(reads, before == audio ? 5 : 2);
    }
}

}  // namespace tavel::test
