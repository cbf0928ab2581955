#include "platform/linux/DriveLinks.h"

#include "platform/DrivePath.h"
#include "platform/linux/FolderNames.h"
#include "platform/linux/HostPaths.h"
#include "platform/linux/MountFacts.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <optional>
#include <utility>

namespace tavel {

namespace {

// The letter that a link of this name stands for; 0 for none.
char LetterOf(const std::string& name) {
    const char letter = name.size() == 1 ? DriveLetter(name[0]) : '\0';
    return letter == 'c' ? '\0' : letter;
}

std::optional<DriveLink> LinkAt(const std::string& hostPath) {
    struct stat status {};
    if (lstat(hostPath.c_str(), &status) != 0 || !S_ISLNK(status.st_mode)) return std::nullopt;
    return DriveLink{hostPath, status.st_ino, status.st_ctim, false};
}

bool IsSameLink(const DriveLink& a, const DriveLink& b) {
    return a.hostPath == b.hostPath && a.inode == b.inode && a.changed.tv_sec == b.changed.tv_sec &&
           a.changed.tv_nsec == b.changed.tv_nsec;
}

bool IsOnPresentDevice(int folder) {
    struct stat status {};
    return fstat(folder, &status) == 0 && IsDevicePresent(status.st_dev);
}

}  // namespace

DriveLinks::DriveLinks(std::string folder) : m_folder(std::move(folder)) {}

bool DriveLinks::Refresh() {
    // What has happened does not matter, as the folder is read anew, unless the watch has ended.
    const bool hasNews = m_watch.Take([this](const FolderWatch::News& news) {
        if (news.hasMoved || news.hasEnded) m_isWatching = false;
    });
    const bool isNew = !m_isWatching && m_watch.Add(m_folder) >= 0;
    m_isWatching = m_isWatching || isNew;
    // Without a watch the folder is not there, or the host can't watch it and it is read each time.
    if (!hasNews && !isNew && m_isWatching) return false;
    Read();
    return true;
}

void DriveLinks::Read() {
    std::map<char, DriveLink> links;
    int error = 0;
    const Descriptor folder(open(m_folder.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    for (const std::string& name : NamesIn(folder.Get(), error)) {
        const char letter = LetterOf(name);
        std::optional<DriveLink> link;
        if (letter != 0) link = LinkAt(m_folder + '/' + name);
        if (!link) continue;
        const auto known = m_links.find(letter);
        if (known != m_links.end() && IsSameLink(known->second, *link)) link = known->second;
        links.emplace(letter, *link);
    }
    m_links = std::move(links);
    for (const auto& [letter, link] : m_links) Open(letter);
}

Descriptor DriveLinks::Open(char letter) {
    const auto found = m_links.find(letter);
    if (found == m_links.end()) return {};
    DriveLink& link = found->second;
    Descriptor folder(open(link.hostPath.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    if (!folder.IsOpen()) return {};
    const bool isMounted = IsMountRoot(folder.Get());
    if (link.wasMounted && !isMounted) return {};
    link.wasMounted = isMounted;
    if (!IsOnPresentDevice(folder.Get())) return {};
    return folder;
}

std::string DriveLinks::Target(char letter) const {
    const auto found = m_links.find(letter);
    if (found == m_links.end()) return {};
    return RealPath(found->second.hostPath);
}

}  // namespace tavel
