#include "platform/windows/FileBox.h"

#include "platform/windows/PickedPaths.h"
#include "platform/windows/Wide.h"

#include <windows.h>
#include <commdlg.h>

#include <algorithm>

namespace tavel {

namespace {

constexpr std::size_t room = 65'536;  // characters, for what a user may pick at once

// What belongs to the box itself, and what needs more than words from its caller.
constexpr DWORD always = OFN_EXPLORER | OFN_ENABLESIZING;
constexpr DWORD never = OFN_ENABLEHOOK | OFN_ENABLETEMPLATE | OFN_ENABLETEMPLATEHANDLE;

// Words and patterns by turns, each with a NUL behind it; the last NUL is the text's own.
std::wstring FilterText(const HostFileRequest& request) {
    std::wstring text;
    for (const auto& [words, patterns] : request.filters)
        text += ToWide(words) + L'\0' + ToWide(patterns) + L'\0';
    return text;
}

// The box goes to folders itself and takes the process along, whatever its flags say of it; and a
// stick that a process has its current folder on can't be removed.
class CurrentFolder {
  public:
    CurrentFolder() {
        m_path.resize(GetCurrentDirectoryW(0, nullptr));
        GetCurrentDirectoryW(static_cast<DWORD>(m_path.size()), m_path.data());
    }
    ~CurrentFolder() { SetCurrentDirectoryW(m_path.c_str()); }
    CurrentFolder(const CurrentFolder&) = delete;
    CurrentFolder& operator=(const CurrentFolder&) = delete;

  private:
    std::wstring m_path;
};

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

    const CurrentFolder stays;
    HostFileAnswer answer;
    answer.isChosen = (request.saving ? GetSaveFileNameW(&box) : GetOpenFileNameW(&box)) != FALSE;
    if (!answer.isChosen) {
        answer.error = static_cast<Long>(CommDlgExtendedError());
        return answer;
    }
    answer.files = PickedPaths(buffer);
    answer.filterIndex = static_cast<int>(box.nFilterIndex) - 1;
    answer.readOnly = (box.Flags & OFN_READONLY) != 0;
    return answer;
}

}  // namespace tavel
