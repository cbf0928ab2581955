#include "platform/windows/WindowsApi.h"
#include "support/HostDrives.h"
#include "support/HostPlaces.h"
#include "support/LongPast.h"

#include <filesystem>

// Between drives nothing can be renamed.

namespace tavel::test {

namespace {

namespace fs = std::filesystem;

// Wine shows this machine's memory disk under z:.
class MoveAcross : public HostDrives {
  protected:
    void SetUp() override {
        if (!fs::is_directory("Z:/dev/shm")) GTEST_SKIP() << "needs a second volume";
        other = "Z:/dev/shm/" + fs::path(temp.HostPath()).filename().string();
        fs::create_directory(other);
        temp.Write("drives/f", fs::path(other).make_preferred().string());
        temp.Write("a.bin", bytes);
        source = temp.DrivePath("a.bin");
    }
    void TearDown() override {
        if (other.empty()) return;
        for (const fs::directory_entry& entry : fs::directory_iterator(other))
            SetFileAttributesW(entry.path().c_str(), FILE_ATTRIBUTE_NORMAL);
        fs::remove_all(other);
    }

    DWORD Attributes(const std::string& name) const {
        return GetFileAttributesW(AsHostPath(other + "/" + name).c_str());
    }
    std::ptrdiff_t Count() const {
        return std::distance(fs::directory_iterator(other), fs::directory_iterator());
    }

    std::string other;
    std::string source;
    const std::string bytes = std::string(2'500'000, 'x') + "end";
};

}  // namespace

TEST_F(MoveAcross, A_file_comes_over_whole_with_its_time_and_attributes) {
    // Wine keeps no two of them.
    for (const DWORD attribute : {FILE_ATTRIBUTE_HIDDEN, FILE_ATTRIBUTE_READONLY}) {
        temp.Write("a.bin", bytes);
        fs::last_write_time(temp.HostPath("a.bin"), timeIn2004);
        SetFileAttributesW(AsHostPath(temp.HostPath("a.bin")).c_str(), attribute);
        files->MoveFile(source, "f:\\b.bin");
        EXPECT_FALSE(files->FileExists(source));
        EXPECT_TRUE(files->ReadWhole("f:\\b.bin") == bytes);
        EXPECT_EQ(fs::last_write_time(other + "/b.bin"), timeIn2004);
        EXPECT_NE(Attributes("b.bin") & attribute, 0u);
        EXPECT_EQ(Count(), 1);
        files->DeleteFile("f:\\b.bin", true);
    }
}

TEST_F(MoveAcross, A_target_that_is_there_stays) {
    files->CreateTextFile("f:\\b.bin", false);
    EXPECT_EQ(FailureOf([&] { files->MoveFile(source, "f:\\B.bin"); }), 58);
    EXPECT_TRUE(temp.Read("a.bin") == bytes);
    EXPECT_EQ(files->GetFile("f:\\b.bin").Size, 0);
}

TEST_F(MoveAcross, A_file_that_is_replaced_from_elsewhere_stays_hidden) {
    files->CreateTextFile("f:\\b.bin", false);
    SetFileAttributesW(AsHostPath(other + "/b.bin").c_str(), FILE_ATTRIBUTE_HIDDEN);
    files->CopyRights("f:\\b.bin", source);
    files->ReplaceFile("f:\\B.bin", source);
    EXPECT_TRUE(files->ReadWhole("f:\\b.bin") == bytes);
    EXPECT_NE(Attributes("b.bin") & FILE_ATTRIBUTE_HIDDEN, 0u);
    EXPECT_FALSE(files->FileExists(source));
    EXPECT_EQ(Count(), 1);
}

TEST_F(MoveAcross, A_folder_under_the_name_of_the_copy_leaves_the_source_where_it_is) {
    files->CreateFolder("f:\\.b.bin.new");
    EXPECT_EQ(FailureOf([&] { files->MoveFile(source, "f:\\b.bin"); }), 58);
    EXPECT_TRUE(temp.Read("a.bin") == bytes);
    EXPECT_EQ(Count(), 1);
}

}  // namespace tavel::test
