#include "ui/toolkit/dialogs/FileDialog.h"

#include "core/PublicStuff.h"
#include "ui/toolkit/Controls.h"
#include "ui/toolkit/MsgBox.h"
#include "ui/toolkit/Strings.h"
#include "ui/toolkit/Twips.h"
#include "ui/toolkit/dialogs/Parts.h"
#include "ui/toolkit/dialogs/Refusals.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFileInfo>
#include <QHeaderView>
#include <QLayout>
#include <QLineEdit>
#include <QRegularExpression>
#include <QSplitter>
#include <QTreeView>
#include <QUrl>
#include <algorithm>

namespace tavel {

namespace {

// Qt takes a filter as "text (patterns parted by blanks)" and only if the patterns hold nothing
// that it does not expect there; any other character is matched by the "?" in its place. "*.*"
// takes in names without a dot as well.
QString QtFilter(const QString& description, const QString& patterns) {
    static const QRegularExpression unexpected(QStringLiteral(R"([^\w.,*?+#\-\[\]@{}!$%&=^~])"));
    QStringList parts;
    for (QString pattern : patterns.split(QLatin1Char(';'), Qt::SkipEmptyParts)) {
        pattern.replace(unexpected, QStringLiteral("?"));
        parts << (pattern == QLatin1String("*.*") ? QStringLiteral("*") : pattern);
    }
    if (parts.isEmpty()) parts << QStringLiteral("*");
    return description + QLatin1String(" (") + parts.join(QLatin1Char(' ')) + QLatin1Char(')');
}

}  // namespace

FileDialog::FileDialog(const FileRequest& request)
    : QFileDialog(request.owner),
      m_saving(request.saving),
      m_mustExist(!m_saving && request.Has(PickFileMustExist)),
      m_asksToReplace(m_saving && request.Has(PickOverwritePrompt)) {
    setObjectName(QStringLiteral("FileDialog"));
    // The desktop's own dialogs match the patterns with regard to case, and cameras write ".JPG".
    setOption(DontUseNativeDialog);
    setOption(HideNameFilterDetails);
    setOption(DontConfirmOverwrite);  // it is asked for here
    setAcceptMode(m_saving ? AcceptSave : AcceptOpen);
    if (!request.title.isEmpty()) setWindowTitle(request.title);
    setFileMode(!m_saving && request.Has(PickMultiSelect) ? ExistingFiles
                : m_mustExist                             ? ExistingFile
                                                          : AnyFile);
    setDefaultSuffix(request.defaultSuffix);
    setDirectory(request.startFolder);
    SetFilters(request);
    if (!request.startName.isEmpty()) selectFile(request.startName);
    if (!m_saving && !request.Has(PickHideReadOnly)) AddReadOnlyBox(request.Has(PickReadOnly));
    ListDrives();
    PlainButtons(*this);
    SetSizes();
}

void FileDialog::SetSizes() {
    constexpr int places = 2100;
    constexpr int listing = 9600;
    resize(Pixels(places + listing), Pixels(7200));
    WithPart<QSplitter>(*this, nullptr, [](QSplitter& both) {
        both.setSizes({Pixels(places), Pixels(listing)});
    });
    WithPart<QTreeView>(*this, "treeView", [](const QTreeView& list) {
        QHeaderView* columns = list.header();
        columns->resizeSection(0, Pixels(3600));  // name
        columns->resizeSection(1, Pixels(1200));  // size
        columns->resizeSection(2, Pixels(2100));  // type
        columns->setStretchLastSection(true);
    });
}

void FileDialog::SetFilters(const FileRequest& request) {
    QStringList filters;
    for (int i = 0; i < request.patterns.size(); ++i)
        filters << QtFilter(request.descriptions[i], request.patterns[i]);
    if (filters.isEmpty()) return;
    setNameFilters(filters);
    if (request.filterIndex >= 0 && request.filterIndex < filters.size())
        selectNameFilter(filters[request.filterIndex]);
}

// Qt tells the chosen filter by its text, whole or cut short as it is shown; two may look alike.
int FileDialog::FilterIndex() const {
    const QString chosen = selectedNameFilter();
    const QStringList filters = nameFilters();
    const auto isChosen = [&chosen](const QString& filter) {
        return filter == chosen || filter.startsWith(chosen + QLatin1String(" ("));
    };
    const auto found = std::find_if(filters.begin(), filters.end(), isChosen);
    auto index = found == filters.end() ? -1 : static_cast<int>(found - filters.begin());
    WithPart<QComboBox>(*this, "fileTypeCombo",
                        [&index](const QComboBox& types) { index = types.currentIndex(); });
    return index;
}

void FileDialog::ListDrives() {
    QList<QUrl> places{QUrl::fromLocalFile(QDir::homePath())};
    for (const std::string& text : oFSO().DriveTexts()) {
        const std::string folder = oFSO().HostPath(text.substr(0, 2) + "\\");
        if (!folder.empty()) places << QUrl::fromLocalFile(ToQString(folder));
    }
    setSidebarUrls(places);
}

void FileDialog::AddReadOnlyBox(bool checked) {
    if (layout() == nullptr) return;  // the dialog is the system's own
    chkReadOnly = new QCheckBox(tr("Open as &read-only"), this);
    chkReadOnly->setObjectName(QStringLiteral("chkReadOnly"));
    chkReadOnly->setChecked(checked);
    layout()->addWidget(chkReadOnly);
}

// Qt gives what was typed as it stands behind the folder's path, but a drive is told by the
// beginning of a path.
QStringList FileDialog::Picked() const {
    QStringList files = selectedFiles();
    for (QString& file : files) file = QDir::cleanPath(file);
    return files;
}

// Qt takes each text between quotation marks for a name, also where one file is asked for, and
// drops what stands outside of them.
bool FileDialog::IsCountRight() const {
    if (fileMode() == ExistingFiles) return true;
    static const QRegularExpression oneName(QStringLiteral(R"(^([^"]*|"[^"]*")$)"));
    QString typed;
    WithPart<QLineEdit>(*this, "fileNameEdit", [&](const QLineEdit& name) { typed = name.text(); });
    return selectedFiles().size() == 1 && (!m_saving || oneName.match(typed.trimmed()).hasMatch());
}

