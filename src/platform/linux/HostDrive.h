#pragma once

#include "platform/FileService.h"
#include "platform/linux/DriveTable.h"

namespace tavel {

// c: and the drives of a drive table. The drive asks the table anew for its figures.
class HostDrive : public Drive {
  public:
    HostDrive(char letter, std::shared_ptr<DriveTable> drives);

    std::string Path() const override;
    int DriveType() const override;
    double TotalSize() const override;
    double FreeSpace() const override;

  private:
    char m_letter;
    std::shared_ptr<DriveTable> m_drives;
};

}  // namespace tavel
