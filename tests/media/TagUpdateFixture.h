#pragma once

#include "media/TagMaker.h"
#include "media/cMP3ID3v2.h"
#include "support/FaultyFileService.h"
#include "support/Support.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace tavel::test {

namespace fs = std::filesystem;

inline const std::string audio = "\xFF\xFB" + std::string(10000, 'a') + "end";

// An update of a file on a stick, with a folder for temporary files that a test can look into.
class TagUpdateFailures : public ::testing::Test {
  protected:
    void SetUp() override {
        for (const char* name : {"stick", "temp"}) fs::create_directory(folder.HostPath(name));
        Service<FileService>::Use(nullptr);
    }
    void TearDown() override { Service<FileService>::Use(nullptr); }

    // A stick with a loaded file, and a title to be written that needs so many bytes.
    void Begin(const std::string& bytes, std::size_t tagBytes) {
        for (const fs::path& path : Left()) fs::remove(path);
        fs::remove(host);
        folder.Write("stick/one.mp3", bytes);
        files.emplace(realFiles);
        files->Plug('e', folder.HostPath("stick"));
        files->Plug('t', folder.HostPath("temp"));
        files->tempFolder = "t:\\";
        Service<FileService>::Use(&*files);
        tag = cMP3ID3v2();
        tag.MP3File("e:\\one.mp3");
        while (tag.FrameCount() > 0) tag.RemoveFrame(1);
        tag.Title(std::string(tagBytes - 25, 't'));
        files->calls.clear();
        files->rawCalls.clear();
    }

    Long Update() {
        const std::string failure = FullFailureOf([&] { tag.Update(); });
        if (failure.empty()) return 0;
        EXPECT_THAT(failure, ::testing::EndsWith(" Tavel.cMP3ID3v2"));
        return std::stoi(failure);
    }

    bool IsThere() const { return fs::exists(host); }
    std::string Bytes() const { return folder.Read("stick/one.mp3"); }

    // The temporary files.
    std::vector<fs::path> Left() const {
        std::vector<fs::path> left;
        for (const auto& entry : fs::directory_iterator(folder.HostPath("temp")))
            left.push_back(entry.path());
        return left;
    }
    std::string BytesLeft() const {
        const auto left = Left();
        EXPECT_EQ(left.size(), 1u);
        return left.empty() ? "" : folder.Read("temp/" + left.front().filename().string());
    }

    TempFolder folder;
    const std::string host = folder.HostPath("stick/one.mp3");
    FileService& realFiles = oFSO();
    std::optional<FaultyFileService> files;
    cMP3ID3v2 tag;
};

}  // namespace tavel::test
