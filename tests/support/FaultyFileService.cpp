#include "support/FaultyFileService.h"

#include "platform/Failure.h"
#include "support/FaultyFile.h"
#include "support/HostPlaces.h"

#include <utility>

namespace tavel::test {

namespace {

std::string NameOf(RawMode mode) {
    switch (mode) {
        case RawMode::Create:
            return "Create";
        case RawMode::ReadWrite:
            return "ReadWrite";
        case RawMode::Read:
            break;
    }
    return "Read";
}

}  // namespace

class FakeDriveHandle : public Drive {
  public:
    FakeDriveHandle(FaultyFileService& service, char letter, int driveType)
        : m_service(service), m_letter(letter), m_driveType(driveType) {}

    std::string Path() const override { return {m_letter, ':'}; }
    int DriveType() const override { return m_driveType; }
    double TotalSize() const override { return Ready("TotalSize ").totalSize; }
    double FreeSpace() const override { return Ready("FreeSpace ").freeSpace; }

  private:
    const FakeDrive& Ready(const char* call) const {
        m_service.Record(call + Path());
        if (!m_service.Touch(m_letter)) Fail(failure::DeviceUnavailable);
        const FakeDrive& drive = m_service.At(m_letter);
        if (!drive.hasMedia) Fail(failure::DiskNotReady);
        return drive;
    }

