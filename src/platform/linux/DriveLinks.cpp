#include "platform/linux/DriveLinks.h"

#include "platform/linux/HostNames.h"
#include "platform/linux/HostPaths.h"
#include "platform/linux/MountFacts.h"

#include <fcntl.h>
#include <sys/inotify.h>
#include <sys/stat.h>

#include <array>
#include <cstring>
#include <optional>
#include <utility>

namespace tavel {

namespace {

// The letter that a link of this name stands for; 0 for none.
char LetterOf(const std::string& name) {
    if (name.size() != 1) return 0;
    const char letter = static_cast<char>(name[0] | 0x20);
    return letter >= 'a' && letter <= 'z' && letter != 'c' && name[0] >= 'A' ? letter : '\0';
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

DriveLinks::DriveLinks(std::string folder)
    : m_folder(std::move(folder)), m_inotify(inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {}

bool DriveLinks::Refresh() {
    const bool hasNews = TakeNews();
    const bool isNew = !m_isWatching && Watch();
    // Without a watch the folder is not there, or the host can't watch it and it is read each time.
    if (!hasNews && !isNew && m_isWatching) return false;
    Read();
    return true;
}

bool DriveLinks::Watch() {
    constexpr std::uint32_t changes = IN_CREATE | IN_DELETE | IN_MOVED_FROM | IN_MOVED_TO |
                                      IN_DELETE_SELF | IN_MOVE_SELF | IN_ONLYDIR;
    m_isWatching = inotify_add_watch(m_inotify.Get(), m_folder.c_str(), changes) >= 0;
    return m_isWatching;
}

// What has happened does not matter, as the folder is read anew, unless the watch has ended.
bool DriveLinks::TakeNews() {
    bool hasNews = false;
    alignas(inotify_event) std::array<char, 4096> buffer{};
    ssize_t length = 0;
    while ((length = read(m_inotify.Get(), buffer.data(), buffer.size())) > 0) {
        hasNews = true;
        for (ssize_t at = 0; at < length;) {
            inotify_event event{};
            std::memcpy(&event, buffer.data() + at, sizeof event);
            if ((event.mask & (IN_MOVE_SELF | IN_DELETE_SELF | IN_IGNORED)) != 0) {
                m_isWatching = false;
            }
            at += static_cast<ssize_t>(sizeof event + event.len);
        }
    }
    return hasNews;
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
