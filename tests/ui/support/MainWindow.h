#pragma once

#include "device/DeviceWindows.h"
#include "library/Collections.h"
#include "library/LibraryWindows.h"
#include "support/FaultyFileService.h"
#include "support/Recorders.h"
#include "support/Support.h"
#include "ui/main/frmMain.h"
#include "ui/support/PromptQueue.h"
#include "ui/support/Windows.h"
#include "ui/toolkit/ListView.h"
#include "ui/toolkit/SingleWindow.h"
#include "ui/toolkit/TreeView.h"

#include <QMenu>
#include <QTimer>
#include <functional>
#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

namespace tavel::test {

// Yields to nothing.
class IdleLoop : public Standing<EventLoop> {
  public:
    void Yield() override {}
};

// Passes what the engine asks of the windows on to frmMain, as the program does.
class ToMainWindow : public Standing<DevicePanels>,
                     public Standing<CategoryTree>,
                     public Standing<ScanTimer> {
  public:
    void RefreshPSPStatus() override { SingleWindow<frmMain>::Get().RefreshPSPStatus(); }
    void RefreshPSPCats() override { SingleWindow<frmMain>::Get().RefreshPSPCats(); }
    void ShowPSPCats(bool bShow) override { SingleWindow<frmMain>::Get().ShowPSPCats(bShow); }
    void RefreshCats() override { SingleWindow<frmMain>::Get().RefreshCatsLater(); }
    void Enable(bool bEnabled) override { SingleWindow<frmMain>::Get().Enable(bEnabled); }
};

// The real frmMain over a library that the test makes, driven by real clicks and keys. No drive
// but c: is there until a test plugs one in.
class MainWindowTest : public testing::Test {
  protected:
    MainWindowTest();
    ~MainWindowTest() override;

    static Photo& AddPhoto(const std::string& sID, const std::string& sName, Long iSize = 1500000);
    static Video& AddVideo(const std::string& sID, const std::string& sName, Long iSize = 1500000);
    static Music& AddMusic(const std::string& sID, const std::string& sName,
                           const std::string& sArtist);
    // ph_a to ph_d, each with a file of its name.
    void AddPhotosWithFiles();
    bool FileIsThere(const std::string& name) const { return !temp.Read(name + ".jpg").empty(); }
    // Groups of items that are there already, linked on both sides.
    static void AddMagazine(const std::string& sID, const std::vector<std::string>& sIDs);
    static void AddAlbum(const std::string& sID, const std::vector<std::string>& sIDs);
    static void AddSeries(const std::string& sID, const std::vector<std::string>& sIDs);
    static void AddPlaylist(const std::string& sID, const std::vector<std::string>& sIDs);

    // Plugs in a marked stick with the PSP's folders, as e:.
    void PlugStick();

    // Puts the pictures of the thumbnail pane beside the program, which is the test's.
    static void InstallPictures();
    static constexpr int NoThumbWidth = 16;
    static constexpr int MultiThumbWidth = 24;

    // Loads and shows the window.
    frmMain& Open();
    frmMain& Main() { return SingleWindow<frmMain>::Get(); }

    TreeView& trvCat() { return Find<TreeView>(Main(), "trvCat"); }
    TreeView& trvPSPCat() { return Find<TreeView>(Main(), "trvPSPCat"); }
    ListView& grdItems() { return Find<ListView>(Main(), "grdItems"); }
    Box PlaceOf(const char* control);  // in twips
    ListView& grdSync() { return Find<ListView>(Main(), "grdSync"); }

    void ClickNode(TreeView& tree, const std::string& sKey,
                   Qt::MouseButton button = Qt::LeftButton);
    void ClickNode(const std::string& sKey) { ClickNode(trvCat(), sKey); }
    void ClickRow(ListView& list, Long row, Qt::KeyboardModifiers keys = Qt::NoModifier,
                  Qt::MouseButton button = Qt::LeftButton);
    void ClickRow(Long row, Qt::KeyboardModifiers keys = Qt::NoModifier) {
        ClickRow(grdItems(), row, keys);
    }
    void RightClickRow(Long row) { ClickRow(grdItems(), row, Qt::NoModifier, Qt::RightButton); }
    void DoubleClickRow(Long row);
    QPoint PointOfRow(Long row);  // in the viewport of the item list

    void RightClickNode(const std::string& sKey) { ClickNode(trvCat(), sKey, Qt::RightButton); }

    // Drags a row with the pointer and lets it go over a point of another control; `underway` runs
    // before it arrives there.
    void Drag(
        Long row, QWidget& target, QPoint position, const std::function<void()>& underway = [] {});

    // Picks an entry with the pointer: from the menu bar, or from the pop-up menu that stands.
    void Pick(std::initializer_list<const char*> names);
    bool Shows(const char* menu) { return Find<QMenu>(Main(), menu).isVisible(); }
    std::string EntriesOf(const char* menu);  // names of those that show, each with a blank

    // "key=text" of each node, "-(...)" or "+(...)" around its children as they are open.
    static std::string Tree(TreeView& tree);
    static std::string TextOf(const QTreeWidgetItem& node);
    static std::string RowsOf(const ListView& list);             // first cells, parted by "|"
    static std::string CellsOf(const ListView& list, Long row);  // cells, parted by "|"

    static std::string Members(const Group& group);  // ids, each with a blank

    // The number of the failure that reached the event loop while `work` ran; 0 for none.
    Long FatalOf(const std::function<void()>& work);

    TempFolder temp;
    FaultyFileService files;
    Calls calls;
    AppWindowsRecorder appWindows{calls};
    LibraryStoreRecorder store{calls};
    LogWindowRecorder log{calls};
    AddWindowRecorder addWindow{calls};
    ToMainWindow toMain;
    IdleLoop loop;
    PromptQueue prompts;
};

}  // namespace tavel::test