    FaultyFileService& m_service;
    char m_letter;
    int m_driveType;
};

FaultyFileService::FaultyFileService(FileService& real) : m_real(real) {
    FakeDrive fixed;
    fixed.driveType = DriveFixed;
    m_drives.emplace('c', fixed);
}

FakeDrive& FaultyFileService::Plug(char letter, const std::string& hostFolder) {
    FakeDrive drive;
    drive.hostFolder = hostFolder;
    return m_drives[letter] = drive;
}

void FaultyFileService::FailOn(const std::string& callStart, Long number, int times, int spared) {
    m_faults.push_back({callStart, number, times, spared});
}

Long FaultyFileService::FailureOf(const std::string& call) {
    for (Fault& fault : m_faults) {
        if (fault.times == 0 || call.rfind(fault.callStart, 0) != 0) continue;
        if (fault.spared-- > 0) continue;
        --fault.times;
        return fault.number;
    }
    return 0;
}

void FaultyFileService::Record(const std::string& call) {
    calls.push_back(call);
    onCall(call);
    if (const Long number = FailureOf(call); number != 0) Fail(number);
}

Long FaultyFileService::RawFailureOf(const std::string& call) {
    rawCalls.push_back(call);
    onCall(call);
    return FailureOf(call);
}

FakeDrive* FaultyFileService::Find(char letter) {
    const auto found = m_drives.find(letter);
    return found == m_drives.end() || found->second.isGone ? nullptr : &found->second;
}

// An operation on the drive; false when there is none of that letter.
bool FaultyFileService::Touch(char letter) {
    FakeDrive* drive = Find(letter);
    if (drive == nullptr) return false;
    if (drive->operationsUntilGone == 0) drive->isGone = true;
    if (drive->operationsUntilGone != FakeDrive::plenty) --drive->operationsUntilGone;
    return !drive->isGone;
}

FaultyFileService::Mapped FaultyFileService::Map(std::string_view path) {
    Mapped mapped;
    const std::optional<DrivePath> parsed = ParseDrivePath(path, DrivePath());
    if (!parsed) {
        mapped.failure = failure::PathNotFound;
        return mapped;
    }
    mapped.path = *parsed;
    mapped.letter = parsed->letter;
    if (!Touch(mapped.letter)) {
        mapped.failure = failure::PathNotFound;
        return mapped;
    }
    const FakeDrive& drive = m_drives.at(mapped.letter);
    if (!drive.hasMedia) mapped.failure = failure::DiskNotReady;
    mapped.real = drive.hostFolder.empty() ? "c:\\" : OnDrive(drive.hostFolder);
    for (const std::string& name : parsed->names) mapped.real = PathBelow(mapped.real, name);
    if (parsed->endsInSeparator && mapped.real.back() != '\\') mapped.real += '\\';
    return mapped;
}

FaultyFileService::Mapped FaultyFileService::MapForChange(std::string_view path) {
    Mapped mapped = Map(path);
    if (mapped.failure != 0) Fail(mapped.failure);
    return mapped;
}

void FaultyFileService::RequireNameAllowed(const Mapped& target) const {
    if (!target.path.names.empty() && m_refused.count(target.path.names.back()) != 0) {
        Fail(failure::BadFileName);
    }
}

// Takes the room of a whole file on the target's drive; a file that does not fit leaves nothing.
void FaultyFileService::Store(const Mapped& target, std::int64_t bytes) {
    FakeDrive& drive = m_drives.at(target.letter);
    const bool isTooLarge = bytes > drive.bytesUntilFull;
    const bool isPulled = bytes > drive.bytesUntilGone;
    if (isPulled) drive.isGone = true;
    if (isPulled || isTooLarge) {
        if (m_real.FileExists(target.real)) m_real.DeleteFile(target.real, true);
        Fail(isPulled ? failure::DeviceIO : failure::DiskFull);
    }
    if (drive.bytesUntilFull != FakeDrive::plenty) drive.bytesUntilFull -= bytes;
    if (drive.bytesUntilGone != FakeDrive::plenty) drive.bytesUntilGone -= bytes;
}

bool FaultyFileService::DriveExists(std::string_view name) {
    Record("DriveExists " + std::string(name));
    return Touch(DriveLetterOf(name));
}

std::shared_ptr<Drive> FaultyFileService::GetDrive(std::string_view name) {
    Record("GetDrive " + std::string(name));
    const char letter = DriveLetterOf(name);
    if (!Touch(letter)) Fail(failure::DeviceUnavailable);
    return std::make_shared<FakeDriveHandle>(*this, letter, At(letter).driveType);
}

std::vector<std::string> FaultyFileService::DriveTexts() {
    Record("DriveTexts");
    std::vector<std::string> texts;
    for (const auto& [letter, drive] : m_drives) {
        if (drive.isGone) continue;
        const bool hasLabel = drive.hasMedia && !drive.label.empty();
        texts.push_back(std::string{letter, ':'} + (hasLabel ? " [" + drive.label + "]" : ""));
    }
    return texts;
}

bool FaultyFileService::FileExists(std::string_view path) {
    Record("FileExists " + std::string(path));
    const Mapped mapped = Map(path);
    return mapped.failure == 0 && m_real.FileExists(mapped.real);
}

bool FaultyFileService::FolderExists(std::string_view path) {
    Record("FolderExists " + std::string(path));
    const Mapped mapped = Map(path);
    return mapped.failure == 0 && m_real.FolderExists(mapped.real);
}

FileEntry FaultyFileService::GetFile(std::string_view path) {
    Record("GetFile " + std::string(path));
    const Mapped mapped = Map(path);
    if (mapped.failure != 0) Fail(failure::FileNotFound);
    FileEntry entry = m_real.GetFile(mapped.real);
    entry.Path = mapped.path.Text();
    return entry;
}

FolderContents FaultyFileService::GetFolder(std::string_view path) {
    Record("GetFolder " + std::string(path));
    const Mapped mapped = Map(path);
    if (mapped.failure != 0) Fail(failure::PathNotFound);
    FolderContents contents = m_real.GetFolder(mapped.real);
    contents.Folder.Path = mapped.path.Text();
    if (mapped.path.names.empty()) contents.Folder.Name.clear();
    for (FolderEntry& folder : contents.SubFolders) {
        folder.Path = PathBelow(contents.Folder.Path, folder.Name);
    }
    for (FileEntry& file : contents.Files) file.Path = PathBelow(contents.Folder.Path, file.Name);
    return contents;
}

void FaultyFileService::CreateFolder(std::string_view path) {
    Record("CreateFolder " + std::string(path));
    const Mapped mapped = MapForChange(path);
    RequireNameAllowed(mapped);
    m_real.CreateFolder(mapped.real);
}

void FaultyFileService::MoveFile(std::string_view source, std::string_view target) {
    Record("MoveFile " + std::string(source) + " -> " + std::string(target));
    const Mapped from = MapForChange(source);
    const Mapped to = MapForChange(target);
    RequireNameAllowed(to);
    if (from.letter != to.letter) Store(to, m_real.GetFile(from.real).Size);
    m_real.MoveFile(from.real, to.real);
}

void FaultyFileService::CopyFile(std::string_view source, std::string_view target, bool overwrite) {
    Record("CopyFile " + std::string(source) + " -> " + std::string(target));
    const Mapped from = MapForChange(source);
    const Mapped to = MapForChange(target);
    RequireNameAllowed(to);
    Store(to, m_real.GetFile(from.real).Size);
    m_real.CopyFile(from.real, to.real, overwrite);
}

void FaultyFileService::DeleteFile(std::string_view path, bool force) {
    Record("DeleteFile " + std::string(path) + (force ? " forced" : ""));
    m_real.DeleteFile(MapForChange(path).real, force);
}

// The two steps, each of which may fail.
void FaultyFileService::ReplaceFile(std::string_view path, std::string_view source) {
    DeleteFile(path, false);
    MoveFile(source, path);
}

void FaultyFileService::DeleteLinks(std::string_view folder, std::string_view name) {
    Record("DeleteLinks " + PathBelow(folder, name));
    m_real.DeleteLinks(MapForChange(folder).real, name);
}

void FaultyFileService::CopyRights(std::string_view source, std::string_view target) {
    const std::string call = "CopyRights " + std::string(source) + " -> " + std::string(target);
    calls.push_back(call);
    onCall(call);
    if (FailureOf(call) != 0) return;
    const Mapped from = Map(source);
    const Mapped to = Map(target);
    if (from.failure == 0 && to.failure == 0) m_real.CopyRights(from.real, to.real);
}

std::string FaultyFileService::GetTempFolder() {
    Record("GetTempFolder");
    return tempFolder.empty() ? m_real.GetTempFolder() : tempFolder;
}

std::string FaultyFileService::CreateTempFile(std::string_view folder, std::string_view prefix) {
    Record("CreateTempFile " + std::string(folder));
    const Mapped mapped = MapForChange(folder);
    const std::string real = m_real.CreateTempFile(mapped.real, prefix);
    return PathBelow(folder, std::string_view(real).substr(real.rfind('\\') + 1));
}

void FaultyFileService::CreateTextFile(std::string_view path, bool overwrite) {
    Record("CreateTextFile " + std::string(path) + (overwrite ? "" : " only if new"));
    const Mapped mapped = MapForChange(path);
    RequireNameAllowed(mapped);
    m_real.CreateTextFile(mapped.real, overwrite);
}

std::unique_ptr<RawFile> FaultyFileService::OpenRaw(std::string_view path, RawMode mode,
                                                    Long& error) {
    try {
        Record("OpenRaw " + NameOf(mode) + " " + std::string(path));
        const Mapped mapped = MapForChange(path);
        if (mode == RawMode::Create) RequireNameAllowed(mapped);
        std::unique_ptr<RawFile> real = m_real.OpenRaw(mapped.real, mode, error);
        if (!real) return nullptr;
        const std::string& name = mapped.path.names.back();
        const auto faultOf = [&](const std::map<std::string, std::int64_t>& faults) {
            const auto found = faults.find(name);
            return found == faults.end() ? FakeDrive::plenty : found->second;
        };
        return std::make_unique<FaultyFile>(
            *this, std::move(real), mapped.letter, std::string(path),
            FaultyFile::Faults{faultOf(m_readFaults), faultOf(m_writeFaults),
                               m_closeFaults.count(name) != 0});
    } catch (const Failure& failure) {
        error = failure.Number();
        return nullptr;
    }
}

std::string FaultyFileService::ReadWhole(std::string_view path) {
    Record("ReadWhole " + std::string(path));
    const Mapped mapped = Map(path);
    if (mapped.failure != 0) Fail(failure::FileNotFound);
    return m_real.ReadWhole(mapped.real);
}

std::string FaultyFileService::HostPath(std::string_view path) {
    Record("HostPath " + std::string(path));
    const Mapped mapped = Map(path);
    return mapped.failure == 0 ? m_real.HostPath(mapped.real) : std::string();
}

std::string FaultyFileService::FromHostPath(std::string_view hostPath) {
    Record("FromHostPath " + std::string(hostPath));
    const std::string path = OnDrive(std::string(hostPath));
    for (const auto& [letter, drive] : m_drives) {
        if (drive.hostFolder.empty()) continue;
        const std::string folder = OnDrive(drive.hostFolder);
        if (path == folder) return {letter, ':', '\\'};
        if (path.rfind(folder + '\\', 0) == 0)
            return std::string{letter, ':'} + path.substr(folder.size());
    }
    return path;
}

}  // namespace tavel::test
