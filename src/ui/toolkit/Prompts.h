#pragma once

#include "core/MessageBoxes.h"
#include "platform/Numbers.h"
#include "platform/Service.h"
#include "ui/toolkit/dialogs/DialogResult.h"

#include <QString>
#include <QStringList>
#include <string>

class QWidget;

namespace tavel {

// Flags of a dialog that picks files. It is asked more than these, of which Qt's takes no notice.
inline constexpr Long PickReadOnly = 0x1;         // the box "Open as read-only" is ticked
inline constexpr Long PickOverwritePrompt = 0x2;  // of a box that saves
inline constexpr Long PickHideReadOnly = 0x4;     // there is no such box
inline constexpr Long PickMultiSelect = 0x200;
inline constexpr Long PickExtensionDifferent = 0x400;  // of an answer
inline constexpr Long PickFileMustExist = 0x1000;

// What a dialog that picks files is asked, and what it answers. Paths are the host's.
struct FileRequest {
    QWidget* owner = nullptr;
    bool saving = false;  // one file that need not be there yet; without a read-only box
    QString title;
    QString startFolder;  // empty: the dialog's own choice
    QString startName;    // of a file or a path; empty: none
    QString defaultSuffix;
    QStringList patterns;  // one a filter, in its order: "*.jpg;*.png;"
    QStringList descriptions;
    int filterIndex = 0;  // from 0
    Long flags = 0;

    bool Has(Long flag) const { return (flags & flag) != 0; }
};

struct FileAnswer : DialogResult {
    QStringList files;  // absolute, all of one folder
    int filterIndex = 0;
    bool readOnly = false;
};

// The folder picker as its callback sees it. Paths are drive paths.
class FolderPicker {
  public:
    virtual ~FolderPicker() = default;
    virtual void Select(
        const std::string& path) = 0;  // nothing happens when there is no such folder
    virtual void SetStatus(const std::string& text) = 0;
};

inline constexpr Long FolderPickerReady = 1;
inline constexpr Long FolderPickerSelectionChanged = 2;  // the item is the selection's path

using FolderCallback = Long (*)(FolderPicker& hwnd, Long uMsg, const std::string& item);

// What the folder picker is asked.
struct FolderRequest {
    QWidget* owner = nullptr;
    QString title;
    FolderCallback callback = nullptr;  // null: nobody listens
    bool includeFiles = false;
    bool newStyle = false;
};

// Everything that stops and asks the user, behind one face: the program's drives real boxes, a
// test's answers from what it expects to be asked.
class Prompter {
  public:
    virtual ~Prompter() = default;

    virtual MsgBoxAnswer MsgBox(const QString& text, MsgBoxButtons buttons,
                                const QString& title) = 0;
    // Empty on Cancel.
    virtual QString InputBox(const QString& prompt, const QString& title,
                             const QString& defaultText) = 0;
    virtual FileAnswer PickFiles(const FileRequest& request) = 0;
    // A drive path, empty on Cancel.
    virtual std::string PickFolder(const FolderRequest& request) = 0;
};

// The real boxes.
template <>
Prompter* OwnService<Prompter>();

}  // namespace tavel
