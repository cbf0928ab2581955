#include "ui/main/MainMenus.h"

#include "library/Records.h"

#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <array>
#include <vector>

namespace tavel {

namespace {

struct MenuEntry {
    int depth;  // an entry deeper than the one before is in the menu of that one
    const char* name;
    const char* caption;
};

constexpr std::array MenuTable{
    MenuEntry{0, "mnuFile", "File"},
    MenuEntry{1, "mnuAdd", "Add to DB"},
    MenuEntry{2, "mnuAddFile", "Add File(s)..."},
    MenuEntry{2, "mnuAddZipFile", "Add Zip File..."},
    MenuEntry{2, "mnuAddFolder", "Add Folder..."},
    MenuEntry{2, "mnuSep1", "-"},
    MenuEntry{2, "mnuWatchFolders", "Watch Folders..."},
    MenuEntry{1, "mnuSep5", "-"},
    MenuEntry{1, "mnuExit", "Exit"},
    MenuEntry{0, "mnuView", "View"},
    MenuEntry{1, "mnuShowLog", "Show Log Window"},
    MenuEntry{0, "mnuTools", "Tools"},
    MenuEntry{1, "mnuBackScan", "Scan for Media"},
    MenuEntry{1, "mnuSep4", "-"},
    MenuEntry{1, "mnuSetupPSP", "Setup New PSP..."},
    MenuEntry{1, "mnuSep8", "-"},
    MenuEntry{1, "mnuOptions", "Options..."},
    MenuEntry{0, "mnuRMB", "grdItems RMB Menu"},
    MenuEntry{1, "mnuAddToTransfer", "Add to Transfer List"},
    MenuEntry{1, "mnuSep7", "-"},
    MenuEntry{1, "mnuRename", "Rename"},
    MenuEntry{1, "mnuThumbnail", "Assign Thumbnail"},
    MenuEntry{1, "mnuSep2", "-"},
    MenuEntry{1, "mnuPhotoGroup", "Create Group"},
    MenuEntry{2, "mnuPhotoAlbumGroup", "Photo Album"},
    MenuEntry{2, "mnuPhotoMagazineGroup", "Magazine"},
    MenuEntry{1, "mnuVideoGroup", "Group into new Video Series"},
    MenuEntry{1, "mnuMusicGroup", "Group into new Playlist"},
    MenuEntry{1, "mnuSep3", "-"},
    MenuEntry{1, "mnuRemFromGroup", "Remove From Group"},
    MenuEntry{1, "mnuRemoveTop", "Delete File"},
    MenuEntry{2, "mnuRemoveDB", "from DB"},
    MenuEntry{2, "mnuRemoveComp", "from Computer"},
    MenuEntry{1, "mnuDelGroup", "Delete Group"},
    MenuEntry{0, "mnuPSPRMB", "grdItems PSPView RMB"},
    MenuEntry{1, "mnuPSPDel", "Delete from PSP"},
    MenuEntry{0, "mnuCats", "trvCat RMB Menu"},
    MenuEntry{1, "mnuRename_Cat", "Rename..."},
    MenuEntry{1, "mnuSep6", "-"},
    MenuEntry{1, "mnuDelGroup_Cat", "Delete Group"},
};

const QStringList HiddenMenus{QStringLiteral("mnuRMB"), QStringLiteral("mnuPSPRMB"),
                              QStringLiteral("mnuCats")};

struct ListEntries {
    int iListType;
    bool mnuPhotoGroup, mnuVideoGroup, mnuMusicGroup, mnuSep2, mnuDelGroup, mnuRemoveTop,
        mnuThumbnail;
};

constexpr std::array EntriesOfLists{
    ListEntries{mtPhoto, true, false, false, true, false, true, false},
    ListEntries{mtMagazine, false, false, false, false, true, false, false},
    ListEntries{mtPhotoAlbum, false, false, false, false, true, false, false},
    ListEntries{mtVideo, false, true, false, true, false, true, true},
    ListEntries{mtVidSeries, false, false, false, false, true, false, false},
    ListEntries{mtMusic, false, false, true, true, false, true, false},
    ListEntries{mtPlaylist, false, false, false, false, true, false, false},
};

QAction* AddEntry(QMenu& menu, const QString& caption) {
    return caption == QLatin1String("-") ? menu.addSeparator() : menu.addAction(caption);
}

}  // namespace

MainMenus::MainMenus(QMainWindow& window) {
    std::vector<QMenu*> open;
    for (std::size_t i = 0; i < MenuTable.size(); ++i) {
        const MenuEntry& entry = MenuTable[i];
        const QString name = QLatin1String(entry.name);
        const QString caption = QLatin1String(entry.caption);
        open.resize(static_cast<std::size_t>(entry.depth));
        QAction* action = nullptr;
        if (i + 1 < MenuTable.size() && MenuTable[i + 1].depth > entry.depth) {
            auto* menu = new QMenu(caption, &window);
            menu->setObjectName(name);
            action = menu->menuAction();
            if (!open.empty()) {
                open.back()->addMenu(menu);
            } else if (!HiddenMenus.contains(name)) {
                window.menuBar()->addMenu(menu);
            }
            open.push_back(menu);
        } else {
            action = AddEntry(*open.back(), caption);
        }
        action->setObjectName(name);
        m_entries.emplace(name, action);
    }
}

QAction& MainMenus::Entry(const char* name) const { return *m_entries.at(QLatin1String(name)); }

QMenu& MainMenus::PopUp(const char* name) const { return *Entry(name).menu(); }

void MainMenus::FitToList(int iListType) {
    for (const ListEntries& row : EntriesOfLists) {
        if (row.iListType != iListType) continue;
        Entry("mnuPhotoGroup").setVisible(row.mnuPhotoGroup);
        Entry("mnuVideoGroup").setVisible(row.mnuVideoGroup);
        Entry("mnuMusicGroup").setVisible(row.mnuMusicGroup);
        Entry("mnuSep2").setVisible(row.mnuSep2);
        Entry("mnuDelGroup").setVisible(row.mnuDelGroup);
        Entry("mnuRemoveTop").setVisible(row.mnuRemoveTop);
        Entry("mnuThumbnail").setVisible(row.mnuThumbnail);
    }
}

}  // namespace tavel
