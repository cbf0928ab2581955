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

void YieldUnless(bool bNoYield) {
    if (!bNoYield) DoEvents();
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
    const Doing scanning("Scanning", sPath);
    FolderContents contents = oFSO().GetFolder(sPath);
    GroupInMaking group;
    if (contents.SubFolders.empty()) {
        group.bMakeGroup = bMakeGroups;
    } else if (bRecurse) {
        for (const FolderEntry& folder : contents.SubFolders) {
            AddFolder(folder.Path, true, bMakeGroups, bOnlyNew, bNoYield);
            YieldUnless(bNoYield);
        }
        // Files may have come and gone meanwhile.
        contents = oFSO().GetFolder(sPath);
    }
    for (const FileEntry& file : contents.Files) {
        const Doing adding("Adding", file.Path);
        if (bOnlyNew && IsFileInDB(file.Path)) continue;
        std::string sID = AddFile(file.Path);
        if (sID == "-1") continue;
        YieldUnless(bNoYield);
        AddLog("New File", "New File Found - " + file.Path);
        group.TakeType(GetFileType(file.Path));
        ShowPath(file.Path);
        if (frmAdd().ExitChecked()) {
            frmAdd().Unload();
            return;
        }
        group.TakeID(std::move(sID));
    }
    if (group.bMakeGroup && !group.sIDs.front().empty()) {
        MakeGroup(group.sIDs, contents.Folder.Name, GetGroupType(group.iFirstType));
        YieldUnless(bNoYield);
    }
}

void ShowInvalidFiles(const std::vector<std::string>& sFiles) {
    InvalidFilesWindow& frmInvFiles = Service<InvalidFilesWindow>::Get();
    for (const std::string& sFile : sFiles) frmInvFiles.AddItem(sFile);
    frmInvFiles.Show();
}

}  // namespace tavel
