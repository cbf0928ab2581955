#include "platform/windows/HostPaths.h"

#include "platform/HostNames.h"
#include "platform/Text.h"
#include "platform/windows/Wide.h"
#include "platform/windows/WindowsApi.h"

#include <algorithm>

namespace tavel {

namespace {

constexpr std::string_view prefix = "\\\\?\\";
constexpr std::string_view sharePrefix = "\\\\?\\UNC\\";
constexpr std::string_view twoSeparators = "\\\\";

bool StartsWith(std::string_view text, std::string_view start) {
    return text.substr(0, start.size()) == start;
}

std::string WithoutPrefix(std::string_view path) {
    if (StartsWith(path, sharePrefix))
        return std::string(twoSeparators).append(path.substr(sharePrefix.size()));
    return std::string(StartsWith(path, prefix) ? path.substr(prefix.size()) : path);
}

// The part up to the next separator, which is taken away with it.
std::string_view TakeName(std::string_view& text) {
    const std::string_view name = text.substr(0, text.find('\\'));
    text.remove_prefix(std::min(name.size() + 1, text.size()));
    return name;
}

bool IsComputer(std::string_view name) { return !name.empty() && name != "." && name != "?"; }

// A name that the host would read as another one in a plain path.
bool NeedsPrefix(const std::string& name) { return NameToCreate(name) != ToUtf8(name); }

}  // namespace

std::optional<DrivePath> ParseSharePath(std::string_view text) {
    if (!StartsWith(text, twoSeparators) || text.find('\0') != std::string_view::npos)
        return std::nullopt;
    DrivePath path;
    path.endsInSeparator = text.back() == '\\';
    text.remove_prefix(twoSeparators.size());
    const std::string_view computer = TakeName(text);
    const std::string_view share = TakeName(text);
    if (!IsComputer(computer) || !IsComputer(share) || share == "..") return std::nullopt;
    path.letter = 0;
    path.drive = std::string(twoSeparators).append(computer).append("\\").append(share);
    path.Descend(text);
    return path;
}

std::optional<DrivePath> ParseHostPath(std::string_view text) {
    std::string path(text);
    std::replace(path.begin(), path.end(), '/', '\\');
    path = WithoutPrefix(path);
    if (path.size() >= 2 && DriveLetter(path[0]) != 0 && path[1] == ':')
        return ParseDrivePath(path, DrivePath());
    return ParseSharePath(path);
}

std::wstring CallPath(std::string_view hostPath) {
    const std::optional<DrivePath> path = ParseHostPath(hostPath);
    if (!path) return {};
    const std::string text = path->Text();
    if (path->letter != 0) return ToWide(std::string(prefix).append(text));
    return ToWide(std::string(sharePrefix).append(text.substr(twoSeparators.size())));
}

std::wstring CallPathBelow(const std::wstring& folder, std::string_view name) {
    const bool isRoot = !folder.empty() && folder.back() == L'\\';
    return folder + (isRoot ? L"" : L"\\") + ToWide(name);
}

std::string HostPathOf(const std::wstring& callPath) {
    std::string path = FromWide(callPath);
    const std::optional<DrivePath> parsed = ParseHostPath(path);
    const bool isPlain = parsed && callPath.size() < MAX_PATH &&
                         std::none_of(parsed->names.begin(), parsed->names.end(), NeedsPrefix);
    return isPlain ? WithoutPrefix(path) : path;
}

std::wstring_view LastName(std::wstring_view callPath) {
    return callPath.substr(callPath.rfind(L'\\') + 1);
}

std::wstring FolderOf(const std::wstring& callPath) {
    std::wstring folder = callPath.substr(0, callPath.rfind(L'\\'));
    if (folder.back() == L':') folder += L'\\';
    return folder;
}

}  // namespace tavel
