#include "core/PublicStuff.h"
#include "platform/Failure.h"
#include "platform/Text.h"
#include "ui/toolkit/Prompts.h"
#include "ui/toolkit/Strings.h"
#include "ui/toolkit/dialogs/CDLG.h"

#include <QFileInfo>
#include <algorithm>

namespace tavel {

namespace {

constexpr Long flagHook = 0x20;
constexpr Long flagTemplate = 0x40;

// The filter as a dialog wants it: every separator a NUL, two more at the end.
std::string DialogForm(std::string filter) {
    std::replace(filter.begin(), filter.end(), ':', '\0');
    std::replace(filter.begin(), filter.end(), '|', '\0');
    return filter.append(2, '\0');
}

// What the flags and the filter ask of a dialog.
FileRequest RequestOf(Long word, const std::string& dialogFilter, Long filterIndex) {
    FileRequest request;
    request.flags = word;
    const std::vector<std::string> pieces = Split(dialogFilter, '\0');
    for (std::size_t i = 0; i + 1 < pieces.size() && !pieces[i].empty(); i += 2) {
        request.descriptions << ToQString(pieces[i]);
        request.patterns << ToQString(pieces[i + 1]);
    }
    request.filterIndex = std::max(filterIndex, 0) - 1;
    return request;
}

// In characters, of which a Cyrillic letter is one as a Latin one is.
std::size_t Length(std::string_view text) { return Characters(text).size(); }

// What a dialog cannot begin with, because its buffer has no room for it.
void CheckFits(const std::string& text) {
    if (Length(text) > CDLG::MaxFile) Fail(failure::InvalidProcedureCall);
}

// The buffer of a dialog: the text, which fits, and NULs up to its size.
std::string Buffer(const std::string& text) {
    return text + std::string(CDLG::MaxFile - Length(text), '\0');
}

std::string DrivePath(const QString& hostPath) {
    return oFSO().FromHostPath(FromQString(hostPath));
}

// A name with a drive is a path, such as an earlier call has left; any other is shown as it stands.
QString InitialName(const std::string& name) {
    const bool isPath = name.size() > 1 && name[1] == ':';
    return ToQString(isPath ? oFSO().HostPath(name) : name);
}

// What a dialog leaves in its buffer: a single path, or the folder and the names.
std::string Selection(const QStringList& files) {
    if (files.size() == 1) return DrivePath(files.front());
    std::string selection = DrivePath(QFileInfo(files.front()).absolutePath());
    for (const QString& file : files) selection += '\0' + FromQString(QFileInfo(file).fileName());
    return selection;
}

// Text, the NUL behind its last piece and, behind several pieces, the NUL of the list.
bool FitsBuffer(const std::string& selection, bool several) {
    return Length(selection) + (several ? 2 : 1) <= CDLG::MaxFile;
}

// The extension that names without any get; callers write it with its dot, too.
QString Suffix(const std::string& defaultExt) {
    return ToQString(defaultExt.substr(defaultExt.starts_with('.') ? 1 : 0));
}

bool ExtensionDiffers(const FileAnswer& answer, const QString& suffix) {
    return !suffix.isEmpty() &&
           suffix.compare(QFileInfo(answer.files.front()).suffix(), Qt::CaseInsensitive) != 0;
}

}  // namespace

// What opening and saving have in common; the results go into the caller's own.
struct CDLG::FileArguments {
    std::string& Filename;
    std::string& FileTitle;
    std::string& Filter;
    Long& FilterIndex;
    const std::string& InitDir;
    const std::string& DlgTitle;
    const std::string& DefaultExt;
    QWidget* Owner;
    Long& flags;
};

bool CDLG::VBGetOpenFileName(std::string& Filename, std::string& FileTitle, bool FileMustExist,
                             bool MultiSelect, bool& ReadOnly, bool HideReadOnly,
                             std::string& Filter, Long& FilterIndex, const std::string& InitDir,
                             const std::string& DlgTitle, const std::string& DefaultExt,
                             QWidget* Owner, Long& flags, bool, EventSink*) {
    const Long word = flags | (FileMustExist ? PickFileMustExist : 0) |
                      (MultiSelect ? PickMultiSelect : 0) | (ReadOnly ? PickReadOnly : 0) |
                      (HideReadOnly ? PickHideReadOnly : 0);
    const FileArguments arguments{Filename, FileTitle,  Filter, FilterIndex, InitDir,
                                  DlgTitle, DefaultExt, Owner,  flags};
    if (!AskForFiles(arguments, false, word)) return false;
    if ((flags & PickReadOnly) != 0) ReadOnly = true;
    return true;
}

bool CDLG::VBGetSaveFileName(std::string& Filename, std::string& FileTitle, bool OverWritePrompt,
                             std::string& Filter, Long& FilterIndex, const std::string& InitDir,
                             const std::string& DlgTitle, const std::string& DefaultExt,
                             QWidget* Owner, Long& flags, bool, EventSink*) {
    const FileArguments arguments{Filename, FileTitle,  Filter, FilterIndex, InitDir,
                                  DlgTitle, DefaultExt, Owner,  flags};
    return AskForFiles(arguments, true, flags | (OverWritePrompt ? PickOverwritePrompt : 0));
}

bool CDLG::AskForFiles(const FileArguments& arguments, bool saving, Long word) {
    Begin();
    word &= ~(flagHook | flagTemplate);
    const std::string dialogFilter = DialogForm(arguments.Filter);
    CheckFits(arguments.Filename);
    CheckFits(arguments.FileTitle);

    FileRequest request = RequestOf(word, dialogFilter, arguments.FilterIndex);
    request.saving = saving;
    request.owner = arguments.Owner;
    request.title = ToQString(arguments.DlgTitle);
    if (!arguments.InitDir.empty())
        request.startFolder = ToQString(oFSO().HostPath(arguments.InitDir));
    request.startName = InitialName(StrFromZ(arguments.Filename));
    request.defaultSuffix = Suffix(arguments.DefaultExt);

    FileAnswer answer = Service<Prompter>::Get().PickFiles(request);
    const std::string selection = answer.result == 1 ? Selection(answer.files) : std::string();
    if (answer.result == 1 && !FitsBuffer(selection, answer.files.size() > 1)) answer.result = 0;

    if (!End(answer)) {
        arguments.Filename.clear();
        arguments.FileTitle.clear();
        arguments.flags = 0;
        arguments.FilterIndex = -1;
        arguments.Filter.clear();
        return false;
    }

    arguments.Filename = Buffer(selection);
    arguments.FileTitle = answer.files.size() > 1
                              ? std::string()
                              : StrFromZ(FromQString(QFileInfo(answer.files.front()).fileName()));
    arguments.flags =
        (word & ~(PickReadOnly | PickExtensionDifferent)) | (answer.readOnly ? PickReadOnly : 0) |
        (ExtensionDiffers(answer, request.defaultSuffix) ? PickExtensionDifferent : 0);
    arguments.FilterIndex = answer.filterIndex + 1;
    arguments.Filter = FilterPiece(dialogFilter, arguments.FilterIndex);
    return true;
}

std::string CDLG::VBGetFileTitle(std::string_view sFile) {
    constexpr std::string_view separators = "\\/:";
    const std::string path = StrFromZ(sFile);
    if (path.find_first_of("*?") != std::string::npos) return {};
    const std::size_t separator = path.find_last_of(separators);
    const std::string title = separator == std::string::npos ? path : path.substr(separator + 1);
    return Length(title) < MaxFile ? title : std::string();
}

std::string CDLG::FilterPiece(std::string_view text, Long index) {
    std::size_t start = 0;
    while (index > 0) {
        const std::size_t firstNul = text.find('\0', start);
        if (firstNul == std::string_view::npos) return {};
        const std::size_t secondNul = text.find('\0', firstNul + 1);
        if (index == 1) return std::string(text.substr(start, secondNul - start));
        if (secondNul == std::string_view::npos) return {};
        start = secondNul + 1;
        --index;
    }
    return {};
}

std::string CDLG::StrFromZ(std::string_view text) {
    return std::string(text.substr(0, text.find('\0')));
}

}  // namespace tavel
