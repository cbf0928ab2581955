#include "platform/windows/PickedPaths.h"

#include "platform/FileService.h"
#include "platform/windows/HostPaths.h"
#include "platform/windows/Wide.h"

namespace tavel {

namespace {

std::vector<std::wstring> Pieces(const std::wstring& told) {
    std::vector<std::wstring> pieces;
    for (std::size_t start = 0; start < told.size() && told[start] != 0;) {
        pieces.emplace_back(told.c_str() + start);
        start += pieces.back().size() + 1;
    }
    return pieces;
}

bool IsWhole(const std::wstring& path) { return ParseHostPath(FromWide(path)).has_value(); }

std::string AsDrivePath(const std::wstring& path) { return oFSO().FromHostPath(FromWide(path)); }

}  // namespace

std::vector<std::string> PickedPaths(const std::wstring& told) {
    const std::vector<std::wstring> pieces = Pieces(told);
    if (pieces.size() == 1) return {AsDrivePath(pieces.front())};
    std::vector<std::string> paths;
    for (std::size_t i = 1; i < pieces.size(); ++i) {
        const bool isWhole = IsWhole(pieces[i]);
        paths.push_back(AsDrivePath(isWhole ? pieces[i] : pieces.front() + L'\\' + pieces[i]));
    }
    return paths;
}

}  // namespace tavel
