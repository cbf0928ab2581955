#include "library/Adding.h"

#include "core/Log.h"
#include "core/PublicStuff.h"
#include "library/Groups.h"
#include "library/Identifiers.h"
#include "library/LibraryWindows.h"
#include "library/Scan.h"
#include "platform/Activity.h"
#include "platform/EventLoop.h"
#include "platform/Failure.h"
#include "platform/Service.h"
#include "platform/Text.h"

#include <set>
#include <utility>

namespace tavel {

namespace {

constexpr Integer NoTypeYet = 99;

AddWindow& frmAdd() { return Service<AddWindow>::Get(); }

void ShowPath(const std::string& sPath) {
    frmAdd().SetPath(sPath);
    frmAdd().Repaint();
}

void AddShown(const std::string& sPath) {
    ShowPath(sPath);
    AddFile(sPath);
}

// What a folder's own files come to: a group, when it is a leaf and they are all of one type.
struct GroupInMaking {
    bool bMakeGroup = false;
    Integer iFirstType = NoTypeYet;
    std::vector<std::string> sIDs{""};

    void TakeType(Integer iType) {
        if (iFirstType == NoTypeYet) iFirstType = iType;
        if (iType != iFirstType) bMakeGroup = false;
    }

    // A hidden file that was passed over comes without an id. At the head of the list the next id
    // takes its place; further back it stays, and fails in MakeGroup.
    void TakeID(std::string sID) {
        if (!bMakeGroup) return;
        if (sIDs.front().empty())
            sIDs.front() = std::move(sID);
        else
            sIDs.push_back(std::move(sID));
    }
};

// One call of AddFolder, with the folders in its folder.
class FolderWalk {
  public:
    FolderWalk(bool bRecurse, const bool& bMakeGroups, bool bOnlyNew, bool bNoYield)
        : m_bRecurse(bRecurse),
          m_bMakeGroups(bMakeGroups),
          m_bOnlyNew(bOnlyNew),
          m_bNoYield(bNoYield) {}

    void Add(const std::string& sPath) {
        const Doing scanning("Scanning", sPath);
        FolderContents contents = oFSO().GetFolder(sPath);
        GroupInMaking group;
        if (contents.SubFolders.empty()) {
            group.bMakeGroup = m_bMakeGroups;
        } else if (m_bRecurse) {
            AddSubFolders(contents.SubFolders);
            // Files may have come and gone meanwhile.
            contents = oFSO().GetFolder(sPath);
        }
        if (!AddFilesOf(contents, group)) return;
        if (group.bMakeGroup && !group.sIDs.front().empty()) {
            MakeGroup(group.sIDs, contents.Folder.Name, GetGroupType(group.iFirstType));
            Yield();
        }
    }

  private:
    // Among folders that link to each other there are ways without number, so that only the first
    // link to a folder is followed.
    void AddSubFolders(const std::vector<FolderEntry>& folders) {
        for (const FolderEntry& folder : folders) {
            if (!folder.LinkedTo.empty() && !m_linkedTo.insert(folder.LinkedTo).second) continue;
            Add(folder.Path);
            Yield();
        }
    }

    // False when the user has cancelled.
    bool AddFilesOf(const FolderContents& contents, GroupInMaking& group) const {
        for (const FileEntry& file : contents.Files) {
            const Doing adding("Adding", file.Path);
            if (m_bOnlyNew && IsFileInDB(file.Path)) continue;
            std::string sID = AddFile(file.Path);
            if (sID == "-1") continue;
            Yield();
            AddLog("New File", "New File Found - " + file.Path);
            group.TakeType(GetFileType(file.Path));
            ShowPath(file.Path);
            if (frmAdd().ExitChecked()) {
                frmAdd().Unload();
                return false;
            }
            group.TakeID(std::move(sID));
        }
        return true;
    }

    void Yield() const {
        if (!m_bNoYield) DoEvents();
    }

    bool m_bRecurse;
    const bool& m_bMakeGroups;  // can change at each yield
    bool m_bOnlyNew;
    bool m_bNoYield;
    std::set<std::string> m_linkedTo;
};

}  // namespace

void AddFiles(const std::vector<std::string>& sFiles) {
    frmAdd().Show();
    if (sFiles.size() < 2) Fail(failure::SubscriptOutOfRange);
    if (sFiles[1].empty()) {
        AddShown(sFiles[0]);
    } else {
        for (std::size_t i = 1; i < sFiles.size() && !Trim(sFiles[i]).empty(); ++i)
            AddShown(sFiles[0] + "\\" + sFiles[i]);
    }
    frmAdd().Unload();
}

void AddFolder(const std::string& sPath, bool bRecurse, const bool& bMakeGroups, bool bOnlyNew,
               bool bNoYield) {
    FolderWalk(bRecurse, bMakeGroups, bOnlyNew, bNoYield).Add(sPath);
}

void ShowInvalidFiles(const std::vector<std::string>& sFiles) {
    InvalidFilesWindow& frmInvFiles = Service<InvalidFilesWindow>::Get();
    for (const std::string& sFile : sFiles) frmInvFiles.AddItem(sFile);
    frmInvFiles.Show();
}

}  // namespace tavel
