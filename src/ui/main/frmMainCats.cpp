#include "core/PublicStuff.h"
#include "library/Collections.h"
#include "library/Groups.h"
#include "library/Identifiers.h"
#include "ui/main/frmMain.h"
#include "ui/toolkit/ListView.h"
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

template <class T>
void AddGroups(TreeView& tree, TreeNode& parent, const Collection<T>& groups, const QIcon& icon) {
    for (Long i = 1; i <= groups.Count(); ++i) {
        const T& group = groups.Item(i);
        tree.AddNode(&parent, group.sDBID, group.sName, icon, true);
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

// A selected group that is gone leaves the selection with its parent, and no list is filled.
void frmMain::RefreshCats() {
    const std::string sSelectedKey = trvCat->SelectedKey();
    std::string sParentKey;
    if (!sSelectedKey.empty() && !IsFixed(sSelectedKey)) {
        TreeNode& parent = *trvCat->SelectedNode().Parent();
        sParentKey = parent.Key();
        trvCat->Select(parent);
    }
    for (TreeNode* parent : {nodMagazines, nodPhotoAlbums, nodPlaylists, nodVideoSeries}) {
        trvCat->RemoveChildren(*parent);
    }
    AddGroups(*trvCat, *nodMagazines, colMagazine, iglIcons.Icon(QStringLiteral("magazine")));
    AddGroups(*trvCat, *nodPhotoAlbums, colPhotoAlbum, iglIcons.Icon(QStringLiteral("photo")));
    AddGroups(*trvCat, *nodPlaylists, colPlaylist, iglIcons.Icon(QStringLiteral("playlist")));
    AddGroups(*trvCat, *nodVideoSeries, colVidSeries, iglIcons.Icon(QStringLiteral("vidseries")));
    TreeNode* selected = sParentKey.empty() ? nullptr : trvCat->Find(sSelectedKey);
    if (selected != nullptr) trvCat->Select(*selected);
}

void frmMain::trvCat_NodeClick(TreeNode& node, const std::string& sSelectedKey) {
    const std::string sKey = node.Key();
    if (sKey != sSelectedKey) {
        imgThumb->hide();
        sSelected = {""};
        if (sKey != "master") {
            grdItems->hide();
            ListNode(sKey);
            grdItems->show();
        }
    }
    if (iVidThumbMode == 4) ExpandForNode(sKey);
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

void frmMain::trvCat_NodeRightClick(TreeNode& node, QPoint globalPosition) {
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
