#include "ui/toolkit/CDLG.h"

#include "core/PublicStuff.h"
#include "platform/Failure.h"
#include "platform/Text.h"
#include "ui/toolkit/Prompts.h"
#include "ui/toolkit/Strings.h"

#include <QFileInfo>
#include <QVariant>
#include <QWidget>
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
    request.filterIndex = filterIndex - 1;
    return request;
}

// In characters, of which a Cyrillic letter is one as a Latin one is.
std::size_t Length(std::string_view text) { return Characters(text).size(); }

// The buffer of a dialog: the text and NULs up to its size.
std::string Buffer(const std::string& text) {
    const std::size_t length = Length(text);
    if (length > CDLG::MaxFile) Fail(failure::InvalidProcedureCall);
    return text + std::string(CDLG::MaxFile - length, '\0');
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

}  // namespace

bool CDLG::VBGetOpenFileName(std::string& Filename, std::string& FileTitle, bool FileMustExist,
                             bool MultiSelect, bool& ReadOnly, bool HideReadOnly,
                             std::string& Filter, Long& FilterIndex, const std::string& InitDir,
                             const std::string& DlgTitle, const std::string& DefaultExt,
                             QWidget* Owner, Long& flags, bool, EventSink*) {
    m_apiReturn = 0;
    m_extendedError = 0;

    const Long word = (flags & ~(flagHook | flagTemplate)) |
                      (FileMustExist ? PickFileMustExist : 0) |
                      (MultiSelect ? PickMultiSelect : 0) | (ReadOnly ? PickReadOnly : 0) |
                      (HideReadOnly ? PickHideReadOnly : 0);
    const std::string dialogFilter = DialogForm(Filter);
    Filename = Buffer(Filename);
    FileTitle = Buffer(FileTitle);

    FileRequest request = RequestOf(word, dialogFilter, FilterIndex);
    request.owner = Owner;
    request.title = ToQString(DlgTitle);
    request.startFolder = InitDir.empty() ? QString() : ToQString(oFSO().HostPath(InitDir));
    request.startName = InitialName(StrFromZ(Filename));
    request.defaultSuffix = ToQString(DefaultExt);

    const FileAnswer answer = Service<Prompter>::Get().PickFiles(request);
    m_apiReturn = answer.result;
    m_eventSink = nullptr;

    const std::string selection = answer.result == 1 ? Selection(answer.files) : std::string();
    if (answer.result == 1 && !FitsBuffer(selection, answer.files.size() > 1)) m_apiReturn = 0;

    if (m_apiReturn != 1) {
        if (m_apiReturn != 0) m_extendedError = answer.error;
        Filename.clear();
        FileTitle.clear();
        flags = 0;
        FilterIndex = -1;
        Filter.clear();
        return false;
    }

    Filename = Buffer(selection);
    FileTitle = answer.files.size() > 1
                    ? std::string()
                    : StrFromZ(FromQString(QFileInfo(answer.files.front()).fileName()));
    flags = answer.readOnly ? word | PickReadOnly : word & ~PickReadOnly;
    FilterIndex = answer.filterIndex + 1;
    Filter = FilterPiece(dialogFilter, FilterIndex);
    if ((flags & PickReadOnly) != 0) ReadOnly = true;
    return true;
}

Long CDLG::DialogHook(QWidget& hDlg, Long message, Long, const NotifyHeader* lParam) {
    constexpr Long initDialog = 272;
    constexpr Long dialogClose = 130;
    constexpr Long notify = 78;
    constexpr Long typeChange = -607;
    constexpr Long confirmOK = -606;
    constexpr Long folderChange = -603;
    constexpr Long fileChange = -602;

    if (m_eventSink == nullptr) return 0;
    if (message == initDialog) m_eventSink->InitDialog(hDlg);
    if (message == dialogClose) m_eventSink->DialogClose();
    if (message != notify || lParam == nullptr) return 0;

    switch (lParam->code) {
        case typeChange:
            m_eventSink->TypeChange(hDlg);
            break;
        case folderChange:
            m_eventSink->FolderChange(hDlg);
            break;
        case fileChange:
            m_eventSink->FileChange(hDlg);
            break;
        case confirmOK: {
            const Long result = m_eventSink->ConfirmOK() ? 0 : 1;
            hDlg.setProperty("DialogResult", result);
            return result;
        }
        default:
            break;
    }
    return 0;
}

std::string CDLG::FilterPiece(std::string_view text, Long index) {
    std::size_t start = 0;
    while (true) {
        const std::size_t firstNul = text.find('\0', start);
        if (firstNul == std::string_view::npos) return {};
        const std::size_t secondNul = text.find('\0', firstNul + 1);
        if (index == 1) return std::string(text.substr(start, secondNul - start));
        if (secondNul == std::string_view::npos) return {};
        start = secondNul + 1;
        --index;
    }
}

std::string CDLG::StrFromZ(std::string_view text) {
    return std::string(text.substr(0, text.find('\0')));
}

void CDLG::RaiseDialogError(Long code) {
    constexpr Long firstOfTheClass = 1001;
    constexpr Long classErrors = static_cast<Long>(0x80040000);
    const std::string program = ProgramTitle;
    if (code < firstOfTheClass)
        throw Failure(code, std::string(FailureText(code)), program + ".VBError");
    const Long number = code | classErrors;
    throw Failure(number, std::string(FailureText(number)), program + ".CommonDialog");
}

}  // namespace tavel
