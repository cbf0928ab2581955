#include "platform/linux/DriveTable.h"

#include "platform/Failure.h"
#include "platform/linux/HostPaths.h"
#include "platform/linux/MountFacts.h"

#include <fcntl.h>

#include <algorithm>
#include <utility>

namespace tavel {

namespace {

bool IsSameMount(const MountEntry& a, const MountEntry& b) {
    return a.id == b.id && a.target == b.target && a.source == b.source && a.device == b.device;
}

}  // namespace

DriveTable::DriveTable(std::string programFolder, std::unique_ptr<MountSource> mounts)
    : m_links(std::move(programFolder) + "/drives"),
      m_source(std::move(mounts)),
      m_letters("defghijklmnopqrstuvwxyz") {}

void DriveTable::Refresh() {
    const bool hasNewLinks = m_links.Refresh();
    const bool hasNewMounts = m_source->HasChanged();
    if (hasNewMounts) ReadMounts();
    if (!hasNewLinks && !hasNewMounts) return;
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
    for (const MountedDrive& drive : m_mounts) {
        if (isGone(drive)) m_leftBehind.insert(drive.mount.entry.target);
    }
    std::erase_if(m_mounts, isGone);
    for (const RemovableMount& mount : found) {
        const bool isKnown = std::any_of(
            m_mounts.begin(), m_mounts.end(),
            [&](const MountedDrive& drive) { return IsSameMount(mount.entry, drive.mount.entry); });
        if (isKnown) continue;
        // With every letter taken the drive waits for the next change.
        if (const char letter = FreeLetter()) m_mounts.push_back({letter, mount});
    }
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

bool DriveTable::IsOnMount(std::string_view hostPath) const {
    return std::any_of(m_mounts.begin(), m_mounts.end(), [&](const MountedDrive& drive) {
        return IsBelow(hostPath, drive.mount.entry.target);
    });
}

bool DriveTable::IsLeftBehind(int folder) {
    if (m_mounts.empty() && m_leftBehind.empty()) return false;
    Refresh();
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
