#include "device/Browser.h"
#include "device/Naming.h"
#include "library/Records.h"
#include "ui/main/StatusFrame.h"
#include "ui/main/frmMain.h"
#include "ui/toolkit/ListView.h"
#include "ui/toolkit/MsgBox.h"
#include "ui/toolkit/ShowNow.h"
#include "ui/toolkit/TreeView.h"

#include <QScopeGuard>

namespace tavel {

namespace {

PSPRow RowOfList(const ListView& list, Long row) {
    PSPRow psp{list.Key(row), list.Cell(row, 0), {}};
    for (int cell = 1; cell < list.CellCount(row); ++cell) {
        psp.sSubItems.push_back(list.Cell(row, cell));
    }
    return psp;
}

std::vector<ListRow> ListRowsOf(std::vector<PSPRow> found) {
    std::vector<ListRow> rows;
    for (PSPRow& psp : found) {
        ListRow row{std::move(psp.sKey), {std::move(psp.sText)}};
        for (const std::string& sSubItem : psp.sSubItems) row.sCells.Add(sSubItem);
        rows.push_back(std::move(row));
    }
    return rows;
}

}  // namespace

void frmMain::AddPSPCats() {
    nodMaster = &trvPSPCat->AddNode(nullptr, "master", "PSP", iglIcons.Icon(QStringLiteral("psp")));
    nodPhotos = &trvPSPCat->AddNode(nodMaster, "photoall", "Photos",
                                    iglIcons.Icon(QStringLiteral("photo")));
    nodMusic =
        &trvPSPCat->AddNode(nodMaster, "musicall", "Music", iglIcons.Icon(QStringLiteral("music")));
    nodVideos = &trvPSPCat->AddNode(nodMaster, "videoall", "Videos",
                                    iglIcons.Icon(QStringLiteral("video")));
    nodMaster->setExpanded(true);
}

void frmMain::ResetPSPCats() {
    trvPSPCat->RemoveAll();
    AddPSPCats();
}

// Folders have the icon of music, those of photos too.
void frmMain::RefreshPSPCats() {
    ResetPSPCats();
    const QIcon& icon = iglIcons.Icon(QStringLiteral("music"));
    for (const FolderEntry& folder : PSPMusicFolders()) {
        trvPSPCat->AddNode(nodMusic, folder.Path, folder.Name, icon);
    }
    for (const FolderEntry& folder : PSPPhotoFolders()) {
        trvPSPCat->AddNode(nodPhotos, folder.Path, folder.Name, icon);
    }
}

// The keyboard must not reach the device's tree while it lies covered.
void frmMain::ShowPSPCats(bool bShow) {
    m_layout.ShowPSPCats(bShow);
    Place(*picCatBack, m_layout.picCatBack);
    Place(*trvCat, m_layout.trvCat, m_layout.picCatBack);
    trvPSPCat->setFocusPolicy(bShow ? Qt::StrongFocus : Qt::NoFocus);
    if (!bShow) trvPSPCat->clearFocus();
}

// When the figures fail, what comes before them is to be seen behind the message.
void frmMain::RefreshPSPStatus() {
    const auto show = qScopeGuard([this] { Frame1->ShowPanel(m_status); });
    UpdateStatusPanel(m_status);
}

void frmMain::trvPSPCat_NodeClick(const TreeNode& node) {
    const std::string sKey = node.Key();
    const std::string sParent = node.Parent() == nullptr ? "" : node.Parent()->Key();
    if (sKey == "master") return;
    if (sKey == "photoall") {
        ListPSPFolder(PSPPath(BrowsedPhotoFolder), mtPhoto);
    } else if (sKey == "musicall") {
        ListPSPFolder(PSPPath(BrowsedMusicFolder), mtMusic);
    } else if (sParent == "photoall") {
        ListPSPFolder(sKey, mtPhoto);
    } else if (sParent == "musicall") {
        ListPSPFolder(sKey, mtMusic);
    } else if (sKey == "videoall") {
        ListPSPFolder(PSPPath(VideoFolder), mtVideo);
    }
}

void frmMain::ListPSPFolder(const std::string& sPath, Integer iType) {
    ListedIn(*trvPSPCat);
    SetupItemList(iType);
    FillListFromPSP(sPath, iType);
    iListType = iType;
}

// When a file fails, the rows of those before it are to be seen behind the message.
void frmMain::FillListFromPSP(const std::string& sPath, Integer iType) {
    bPSPView = true;
    grdItems->Clear();
    grdItems->Add(ListRow{"", {"Loading..."}});
    RepaintNow(*grdItems);
    grdItems->Clear();

    std::vector<PSPRow> found;
    const auto show = qScopeGuard([&] { grdItems->Add(ListRowsOf(std::move(found))); });
    ListPSPFiles(sPath, iType, found);
}

void frmMain::mnuPSPDel_Click() {
    if (MsgBox(QStringLiteral("This will remove the file(s) from the PSP, are you sure?"),
               MsgBoxButtons::YesNoDefaultNo,
               QStringLiteral("Confirm Delete")) != MsgBoxAnswer::Yes) {
        return;
    }
    for (Long row = grdItems->Count(); row >= 1; --row) {
        if (!grdItems->Selected(row)) continue;
        DeletePSPFile(RowOfList(*grdItems, row), iListType);
        grdItems->Remove(row);
    }
    RefreshPSPStatus();
}

}  // namespace tavel
