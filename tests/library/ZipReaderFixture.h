#pragma once

#include "library/LibraryFixture.h"
#include "library/ZipReader.h"
#include "support/FaultyFileService.h"
#include "support/ZipMaker.h"

#include <filesystem>
#include <string>
#include <vector>

namespace tavel::test {

namespace fs = std::filesystem;

// Archives that are extracted into a folder of the fixture.
class ZipReaderTest : public LibraryTest {
  protected:
    ZipReaderTest() {
        Service<FileService>::Use(&files);
        fs::create_directory(temp.HostPath("out"));
    }

    void Open(const std::vector<ZipItem>& items) { OpenBytes(MakeZip(items)); }

    // An archive that is open can't be written over.
    void OpenBytes(const std::string& bytes) {
        zip.Close();
        zip.ZipFile(Write("archive.zip", bytes));
    }

    std::string Extract(std::uint64_t number, bool bWithPath = true) {
        ZipEntry entry = zip.Item(number);
        entry.bWithPath = bWithPath;
        return entry.Extract(out);
    }

    // The path to which the only entry is extracted.
    std::string ExtractOnly(const ZipItem& item) {
        Open({item});
        return Extract(0);
    }

    void ExpectRefused(const ZipItem& item) {
        EXPECT_EQ(ExtractOnly(item), "") << item.name;
        EXPECT_TRUE(fs::is_empty(temp.HostPath("out"))) << item.name;
    }

    Long FailureOfExtracting(const ZipItem& item) {
        return FailureOf([&] { ExtractOnly(item); });
    }

    FaultyFileService files;
    ZipReader zip;
    std::string out = temp.DrivePath("out");
};

}  // namespace tavel::test
