#include "platform/linux/FolderNames.h"

#include "platform/HostNames.h"
#include "platform/linux/Descriptor.h"
#include "platform/linux/FolderWatch.h"
#include "platform/linux/HostPaths.h"

#include <dirent.h>
#include <fcntl.h>
#include <linux/magic.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <sys/vfs.h>

#include <algorithm>
#include <cerrno>
#include <list>
#include <memory>
#include <unordered_map>

namespace tavel {

namespace {

// The names of a folder by what they match.
class NameIndex {
  public:
    explicit NameIndex(const std::vector<std::string>& names) {
        for (const std::string& name : names) Add(name);
    }

    void Add(std::string_view name) {
        std::vector<std::string>& same = m_names[MatchKey(name)];
        const auto place = std::lower_bound(same.begin(), same.end(), name);
        if (place == same.end() || *place != name) same.emplace(place, name);
    }

    void Remove(std::string_view name) {
        const auto found = m_names.find(MatchKey(name));
        if (found == m_names.end()) return;
        std::erase(found->second, name);
        if (found->second.empty()) m_names.erase(found);
    }

    std::vector<std::string> Matching(std::string_view name) const {
        const auto found = m_names.find(MatchKey(name));
        return found == m_names.end() ? std::vector<std::string>() : found->second;
    }

  private:
    std::unordered_map<std::string, std::vector<std::string>> m_names;
};

// A block device belongs to one machine; so do these file systems, which have none that the kernel
// tells of.
bool IsOfThisMachineAlone(int folder) {
    struct stat status {};
    struct statfs figures {};
    if (fstat(folder, &status) != 0) return false;
    if (major(status.st_dev) != 0) return true;
    return fstatfs(folder, &figures) == 0 &&
           (figures.f_type == TMPFS_MAGIC || figures.f_type == BTRFS_SUPER_MAGIC ||
            figures.f_type == OVERLAYFS_SUPER_MAGIC);
}

// `isWhole` is false where the host would not tell all names.
NameIndex IndexOf(int folder, bool& isWhole) {
    int error = 0;
    NameIndex names(NamesIn(folder, error));
    isWhole = error == 0;
    return names;
}

std::vector<std::string> ReadMatching(int folder, std::string_view name) {
    bool isWhole = false;
    return IndexOf(folder, isWhole).Matching(name);
}

class KnownFolders {
  public:
    std::vector<std::string> Matching(int folder, std::string_view name) {
        if (!IsOfThisMachineAlone(folder)) return ReadMatching(folder, name);
        const int watch = m_watch.Add(PathThrough(folder));
        if (watch < 0) return ReadMatching(folder, name);
        m_watch.Take([this](const FolderWatch::News& news) { Follow(news); });
        return Find(watch, folder, name);
    }

  private:
    struct Known {
        int watch;
        NameIndex names;
    };

    void Follow(const FolderWatch::News& news) {
        if (news.watch < 0) return ForgetAll();
        const auto known = WithWatch(news.watch);
        if (known == m_known.end()) return;
        if (news.hasCome) known->names.Add(news.name);
        if (news.hasGone) known->names.Remove(news.name);
        if (news.hasEnded) m_known.erase(known);
    }

    // What comes while the folder is read is told afterwards, and changes nothing.
    std::vector<std::string> Find(int watch, int folder, std::string_view name) {
        const auto known = WithWatch(watch);
        if (known != m_known.end()) {
            m_known.splice(m_known.begin(), m_known, known);
        } else {
            bool isWhole = false;
            m_known.push_front({watch, IndexOf(folder, isWhole)});
            if (m_known.size() > mostFolders) ForgetOldest();
            if (!isWhole) return ForgetFirst().Matching(name);
        }
        return m_known.front().names.Matching(name);
    }

    // A folder that could not be read may be readable the next time.
    NameIndex ForgetFirst() {
        m_watch.Remove(m_known.front().watch);
        NameIndex names = std::move(m_known.front().names);
        m_known.pop_front();
        return names;
    }

    std::list<Known>::iterator WithWatch(int watch) {
        return std::find_if(m_known.begin(), m_known.end(),
                            [watch](const Known& known) { return known.watch == watch; });
    }

    void ForgetOldest() {
        m_watch.Remove(m_known.back().watch);
        m_known.pop_back();
    }

    void ForgetAll() {
        while (!m_known.empty()) ForgetOldest();
    }

    static constexpr std::size_t mostFolders = 16;

    FolderWatch m_watch;
    std::list<Known> m_known;  // the one asked about last in front
};

}  // namespace

std::vector<std::string> NamesIn(int folder, int& error) {
    std::vector<std::string> names;
    Descriptor own(openat(folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    const std::unique_ptr<DIR, int (*)(DIR*)> listing(own.IsOpen() ? fdopendir(own.Get()) : nullptr,
                                                      closedir);
    if (!listing) {
        error = errno;
        return names;
    }
    own.Release();  // the listing owns it from here on
    errno = 0;
    while (const dirent* entry = readdir(listing.get())) {
        const std::string_view name = entry->d_name;
        if (name != "." && name != "..") names.emplace_back(name);
    }
    error = errno;
    std::sort(names.begin(), names.end());
    return names;
}

std::vector<std::string> MatchingNames(int folder, std::string_view name) {
    static KnownFolders folders;
    return folders.Matching(folder, name);
}

}  // namespace tavel
