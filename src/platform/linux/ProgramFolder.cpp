#include "platform/linux/ProgramFolder.h"

#include "platform/FileService.h"
#include "platform/ProgramFolder.h"
#include "platform/linux/FillFolder.h"
#include "platform/linux/HostPaths.h"

#include <pwd.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <system_error>

namespace tavel {

namespace {

namespace fs = std::filesystem;

bool IsAbsolute(const char* path) { return path != nullptr && *path == '/'; }

std::string HomeFolder() {
    const char* const told = std::getenv("HOME");
    if (IsAbsolute(told)) return told;
    const passwd* const user = getpwuid(geteuid());
    return user != nullptr && IsAbsolute(user->pw_dir) ? user->pw_dir : "/";
}

// A relative path there is to be ignored, as all programs do.
fs::path DataFolder() {
    const char* const told = std::getenv("XDG_DATA_HOME");
    return IsAbsolute(told) ? fs::path(told) : fs::path(HomeFolder()) / ".local/share";
}

// As the drives have it: behind all links, as far as it is there already.
std::string WithoutLinks(const fs::path& path) {
    std::error_code failed;
    const fs::path real = fs::weakly_canonical(path, failed);
    return (failed ? path : real).string();
}

const ProgramPlace& OwnPlace() {
    static const ProgramPlace place = PlaceOfProgramAt(PathOfProgram());
    return place;
}

}  // namespace

ProgramPlace PlaceOfProgramAt(const std::string& program) {
    const fs::path folder = fs::path(program).parent_path();
    const fs::path installed = folder.parent_path() / "share/tavel";
    std::error_code none;
    if (folder.filename() != "bin" || !fs::is_directory(installed, none))
        return {folder.string(), {}};
    return {WithoutLinks(DataFolder() / "Tavel"), installed.string()};
}

std::string ProgramFolderOfHost() { return OwnPlace().folder; }

std::string ProgramFolder() { return oFSO().FromHostPath(ProgramFolderOfHost()); }

void FillProgramFolder() {
    const ProgramPlace& place = OwnPlace();
    if (!place.installed.empty()) FillFolder(place.installed, place.folder);
}

}  // namespace tavel
