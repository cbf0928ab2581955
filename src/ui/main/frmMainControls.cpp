#include "device/Discovery.h"
#include "library/Records.h"
#include "library/Scan.h"
#include "ui/main/StatusFrame.h"
#include "ui/main/ThumbPicture.h"
#include "ui/main/WrappedButton.h"
#include "ui/main/frmMain.h"
#include "ui/toolkit/Application.h"
#include "ui/toolkit/Banner.h"
#include "ui/toolkit/Controls.h"
#include "ui/toolkit/ListView.h"
#include "ui/toolkit/TreeView.h"
#include "ui/toolkit/Twips.h"

#include <QHBoxLayout>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QShortcut>
#include <QToolButton>
#include <array>

namespace tavel {

namespace {

struct TypeIcon {
    MediaType type;
    const char* file;
    const char* text;
};

constexpr std::array TypeIcons{
    TypeIcon{mtVideo, "video", "Video"},
    TypeIcon{mtPhoto, "photo", "Photo"},
    TypeIcon{mtMusic, "music", "Music"},
    TypeIcon{mtVidSeries, "vidseries", "Video Series"},
    TypeIcon{mtMagazine, "magazine", "Magazine"},
    TypeIcon{mtPhotoAlbum, "album", "Photo Album"},
    TypeIcon{mtPlaylist, "playlist", "Playlist"},
};

template <class Control>
Control* Labelled(Control* control, const char* name, const char* role) {
    control->setObjectName(QLatin1String(name));
    control->setAccessibleName(QLatin1String(role));
    return control;
}

// The transfer list and the list that stands in its place have the same shape.
ListView* AddSyncList(const char* name, const char* role, QWidget* parent) {
    ListView* list = Labelled(new ListView(parent), name, role);
    list->AddColumn("icon", "", 300);
    list->AddColumn("item", "Item");
    // The transfer list's second column is wider than what the frame and a scroll bar leave.
    list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    return list;
}

TreeView* AddTree(const char* name, const char* role, QWidget* panel) {
    TreeView* tree = Labelled(new TreeView(panel), name, role);
    QFont font = tree->font();
    font.setFamilies({QStringLiteral("Verdana"), font.family()});
    tree->setFont(font);
    return tree;
}

}  // namespace

void frmMain::AddPictures() {
    for (const char* key :
         {"master", "video", "music", "photo", "magazine", "playlist", "vidseries", "psp"}) {
        iglIcons.Add(QLatin1String(key), QLatin1String(key));
    }
    for (const TypeIcon& icon : TypeIcons) {
        iglIcons2.Add(QStringLiteral("#%1").arg(icon.type), QLatin1String(icon.file), icon.text);
    }
    for (const char* key : {"send", "auto"}) iglView.Add(QLatin1String(key), QLatin1String(key));
}

void frmMain::AddControls() {
    auto* client = Labelled(new QWidget(this), "client", "Tavel");
    client->setFixedSize(Pixels(MainLayout::ClientWidth), Pixels(MainLayout::ClientHeight));
    setCentralWidget(client);
    layout()->setSizeConstraint(QLayout::SetFixedSize);

    // The library's panel comes second, so that it lies over the device's.
    picPSPCatBack = Labelled(new QWidget(client), "picPSPCatBack", "PSP");
    picCatBack = Labelled(new QWidget(client), "picCatBack", "Library");
    trvCat = AddTree("trvCat", "Library categories", picCatBack);
    trvCat->SetDropTarget(true);
    trvPSPCat = AddTree("trvPSPCat", "PSP categories", picPSPCatBack);
    trvPSPCat->setFocusPolicy(Qt::NoFocus);  // covered until a device comes

    grdItems = Labelled(new ListView(client), "grdItems", "Items");
    grdItems->SetDragSource(true);
    grdSync = AddSyncList("grdSync", "Transfer list", client);
    grdSync->SetDropTarget(true);
    grdAutoSync = AddSyncList("grdAutoSync", "AutoSync list", client);
    grdAutoSync->hide();

    tbrRightView = Labelled(new QWidget(client), "tbrRightView", "View of the right-hand list");
    m_view = Named<QToolButton>("view", tbrRightView);  // which is called what it reads
    m_view->setText(QStringLiteral("View"));
    // Of the modes the one that keeps the arrow apart from the text.
    m_view->setPopupMode(QToolButton::MenuButtonPopup);
    m_view->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    m_view->setToolButtonStyle(Qt::ToolButtonTextOnly);
    auto* views = new QMenu(m_view);
    views->addAction(iglView.Icon(QStringLiteral("send")), QStringLiteral("Transfer View"))
        ->setObjectName(QStringLiteral("sync"));
    views->addAction(iglView.Icon(QStringLiteral("auto")), QStringLiteral("AutoSync View"))
        ->setObjectName(QStringLiteral("auto"));
    m_view->setMenu(views);
    auto* line = new QHBoxLayout(tbrRightView);
    line->setContentsMargins(0, 0, 0, 0);
    line->addWidget(m_view);

    cmdSend =
        Labelled(new QPushButton(QStringLiteral("Send To PSP"), client), "cmdSend", "Send To PSP");
    cmdClear =
        Labelled(new WrappedButton(QStringLiteral("Clear List"), client), "cmdClear", "Clear List");

    imgThumb = Named<ThumbPicture>("imgThumb", client);
    imgThumb->hide();
    shpThumb = Labelled(new QWidget(client), "shpThumb", "Place of the thumbnail");
    shpThumb->hide();

    Frame1 = new StatusFrame(client);
    Frame1->ShowPanel(m_status);
    Image1 = Labelled(new Banner(client), "Image1", "Banner");
}

void frmMain::PlaceControls() {
    Place(*picCatBack, m_layout.picCatBack);
    Place(*trvCat, m_layout.trvCat, m_layout.picCatBack);
    Place(*picPSPCatBack, m_layout.picPSPCatBack);
    Place(*trvPSPCat, m_layout.trvPSPCat, m_layout.picPSPCatBack);
    Place(*grdItems, m_layout.grdItems);
    Place(*grdSync, m_layout.grdSync);
    Place(*grdAutoSync, m_layout.grdAutoSync);
    Place(*tbrRightView, m_layout.tbrRightView);
    Place(*cmdSend, m_layout.cmdSend);
    Place(*cmdClear, m_layout.cmdClear);
    Place(*imgThumb, m_layout.imgThumb);
    Place(*shpThumb, m_layout.shpThumb);
    Place(*Frame1, m_layout.Frame1);
    Place(*Image1, m_layout.Image1);
}

void frmMain::ConnectMenus() {
    // The captions have no letters to open a menu by.
    auto* toMenus = new QShortcut(Qt::Key_F10, this);
    connect(toMenus, &QShortcut::activated, this,
            [this] { menuBar()->setActiveAction(menuBar()->actions().constFirst()); });
    const auto on = [this](const char* name, auto handler) {
        connect(&m_menus.Entry(name), &QAction::triggered, this, handler);
    };
    on("mnuAddFile", [this] { mnuAddFile_Click(); });
    on("mnuAddZipFile", [this] { mnuAddZipFile_Click(); });
    on("mnuAddFolder", [this] { mnuAddFolder_Click(); });
    on("mnuWatchFolders", [] { mnuWatchFolders_Click(); });
    on("mnuExit", [this] { mnuExit_Click(); });
    on("mnuShowLog", [this] { mnuShowLog_Click(); });
    on("mnuBackScan", [] { BackgroundScan(); });
    on("mnuOptions", [] { mnuOptions_Click(); });
    on("mnuSetupPSP", [this] { mnuSetupPSP_Click(); });
    on("mnuAddToTransfer", [this] { mnuAddToTransfer_Click(); });
    on("mnuThumbnail", [this] { mnuThumbnail_Click(); });
    on("mnuRename", [this] { grdItems->StartLabelEdit(); });
    on("mnuPhotoAlbumGroup", [this] { CreateGroup(mtPhotoAlbum); });
    on("mnuPhotoMagazineGroup", [this] { CreateGroup(mtMagazine); });
    on("mnuVideoGroup", [this] { CreateGroup(mtVidSeries); });
    on("mnuMusicGroup", [this] { CreateGroup(mtPlaylist); });
    on("mnuRemFromGroup", [this] { mnuRemFromGroup_Click(); });
    on("mnuRemoveDB", [this] { mnuRemoveDB_Click(); });
    on("mnuRemoveComp", [this] { mnuRemoveComp_Click(); });
    on("mnuDelGroup", [this] { mnuDelGroup_Click(); });
    on("mnuPSPDel", [this] { mnuPSPDel_Click(); });
    on("mnuRename_Cat", [this] { trvCat->StartLabelEdit(); });
    on("mnuDelGroup_Cat", [this] { mnuDelGroup_Cat_Click(); });
}

void frmMain::ConnectControls() {
    connect(trvCat, &TreeView::NodeClicked, this, &frmMain::trvCat_NodeClick);
    connect(trvCat, &TreeView::MenuRequested, this, &frmMain::trvCat_MenuRequested);
    connect(trvCat, &TreeView::NodeCollapsed, this,
            [this](TreeNode& node) { trvCat->Select(node); });
    connect(trvCat, &TreeView::LabelEdited, this, &frmMain::trvCat_AfterLabelEdit);
    connect(trvCat, &TreeView::RowsDropped, this, &frmMain::trvCat_RowsDropped);
    connect(static_cast<Application*>(qApp), &Application::Failing, trvCat, &TreeView::DropChange);
    connect(trvPSPCat, &TreeView::NodeClicked, this, &frmMain::trvPSPCat_NodeClick);

    connect(grdItems, &ListView::RowClicked, this, &frmMain::grdItems_ItemClick);
    connect(grdItems, &ListView::RowDoubleClicked, this, &frmMain::grdItems_DblClick);
    connect(grdItems, &ListView::KeyPressed, this, &frmMain::grdItems_KeyDown);
    connect(grdItems, &ListView::LabelEdited, this, &frmMain::grdItems_AfterLabelEdit);
    connect(grdItems, &ListView::MouseReleased, this, &frmMain::grdItems_MouseUp);
    connect(grdItems, &ListView::MenuRequested, this, &frmMain::grdItems_MenuRequested);
    connect(grdItems, &ListView::MouseMoved, this, &frmMain::grdItems_MouseMove);

    connect(imgThumb, &ThumbPicture::PointerMoved, this, &frmMain::imgThumb_MouseMove);

    connect(grdSync, &ListView::KeyPressed, this, &frmMain::grdSync_KeyDown);
    connect(grdSync, &ListView::RowsDropped, this, &frmMain::grdSync_RowsDropped);
    connect(m_view, &QToolButton::clicked, m_view, &QToolButton::showMenu);
    connect(m_view->menu(), &QMenu::triggered, this,
            [this](QAction* entry) { tbrRightView_MenuClick(*entry); });
    connect(cmdSend, &QPushButton::clicked, this, &frmMain::cmdSend_Click);
    connect(cmdClear, &QPushButton::clicked, this, &frmMain::cmdClear_Click);

    connect(&tmrPSP, &QTimer::timeout, this, [] { PollPSP(); });
    connect(&tmrBack, &QTimer::timeout, this, [] { ScanTick(); });
}

}  // namespace tavel
