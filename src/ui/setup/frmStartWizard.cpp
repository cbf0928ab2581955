#include "ui/setup/frmStartWizard.h"

#include "core/Main.h"
#include "core/PublicStuff.h"
#include "core/UsefulFunctions.h"
#include "core/modRegistry.h"
#include "device/Discovery.h"
#include "library/Folders.h"
#include "platform/Activity.h"
#include "platform/Failure.h"
#include "platform/ProfileService.h"
#include "platform/Text.h"
#include "ui/main/frmLog.h"
#include "ui/main/frmMain.h"
#include "ui/setup/WizardText.h"
#include "ui/setup/frmWatchFolders.h"
#include "ui/toolkit/BrowseForFolder.h"
#include "ui/toolkit/Controls.h"
#include "ui/toolkit/DriveList.h"
#include "ui/toolkit/MsgBox.h"
#include "ui/toolkit/ScrollingLabel.h"
#include "ui/toolkit/SingleWindow.h"
#include "ui/toolkit/Strings.h"
#include "ui/toolkit/StyleApply.h"
#include "ui/toolkit/WorkWindow.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QFrame>
#include <QLineEdit>
#include <QPushButton>
#include <algorithm>

namespace tavel {

namespace {

constexpr Integer connectPage = 5;
constexpr Integer folderPage = 7;

void WriteOption(const char* key, bool bValue) {
    WriteValue(sDBFile, "options", key, "S", bValue ? "1" : "0");
}

}  // namespace

frmStartWizard::frmStartWizard()
    : m_pages(new QWidget(this)),
      txtName(Named<QLineEdit>("txtName", QStringLiteral("My PSP"))),
      drvPSP(Named<DriveList>("drvPSP")),
      txtFolderPath(Named<QLineEdit>("txtFolderPath")),
      chkAutoGroup(Named<QCheckBox>("chkAutoGroup",
                                    QStringLiteral("Automatically create media groups from the "
                                                   "scanned folder structure?"))),
      chkScanOnStart(Named<QCheckBox>("chkScanOnStart",
                                      QStringLiteral("Perform a scan when Tavel is started"))),
      cmdPrev(Named<QPushButton>("cmdPrev", QStringLiteral("<< Back"))),
      cmdNext(Named<QPushButton>("cmdNext", QStringLiteral("Next >>"))) {
    setObjectName(QStringLiteral("frmStartWizard"));
    setWindowTitle(QStringLiteral("Tavel Setup Wizard"));
    // It has one size.
    setWindowFlag(Qt::WindowMaximizeButtonHint, false);
    setWindowFlag(Qt::MSWindowsFixedSizeDialogHint);
    PlaceControls();
    connect(cmdPrev, &QPushButton::clicked, this, [this] { cmdPrev_Click(); });
    connect(cmdNext, &QPushButton::clicked, this, [this] { cmdNext_Click(); });
    SetEnterButton(*this, *cmdNext);

    sWizardFile = GetAppPath() + "text\\wizard.txt";
    LoadPage(sWizardFile, iPage);
    StyleApply(*this, gStyle);
}

void frmStartWizard::showEvent(QShowEvent*) { SetWorkWindow(*this); }

// What was added is saved, and no process without a window stays behind.
void frmStartWizard::closeEvent(QCloseEvent* event) {
    SingleWindow<frmLog>::Unload();
    ShutDown();
    event->accept();
}

void frmStartWizard::LoadPage(const std::string& sFile, Integer& iNumber) {
    const Doing reading("Reading", sFile);
    std::string words = WizardWords(oFSO().ReadWhole(sFile), iNumber);
    if (words.empty()) {
        --iNumber;
        return;
    }
    if (iNumber < 0 || iNumber > PageCount) Fail(failure::SubscriptOutOfRange);
    std::replace(words.begin(), words.end(), '\r', '\n');
    labText[static_cast<std::size_t>(iNumber)]->SetText(ToQString(words));
    ShowPage(iNumber);
}

void frmStartWizard::ShowPage(Integer number) {
    const QPoint place = fraWizard[1]->pos();
    const bool isOnBack = cmdPrev->hasFocus();  // a page that goes hands its focus on
    for (Integer i = 1; i <= iLastPage; ++i) {
        QFrame& page = *fraWizard[static_cast<std::size_t>(i)];
        page.setVisible(i == number);
        if (i == number) page.move(place);
    }
    cmdPrev->setFocusPolicy(number == 1 ? Qt::NoFocus : Qt::TabFocus);
    if (!isOnBack || number == 1) FocusPage(number);
}

// So that a page can be answered and left by keyboard alone.
void frmStartWizard::FocusPage(Integer number) {
    auto* box = fraWizard[static_cast<std::size_t>(number)]->findChild<QLineEdit*>();
    QWidget* first = box;
    if (first == nullptr) first = cmdNext;
    first->setFocus(Qt::TabFocusReason);
}

void frmStartWizard::cmdNext_Click() {
    if (iPage == connectPage) SpecialEvent();
    if (iPage == folderPage) {
        bool bOK = false;
        CreateDBFolders(bOK);
        if (!bOK) return;
    }
    if (iPage == iLastPage) {
        bool bOK = false;
        WizardFinished(bOK);
        if (bOK) {
            SingleWindow<frmStartWizard>::Unload();
            SingleWindow<frmMain>::Get().show();
            TakeOverDialogs();
        }
    }
    // Behind the last page there are no words, which is what keeps the number on it.
    ++iPage;
    LoadPage(sWizardFile, iPage);
    cmdNext->setText(iPage == iLastPage ? QStringLiteral("Finish") : QStringLiteral("Next >>"));
}

// The caption of cmdNext stays: on the way back from the last page it goes on reading "Finish".
void frmStartWizard::cmdPrev_Click() {
    if (iPage == 1) return;
    --iPage;
    LoadPage(sWizardFile, iPage);
}

// A new stick is told by the folder that the PSP itself makes: it has no identity file yet.
void frmStartWizard::SpecialEvent() {
    if (FindPSPFolder([this](const std::string& sPath) { drvPSP->SetDrive(sPath); })) return;
    MsgBox(QStringLiteral("Cannot find the PSP, defaulting to C drive"));
    drvPSP->SetDrive("c:\\");
}

void frmStartWizard::CreateDBFolders(bool& bOK) {
    bOK = false;
    const std::string sRoot = FromQString(txtFolderPath->text());
    if (Trim(sRoot).empty()) {
        MsgBox(QStringLiteral("Please slect a folder to contain the media folders"));
        return;
    }
    bOK = MakeDBFolders(sRoot);
    MsgBox(bOK ? QStringLiteral("Folders created successfully")
               : QStringLiteral("Cannot create the media folders here, please try another folder"));
}

// The flags of the options stay as they are: what is chosen here counts from the next start on.
// While it waits for the drive the wizard takes no click and no key: a second finish within the
// first would take the window away from it. A request to end the program is no input.
void frmStartWizard::WizardFinished(bool& bOK) {
    bOK = true;
    setEnabled(false);
    SetupFirstPSP(drvPSP->Drive(), FromQString(txtName->text()));
    const ProfileBatch atOnce(sDBFile);
    WriteOption("bAutoGroup", chkAutoGroup->isChecked());
    WriteOption("bScanOnAppStart", chkScanOnStart->isChecked());
    WriteOption("bFirstTime", false);
}

void frmStartWizard::cmdBrowse_Click() {
    txtFolderPath->setText(
        ToQString(BrowseForFolderDlg(this, "", "Please select a folder:", false, true)));
}

void frmStartWizard::cmdWatch_Click() { OpenDialog(SingleWindow<frmWatchFolders>::Get()); }

}  // namespace tavel
