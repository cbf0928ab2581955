#include "core/PublicStuff.h"
#include "device/DeviceTest.h"
#include "device/ProgressBarFileCopy.h"
#include "platform/Numbers.h"
#include "support/MemoryFile.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>

namespace tavel::test {

using ::testing::Contains;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace fs = std::filesystem;

namespace {

constexpr std::size_t mebibyte = 1024 * 1024;

std::string Pattern(std::size_t size) {
    std::string bytes(size, '\0');
    for (std::size_t i = 0; i < size; ++i) bytes[i] = static_cast<char>(i * 7 + i / 1021);
    return bytes;
}

class CopyWithProgressTest : public DeviceTest {
  protected:
    CopyWithProgressTest() {
        Connect();
        bar.isRecording = false;
        bar.onValue = [this](float value) { values.push_back(value); };
    }

    std::string PutSource(std::size_t size) const {
        temp.Write("source.bin", Pattern(size));
        return temp.DrivePath("source.bin");
    }

    // The source's bytes from one place to another.
    static std::string Part(std::size_t from, std::size_t to) { return Pattern(to).substr(from); }

    ProgressBarRecorder bar{calls, "bar"};
    std::vector<float> values;
};

// A source of zeros of any size, with a place from which it can't be read.
class ZerosFile : public RawFile {
  public:
    explicit ZerosFile(std::int64_t size, std::int64_t badPlace = -1)
        : m_size(size), m_badPlace(badPlace < 0 ? size : badPlace) {}

    bool Read(std::span<char> buffer, std::size_t& bytesRead) override {
        const auto wanted = static_cast<std::int64_t>(buffer.size());
        const std::int64_t count = std::min(wanted, m_size - m_position);
        bytesRead = 0;
        if (m_position + count > m_badPlace) return false;
        m_position += count;
        bytesRead = static_cast<std::size_t>(count);
        return true;
    }
    bool Write(std::span<const char>, std::size_t&) override { return false; }
    std::int64_t Size() override { return m_size; }
    bool Seek(std::int64_t position) override {
        m_position = position;
        return true;
    }
    bool Close() override { return true; }
    Long Error() const override { return 0; }
    void FlushOnClose() override {}
    void SetTime(std::int64_t) override {}

  private:
    std::int64_t m_size;
    std::int64_t m_badPlace;
    std::int64_t m_position = 0;
};

// Takes everything and keeps nothing, and may say that it failed all the same.
class BottomlessFile : public RawFile {
  public:
    explicit BottomlessFile(bool isWell = true) : m_isWell(isWell) {}

    bool Read(std::span<char>, std::size_t&) override { return false; }
    bool Write(std::span<const char> buffer, std::size_t& bytesWritten) override {
        bytesWritten = buffer.size();
        return m_isWell;
    }
    std::int64_t Size() override { return 0; }
    bool Seek(std::int64_t) override { return true; }
    bool Close() override { return true; }
    Long Error() const override { return 0; }
    void FlushOnClose() override {}
    void SetTime(std::int64_t) override {}

