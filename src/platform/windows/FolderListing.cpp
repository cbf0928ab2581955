#include "platform/windows/FolderListing.h"

#include "platform/Failure.h"
#include "platform/HostNames.h"
#include "platform/Text.h"
#include "platform/windows/FileIdentity.h"
#include "platform/windows/HostErrors.h"
#include "platform/windows/HostPaths.h"
#include "platform/windows/Wide.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <tuple>
#include <utility>
#include <vector>

namespace tavel {

namespace {

// An entry of a folder as its listing tells it: a link is what it is itself.
struct Listed {
    std::string name;
    HostStatus status;
};

// ERROR_NO_MORE_FILES when all is told.
DWORD ListInto(std::vector<Listed>& entries, const std::wstring& callPath) {
    WIN32_FIND_DATAW data{};
    const std::wstring all = CallPathBelow(callPath, "*");
    const HANDLE listing =
        FindFirstFileExW(all.c_str(), FindExInfoBasic, &data, FindExSearchNameMatch, nullptr,
                         FIND_FIRST_EX_LARGE_FETCH);
    if (listing == INVALID_HANDLE_VALUE) return GetLastError();
    const std::unique_ptr<void, decltype(&FindClose)> closed(listing, FindClose);
    do {
        const std::wstring_view name = data.cFileName;
        if (name != L"." && name != L"..") entries.push_back({FromWide(name), StatusFrom(data)});
    } while (FindNextFileW(listing, &data) != 0);
    return GetLastError();
}

// The root of an empty drive has not even entries for itself.
bool IsAllTold(DWORD error) {
    return error == ERROR_NO_MORE_FILES || error == ERROR_FILE_NOT_FOUND;
}

// The root of a drive or share, and the folders of a path from there on.
void AddFoldersOf(const std::wstring& callPath, std::vector<FileIdentity>& folders) {
    const std::optional<DrivePath> path = ParseHostPath(FromWide(callPath));
    if (!path) return;
    std::wstring folder = CallPath(path->drive + '\\');
    folders.emplace_back(folder);
    for (const std::string& name : path->names) {
        folder = CallPathBelow(folder, name);
        folders.emplace_back(folder);
    }
}

// The folders that lead to a folder: those of the path by which it was reached, links followed,
// and those that really hold it.
std::vector<FileIdentity> AncestorsOf(const std::wstring& callPath) {
    std::vector<FileIdentity> ancestors;
    AddFoldersOf(callPath, ancestors);
    AddFoldersOf(FinalPath(callPath), ancestors);
    return ancestors;
}

class Lister {
  public:
    explicit Lister(const Place& place) : m_place(place) {
        m_contents.Folder.Path = place.path.Text();
        if (!place.path.names.empty()) m_contents.Folder.Name = place.path.names.back();
    }

    void Take(const Listed& entry) {
        if (HasRefusedCharacter(entry.name)) return;
        std::string path = PathBelow(m_contents.Folder.Path, entry.name);
        // A name that Tavel gave to a file of the stick may be longer, and has to be seen there.
        if (!m_place.isOnRemovable && IsPathTooLong(path)) return;
        if (entry.status.IsLink()) {
            TakeLink(entry, std::move(path));
        } else {
            Add(entry, entry.status, std::move(path), {});
        }
    }

    FolderContents Contents() { return std::move(m_contents); }

  private:
    void TakeLink(const Listed& entry, std::string path) {
        if (m_place.isOnRemovable) return;
        const std::wstring callPath = CallPathBelow(m_place.callPath, entry.name);
        const FileIdentity identity(callPath);
        HostStatus status;
        if (LookBehind(callPath, status) != 0 || (status.IsFolder() && LeadsHere(identity))) return;
        // Some servers give their files no identities.
        Add(entry, status, std::move(path),
            identity.IsKnown() ? identity.Text() : FromWide(FinalPath(callPath)));
    }

    void Add(const Listed& entry, const HostStatus& status, std::string path,
             std::string linkedTo) {
        if (status.IsFolder()) {
            m_contents.SubFolders.push_back({std::move(path), entry.name, std::move(linkedTo)});
        } else if (status.IsFile()) {
            m_contents.Files.push_back(
                {std::move(path), entry.name, status.size, entry.status.IsHidden()});
        }
    }

    bool LeadsHere(const FileIdentity& folder) {
        if (m_ancestors.empty()) m_ancestors = AncestorsOf(m_place.callPath);
        return std::find(m_ancestors.begin(), m_ancestors.end(), folder) != m_ancestors.end();
    }

    const Place& m_place;
    std::vector<FileIdentity> m_ancestors;
    FolderContents m_contents;
};

// Names without regard to case; the bytes decide between names that are equal so.
void SortForPeople(std::vector<Listed>& entries) {
    std::vector<std::pair<std::string, std::size_t>> keys;
    keys.reserve(entries.size());
    for (const Listed& entry : entries) keys.emplace_back(LowerCase(entry.name), keys.size());
    std::sort(keys.begin(), keys.end(), [&](const auto& a, const auto& b) {
        return std::tie(a.first, entries[a.second].name) <
               std::tie(b.first, entries[b.second].name);
    });
    std::vector<Listed> sorted;
    sorted.reserve(entries.size());
    for (const auto& [key, index] : keys) sorted.push_back(std::move(entries[index]));
    entries = std::move(sorted);
}

}  // namespace

FolderContents ContentsOf(const Place& place) {
    if (place.failure == failure::PermissionDenied) Fail(failure::PermissionDenied);
    if (!place.IsFolder()) Fail(failure::PathNotFound);
    std::vector<Listed> entries;
    const DWORD error = ListInto(entries, place.callPath);
    if (FailureOfHostError(error) == failure::PermissionDenied) Fail(failure::PermissionDenied);
    if (!IsAllTold(error)) Fail(failure::PathNotFound);
    SortForPeople(entries);
    Lister lister(place);
    for (const Listed& entry : entries) lister.Take(entry);
    return lister.Contents();
}

FileEntry EntryOfFile(const Place& place) {
    if (place.failure == failure::PermissionDenied) Fail(failure::PermissionDenied);
    if (!place.IsFile()) Fail(failure::FileNotFound);
    return {place.path.Text(), place.path.names.back(), place.status.size, place.status.IsHidden()};
}

}  // namespace tavel
