#include "core/PublicStuff.h"
#include "library/Adding.h"
#include "library/Groups.h"
#include "library/LibraryWindows.h"
#include "library/ZipImport.h"
#include "platform/Service.h"
#include "platform/Text.h"
#include "ui/main/ItemRows.h"
#include "ui/main/MediaFilters.h"
#include "ui/main/frmLog.h"
#include "ui/main/frmMain.h"
#include "ui/main/frmNewPSP.h"
#include "ui/setup/frmOptions.h"
#include "ui/setup/frmWatchFolders.h"
#include "ui/toolkit/BrowseForFolder.h"
#include "ui/toolkit/InputBox.h"
#include "ui/toolkit/ListView.h"
#include "ui/toolkit/MsgBox.h"
#include "ui/toolkit/SingleWindow.h"
#include "ui/toolkit/Strings.h"
#include "ui/toolkit/TreeView.h"
#include "ui/toolkit/WorkWindow.h"
#include "ui/toolkit/dialogs/CDLG.h"

namespace tavel {

namespace {

constexpr const char* DelGroupQuestion = "This will remove the group from the DB, are you sure?";

bool ConfirmsDelete(const char* sQuestion, MsgBoxButtons buttons = MsgBoxButtons::YesNo) {
    return MsgBox(QLatin1String(sQuestion), buttons, QStringLiteral("Delete Group?")) ==
           MsgBoxAnswer::Yes;
}

}  // namespace

// The picked file with an empty entry behind it, or the folder and the names of several; nothing
// after a cancel.
std::vector<std::string> frmMain::PickFilesToAdd(std::string sFilter) {
    std::string sFiles;
    std::string sFileTitle;
    bool bReadOnly = false;
    Long iFilterIndex = 1;
    Long iFlags = 0x280000;
    CDLG().VBGetOpenFileName(sFiles, sFileTitle, true, true, bReadOnly, true, sFilter, iFilterIndex,
                             "", "Select file(s) to add", "", this, iFlags);
    if (Trim(sFiles).empty()) return {};
    return Split(sFiles, '\0');
}

void frmMain::mnuAddFile_Click() {
    const std::vector<std::string> sFiles = PickFilesToAdd(FilterOfMedia());
    if (!sFiles.empty()) AddFiles(sFiles);
}

// Several archives are looked for under the folder and the name with nothing in between, up to the
// empty entries at the end of what was picked: none is found but in the root of a drive, and there
// the first empty entry fails.
void frmMain::mnuAddZipFile_Click() {
    const std::vector<std::string> sFiles = PickFilesToAdd("Zip Files (*.zip)|*.zip");
    if (sFiles.empty()) return;
    if (Trim(sFiles[1]).empty()) return AddZipFile(sFiles[0], bGroupZip);
    for (std::size_t i = 1; i < sFiles.size(); ++i) AddZipFile(sFiles[0] + sFiles[i], bGroupZip);
}

void frmMain::mnuAddFolder_Click() {
    const std::string sPath = BrowseForFolderDlg(this, "", "Select a folder", false, false);
    if (sPath.empty()) return;
    Service<AddWindow>::Get().Show();
    AddFolder(sPath, true, false, true, true);
    Service<AddWindow>::Get().Unload();
}

void frmMain::mnuWatchFolders_Click() { OpenDialog(SingleWindow<frmWatchFolders>::Get()); }

// A window beside this one, not a dialog.
void frmMain::mnuShowLog_Click() {
    frmLog& window = SingleWindow<frmLog>::Get();
    window.show();
    BringToFront(window);
}

void frmMain::mnuSetupPSP_Click() { OpenDialog(SingleWindow<frmNewPSP>::Get()); }

void frmMain::mnuOptions_Click() {
    frmOptions& window = SingleWindow<frmOptions>::Get();
    ShowPlacedDialog(window);
    BringToFront(window);
}

void frmMain::CreateGroup(Integer iType) {
    std::vector<std::string> sIDs{""};
    for (Long row = 1; row <= grdItems->Count(); ++row) {
        if (!grdItems->Selected(row)) continue;
        if (!sIDs[0].empty()) sIDs.emplace_back();
        sIDs.back() = GetDBID(grdItems->Key(row));
    }
    const std::string sName =
        FromQString(InputBox(QStringLiteral("What would you like to call your new group?"),
                             QStringLiteral("Name Group"), QStringLiteral("New Group")));
    if (Trim(sName).empty()) return;
    MakeGroup(sIDs, sName, iType);
}

void frmMain::mnuRemFromGroup_Click() {
    for (const std::string& sID : sSelected) {
        RemoveFromGroup(sID, trvCat->SelectedNode().Key());
        grdItems->Remove("ID" + sID);
    }
}

void frmMain::mnuRemoveDB_Click() {
    RemoveSelectedItems("This will remove the file(s) from the DB, are you sure?", false);
}

void frmMain::mnuRemoveComp_Click() {
    RemoveSelectedItems(
        "This will remove the file(s) from the DB and from your computer, are you sure?", true);
}

// sSelected keeps its ids; until the next click a second removal fails at the record that is gone.
void frmMain::RemoveSelectedItems(const char* sQuestion, bool bFromDisk) {
    const MsgBoxButtons buttons = bFromDisk ? MsgBoxButtons::YesNoDefaultNo : MsgBoxButtons::YesNo;
    if (!ConfirmsDelete(sQuestion, buttons)) return;
    for (auto sID = sSelected.rbegin(); sID != sSelected.rend(); ++sID) {
        bool bDeleteFile = bFromDisk;
        RemoveItem(*sID, bDeleteFile);
        grdItems->Remove("ID" + *sID);
    }
}

void frmMain::mnuDelGroup_Click() {
    if (ConfirmsDelete(DelGroupQuestion)) DeleteGroup(GetDBID(grdItems->CurrentKey()));
}

void frmMain::mnuDelGroup_Cat_Click() {
    if (ConfirmsDelete(DelGroupQuestion)) DeleteGroup(trvCat->SelectedNode().Key());
}

// Both commands take the list's current row away, whatever it is: deleted from the tree, the group
// may have no row in the list at all. Without a current row they fail, with the group gone.
void frmMain::DeleteGroup(const std::string& sID) {
    bool bDeleteFile = false;
    RemoveItem(sID, bDeleteFile);
    grdItems->Remove(grdItems->Current());
    RefreshCats();
}

}  // namespace tavel
