#include "platform/linux/HostFileService.h"

#include "platform/Failure.h"
#include "platform/FileReading.h"
#include "platform/HostNames.h"
#include "platform/linux/DriveTable.h"
#include "platform/linux/FileOperations.h"
#include "platform/linux/FolderListing.h"
#include "platform/linux/HostDrive.h"
#include "platform/linux/HostFile.h"
#include "platform/linux/HostPaths.h"
#include "platform/linux/ProgramFolder.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace tavel {

namespace {

class LinuxFileService : public FileService {
  public:
    LinuxFileService(const std::string& programFolder, std::unique_ptr<MountSource> mounts)
        : m_drives(std::make_shared<DriveTable>(programFolder, std::move(mounts))) {}

    bool DriveExists(std::string_view name) override {
        const char letter = DriveLetterOf(name);
        return letter == 'c' || (letter != 0 && m_drives->Has(letter));
    }

    std::shared_ptr<Drive> GetDrive(std::string_view name) override {
        if (!DriveExists(name)) Fail(failure::DeviceUnavailable);
        return std::make_shared<HostDrive>(DriveLetterOf(name), m_drives);
    }

    std::vector<std::string> DriveTexts() override {
        std::vector<std::string> texts{"c:"};
        for (const DriveTable::Entry& entry : m_drives->Entries()) {
            std::string text{entry.letter, ':'};
            if (!entry.label.empty()) text += " [" + entry.label + "]";
            texts.insert(entry.letter < 'c' ? texts.end() - 1 : texts.end(), std::move(text));
        }
        return texts;
    }

    bool FileExists(std::string_view path) override { return Find(path).IsFile(); }
    bool FolderExists(std::string_view path) override { return Find(path).IsFolder(); }
    FileEntry GetFile(std::string_view path) override { return EntryOfFile(Find(path)); }
    FolderContents GetFolder(std::string_view path) override { return ContentsOf(Find(path)); }
    void CreateFolder(std::string_view path) override { CreateFolderAt(Find(path)); }

    void MoveFile(std::string_view source, std::string_view target) override {
        MoveFileBetween(*m_drives, source, target);
    }
    void CopyFile(std::string_view source, std::string_view target, bool overwrite) override {
        CopyFileBetween(*m_drives, source, target, overwrite);
    }
    void DeleteFile(std::string_view path, bool force) override { DeleteFileAt(Find(path), force); }
    void ReplaceFile(std::string_view path, std::string_view source) override {
        ReplaceFileBetween(*m_drives, path, source);
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
        const char* const ofUser = std::getenv("TMPDIR");
        for (const std::string_view folder : {ofUser != nullptr ? ofUser : "", "/tmp"}) {
            if (folder.substr(0, 1) != "/") continue;
            std::string path = FromHostPath(folder);
            if (FolderExists(path)) return path;
        }
        return {};
    }
    std::string CreateTempFile(std::string_view folder, std::string_view prefix) override {
        return CreateTempFileIn(*m_drives, folder, prefix);
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
        if (place.failure != 0) return canBeCreated ? place.hostPath : std::string();
        return place.isOnRemovable ? HostPathInOwnSpelling(place) : place.hostPath;
    }

    std::string FromHostPath(std::string_view hostPath) override {
        const DriveTable::Entry drive = DriveOf(hostPath);
        if (!drive.isLink) return FixedDrivePath(hostPath);
        hostPath.remove_prefix(drive.hostRoots.front().size());
        return std::string{drive.letter, ':'} + FixedDrivePath(hostPath).substr(2);
    }

  private:
    // The innermost drive that holds it, with the one root that it lies below; a link is chosen
    // before a mount of the same root.
    DriveTable::Entry DriveOf(std::string_view hostPath) {
        DriveTable::Entry found{'c', false, {}, {""}};
        for (const DriveTable::Entry& entry : m_drives->Entries()) {
            for (const std::string& root : entry.hostRoots) {
                const std::size_t longest = found.hostRoots.front().size();
                const bool isInner =
                    root.size() > longest || (entry.isLink && root.size() == longest);
                if (isInner && IsBelow(hostPath, root))
                    found = {entry.letter, entry.isLink, {}, {root}};
            }
        }
        return found;
    }

    Place Find(std::string_view path) { return FindPlace(*m_drives, path); }

    std::shared_ptr<DriveTable> m_drives;
};

}  // namespace

std::unique_ptr<FileService> MakeHostFileService(const std::string& programFolder,
                                                 std::unique_ptr<MountSource> mounts) {
    return std::make_unique<LinuxFileService>(programFolder, std::move(mounts));
}

template <>
FileService* OwnService<FileService>() {
    static const std::unique_ptr<FileService> service =
        MakeHostFileService(ProgramFolderOfHost(), MakeHostMounts());
    return service.get();
}

bool IsNameAllowed(std::string_view name) {
    constexpr std::size_t longest = 255;  // bytes, in the file systems of the host
    const std::string made = NameToCreate(name);
    return !made.empty() && made.size() <= longest;
}

}  // namespace tavel
