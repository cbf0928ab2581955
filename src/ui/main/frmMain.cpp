#include "ui/main/frmMain.h"

#include "core/Main.h"
#include "core/PublicStuff.h"
#include "core/modRegistry.h"
#include "device/Discovery.h"
#include "ui/main/frmLog.h"
#include "ui/toolkit/ListView.h"
#include "ui/toolkit/SingleWindow.h"
#include "ui/toolkit/StyleApply.h"
#include "ui/toolkit/TreeView.h"
#include "ui/toolkit/WorkWindow.h"

#include <QCloseEvent>

namespace tavel {

frmMain::frmMain() : m_menus(*this), tmrBack(this), tmrPSP(this) {
    setObjectName(QStringLiteral("frmMain"));
    setWindowTitle(QStringLiteral("Tavel"));
    setWindowFlag(Qt::WindowMaximizeButtonHint, false);  // it has one size
    tmrBack.setObjectName(QStringLiteral("tmrBack"));
    tmrPSP.setObjectName(QStringLiteral("tmrPSP"));
    AddPictures();
    AddControls();
    PlaceControls();
    ConnectMenus();
    ConnectControls();
}

// The tree outlives what it is built from.
frmMain::~frmMain() { trvCat->DropChange(); }

void frmMain::Load() {
    StyleApply(*this, gStyle);
    SetupTimer();
    SetupCats();
    RefreshCats();
    SetupTools();
    bPSPView = false;
    bListDrag = false;
    FirstLookForPSP();
    ReadValue(sDBFile, "watch", "delay", "s", "60", iScanDelay);
    tmrPSP.start();
    tmrBack.setInterval(60000);
    tmrBack.start();
    ExpandSyncGrid(true);
    sSelected = {""};
    trvCat->Select(trvCat->Node("master"));
    iScanTicks = 0;
    iListType = -1;
    grdSync->SetColumnWidth("item", m_layout.grdSync.Width - grdSync->ColumnWidth("icon"));
}

void frmMain::SetupTimer() {
    for (QTimer* timer : {&tmrBack, &tmrPSP}) {
        timer->stop();
        timer->setInterval(1000);
    }
}

// Not before: a group that the wizard makes brings the window into being behind it.
void frmMain::showEvent(QShowEvent*) { SetWorkWindow(*this); }

void frmMain::closeEvent(QCloseEvent* event) {
    mnuExit_Click();
    event->accept();
}

void frmMain::mnuExit_Click() {
    SingleWindow<frmLog>::Unload();
    ShutDown();
}

}  // namespace tavel
