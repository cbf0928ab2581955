#include "platform/FileService.h"
#include "platform/windows/DriveSource.h"
#include "platform/windows/QuietErrors.h"
#include "platform/windows/Wide.h"
#include "platform/windows/WindowsApi.h"

#include <array>

namespace tavel {

namespace {

std::string RootOf(char letter) { return {static_cast<char>(letter - 'a' + 'A'), ':', '\\'}; }

// A stick is looked for on removable drives alone, which are the host's own of that type: no disc,
// share or disk in memory can be one.
int TypeOf(char letter) {
    const UINT type = ::GetDriveTypeW(ToWide(RootOf(letter)).c_str());
    return type == DRIVE_REMOVABLE ? DriveRemovable : DriveFixed;
}

// Empty where the medium has none, or can't be asked.
std::string LabelOf(char letter) {
    const QuietErrors quiet;
    std::array<wchar_t, MAX_PATH + 1> label{};
    if (::GetVolumeInformationW(ToWide(RootOf(letter)).c_str(), label.data(), label.size(), nullptr,
                                nullptr, nullptr, nullptr, 0) == 0)
        return {};
    return FromWide(label.data());
}

class HostDriveSource : public DriveSource {
  public:
    bool Has(char letter) override { return (::GetLogicalDrives() >> (letter - 'a') & 1) != 0; }

    std::vector<HostDriveEntry> Entries() override {
        std::vector<HostDriveEntry> entries;
        for (char letter = 'a'; letter <= 'z'; ++letter) {
            if (!Has(letter)) continue;
            entries.push_back(Entry(letter));
            if (HasMedium(letter)) entries.back().label = LabelOf(letter);
        }
        return entries;
    }

    HostDriveEntry Entry(char letter) override {
        return {letter, TypeOf(letter), {}, RootOf(letter)};
    }

    bool HasMedium(char letter) override {
        const QuietErrors quiet;
        const DWORD attributes = ::GetFileAttributesW(ToWide(RootOf(letter)).c_str());
        return attributes != INVALID_FILE_ATTRIBUTES;
    }
};

}  // namespace

std::unique_ptr<DriveSource> MakeHostDriveSource() { return std::make_unique<HostDriveSource>(); }

}  // namespace tavel