  private:
    bool m_isWell;
};

}  // namespace

TEST_F(CopyWithProgressTest, Steps_the_bar_by_pieces_and_leaves_it_at_0) {
    const std::string sSource = PutSource(2048);
    bar.isRecording = true;
    CopyWithProgress(sSource, "e:\\a.bin", bar);
    EXPECT_THAT(calls, ElementsAre("bar.Max 2048", "Create e:\\a.bin", "bar.Value 1024",
                                   "bar.Repaint", "bar.Value 2048", "bar.Repaint",
                                   // A whole last piece is followed by one of 0 bytes.
                                   "bar.Value 2048", "bar.Repaint", "bar.Value 0"));
    // That one is not asked of the disk.
    EXPECT_THAT(files.rawCalls, ElementsAre("Read " + sSource + " 1048576", "Write e:\\a.bin 2048",
                                            "Close e:\\a.bin", "Close " + sSource));
}

TEST_F(CopyWithProgressTest, Copies_every_byte_of_any_size_with_a_step_a_piece) {
    for (const std::size_t size :
         {std::size_t{0}, std::size_t{1}, std::size_t{1023}, std::size_t{1024}, std::size_t{1025},
          std::size_t{5000}, mebibyte - 1, mebibyte, mebibyte + 1, 2 * mebibyte + 1024}) {
        values.clear();
        CopyWithProgress(PutSource(size), "e:\\a.bin", bar);
        EXPECT_EQ(BytesOn('e', "a.bin"), Pattern(size)) << size;
        std::vector<float> expected;
        for (std::size_t done = 1024; done <= size; done += 1024) {
            expected.push_back(static_cast<float>(done));
        }
        expected.push_back(static_cast<float>(size));
        expected.push_back(0);
        EXPECT_EQ(values, expected) << size;
    }
}

TEST_F(CopyWithProgressTest, Reads_and_writes_far_larger_blocks_than_it_shows) {
    CopyWithProgress(PutSource(mebibyte + 1), "e:\\a.bin", bar);
    const std::string sSource = temp.DrivePath("source.bin");
    EXPECT_EQ(
        std::count(files.rawCalls.begin(), files.rawCalls.end(), "Read " + sSource + " 1048576"),
        2);
    EXPECT_THAT(files.rawCalls, Contains("Write e:\\a.bin 1048576"));
    EXPECT_THAT(files.rawCalls, Contains("Write e:\\a.bin 1"));
}

TEST_F(CopyWithProgressTest, Truncates_what_stood_under_the_name) {
    Put('e', "a.bin", Pattern(9000));
    CopyWithProgress(PutSource(10), "e:\\A.BIN", bar);
    EXPECT_EQ(BytesOn('e', "a.bin"), Pattern(10));
    EXPECT_FALSE(IsOn('e', "A.BIN"));
}

TEST_F(CopyWithProgressTest, Fails_on_a_missing_source_before_anything_is_opened) {
    EXPECT_EQ(FailureOf([&] { CopyWithProgress("c:\\no\\such.bin", "e:\\a.bin", bar); }), 53);
    EXPECT_THAT(values, IsEmpty());
    EXPECT_FALSE(IsOn('e', "a.bin"));
}

TEST_F(CopyWithProgressTest, Reads_the_whole_source_for_a_destination_that_cannot_be_opened) {
    const std::string sSource = PutSource(3000);
    for (const char* sDest : {"e:\\a<b.bin", "e:\\no folder\\a.bin", "q:\\a.bin"}) {
        values.clear();
        files.rawCalls.clear();
        CopyWithProgress(sSource, sDest, bar);
        EXPECT_THAT(values, ElementsAre(0, 0, 0, 0)) << sDest;
        EXPECT_THAT(files.rawCalls,
                    ElementsAre("Read " + sSource + " 1048576", "Close " + sSource));
    }
}

TEST_F(CopyWithProgressTest, Never_empties_a_source_that_is_its_own_destination) {
    Put('e', "a.bin", Pattern(1500));
    for (const std::string& sSource :
         {std::string("e:\\a.bin"), std::string("E:\\A.bin"), temp.DrivePath("stick-e/a.bin")}) {
        values.clear();
        CopyWithProgress(sSource, "e:\\a.bin", bar);
        EXPECT_EQ(BytesOn('e', "a.bin"), Pattern(1500)) << sSource;
        EXPECT_THAT(values, ElementsAre(0, 0, 0)) << sSource;
    }
}

TEST_F(CopyWithProgressTest, Reads_on_to_the_end_when_the_stick_is_full_and_the_bar_stands_still) {
    files.At('e').bytesUntilFull = mebibyte + 1500;
    CopyWithProgress(PutSource(3 * mebibyte), "e:\\a.bin", bar);
    EXPECT_EQ(BytesOn('e', "a.bin"), Pattern(mebibyte + 1500));
    ASSERT_EQ(values.size(), 3 * 1024u + 2);
    EXPECT_EQ(values[1023], mebibyte);
    values.pop_back();
    values.erase(values.begin(), values.begin() + 1024);
    // The piece that filled the stick failed, so its bytes do not count.
    EXPECT_THAT(values, Each(mebibyte + 1024));
}

TEST_F(CopyWithProgressTest, Does_not_count_the_last_piece_when_the_flush_behind_it_fails) {
    const std::string sSource = PutSource(3000);
    files.replaceRaw = [](std::string_view, RawMode mode) -> std::unique_ptr<RawFile> {
        if (mode == RawMode::Read) return nullptr;
        return std::make_unique<BottomlessFile>(false);
    };
    CopyWithProgress(sSource, "e:\\a.bin", bar);
    EXPECT_THAT(values, ElementsAre(1024, 2048, 2048, 0));
    values.clear();
    CopyWithProgress(PutSource(2048), "e:\\a.bin", bar);
    EXPECT_THAT(values, ElementsAre(1024, 1024, 1024, 0));
}

TEST_F(CopyWithProgressTest, Tries_each_block_anew_after_one_that_could_not_be_written) {
    files.At('e').bytesUntilFull = mebibyte;
    bar.onValue = [&](float value) {
        values.push_back(value);
        // All steps of the second block have been shown.
        if (values.size() == 2048) files.At('e').bytesUntilFull = FakeDrive::plenty;
    };
    CopyWithProgress(PutSource(3 * mebibyte), "e:\\a.bin", bar);
    EXPECT_EQ(BytesOn('e', "a.bin"), Part(0, mebibyte) + Part(2 * mebibyte, 3 * mebibyte));
    EXPECT_EQ(values[2047], mebibyte);
    EXPECT_EQ(values[3071], 2 * mebibyte);
}

TEST_F(CopyWithProgressTest, Passes_over_a_stick_that_is_pulled) {
    files.At('e').bytesUntilGone = 5000;
    CopyWithProgress(PutSource(2 * mebibyte), "e:\\a.bin", bar);
    EXPECT_EQ(BytesOn('e', "a.bin"), Pattern(5000));
    ASSERT_EQ(values.size(), 2 * 1024u + 2);
    EXPECT_EQ(values[2], 3072);
    values.pop_back();
    values.erase(values.begin(), values.begin() + 3);
    EXPECT_THAT(values, Each(4096));
}

TEST_F(CopyWithProgressTest, Ends_at_the_piece_that_cannot_be_read_with_all_before_it_copied) {
    PutSource(3 * mebibyte);
    files.replaceRaw = [](std::string_view path, RawMode) -> std::unique_ptr<RawFile> {
        if (path.front() != 'c') return nullptr;
        return std::make_unique<ZerosFile>(3 * mebibyte, mebibyte + 3000);
    };
    CopyWithProgress(temp.DrivePath("source.bin"), "e:\\a.bin", bar);
    EXPECT_EQ(BytesOn('e', "a.bin"), std::string(mebibyte + 2048, '\0'));
    ASSERT_EQ(values.size(), 1024u + 2 + 1 + 1);
    EXPECT_EQ(values[1025], mebibyte + 2048);
    EXPECT_EQ(values[1026], mebibyte + 2048);  // the failed read's own step
    EXPECT_EQ(values[1027], 0);
}

TEST_F(CopyWithProgressTest, Goes_on_in_pieces_behind_a_read_that_failed_for_a_moment) {
    PutSource(3 * mebibyte);
    files.replaceRaw = [](std::string_view path, RawMode) -> std::unique_ptr<RawFile> {
        if (path.front() != 'c') return nullptr;
        auto source = std::make_unique<MemoryFile>(Pattern(3 * mebibyte));
        source->FailAt = 1;
        return source;
    };
    CopyWithProgress(temp.DrivePath("source.bin"), "e:\\a.bin", bar);
    EXPECT_EQ(BytesOn('e', "a.bin"), Pattern(3 * mebibyte));
    EXPECT_EQ(values.size(), 3 * 1024u + 2) << "the failed read has no step";
    EXPECT_THAT(files.rawCalls, Contains("Write e:\\a.bin 1024"));
}

TEST_F(CopyWithProgressTest, Lets_others_read_the_source_and_write_the_destination_meanwhile) {
    const std::string sSource = PutSource(10);
    Long error = 0;
    bar.onValue = [&](float) {
        EXPECT_NE(files.OpenRaw(sSource, RawMode::Read, error), nullptr);
        EXPECT_EQ(files.OpenRaw(sSource, RawMode::Create, error), nullptr);
        EXPECT_NE(files.OpenRaw("e:\\a.bin", RawMode::Create, error), nullptr);
    };
    CopyWithProgress(sSource, "e:\\a.bin", bar);
}

TEST_F(CopyWithProgressTest, Writes_nothing_over_a_file_that_someone_reads) {
    Put('e', "a.bin", "read");
    Long error = 0;
    const std::unique_ptr<RawFile> reader = files.OpenRaw("e:\\a.bin", RawMode::Read, error);
    CopyWithProgress(PutSource(10), "e:\\a.bin", bar);
    EXPECT_EQ(BytesOn('e', "a.bin"), "read");
    EXPECT_THAT(values, ElementsAre(0, 0));
}

TEST_F(CopyWithProgressTest, Makes_an_empty_file_of_a_source_that_goes_before_it_is_opened) {
    const std::string sSource = PutSource(3000);
    files.replaceRaw = [&](std::string_view, RawMode mode) -> std::unique_ptr<RawFile> {
        if (mode == RawMode::Read) fs::remove(temp.HostPath("source.bin"));
        return nullptr;
    };
    CopyWithProgress(sSource, "e:\\a.bin", bar);
    EXPECT_FALSE(fs::exists(temp.HostPath("source.bin")));
    EXPECT_TRUE(IsOn('e', "a.bin"));
    EXPECT_EQ(BytesOn('e', "a.bin"), "");
    EXPECT_THAT(values, ElementsAre(0, 0));
}

TEST_F(CopyWithProgressTest, Passes_over_a_destination_that_cannot_be_closed_well) {
    files.FailClose("a.bin");
    CopyWithProgress(PutSource(10), "e:\\a.bin", bar);
    EXPECT_THAT(values, ElementsAre(10, 0));
}

TEST_F(CopyWithProgressTest, Shows_a_block_behind_its_writing_and_0_before_both_files_are_closed) {
    const std::string sSource = PutSource(1025);
    bar.onValue = [&](float value) { files.rawCalls.push_back(TextOfSingle(value)); };
    CopyWithProgress(sSource, "e:\\a.bin", bar);
    EXPECT_THAT(files.rawCalls,
                ElementsAre("Read " + sSource + " 1048576", "Write e:\\a.bin 1025", "1024", "1025",
                            "0", "Close e:\\a.bin", "Close " + sSource));
}

TEST_F(CopyWithProgressTest, Closes_both_files_when_a_failure_goes_through) {
    const std::string sSource = PutSource(10);
    bar.onValue = [](float) { Fail(failure::Overflow); };
    EXPECT_EQ(FailureOf([&] { CopyWithProgress(sSource, "e:\\a.bin", bar); }), 6);
    EXPECT_THAT(files.rawCalls, Contains("Close e:\\a.bin"));
    EXPECT_THAT(files.rawCalls, Contains("Close " + sSource));
}

TEST_F(CopyWithProgressTest, Overflows_when_2_GiB_have_been_written) {
    PutSource(0);
    const std::int64_t limit = std::int64_t{1} << 31;
    float last = 0;
    bar.onValue = [&](float value) { last = value; };
    for (const std::int64_t size : {limit - 1, limit}) {
        fs::resize_file(temp.HostPath("source.bin"), static_cast<std::uintmax_t>(size));
        files.replaceRaw = [&](std::string_view, RawMode mode) -> std::unique_ptr<RawFile> {
            if (mode == RawMode::Read) return std::make_unique<ZerosFile>(size);
            return std::make_unique<BottomlessFile>();
        };
        const Long failed =
            FailureOf([&] { CopyWithProgress(temp.DrivePath("source.bin"), "e:\\a.bin", bar); });
        EXPECT_EQ(failed, size < limit ? 0 : 6);
        EXPECT_EQ(last, size < limit ? 0.0f : static_cast<float>(limit - 1024));
    }
}

}  // namespace tavel::test
