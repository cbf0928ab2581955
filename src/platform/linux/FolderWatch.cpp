#include "platform/linux/FolderWatch.h"

#include <sys/inotify.h>

#include <array>
#include <cstring>

namespace tavel {

namespace {

FolderWatch::News NewsOf(const inotify_event& event, const char* name) {
    FolderWatch::News news;
    news.watch = event.wd;
    news.name = event.len == 0 ? "" : name;
    news.hasCome = (event.mask & (IN_CREATE | IN_MOVED_TO)) != 0;
    news.hasGone = (event.mask & (IN_DELETE | IN_MOVED_FROM)) != 0;
    news.hasMoved = (event.mask & IN_MOVE_SELF) != 0;
    news.hasEnded = (event.mask & IN_IGNORED) != 0;
    return news;
}

}  // namespace

FolderWatch::FolderWatch() : m_inotify(inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {}

int FolderWatch::Add(const std::string& hostPath) {
    constexpr std::uint32_t changes =
        IN_CREATE | IN_DELETE | IN_MOVED_FROM | IN_MOVED_TO | IN_MOVE_SELF | IN_ONLYDIR;
    return inotify_add_watch(m_inotify.Get(), hostPath.c_str(), changes);
}

void FolderWatch::Remove(int watch) { inotify_rm_watch(m_inotify.Get(), watch); }

bool FolderWatch::Take(const std::function<void(const News&)>& tell) {
    bool hasNews = false;
    alignas(inotify_event) std::array<char, 4096> buffer{};
    ssize_t length = 0;
    while ((length = read(m_inotify.Get(), buffer.data(), buffer.size())) > 0) {
        hasNews = true;
        for (ssize_t at = 0; at < length;) {
            inotify_event event{};
            std::memcpy(&event, buffer.data() + at, sizeof event);
            tell(NewsOf(event, buffer.data() + at + sizeof event));
            at += static_cast<ssize_t>(sizeof event + event.len);
        }
    }
    return hasNews;
}

}  // namespace tavel
