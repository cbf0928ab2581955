#include "core/PublicStuff.h"
#include "library/Collections.h"
#include "library/Identifiers.h"
#include "ui/main/ItemRows.h"
#include "ui/main/frmMain.h"
#include "ui/toolkit/ListView.h"
#include "ui/toolkit/TreeView.h"

#include <QAction>
#include <QLabel>
#include <QMenu>
#include <utility>

namespace tavel {

void frmMain::SetupItemList(Integer iType) {
    grdItems->ClearColumns();
    if (iType == mtPhoto || iType == mtVideo || iType == mtMusic) {
        grdItems->AddColumn("title", "Title");
        if (iType == mtPhoto) grdItems->AddColumn("dims", "Dimentions");
        if (iType == mtMusic) grdItems->AddColumn("artist", "Artist");
        if (iType == mtMusic) grdItems->AddColumn("album", "Album");
        grdItems->AddColumn("format", "Format");
        grdItems->AddColumn("size", "Size");
        grdItems->AddColumn("path", "Path");
    }
    grdItems->SetColumnWidth("title", 2880);
    grdItems->AlignColumnRight("size");
    grdItems->SetColumnWidth("size", 960);
    grdItems->SetColumnWidth("format", 920);
    grdItems->SetColumnWidth("path", m_layout.grdItems.Width - grdItems->ColumnLeft("size") -
                                         grdItems->ColumnWidth("size") - 260);
    grdItems->ElideColumnInMiddle("path");
}

void frmMain::FillList(Integer iType) {
    grdItems->Clear();
    bPSPView = false;
    grdItems->Add(RowsOfType(iType));
}

void frmMain::FillListFromGroup(const std::string& sID) {
    grdItems->Clear();
    AddRowsOfGroup(sID, [this](ListRow row) { grdItems->Add(std::move(row)); });
    if (GetDBIDType(sID) == mtVidSeries && iVidThumbMode == 4) ExpandSyncGrid(false);
}

void frmMain::GetSelectedDBIDs(std::vector<std::string>& sIDs) const {
    sIDs = {""};
    if (grdItems->HasCurrent()) {
        sIDs[0] = GetDBID(grdItems->CurrentKey());
        return;
    }
    for (Long row = 1; row <= grdItems->Count(); ++row) {
        if (!grdItems->Selected(row)) continue;
        if (!sIDs[0].empty()) sIDs.emplace_back();
        sIDs.back() = GetDBID(grdItems->Key(row));
    }
}

void frmMain::grdItems_ItemClick() {
    if (bPSPView) return;
    try {
        GetSelectedDBIDs(sSelected);
        const std::string sKey = trvCat->SelectedNode().Key();
        if (sKey == "videoall" || GetDBIDType(sKey) == mtVidSeries) {
            LoadThumbnail(GetDBID(grdItems->CurrentKey()));
        }
    } catch (const Failure&) {
        std::string sThumb;
        bool bMulti = false;
        CheckForMultiThumbs(sSelected, sThumb, bMulti);
        LoadThumbnail(bMulti ? "multi" : sSelected[0]);
    }
}

void frmMain::grdItems_DblClick() {
    if (sSelected[0].empty()) return;
    const std::string sID = GetDBID(grdItems->CurrentKey());
    if (IsGroupType(GetDBIDType(sID))) JumpToGroup(sID);
}

void frmMain::grdItems_KeyDown(int key) {
    if (key == Qt::Key_Delete) mnuRemoveComp_Click();
}

// The tree's node of a renamed group keeps its text until the next RefreshCats.
void frmMain::grdItems_AfterLabelEdit(const std::string& sNewText) {
    const std::string sID = GetDBID(grdItems->CurrentKey());
    const Integer iType = GetDBIDType(sID);
    if (IsItemType(iType) || IsGroupType(iType)) {
        RecordOf(static_cast<MediaType>(iType), sID).sName = sNewText;
    }
    bDBChanged = true;
}

void frmMain::grdItems_MouseUp(Qt::MouseButton button) {
    if (button != Qt::RightButton) bListDrag = false;
}

void frmMain::grdItems_MenuRequested(QPoint globalPosition) {
    if (bPSPView) {
        m_menus.PopUp("mnuPSPRMB").popup(globalPosition);
        return;
    }
    const bool bInGroup = IsGroupType(GetDBIDType(trvCat->SelectedNode().Key()));
    m_menus.Entry("mnuRemFromGroup").setVisible(bInGroup);
    m_menus.FitToList(iListType);
    m_menus.PopUp("mnuRMB").popup(globalPosition);
}

// Brings a thumbnail that floats above its row back under it. The second half of the condition
// can't hold, so that the pointer's x alone decides.
void frmMain::grdItems_MouseMove(Qt::MouseButtons buttons, int x, int y) {
    if ((buttons & Qt::LeftButton) != 0 && bListDrag) return;
    if (!bThumbAbove) return;
    const int t = grdItems->RowTop(grdItems->Current());
    if (x > m_layout.imgThumb.Width || (y > t + 360 && y < t)) PlaceThumbAtRow(t + 360, false);
}

}  // namespace tavel
