#include "platform/linux/HostPaths.h"

#include <stdlib.h>

#include <filesystem>
#include <memory>
#include <system_error>

namespace tavel {

namespace {

std::string TargetOf(const std::string& link) {
    std::error_code none;
    return std::filesystem::read_symlink(link, none).string();
}

}  // namespace

std::string HostJoin(std::string_view folder, std::string_view name) {
    std::string path;
    path.reserve(folder.size() + 1 + name.size());
    path += folder;
    if (path.empty() || path.back() != '/') path += '/';
    return path.append(name);
}

std::string FolderOf(std::string_view hostPath) {
    return std::string(hostPath.substr(0, hostPath.rfind('/') + 1));
}

std::string_view LastName(std::string_view hostPath) {
    return hostPath.substr(hostPath.rfind('/') + 1);
}

bool IsBelow(std::string_view hostPath, std::string_view root) {
    return hostPath.substr(0, root.size()) == root &&
           (hostPath.size() == root.size() || hostPath[root.size()] == '/');
}

DrivePath OnFixedDrive(std::string_view hostPath) {
    DrivePath path;
    path.Descend(hostPath, '/');
    return path;
}

std::string FixedDrivePath(std::string_view hostPath) { return OnFixedDrive(hostPath).Text(); }

std::string RealPath(const std::string& hostPath) {
    const std::unique_ptr<char, void (*)(void*)> path(realpath(hostPath.c_str(), nullptr), free);
    return path ? path.get() : std::string();
}

std::string PathOf(int file) { return TargetOf(PathThrough(file)); }

std::string PathOfProgram() { return TargetOf("/proc/self/exe"); }

std::string PathThrough(int file) { return "/proc/self/fd/" + std::to_string(file); }

}  // namespace tavel
