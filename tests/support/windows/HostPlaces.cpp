#include "support/HostPlaces.h"

#include "platform/Text.h"
#include "platform/windows/Wide.h"
#include "platform/windows/WindowsApi.h"

#include <algorithm>
#include <stdexcept>

namespace tavel::test {

std::string OnDrive(const std::string& hostPath) {
    std::string path = hostPath;
    std::replace(path.begin(), path.end(), '/', '\\');
    path.front() = AsciiLower(path.front());
    return path;
}

std::filesystem::path AsHostPath(const std::string& hostPath) { return ToWide(hostPath); }

namespace {

std::string ProgramHostPath() {
    std::wstring path(MAX_PATH, L'\0');
    path.resize(::GetModuleFileNameW(nullptr, path.data(), MAX_PATH));
    std::replace(path.begin(), path.end(), L'\\', L'/');
    return FromWide(path);
}

}  // namespace

std::string ProgramHostFolder() {
    const std::string path = ProgramHostPath();
    return path.substr(0, path.rfind('/'));
}

std::string ProgramHostName() {
    const std::string path = ProgramHostPath();
    return path.substr(path.rfind('/') + 1);
}

void Hide(const std::filesystem::path& hostPath) {
    if (::SetFileAttributesW(hostPath.c_str(), FILE_ATTRIBUTE_HIDDEN) == 0)
        throw std::runtime_error("the file was not hidden");
}

}  // namespace tavel::test
