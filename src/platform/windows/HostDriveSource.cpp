#include "platform/Failure.h"
#include "platform/FileService.h"
#include "platform/windows/DriveSource.h"
#include "platform/windows/HostErrors.h"
#include "platform/windows/Wide.h"
#include "platform/windows/WindowsApi.h"

#include <array>

namespace tavel {

namespace {

std::string RootOf(char letter) { return {static_cast<char>(letter - 'a' + 'A'), ':', '\\'}; }

UINT HostTypeOf(char letter) { return ::GetDriveTypeW(ToWide(RootOf(letter)).c_str()); }

// A stick is looked for on removable drives alone, which are the host's own of that type: no disc,
// share or disk in memory can be one.
int TypeOf(char letter) {
    return HostTypeOf(letter) == DRIVE_REMOVABLE ? DriveRemovable : DriveFixed;
}

// A computer that is switched off would hold up the whole list until the network gives up.
bool MayBeAsked(char letter) { return HostTypeOf(letter) != DRIVE_REMOTE; }

// Empty where the medium has none, or can't be asked.
std::string LabelOf(char letter) {
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
            if (MayBeAsked(letter) && HasMedium(letter)) entries.back().label = LabelOf(letter);
        }
        return entries;
    }

    HostDriveEntry Entry(char letter) override {
        return {letter, TypeOf(letter), {}, RootOf(letter)};
    }

    bool HasMedium(char letter) override {
        const DWORD attributes = ::GetFileAttributesW(ToWide(RootOf(letter)).c_str());
        // One whose root the user may not look into is there all the same.
        return attributes != INVALID_FILE_ATTRIBUTES ||
               FailureOfHostError(GetLastError()) == failure::PermissionDenied;
    }
};

}  // namespace

std::unique_ptr<DriveSource> MakeHostDriveSource() { return std::make_unique<HostDriveSource>(); }

}  // namespace tavel
