#include "platform/linux/DriveTable.h"

#include "platform/Failure.h"
#include "platform/linux/HostPaths.h"
#include "platform/linux/MountFacts.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>

#include <algorithm>
#include <utility>

namespace tavel {

namespace {

bool IsSameMount(const MountEntry& a, const MountEntry& b) {
    return a.id == b.id && a.target == b.target && a.source == b.source && a.device == b.device;
}

// The same folder or the same place of the host's bus.
bool IsInPlaceOf(const MountEntry& next, const MountEntry& gone) {
    return next.target == gone.target || (major(gone.device) != 0 && next.device == gone.device);
}

// 0 when the mount went meanwhile: no status tells that number.
dev_t FileSystemOf(const MountEntry& mount) {
    const Descriptor root(open(mount.target.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    struct stat status {};
    const bool isThere = root.IsOpen() && MountIdOf(root.Get()) == mount.id;
    return isThere && fstat(root.Get(), &status) == 0 ? status.st_dev : 0;
}

}  // namespace

DriveTable::DriveTable(const std::string& programFolder, std::unique_ptr<MountSource> mounts)
    : m_currentFolder(OnFixedDrive(programFolder)),
      m_links(programFolder + "/drives"),
      m_source(std::move(mounts)),
      m_letters("defghijklmnopqrstuvwxyz") {}

void DriveTable::Refresh() {
    if (m_links.Refresh()) PutTakenLettersLast();
    RefreshMounts();
}

void DriveTable::RefreshMounts() {
    if (!m_source->HasChanged()) return;
    m_links.Refresh();
    ReadMounts();
    PutTakenLettersLast();
}

void DriveTable::PutTakenLettersLast() {
    std::stable_partition(m_letters.begin(), m_letters.end(),
                          [this](char letter) { return !IsTaken(letter); });
}

void DriveTable::ReadMounts() {
    const std::vector<RemovableMount> found = RemovableMounts(*m_source);
    const auto isGone = [&](const MountedDrive& drive) {
        return std::none_of(found.begin(), found.end(), [&](const RemovableMount& mount) {
            return IsSameMount(mount.entry, drive.mount.entry);
        });
    };
    for (MountedDrive& drive : m_mounts) {
        if (!isGone(drive)) continue;
        m_leftBehind.insert(drive.mount.entry.target);
        const auto next =
            std::find_if(found.begin(), found.end(), [&](const RemovableMount& mount) {
                return !IsKnown(mount) && IsInPlaceOf(mount.entry, drive.mount.entry);
            });
        const bool isItsPlace = next != found.end() && !m_links.Has(drive.letter);
        if (isItsPlace) drive = {drive.letter, *next, FileSystemOf(next->entry)};
    }
    std::erase_if(m_mounts, isGone);
    for (const RemovableMount& mount : found) {
        if (IsKnown(mount)) continue;
        // With every letter taken the drive waits for the next change.
        if (const char letter = FreeLetter())
            m_mounts.push_back({letter, mount, FileSystemOf(mount.entry)});
    }
}

bool DriveTable::IsKnown(const RemovableMount& mount) const {
    return std::any_of(m_mounts.begin(), m_mounts.end(), [&](const MountedDrive& drive) {
        return IsSameMount(mount.entry, drive.mount.entry);
    });
}

bool DriveTable::IsTaken(char letter) const {
    return m_links.Has(letter) ||
           std::any_of(m_mounts.begin(), m_mounts.end(),
                       [&](const MountedDrive& drive) { return drive.letter == letter; });
}

char DriveTable::FreeLetter() const {
    const auto free = std::find_if(m_letters.begin(), m_letters.end(),
                                   [this](char letter) { return !IsTaken(letter); });
    return free == m_letters.end() ? '\0' : *free;
}

const DriveTable::MountedDrive* DriveTable::MountOf(char letter) const {
    for (const MountedDrive& drive : m_mounts) {
        if (drive.letter == letter && IsDevicePresent(drive.mount.entry.device)) return &drive;
    }
    return nullptr;
}

std::vector<DriveTable::Entry> DriveTable::Entries() {
    Refresh();
    std::vector<Entry> entries;
    for (char letter = 'a'; letter <= 'z'; ++letter) {
        if (const MountedDrive* drive = MountOf(letter)) {
            entries.push_back({letter, false, drive->mount.label, {drive->mount.entry.target}});
        } else if (m_links.Has(letter)) {
            entries.push_back(LinkEntry(letter));
        }
    }
    return entries;
}

DriveTable::Entry DriveTable::LinkEntry(char letter) {
    if (!m_links.Open(letter).IsOpen()) return {letter, true, {}, {}};
    const std::string target = m_links.Target(letter);
    return {
        letter, true, std::string(LastName(target)), {target, m_links.Links().at(letter).hostPath}};
}

bool DriveTable::Has(char letter) {
    Refresh();
    return MountOf(letter) != nullptr || m_links.Has(letter);
}

DriveTable::Stick DriveTable::StickWith(dev_t fileSystem) {
    RefreshMounts();
    for (const MountedDrive& drive : m_mounts) {
        if (drive.fileSystem != fileSystem) continue;
        return IsDevicePresent(drive.mount.entry.device) ? Stick::There : Stick::Pulled;
    }
    return Stick::None;
}

bool DriveTable::IsLeftBehind(int folder) const {
    if (m_leftBehind.empty()) return false;
    return m_leftBehind.count(PathOf(folder)) != 0 && !IsMountRoot(folder);
}

DriveTable::Root DriveTable::Open(char letter) {
    Refresh();
    Root root;
    if (const MountedDrive* drive = MountOf(letter)) {
        root.hostPath = drive->mount.entry.target;
        root.folder = Descriptor(open(root.hostPath.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
        // Between the look at the table and here the stick may have gone and left its folder.
        if (root.folder.IsOpen() && MountIdOf(root.folder.Get()) == drive->mount.entry.id)
            return root;
        return {{}, {}, failure::PathNotFound};
    }
    if (!m_links.Has(letter)) return {{}, {}, failure::PathNotFound};
    root.folder = m_links.Open(letter);
    root.hostPath = m_links.Links().at(letter).hostPath;
    if (!root.folder.IsOpen()) return {{}, {}, failure::DiskNotReady};
    return root;
}

}  // namespace tavel
