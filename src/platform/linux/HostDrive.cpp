#include "platform/linux/HostDrive.h"

#include "platform/Failure.h"
#include "platform/linux/HostErrors.h"

#include <sys/statvfs.h>

#include <cerrno>
#include <utility>

namespace tavel {

namespace {

struct statvfs FiguresOf(DriveTable& drives, char letter) {
    struct statvfs figures {};
    if (letter == 'c') {
        if (statvfs("/", &figures) != 0) FailWithHostError();
        return figures;
    }
    const DriveTable::Root root = drives.Open(letter);
    if (root.error == failure::PathNotFound) Fail(failure::DeviceUnavailable);
    if (root.error != 0) Fail(root.error);
    if (fstatvfs(root.folder.Get(), &figures) != 0) FailWithHostError();
    return figures;
}

}  // namespace

HostDrive::HostDrive(char letter, std::shared_ptr<DriveTable> drives)
    : m_letter(letter), m_drives(std::move(drives)) {}

std::string HostDrive::Path() const { return {m_letter, ':'}; }

int HostDrive::DriveType() const { return m_letter == 'c' ? DriveFixed : DriveRemovable; }

double HostDrive::TotalSize() const {
    const struct statvfs figures = FiguresOf(*m_drives, m_letter);
    return static_cast<double>(figures.f_blocks) * static_cast<double>(figures.f_frsize);
}

double HostDrive::FreeSpace() const {
    const struct statvfs figures = FiguresOf(*m_drives, m_letter);
    return static_cast<double>(figures.f_bavail) * static_cast<double>(figures.f_frsize);
}

}  // namespace tavel
