#include "platform/FileService.h"
#include "platform/windows/DriveSource.h"
#include "platform/windows/QuietErrors.h"
#include "platform/windows/Wide.h"

#include <windows.h>

#include <array>
#include <optional>

namespace tavel {

namespace {

std::string RootOf(char letter) { return {static_cast<char>(letter - 'a' + 'A'), ':', '\\'}; }

// A stick is looked for on removable drives alone, which are the host's own of that type: no disc,
// share or disk in memory can be one.
int TypeOf(char letter) {
    const UINT type = ::GetDriveTypeW(ToWide(RootOf(letter)).c_str());
    return type == DRIVE_REMOVABLE ? DriveRemovable : DriveFixed;
}

class HostDriveSource : public DriveSource {
  public:
    bool Has(char letter) override { return (::GetLogicalDrives() >> (letter - 'a') & 1) != 0; }

    std::vector<HostDriveEntry> Entries() override {
        std::vector<HostDriveEntry> entries;
        for (char letter = 'a'; letter <= 'z'; ++letter) {
            if (!Has(letter)) continue;
            entries.push_back(Entry(letter));
            entries.back().label = LabelOf(letter).value_or(std::string());
        }
        return entries;
    }

    HostDriveEntry Entry(char letter) override {
        return {letter, TypeOf(letter), {}, RootOf(letter)};
    }

    bool HasMedium(char letter) override { return LabelOf(letter).has_value(); }

  private:
    // Nothing where there is no medium, or one without a file system.
    static std::optional<std::string> LabelOf(char letter) {
        const QuietErrors quiet;
        std::array<wchar_t, MAX_PATH + 1> label{};
        if (::GetVolumeInformationW(ToWide(RootOf(letter)).c_str(), label.data(), label.size(),
                                    nullptr, nullptr, nullptr, nullptr, 0) == 0)
            return std::nullopt;
        return FromWide(label.data());
    }
};

}  // namespace

std::unique_ptr<DriveSource> MakeHostDriveSource() { return std::make_unique<HostDriveSource>(); }

}  // namespace tavel
