#include "platform/windows/HostDrive.h"

#include "platform/Failure.h"
#include "platform/windows/HostErrors.h"
#include "platform/windows/QuietErrors.h"
#include "platform/windows/Wide.h"

#include <utility>

namespace tavel {

HostDrive::HostDrive(HostDriveEntry entry, std::shared_ptr<DriveSource> drives)
    : m_entry(std::move(entry)), m_drives(std::move(drives)) {}

std::string HostDrive::Path() const { return {m_entry.letter, ':'}; }

int HostDrive::DriveType() const { return m_entry.driveType; }

double HostDrive::TotalSize() const { return Ask().total; }

double HostDrive::FreeSpace() const { return Ask().free; }

// The user's, whose quota may be less than the drive.
HostDrive::Figures HostDrive::Ask() const {
    if (!m_drives->Has(m_entry.letter)) Fail(failure::DeviceUnavailable);
    if (!m_drives->HasMedium(m_entry.letter)) Fail(failure::DiskNotReady);
    const std::string root = m_drives->Entry(m_entry.letter).root;
    const QuietErrors quiet;
    ULARGE_INTEGER free{};
    ULARGE_INTEGER total{};
    if (::GetDiskFreeSpaceExW(ToWide(root).c_str(), &free, &total, nullptr) == 0)
        FailWithHostError();
    return {static_cast<double>(total.QuadPart), static_cast<double>(free.QuadPart)};
}

}  // namespace tavel
