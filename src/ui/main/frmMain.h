#pragma once

#include "device/Status.h"
#include "platform/Numbers.h"
#include "ui/main/MainLayout.h"
#include "ui/main/MainMenus.h"
#include "ui/toolkit/ImageList.h"

#include <QMainWindow>
#include <QTimer>
#include <string>
#include <vector>

class QPushButton;
class QToolButton;

namespace tavel {

class ListView;
class StatusFrame;
class ThumbPicture;
class TreeView;
class TreeNode;

// The one working window: the library's categories and the device's at the left, the items in the
// middle, what is to be transferred at the right. Handlers don't guard their preconditions; what
// the pop-up menus offer is the only guard, and a failure in a handler is fatal.
class frmMain : public QMainWindow {
    Q_OBJECT

  public:
    frmMain();  // the controls, as they are designed
    ~frmMain() override;
    void Load();  // the load handler; reaches this window by up-calls

    // What the item list shows: -1 until a node is picked, else a MediaType. While the members of
    // one group are listed it is the class of the group (0, 3, 5), and after a jump to a group
    // from its row it still is the group's own type.
    Integer iListType = 0;
    bool bPSPView = false;               // the item list shows files of the device
    bool bListDrag = false;              // never raised; the item list's mouse handlers test it
    bool bThumbAbove = false;            // the floating thumbnail stands above the current row
    std::vector<std::string> sSelected;  // ids of the selection; at rest one empty text

    // Trees. After SetupCats the first four belong to trvPSPCat, the others to trvCat.
    void SetupCats();
    void RefreshCats();
    void RefreshCatsLater();  // once for many, before anybody looks
    void SetupTools();
    TreeNode* nodMaster = nullptr;
    TreeNode* nodPhotos = nullptr;
    TreeNode* nodMusic = nullptr;
    TreeNode* nodVideos = nullptr;
    TreeNode* nodMagazines = nullptr;
    TreeNode* nodPhotoAlbums = nullptr;
    TreeNode* nodPlaylists = nullptr;
    TreeNode* nodVideoSeries = nullptr;

    // Item list. The fills leave the columns to the caller.
    void SetupItemList(Integer iType);  // 0, 3 or 5; any other fails for want of columns
    void FillList(Integer iType);
    void FillListFromGroup(const std::string& sID);  // leaves bPSPView alone
    // The current row's id alone; ids of all selected rows only when there is no current row.
    void GetSelectedDBIDs(std::vector<std::string>& sIDs) const;

    // Transfer list
    void AddToTransferList(const std::string& sID);
    void FormSyncList(std::vector<std::string>& sIDs) const;  // none of an empty list
    void ExpandSyncGrid(bool bExpand);
    void JumpToGroup(const std::string& sID);  // leaves the columns and iListType alone

    // Device
    void ResetPSPCats();
    void RefreshPSPCats();
    void ShowPSPCats(bool bShow);
    void RefreshPSPStatus();
    void FillListFromPSP(const std::string& sPath, Integer iType);

    // Thumbnail pane
    void LoadThumbnail(const std::string& sID);                         // of a video, or "multi"
    static void AssignThumbnail(const std::vector<std::string>& sIDs);  // asks for it
    static void CheckForMultiThumbs(const std::vector<std::string>& sIDs, std::string& sThumb,
                                    bool& bMulti);

    // tmrBack, which rests while a scan runs
    void Enable(bool bEnabled) { bEnabled ? tmrBack.start() : tmrBack.stop(); }

  protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

  private:
    void AddControls();
    void AddPictures();
    void PlaceControls();
    void ConnectMenus();
    void ConnectControls();
    void SetupTimer();

    void trvCat_NodeClick(TreeNode& node, const std::string& sSelectedKey);
    void ListedIn(const TreeView& tree);  // the item list shows a node of this one from now on
    void ListNode(const std::string& sKey);
    void ExpandForNode(const std::string& sKey);
    void trvCat_MenuRequested(TreeNode& node, QPoint globalPosition);
    void trvCat_AfterLabelEdit(const TreeNode& node, const std::string& sNewText);
    void trvCat_RowsDropped(const TreeNode& node);

    void grdItems_ItemClick();
    void grdItems_DblClick();
    void grdItems_KeyDown(int key);
    void grdItems_AfterLabelEdit(const std::string& sNewText);
    void grdItems_MouseUp(Qt::MouseButton button);
    void grdItems_MenuRequested(QPoint globalPosition);
    void grdItems_MouseMove(Qt::MouseButtons buttons, int x, int y);

    void grdSync_KeyDown(int key);
    void grdSync_RowsDropped();
    void tbrRightView_MenuClick(const QAction& entry);
    void cmdSend_Click();
    void cmdClear_Click();

    void ShowThumbFile(const std::string& sPath);
    void imgThumb_MouseMove();
    void PlaceThumbAtRow(int top, bool bAbove);  // sets bThumbAbove

    void AddPSPCats();
    void trvPSPCat_NodeClick(const TreeNode& node);
    void ListPSPFolder(const std::string& sPath, Integer iType);

    std::vector<std::string> PickFilesToAdd(std::string sFilter);
    void mnuAddFile_Click();
    void mnuAddZipFile_Click();
    void mnuAddFolder_Click();
    static void mnuWatchFolders_Click();
    void mnuExit_Click();
    void mnuShowLog_Click();
    void mnuSetupPSP_Click();
    static void mnuOptions_Click();
    void mnuAddToTransfer_Click();
    void mnuThumbnail_Click();
    void CreateGroup(Integer iType);
    void mnuRemFromGroup_Click();
    void mnuRemoveDB_Click();
    void mnuRemoveComp_Click();
    void RemoveSelectedItems(const char* sQuestion, bool bFromDisk);
    void mnuDelGroup_Click();
    void mnuDelGroup_Cat_Click();
    void DeleteGroup(const std::string& sID);
    void mnuPSPDel_Click();

    MainLayout m_layout;
    StatusPanel m_status;
    MainMenus m_menus;
    ImageList iglIcons;   // of the trees
    ImageList iglIcons2;  // of the transfer list
    ImageList iglView;    // of the toolbar
    QTimer tmrBack;
    QTimer tmrPSP;

    QWidget* picCatBack;
    TreeView* trvCat;
    QWidget* picPSPCatBack;
    TreeView* trvPSPCat;
    ListView* grdItems;
    ListView* grdSync;
    ListView* grdAutoSync;
    QWidget* tbrRightView;
    QToolButton* m_view;
    QPushButton* cmdSend;
    QPushButton* cmdClear;
    ThumbPicture* imgThumb;
    QWidget* shpThumb;
    StatusFrame* Frame1;
    QWidget* Image1;
};

}  // namespace tavel
