#include "ui/toolkit/RealPrompter.h"

#include "platform/HostBoxes.h"
#include "ui/toolkit/Controls.h"
#include "ui/toolkit/FolderDialog.h"
#include "ui/toolkit/ModalBox.h"
#include "ui/toolkit/WorkWindow.h"
#include "ui/toolkit/dialogs/FileDialog.h"
#include "ui/toolkit/dialogs/HostPrompts.h"

#include <QDir>
#include <QFileInfo>
#include <QGridLayout>
#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>

namespace tavel {

namespace {

QMessageBox::StandardButtons ButtonsOf(MsgBoxButtons buttons) {
    switch (buttons) {
        case MsgBoxButtons::OKCancel:
            return QMessageBox::Ok | QMessageBox::Cancel;
        case MsgBoxButtons::YesNo:
        case MsgBoxButtons::YesNoDefaultNo:
            return QMessageBox::Yes | QMessageBox::No;
        case MsgBoxButtons::OK:
            break;
    }
    return QMessageBox::Ok;
}

MsgBoxAnswer AnswerOf(int pressed, MsgBoxButtons buttons) {
    switch (buttons) {
        case MsgBoxButtons::OKCancel:
            return pressed == QMessageBox::Ok ? MsgBoxAnswer::OK : MsgBoxAnswer::Cancel;
        case MsgBoxButtons::YesNo:
        case MsgBoxButtons::YesNoDefaultNo:
            return pressed == QMessageBox::Yes ? MsgBoxAnswer::Yes : MsgBoxAnswer::No;
        case MsgBoxButtons::OK:
            break;
    }
    return MsgBoxAnswer::OK;
}

QString WithLineBreaks(QString text) {
    return text.replace(QLatin1String("\r\n"), QLatin1String("\n"))
        .replace(QLatin1Char('\r'), QLatin1Char('\n'));
}

// Lines may also end between the folders of a path: it often has no blank, and cut off it would
// not tell its file. The marks for it are not for a screen reader.
void SetText(QMessageBox& box, const QString& text) {
    box.setText(QString(text).replace(QLatin1Char('\\'), QStringLiteral("\\\u200B")));
    box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"))->setAccessibleName(text);
}

// The text of a box without an icon is indented, as though one might come yet.
void LeaveNoRoomForAnIcon(const QMessageBox& box) {
    auto& grid = static_cast<QGridLayout&>(*box.layout());
    grid.setHorizontalSpacing(0);
    for (int i = 0; i < grid.count(); ++i) {
        QSpacerItem* indent = grid.itemAt(i)->spacerItem();
        if (indent != nullptr) indent->changeSize(0, 0, QSizePolicy::Fixed, QSizePolicy::Fixed);
    }
    // The text stands in the last column, which takes the room that the buttons make.
    grid.setColumnStretch(grid.columnCount() - 1, 1);
}

FileAnswer Ask(const FileRequest& request) {
    if (Service<HostBoxes>::Get().AreThere()) return PickFilesByHost(request);
    Modal<FileDialog> box(request);
    return box.Run() == QDialog::Accepted ? box->Answer() : FileAnswer();
}

}  // namespace

MsgBoxAnswer RealPrompter::MsgBox(const QString& text, MsgBoxButtons buttons,
                                  const QString& title) {
    Modal<QMessageBox> box(BoxOwner());
    box->setObjectName(QStringLiteral("MsgBox"));
    box->setWindowTitle(title);
    box->setTextFormat(Qt::PlainText);
    SetText(*box, WithLineBreaks(text));
    box->setStandardButtons(ButtonsOf(buttons));
    if (buttons == MsgBoxButtons::YesNoDefaultNo) box->setDefaultButton(QMessageBox::No);
    PlainButtons(*box);
    LeaveNoRoomForAnIcon(*box);
    return AnswerOf(box.Run(), buttons);
}

QString RealPrompter::InputBox(const QString& prompt, const QString& title,
                               const QString& defaultText) {
    Modal<QInputDialog> box(BoxOwner());
    box->setObjectName(QStringLiteral("InputBox"));
    box->setWindowTitle(title);
    box->setLabelText(prompt);
    box->setTextValue(defaultText);
    box->adjustSize();  // makes the buttons
    PlainButtons(*box);
    return box.Run() == QDialog::Accepted ? box->textValue() : QString();
}

FileAnswer RealPrompter::PickFiles(const FileRequest& request) {
    if (m_lastFolder.isEmpty()) m_lastFolder = QDir::homePath();
    FileRequest asked = request;
    if (asked.startFolder.isEmpty()) asked.startFolder = m_lastFolder;
    FileAnswer answer = Ask(asked);
    if (!answer.files.isEmpty()) m_lastFolder = QFileInfo(answer.files.front()).absolutePath();
    return answer;
}

std::string RealPrompter::PickFolder(const FolderRequest& request) {
    if (Service<HostBoxes>::Get().AreThere()) return PickFolderByHost(request);
    Modal<FolderDialog> box(request);
    return box.Run() == QDialog::Accepted ? box->StablePath() : std::string();
}

}  // namespace tavel
