#include "platform/linux/FolderListing.h"

#include "platform/Failure.h"
#include "platform/Text.h"
#include "platform/linux/FolderNames.h"

#include <algorithm>
#include <cerrno>
#include <utility>

namespace tavel {

namespace {

using FileId = std::pair<dev_t, ino_t>;

FileId IdOf(const struct stat& status) { return {status.st_dev, status.st_ino}; }

std::string TextOf(const FileId& id) {
    return std::to_string(id.first) + " " + std::to_string(id.second);
}

// The folders that lead to a folder: those of the path by which it was reached, links followed,
// and those that really hold it.
std::vector<FileId> AncestorsOf(const std::string& hostPath) {
    std::vector<FileId> ancestors;
    struct stat status {};
    for (std::size_t end = hostPath.size(); end != 0 && end != std::string::npos;
         end = hostPath.rfind('/', end - 1)) {
        if (stat(hostPath.substr(0, end).c_str(), &status) == 0) ancestors.push_back(IdOf(status));
    }
    Descriptor folder(open(hostPath.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    while (folder.IsOpen() && fstat(folder.Get(), &status) == 0) {
        const FileId id = IdOf(status);
        ancestors.push_back(id);
        folder = Descriptor(openat(folder.Get(), "..", O_PATH | O_DIRECTORY | O_CLOEXEC));
        if (!folder.IsOpen() || fstat(folder.Get(), &status) != 0 || IdOf(status) == id) break;
    }
    return ancestors;
}

class Lister {
  public:
    Lister(const Place& place, int folder) : m_place(place), m_folder(folder) {
        m_contents.Folder.Path = place.path.Text();
        if (!place.path.names.empty()) m_contents.Folder.Name = place.path.names.back();
    }

    void Take(const std::string& name) {
        struct stat status {};
        if (name.find('\\') != std::string::npos) return;
        std::string path = PathBelow(m_contents.Folder.Path, name);
        // A name that Tavel gave to a file of the stick may be longer, and has to be seen there.
        if (!m_place.isOnRemovable && IsPathTooLong(path)) return;
        if (fstatat(m_folder, name.c_str(), &status, AT_SYMLINK_NOFOLLOW) != 0) return;
        if (m_place.isOnRemovable && status.st_dev != m_place.status.st_dev) return;
        const bool isLink = S_ISLNK(status.st_mode);
        if (isLink && !m_place.isOnRemovable) {
            if (fstatat(m_folder, name.c_str(), &status, 0) != 0 || LeadsHere(status)) return;
        }
        if (S_ISDIR(status.st_mode)) {
            m_contents.SubFolders.push_back(
                {std::move(path), name, isLink ? TextOf(IdOf(status)) : std::string()});
        } else if (S_ISREG(status.st_mode)) {
            m_contents.Files.push_back(
                {std::move(path), name, status.st_size, name.front() == '.'});
        }
    }

    FolderContents Contents() { return std::move(m_contents); }

  private:
    bool LeadsHere(const struct stat& status) {
        if (!S_ISDIR(status.st_mode)) return false;
        if (m_ancestors.empty()) m_ancestors = AncestorsOf(m_place.hostPath);
        return std::find(m_ancestors.begin(), m_ancestors.end(), IdOf(status)) != m_ancestors.end();
    }

    const Place& m_place;
    int m_folder;
    std::vector<FileId> m_ancestors;
    FolderContents m_contents;
};

// Names without regard to case; the bytes decide between names that are equal so.
void SortForPeople(std::vector<std::string>& names) {
    std::vector<std::pair<std::string, std::string>> keyed;
    keyed.reserve(names.size());
    for (std::string& name : names) keyed.emplace_back(LowerCase(name), std::move(name));
    std::sort(keyed.begin(), keyed.end());
    for (std::size_t i = 0; i < names.size(); ++i) names[i] = std::move(keyed[i].second);
}

}  // namespace

FolderContents ContentsOf(const Place& place) {
    if (place.failure == failure::PermissionDenied) Fail(failure::PermissionDenied);
    if (!place.IsFolder()) Fail(failure::PathNotFound);
    const Descriptor folder(
        openat(place.Parent(), place.name.c_str(), O_PATH | O_DIRECTORY | place.OpenFlags()));
    if (!folder.IsOpen()) Fail(failure::PathNotFound);
    int error = 0;
    std::vector<std::string> names = NamesIn(folder.Get(), error);
    if (error == EACCES || error == EPERM) Fail(failure::PermissionDenied);
    if (error != 0) Fail(failure::PathNotFound);
    SortForPeople(names);
    Lister lister(place, folder.Get());
    for (const std::string& name : names) lister.Take(name);
    return lister.Contents();
}

FileEntry EntryOfFile(const Place& place) {
    if (place.failure == failure::PermissionDenied) Fail(failure::PermissionDenied);
    if (!place.IsFile()) Fail(failure::FileNotFound);
    const std::string& name = place.path.names.back();
    return {place.path.Text(), name, place.status.st_size, name.front() == '.'};
}

}  // namespace tavel
