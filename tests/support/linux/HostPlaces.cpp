#include "support/HostPlaces.h"

#include <algorithm>

namespace tavel::test {

std::string OnDrive(const std::string& hostPath) {
    std::string path = "c:" + hostPath;
    std::replace(path.begin(), path.end(), '/', '\\');
    return path;
}

std::filesystem::path AsHostPath(const std::string& hostPath) { return hostPath; }

namespace {

std::filesystem::path ProgramHostPath() { return std::filesystem::read_symlink("/proc/self/exe"); }

}  // namespace

std::string ProgramHostFolder() { return ProgramHostPath().parent_path().string(); }

std::string ProgramHostName() { return ProgramHostPath().filename().string(); }

void Hide(const std::filesystem::path&) {}

}  // namespace tavel::test