// Why there is no answer; empty where there is one. Paths of different folders may be typed, but an
// answer has one folder. And Qt finds files that have no drive path, names with a backslash and
// links on a stick, or one that is too long.
QString FileDialog::Refusal() const {
    const QStringList files = Picked();
    if (!IsCountRight()) return tr("One file is to be named here.");
    for (const QString& file : files) {
        const std::string path = oFSO().FromHostPath(FromQString(file));
        if (QFileInfo(file).path() != QFileInfo(files.front()).path())
            return RefusalOfSeveralFolders();
        if (IsPathTooLong(path)) return RefusalOfLongPath();
        if (m_saving && !CanSave(path)) return tr("Nothing can be saved as %1.").arg(file);
        if (!m_saving && !CanOpen(file)) return RefusalOf(file);
    }
    return {};
}

// The host's name counts: a backslash in it would part the drive path.
bool FileDialog::CanOpen(const QString& file) const {
    return oFSO().FileExists(oFSO().FromHostPath(FromQString(file))) ||
           (!m_mustExist && IsNameAllowed(FromQString(QFileInfo(file).fileName())));
}

bool FileDialog::CanSave(const std::string& path) const {
    const std::size_t name = path.rfind('\\') + 1;
    return IsNameAllowed(path.substr(name)) && oFSO().FolderExists(path.substr(0, name));
}

// A file is found whatever case its name is typed in, and would be written over.
bool FileDialog::MayReplace() const {
    const QString file = Picked().front();
    if (!m_asksToReplace || !oFSO().FileExists(oFSO().FromHostPath(FromQString(file)))) return true;
    const QString question = tr("%1 already exists.\nDo you want to replace it?");
    return MsgBox(question.arg(QFileInfo(file).fileName()), MsgBoxButtons::YesNoDefaultNo,
                  windowTitle()) == MsgBoxAnswer::Yes;
}

bool FileDialog::CanAnswer() const {
    const QString refusal = Refusal();
    if (refusal.isEmpty()) return MayReplace();
    MsgBox(refusal, MsgBoxButtons::OK, windowTitle());
    return false;
}

// Qt comes here once it has looked into folders and complained of what it does not find. The box
// stays for what is no answer.
void FileDialog::done(int result) {
    if (result == Rejected || CanAnswer()) QFileDialog::done(result);
}

FileAnswer FileDialog::Answer() const {
    FileAnswer answer;
    answer.files = Picked();
    answer.result = answer.files.isEmpty() ? 0 : 1;
    answer.filterIndex = FilterIndex();
    answer.readOnly = chkReadOnly != nullptr && chkReadOnly->isChecked();
    return answer;
}

}  // namespace tavel
