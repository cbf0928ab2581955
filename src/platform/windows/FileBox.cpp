#include "platform/windows/FileBox.h"

#include "platform/FileService.h"
#include "platform/windows/Wide.h"

#include <windows.h>
#include <commdlg.h>

#include <algorithm>

namespace tavel {

namespace {

constexpr std::size_t room = 65'536;  // characters, for what a user may pick at once

// What belongs to the box itself, and what needs more than words from its caller.
constexpr DWORD always = OFN_EXPLORER | OFN_NOCHANGEDIR | OFN_ENABLESIZING;
constexpr DWORD never = OFN_ENABLEHOOK | OFN_ENABLETEMPLATE | OFN_ENABLETEMPLATEHANDLE;

// Words and patterns by turns, each with a NUL behind it; the last NUL is the text's own.
std::wstring FilterText(const HostFileRequest& request) {
    std::wstring text;
    for (const auto& [words, patterns] : request.filters)
        text += ToWide(words) + L'\0' + ToWide(patterns) + L'\0';
    return text;
}

std::vector<std::wstring> Pieces(const std::wstring& buffer) {
    std::vector<std::wstring> pieces;
    for (std::size_t start = 0; start < buffer.size() && buffer[start] != 0;) {
        pieces.emplace_back(buffer.c_str() + start);
        start += pieces.back().size() + 1;
    }
    return pieces;
}

// The buffer has a single path; or the folder, and behind it the names.
std::vector<std::string> Picked(const std::wstring& buffer) {
    const std::vector<std::wstring> pieces = Pieces(buffer);
    if (pieces.size() == 1) return {oFSO().FromHostPath(FromWide(pieces.front()))};
    std::vector<std::string> files;
    for (std::size_t i = 1; i < pieces.size(); ++i)
        files.push_back(oFSO().FromHostPath(FromWide(pieces.front() + L'\\' + pieces[i])));
    return files;
}

}  // namespace

HostFileAnswer RunFileBox(const HostFileRequest& request) {
    std::wstring buffer = ToWide(request.startName);
    buffer.resize(std::max(room, buffer.size() + 1));
    const std::wstring filter = FilterText(request);
    const std::wstring title = ToWide(request.title);
    const std::wstring folder = ToWide(request.startFolder);
    const std::wstring extension = ToWide(request.defaultExtension);

    OPENFILENAMEW box{};
    box.lStructSize = sizeof box;
    box.hwndOwner = reinterpret_cast<HWND>(request.owner);
    box.lpstrFilter = filter.empty() ? nullptr : filter.c_str();
    box.nFilterIndex = static_cast<DWORD>(request.filterIndex + 1);
    box.lpstrFile = buffer.data();
    box.nMaxFile = static_cast<DWORD>(buffer.size());
    box.lpstrInitialDir = folder.empty() ? nullptr : folder.c_str();
    box.lpstrTitle = title.empty() ? nullptr : title.c_str();
    box.lpstrDefExt = extension.empty() ? nullptr : extension.c_str();
    box.Flags = (static_cast<DWORD>(request.flags) & ~never) | always;

    HostFileAnswer answer;
    answer.isChosen = (request.saving ? GetSaveFileNameW(&box) : GetOpenFileNameW(&box)) != FALSE;
    if (!answer.isChosen) {
        answer.error = static_cast<Long>(CommDlgExtendedError());
        return answer;
    }
    answer.files = Picked(buffer);
    answer.filterIndex = static_cast<int>(box.nFilterIndex) - 1;
    answer.readOnly = (box.Flags & OFN_READONLY) != 0;
    return answer;
}

}  // namespace tavel
