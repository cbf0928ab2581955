#include "ui/toolkit/dialogs/HostPrompts.h"

#include "core/PublicStuff.h"
#include "platform/HostBoxes.h"
#include "ui/toolkit/MsgBox.h"
#include "ui/toolkit/Strings.h"
#include "ui/toolkit/dialogs/Refusals.h"

#include <QDialog>
#include <QDir>
#include <QPointer>
#include <algorithm>

namespace tavel {

namespace {

HostWindow WindowOf(QWidget* owner) { return owner == nullptr ? 0 : owner->window()->winId(); }

// Stands for a box of the host's in the eyes of the toolkit, which keeps input from the other
// windows and closes it when the program is asked to end.
class StandIn : public QDialog {
  public:
    explicit StandIn(QWidget* owner) : m_owner(WindowOf(owner)) {
        setAttribute(Qt::WA_DontShowOnScreen);
        setModal(true);
        show();
    }

    HostWindow Owner() const { return m_owner; }
    void reject() override { Service<HostBoxes>::Get().Cancel(m_owner); }

  private:
    HostWindow m_owner;
};

HostFileRequest AskedOfHost(const FileRequest& request) {
    HostFileRequest asked;
    asked.saving = request.saving;
    asked.title = FromQString(request.title);
    asked.startFolder = FromQString(QDir::toNativeSeparators(request.startFolder));
    asked.startName = FromQString(request.startName);
    asked.defaultExtension = FromQString(request.defaultSuffix);
    for (int i = 0; i < request.patterns.size(); ++i)
        asked.filters.emplace_back(FromQString(request.descriptions[i]),
                                   FromQString(request.patterns[i]));
    asked.filterIndex = request.filterIndex;
    asked.flags = request.flags;
    return asked;
}

FileAnswer AnswerOf(const HostFileAnswer& given) {
    FileAnswer answer;
    answer.result = given.isChosen ? 1 : 0;
    answer.error = given.error;
    for (const std::string& path : given.files) answer.files << ToQString(oFSO().HostPath(path));
    answer.filterIndex = given.filterIndex;
    answer.readOnly = given.readOnly;
    return answer;
}

HostFileAnswer AskHost(const FileRequest& request) {
    const StandIn standIn(request.owner);
    HostFileRequest asked = AskedOfHost(request);
    asked.owner = standIn.Owner();
    return Service<HostBoxes>::Get().PickFiles(asked);
}

bool AreOfOneFolder(const std::vector<std::string>& files) {
    const auto folderOf = [](const std::string& file) { return file.substr(0, file.rfind('\\')); };
    return std::all_of(files.begin(), files.end(), [&](const std::string& file) {
        return folderOf(file) == folderOf(files.front());
    });
}

// Why the program can't take what was picked; empty where it can.
QString Refusal(const HostFileAnswer& given) {
    if (given.isChosen && given.files.empty())
        return QDialog::tr("What has been picked can't be reached.");
    if (!AreOfOneFolder(given.files)) return RefusalOfSeveralFolders();
    for (const std::string& path : given.files) {
        if (IsPathTooLong(path)) return RefusalOfLongPath();
        if (oFSO().HostPath(path).empty()) return RefusalOf(ToQString(path));
    }
    return {};
}

// The picker of the host's box, in the words of those who ask.
class Picker : public FolderPicker {
  public:
    explicit Picker(HostFolderBox& box) : m_box(box) {}
    void Select(const std::string& path) override {
        if (oFSO().FolderExists(path)) m_box.Select(path);
    }
    void SetStatus(const std::string& text) override { m_box.SetStatus(text); }

  private:
    HostFolderBox& m_box;
};

}  // namespace

// What is told of a path is owned by a window that people see: the stand-in has gone by then. The
// owner may go meanwhile, which cancels as it does while a box stands.
FileAnswer PickFilesByHost(const FileRequest& request) {
    const QPointer<QWidget> owner(request.owner);
    do {
        const HostFileAnswer given = AskHost(request);
        const QString refusal = Refusal(given);
        if (refusal.isEmpty()) return AnswerOf(given);
        MsgBox(refusal);
    } while (request.owner == nullptr || !owner.isNull());
    return {};
}

std::string PickFolderByHost(const FolderRequest& request) {
    StandIn standIn(request.owner);
    HostFolderRequest asked;
    asked.owner = standIn.Owner();
    asked.title = FromQString(request.title);
    asked.includeFiles = request.includeFiles;
    asked.newStyle = request.newStyle;
    const auto tell = [&](HostFolderBox& box, Long message, const std::string& item) {
        Picker picker(box);
        if (request.callback != nullptr) request.callback(picker, message, item);
    };
    asked.onReady = [&](HostFolderBox& box) { tell(box, FolderPickerReady, {}); };
    asked.onSelection = [&](HostFolderBox& box, const std::string& path) {
        box.Allow(!path.empty() && !IsPathTooLong(path));
        tell(box, FolderPickerSelectionChanged, path);
    };
    return Service<HostBoxes>::Get().PickFolder(asked);
}

}  // namespace tavel
