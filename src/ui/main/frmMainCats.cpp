#include "core/PublicStuff.h"
#include "library/Collections.h"
#include "library/Groups.h"
#include "library/Identifiers.h"
#include "ui/main/frmMain.h"
#include "ui/toolkit/ListView.h"
#include "ui/toolkit/Strings.h"
#include "ui/toolkit/TreeView.h"

#include <QLabel>
#include <QMenu>
#include <algorithm>
#include <array>
#include <string_view>

namespace tavel {

namespace {

constexpr std::array<std::string_view, 8> FixedKeys{"master",    "photoall",   "musicall",
                                                    "videoall",  "magazines",  "photoalbums",
                                                    "playlists", "videoseries"};

bool IsFixed(std::string_view sKey) {
    return std::find(FixedKeys.begin(), FixedKeys.end(), sKey) != FixedKeys.end();
}

// What a node of the fixed ones lists: the columns, and the type of the records.
struct NodeList {
    std::string_view sKey;
    MediaType columns;
    MediaType records;
};

constexpr std::array NodeLists{
    NodeList{"photoall", mtPhoto, mtPhoto},        NodeList{"videoall", mtVideo, mtVideo},
    NodeList{"videoseries", mtVideo, mtVidSeries}, NodeList{"musicall", mtMusic, mtMusic},
    NodeList{"magazines", mtPhoto, mtMagazine},    NodeList{"photoalbums", mtPhoto, mtPhotoAlbum},
    NodeList{"playlists", mtMusic, mtPlaylist},
};

std::string_view KeyOfChild(const TreeNode& parent, int child) {
    return static_cast<const TreeNode*>(parent.child(child))->Key();
}

// A node whose group is still there stays, with the name that may be typed into it just now.
template <class T>
void ShowGroups(TreeView& tree, TreeNode& parent, const Collection<T>& groups, const QIcon& icon) {
    for (Long i = 0; i < groups.Count(); ++i) {
        const T& group = groups.Item(i + 1);
        while (i < parent.childCount() && KeyOfChild(parent, i) != group.sDBID) {
            tree.RemoveChild(parent, i);
        }
        if (i == parent.childCount()) {
            tree.AddNode(&parent, group.sDBID, group.sName, icon, true);
        } else {
            parent.child(i)->setText(0, ToQString(group.sName));
        }
    }
    while (parent.childCount() > groups.Count()) {
        tree.RemoveChild(parent, parent.childCount() - 1);
    }
}

}  // namespace

void frmMain::SetupCats() {
    const auto add = [](TreeView& tree, TreeNode* parent, const char* key, const char* text,
                        const QIcon& icon) { return &tree.AddNode(parent, key, text, icon); };
    const QIcon& photo = iglIcons.Icon(QStringLiteral("photo"));
    const QIcon& music = iglIcons.Icon(QStringLiteral("music"));
    const QIcon& video = iglIcons.Icon(QStringLiteral("video"));
    nodMaster = add(*trvCat, nullptr, "master", "DB", iglIcons.Icon(QStringLiteral("master")));
    nodPhotos = add(*trvCat, nodMaster, "photoall", "Photos", photo);
    nodMusic = add(*trvCat, nodMaster, "musicall", "Music", music);
    nodVideos = add(*trvCat, nodMaster, "videoall", "Videos", video);
    nodMagazines = add(*trvCat, nodPhotos, "magazines", "Magazines",
                       iglIcons.Icon(QStringLiteral("magazine")));
    nodPhotoAlbums = add(*trvCat, nodPhotos, "photoalbums", "Photo Albums", photo);
    nodPlaylists =
        add(*trvCat, nodMusic, "playlists", "Playlists", iglIcons.Icon(QStringLiteral("playlist")));
    nodVideoSeries = add(*trvCat, nodVideos, "videoseries", "Video Series",
                         iglIcons.Icon(QStringLiteral("vidseries")));
    for (TreeNode* node : {nodMaster, nodPhotos, nodMusic, nodVideos}) node->setExpanded(true);

    // The four references go over to the device's tree, where a folder's parent is looked for.
    AddPSPCats();
}

// When the selected group has gone, "master" is selected, so that a click on any other node fills
// the list; nothing fills it now.
void frmMain::RefreshCats() {
    const std::string sSelectedKey = trvCat->SelectedKey();
    ShowGroups(*trvCat, *nodMagazines, colMagazine, iglIcons.Icon(QStringLiteral("magazine")));
    ShowGroups(*trvCat, *nodPhotoAlbums, colPhotoAlbum, iglIcons.Icon(QStringLiteral("photo")));
    ShowGroups(*trvCat, *nodPlaylists, colPlaylist, iglIcons.Icon(QStringLiteral("playlist")));
    ShowGroups(*trvCat, *nodVideoSeries, colVidSeries, iglIcons.Icon(QStringLiteral("vidseries")));
    if (sSelectedKey.empty()) return;
    TreeNode* selected = trvCat->Find(sSelectedKey);
    trvCat->Select(selected != nullptr ? *selected : trvCat->Node("master"));
}

void frmMain::RefreshCatsLater() {
    trvCat->ChangeLater([this] { RefreshCats(); });
}

void frmMain::trvCat_NodeClick(TreeNode& node, const std::string& sSelectedKey) {
    const std::string sKey = node.Key();
    if (sKey != sSelectedKey) {
        imgThumb->hide();
        sSelected = {""};
        if (sKey != "master") {
            grdItems->hide();
            ListedIn(*trvCat);
            ListNode(sKey);
            grdItems->show();
        }
    }
    if (iVidThumbMode == 4) ExpandForNode(sKey);
}

// The other tree's selected node says nothing about the list, so it's a weak one.
void frmMain::ListedIn(const TreeView& tree) {
    for (TreeView* each : {trvCat, trvPSPCat}) each->SetMuted(each != &tree);
}

void frmMain::ListNode(const std::string& sKey) {
    for (const NodeList& list : NodeLists) {
        if (list.sKey != sKey) continue;
        SetupItemList(list.columns);
        FillList(list.records);
        iListType = list.records;
        return;
    }
    const Integer iClass = GetMediaClass(GetDBIDType(sKey));
    SetupItemList(iClass);
    FillListFromGroup(sKey);
    iListType = iClass;
}

void frmMain::ExpandForNode(const std::string& sKey) {
    ExpandSyncGrid(sKey != "videoall" && GetDBIDType(sKey) != mtVidSeries);
}

void frmMain::trvCat_MenuRequested(TreeNode& node, QPoint globalPosition) {
    if (IsFixed(node.Key())) return;
    trvCat->Select(node);
    m_menus.PopUp("mnuCats").popup(globalPosition);
}

void frmMain::trvCat_AfterLabelEdit(const TreeNode& node, const std::string& sNewText) {
    const Integer iType = GetDBIDType(node.Key());
    if (IsGroupType(iType)) GroupOf(static_cast<MediaType>(iType), node.Key()).sName = sNewText;
    bDBChanged = true;
}

void frmMain::trvCat_RowsDropped(const TreeNode& node) {
    if (IsFixed(node.Key())) return;
    if (GetMediaClass(GetDBIDType(node.Key())) == iListType) AddToGroup(sSelected, node.Key());
}

}  // namespace tavel
