#pragma once

#include <memory>
#include <string>
#include <vector>

namespace tavel {

// A drive of the host.
struct HostDriveEntry {
    char letter = 0;    // lower case
    int driveType = 0;  // DriveRemovable, DriveFixed
    std::string label;  // empty without a medium, and for what another computer shares
    std::string root;   // where its paths begin: "E:\"; tests have folders there
};

// The host's drives; tests have drives of their own.
class DriveSource {
  public:
    virtual ~DriveSource() = default;

    virtual bool Has(char letter) = 0;  // with or without a medium
    // All drives of the moment, by letter.
    virtual std::vector<HostDriveEntry> Entries() = 0;
    // One that is there, without its label: every path on a drive asks for this, and a label would
    // have to come from the medium.
    virtual HostDriveEntry Entry(char letter) = 0;
    virtual bool HasMedium(char letter) = 0;
};

std::unique_ptr<DriveSource> MakeHostDriveSource();

}  // namespace tavel
