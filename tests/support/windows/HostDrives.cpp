#include "support/HostDrives.h"

#include "platform/windows/DriveSource.h"
#include "platform/windows/HostFileService.h"

#include <filesystem>

namespace tavel::test {

namespace {

namespace fs = std::filesystem;

// c: and the drives that files in a folder tell of: "e" holds the path of the folder that is e:,
// whose name is its label.
class FolderDrives : public DriveSource {
  public:
    explicit FolderDrives(const TempFolder& temp) : m_temp(temp) {}

    bool Has(char letter) override {
        return letter == 'c' || fs::exists(m_temp.HostPath("drives/") + letter);
    }

    std::vector<HostDriveEntry> Entries() override {
        std::vector<HostDriveEntry> entries;
        for (char letter = 'a'; letter <= 'z'; ++letter) {
            if (!Has(letter)) continue;
            entries.push_back(Entry(letter));
            if (letter != 'c' && HasMedium(letter)) entries.back().label = LabelOf(letter);
        }
        return entries;
    }

    HostDriveEntry Entry(char letter) override {
        if (letter == 'c') return {letter, DriveFixed, {}, "C:\\"};
        return {letter, DriveRemovable, {}, Folder(letter) + "\\"};
    }

    bool HasMedium(char letter) override { return letter == 'c' || fs::exists(Folder(letter)); }

  private:
    std::string Folder(char letter) const { return m_temp.Read(std::string("drives/") + letter); }

    std::string LabelOf(char letter) const {
        return Folder(letter).substr(Folder(letter).rfind('\\') + 1);
    }

    const TempFolder& m_temp;
};

}  // namespace

std::unique_ptr<FileService> HostFilesBelow(const std::string& hostFolder) {
    return MakeHostFileService(hostFolder, MakeHostDriveSource());
}

HostDrives::HostDrives()
    : files(MakeHostFileService(temp.HostPath("program"), std::make_unique<FolderDrives>(temp))) {}

void HostDrives::Link(char letter, const std::string& folder) {
    fs::create_directories(temp.HostPath(folder));
    temp.Write(std::string("drives/") + letter, temp.DrivePath(folder));
}

void HostDrives::Unlink(char letter) { fs::remove(temp.HostPath("drives/") + letter); }

}  // namespace tavel::test
