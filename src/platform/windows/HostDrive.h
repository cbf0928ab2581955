#pragma once

#include "platform/FileService.h"
#include "platform/windows/DriveSource.h"

#include <memory>

namespace tavel {

// A drive of a source, which is asked anew for its figures.
class HostDrive : public Drive {
  public:
    HostDrive(HostDriveEntry entry, std::shared_ptr<DriveSource> drives);

    std::string Path() const override;
    int DriveType() const override;
    double TotalSize() const override;
    double FreeSpace() const override;

  private:
    struct Figures {
        double total = 0;
        double free = 0;
    };
    Figures Ask() const;

    HostDriveEntry m_entry;
    std::shared_ptr<DriveSource> m_drives;
};

}  // namespace tavel
