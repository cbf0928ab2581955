#pragma once

#include "platform/FileService.h"
#include "support/HostDrives.h"
#include "support/Support.h"

#include <filesystem>
#include <string>

namespace tavel::test {

namespace fs = std::filesystem;

// For what is the same on c: and on a removable drive: a test runs in a folder of each.
class OnEachDrive : public HostDrives, public ::testing::WithParamInterface<char> {
  protected:
    void SetUp() override {
        Link('e', "card");
        if (GetParam() == 'e') {
            root = "e:";
        } else {
            root = temp.DrivePath("card");
        }
    }

    std::string At(const std::string& path) const { return root + "\\" + path; }
    fs::path Host(const std::string& path) const {
        return AsHostPath(temp.HostPath("card/" + path));
    }
    void Put(const std::string& path, const std::string& bytes) const {
        temp.Write("card/" + path, bytes);
    }
    std::string Bytes(const std::string& path) const { return temp.Read("card/" + path); }
    bool Has(const std::string& path) const { return temp.Has("card/" + path); }

    std::string root;
};

}  // namespace tavel::test
