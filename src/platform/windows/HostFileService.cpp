#include "platform/windows/HostFileService.h"

#include "platform/Failure.h"
#include "platform/FileReading.h"
#include "platform/HostNames.h"
#include "platform/windows/FileOperations.h"
#include "platform/windows/FolderListing.h"
#include "platform/windows/HostDrive.h"
#include "platform/windows/HostErrors.h"
#include "platform/windows/HostFile.h"
#include "platform/windows/HostPaths.h"
#include "platform/windows/Wide.h"
#include "platform/windows/WindowsApi.h"

#include <algorithm>
#include <utility>

namespace tavel {

namespace {

std::string ProgramFolderOfHost() {
    std::wstring path(MAX_PATH, L'\0');
    DWORD length = 0;
    while ((length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()))) ==
           path.size())
        path.resize(2 * path.size());
    if (length == 0) FailWithHostError();
    path.resize(length);
    return FromWide(FolderOf(path));
}

// Where the user's programs put their temporary files; its names may be short ones.
std::wstring TempFolderOfHost() {
    std::wstring path(MAX_PATH + 2, L'\0');
    path.resize(GetTempPathW(static_cast<DWORD>(path.size()), path.data()));
    std::wstring longPath(path.size(), L'\0');
    for (;;) {
        const DWORD length =
            GetLongPathNameW(path.c_str(), longPath.data(), static_cast<DWORD>(longPath.size()));
        if (length == 0) return path;
        const bool fits = length < longPath.size();
        longPath.resize(length);
        if (fits) return longPath;
    }
}

// Else the host would ask the user, in a box of its own, to put a medium into an empty drive.
void KeepHostFromAsking() { SetErrorMode(GetErrorMode() | SEM_FAILCRITICALERRORS); }

// Letters of drives are small ones in the paths that this tells.
std::optional<DrivePath> AsDrivePath(std::string_view hostPath) {
    std::optional<DrivePath> path = ParseHostPath(hostPath);
    if (path && path->letter != 0) path->drive.front() = path->letter;
    return path;
}

class WindowsFileService : public FileService {
  public:
    WindowsFileService(const std::string& programFolder, std::unique_ptr<DriveSource> drives)
        : m_tree{std::move(drives), AsDrivePath(programFolder).value_or(DrivePath())} {
        KeepHostFromAsking();
    }

    bool DriveExists(std::string_view name) override {
        const char letter = DriveLetterOf(name);
        return letter != 0 && m_tree.drives->Has(letter);
    }

    std::shared_ptr<Drive> GetDrive(std::string_view name) override {
        if (!DriveExists(name)) Fail(failure::DeviceUnavailable);
        return std::make_shared<HostDrive>(m_tree.drives->Entry(DriveLetterOf(name)),
                                           m_tree.drives);
    }

    std::vector<std::string> DriveTexts() override {
        std::vector<std::string> texts;
        for (const HostDriveEntry& entry : m_tree.drives->Entries()) {
            texts.push_back({entry.letter, ':'});
            if (!entry.label.empty()) texts.back() += " [" + entry.label + "]";
        }
        return texts;
    }

    bool FileExists(std::string_view path) override { return Find(path).IsFile(); }
    bool FolderExists(std::string_view path) override { return Find(path).IsFolder(); }
    FileEntry GetFile(std::string_view path) override { return EntryOfFile(Find(path)); }
    FolderContents GetFolder(std::string_view path) override { return ContentsOf(Find(path)); }
    void CreateFolder(std::string_view path) override { CreateFolderAt(Find(path)); }

    void MoveFile(std::string_view source, std::string_view target) override {
        MoveFileBetween(m_tree, source, target);
    }
    void CopyFile(std::string_view source, std::string_view target, bool overwrite) override {
        CopyFileBetween(m_tree, source, target, overwrite);
    }
    void DeleteFile(std::string_view path, bool force) override { DeleteFileAt(Find(path), force); }
    void ReplaceFile(std::string_view path, std::string_view source) override {
        ReplaceFileBetween(m_tree, path, source);
    }
    void DeleteLinks(std::string_view folder, std::string_view name) override {
        DeleteLinksIn(Find(folder), name);
    }
    void CopyRights(std::string_view source, std::string_view target) override {
        CopyRightsBetween(Find(source), Find(target));
    }
    void CreateTextFile(std::string_view path, bool overwrite) override {
        CreateTextFileAt(Find(path), overwrite);
    }

    std::string GetTempFolder() override {
        std::string path = FromHostPath(FromWide(TempFolderOfHost()));
        return FolderExists(path) ? path : std::string();
    }
    std::string CreateTempFile(std::string_view folder, std::string_view prefix) override {
        return CreateTempFileIn(m_tree, folder, prefix);
    }

    std::unique_ptr<RawFile> OpenRaw(std::string_view path, RawMode mode, Long& error) override {
        return OpenHostFile(Find(path), mode, error);
    }

    std::string ReadWhole(std::string_view path) override {
        Place place = Find(path);
        EntryOfFile(place);
        Long error = 0;
        const std::unique_ptr<HostFile> file = OpenHostFile(std::move(place), RawMode::Read, error);
        if (!file) Fail(error);
        return ReadToEnd(*file);
    }

    std::string HostPath(std::string_view path) override {
        const Place place = Find(path);
        const bool canBeCreated = place.failure == failure::FileNotFound && !place.name.empty();
        if (place.failure != 0) return canBeCreated ? HostPathOf(place.callPath) : std::string();
        return HostPathOf(InOwnSpelling(place.callPath));
    }

    // The host's drives have the letters of the paths, and keep them.
    std::string FromHostPath(std::string_view hostPath) override {
        const std::optional<DrivePath> path = AsDrivePath(hostPath);
        return path ? path->Text() : std::string(hostPath);
    }

  private:
    Place Find(std::string_view path) { return FindPlace(m_tree, path); }

    HostTree m_tree;
};

}  // namespace

std::unique_ptr<FileService> MakeHostFileService(const std::string& programFolder,
                                                 std::unique_ptr<DriveSource> drives) {
    return std::make_unique<WindowsFileService>(programFolder, std::move(drives));
}

template <>
FileService* OwnService<FileService>() {
    static const std::unique_ptr<FileService> service =
        MakeHostFileService(ProgramFolderOfHost(), MakeHostDriveSource());
    return service.get();
}

bool IsNameAllowed(std::string_view name) {
    constexpr std::size_t longest = 255;  // units of two bytes, in the file systems of the host
    const std::string made = NameToCreate(name);
    return !made.empty() && ToWide(made).size() <= longest;
}

std::string ProgramFolder() { return oFSO().FromHostPath(ProgramFolderOfHost()); }

}  // namespace tavel
