#include "device/Transfer.h"
#include "library/Collections.h"
#include "library/Identifiers.h"
#include "ui/main/ItemRows.h"
#include "ui/main/frmMain.h"
#include "ui/toolkit/ListView.h"
#include "ui/toolkit/MsgBox.h"
#include "ui/toolkit/QuietEvents.h"
#include "ui/toolkit/TreeView.h"
#include "ui/toolkit/Twips.h"

#include <QAction>
#include <QLabel>
#include <QPushButton>
#include <QScopeGuard>
#include <QToolButton>

namespace tavel {

namespace {

// Empty for a type that no collection holds.
std::string DisplayName(Integer iType, const std::string& sID) {
    if (iType == mtMusic) {
        const Music& music = colMusic.Item(sID);
        return music.sName + " - " + music.sArtist;
    }
    if (!IsItemType(iType) && !IsGroupType(iType)) return {};
    return RecordOf(static_cast<MediaType>(iType), sID).sName;
}

}  // namespace

void frmMain::SetupTools() { m_view->setText(QStringLiteral("Transfer View")); }

void frmMain::AddToTransferList(const std::string& sID) {
    try {
        const Integer iType = GetDBIDType(sID);
        const std::string sName = DisplayName(iType, sID);
        const QString icon = QStringLiteral("#%1").arg(iType);
        grdSync->Add(ListRow{"ID" + sID, {"", sName}, iglIcons2.Icon(icon), iglIcons2.Text(icon)});
    } catch (const Failure& failure) {
        if (failure.Number() != failure::ListKeyNotUnique) return;
        MsgBox(QStringLiteral("Already exists in the list"));
    }
}

void frmMain::mnuAddToTransfer_Click() {
    for (Long row = 1; row <= grdItems->Count(); ++row) {
        if (grdItems->Selected(row)) AddToTransferList(GetDBID(grdItems->Key(row)));
    }
}

void frmMain::grdSync_RowsDropped() {
    for (const std::string& sID : sSelected) AddToTransferList(sID);
}

void frmMain::grdSync_KeyDown(int key) {
    if (key == Qt::Key_Delete) grdSync->RemoveSelected();
}

void frmMain::FormSyncList(std::vector<std::string>& sIDs) const {
    sIDs.clear();
    for (Long row = 1; row <= grdSync->Count(); ++row) sIDs.push_back(GetDBID(grdSync->Key(row)));
}

void frmMain::cmdSend_Click() {
    if (grdSync->Count() == 0) return;
    std::vector<std::string> sIDs;
    FormSyncList(sIDs);
    // A failure, too, is not to be answered by keys that came before its message.
    const auto drop = qScopeGuard(DropInput);
    TransferToPSP(sIDs);
}

void frmMain::cmdClear_Click() { grdSync->Clear(); }

void frmMain::tbrRightView_MenuClick(const QAction& entry) {
    const bool bSync = entry.objectName() == QLatin1String("sync");
    grdSync->setVisible(bSync);
    grdAutoSync->setVisible(!bSync);
    m_view->setText(entry.text());
    m_layout.FitRightView(Twips(m_view->sizeHint().width()));
    Place(*tbrRightView, m_layout.tbrRightView);
}

void frmMain::ExpandSyncGrid(bool bExpand) {
    m_layout.ExpandSyncGrid(bExpand);
    Place(*grdSync, m_layout.grdSync);
    Place(*cmdSend, m_layout.cmdSend);
    Place(*cmdClear, m_layout.cmdClear);
    if (!bExpand) ShowThumbFile(NoThumbFile());
    Place(*imgThumb, m_layout.imgThumb);
    imgThumb->setVisible(!bExpand);
}

// The columns stay, since groups and their members have the same; so does iListType, so that the
// pop-up menu takes the members for groups until the next click in the tree.
void frmMain::JumpToGroup(const std::string& sID) {
    TreeNode& node = trvCat->Node(sID);
    ListedIn(*trvCat);
    trvCat->scrollToItem(&node);
    trvCat->Select(node);
    FillListFromGroup(sID);
}

}  // namespace tavel
