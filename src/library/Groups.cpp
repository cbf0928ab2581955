#include "library/Groups.h"

#include "core/PublicStuff.h"
#include "library/Collections.h"
#include "library/Identifiers.h"
#include "library/LibraryWindows.h"
#include "platform/Activity.h"
#include "platform/Failure.h"
#include "platform/UpCall.h"

#include <unordered_map>

namespace tavel {

namespace {

template <class T>
Group& AddGroup(Collection<T>& collection, T*& current, const std::string& sID) {
    collection.Add(sID, T{});
    current = &collection.Item(sID);
    return *current;
}

Group& NewGroup(MediaType type, const std::string& sID) {
    switch (type) {
        case mtMagazine:
            return AddGroup(colMagazine, curMagazine, sID);
        case mtPhotoAlbum:
            return AddGroup(colPhotoAlbum, curPhotoAlbum, sID);
        case mtVidSeries:
            return AddGroup(colVidSeries, curVidSeries, sID);
        case mtPlaylist:
            return AddGroup(colPlaylist, curPlaylist, sID);
        default:
            Fail(failure::InvalidProcedureCall);
    }
}

Item& ItemOfGroup(Integer groupType, const std::string& sItemID) {
    return ItemOf(static_cast<MediaType>(GetMediaClass(groupType)), sItemID);
}

void LinkToGroup(Integer groupType, const std::string& sItemID, const std::string& sGroupID) {
    Item& item = ItemOfGroup(groupType, sItemID);
    const Integer n = item.iNoGroups;
    item.Redim_sGroups(n, true);
    item.Set_sGroups(n, sGroupID);
    item.iNoGroups = ToInteger(n + 1);
}

// How often each id stands among a group's members: thousands may be added to thousands.
class MemberCounts {
  public:
    explicit MemberCounts(const Group& group) {
        const Integer iCount = group.Count();
        for (Integer i = 0; i < iCount; ++i) ++m_counts[group.Get_sMemberID(i)];
    }

    bool Has(const std::string& sItemID) const {
        const auto found = m_counts.find(sItemID);
        return found != m_counts.end() && found->second > 0;
    }

    void Replace(const std::string& sOld, const std::string& sNew) {
        --m_counts[sOld];
        ++m_counts[sNew];
    }

  private:
    std::unordered_map<std::string, int> m_counts;
};

// The last of equal entries goes, and the first of all when none is equal. A list of one keeps its
// entry behind the count of 0 that this returns.
Integer TakeOut(TextArray& ids, Integer n, const std::string& sID) {
    Integer position = 0;
    for (Integer i = 0; i < n; ++i) {
        if (ids.Get(i) == sID) position = i;
    }
    if (n != 1) {
        const Integer iLast = ToInteger(n - 1);
        if (position != iLast) ids.CloseGap(position, iLast);
        ids.Redim(ToInteger(iLast - 1), true);
    }
    return ToInteger(n - 1);
}

// The loop goes by the number of groups at its start, while each round shortens the list: an item
// in two or more groups fails after the first round.
void UnlinkFromGroups(const Item& item, const std::string& sID) {
    const Doing removing("Removing", item.sPath, "from the library");
    const Integer iNoGroups = item.iNoGroups;
    for (Integer i = 0; i < iNoGroups; ++i) {
        RemoveFromGroup(sID, item.Get_sGroups(i));
    }
}

// An album's pages are taken by a rising position in a list that shortens, so an album of two or
// more fails; the others always give their first member.
void UnlinkMembers(const Group& group, MediaType type, const std::string& sID) {
    const Doing removing("Removing the group", group.sName, "from the library");
    const Integer iCount = group.Count();
    for (Integer i = 0; i < iCount; ++i) {
        RemoveFromGroup(group.Get_sMemberID(type == mtPhotoAlbum ? i : Integer{0}), sID);
    }
}

}  // namespace

std::string MakeGroup(const std::vector<std::string>& sIDs, const std::string& sName,
                      Integer iType) {
    const Doing making("Making the group", sName);
    std::string sID = MakeDBID(sName, iType);
    if (IsGroupType(iType)) {
        Group& group = NewGroup(static_cast<MediaType>(iType), sID);
        group.sName = sName;
        group.sDBID = sID;
        const Integer iCount = ToInteger(static_cast<std::int64_t>(sIDs.size()));
        group.SetCount(iCount);
        group.Redim_sMemberID(ToInteger(iCount - 1), false);
        for (Integer i = 0; i < iCount; ++i) {
            const std::string& sItemID = sIDs[static_cast<std::size_t>(i)];
            group.Set_sMemberID(i, sItemID);
            LinkToGroup(iType, sItemID, sID);
        }
    }
    UpCall<CategoryTree>::Get().RefreshCats();
    return sID;
}

void AddToGroup(const std::vector<std::string>& sIDs, const std::string& sGroupID) {
    const Integer iType = GetDBIDType(sGroupID);
    if (!IsGroupType(iType)) return;
    Group& group = GroupOf(static_cast<MediaType>(iType), sGroupID);
    const Doing adding("Adding to the group", group.sName);
    const Integer iOld = group.Count();
    const Integer iCount = ToInteger(iOld + static_cast<std::int64_t>(sIDs.size()));
    group.SetCount(iCount);
    group.Redim_sMemberID(ToInteger(iCount - 1), true);
    // The count is raised already, so that an id that comes twice is seen, too; so is one that a
    // group emptied before still holds behind its count.
    MemberCounts members(group);
    Integer iWrite = iOld;
    for (const std::string& sItemID : sIDs) {
        if (members.Has(sItemID)) continue;
        members.Replace(group.Get_sMemberID(iWrite), sItemID);
        group.Set_sMemberID(iWrite, sItemID);
        LinkToGroup(iType, sItemID, sGroupID);
        ++iWrite;
    }
    group.Redim_sMemberID(ToInteger(iWrite - 1), true);
    group.SetCount(iWrite);
}

bool IsInGroup(const std::string& sItemID, const std::string& sGroupID) {
    const Integer iType = GetDBIDType(sGroupID);
    if (!IsGroupType(iType)) return false;
    const Group& group = GroupOf(static_cast<MediaType>(iType), sGroupID);
    const Integer iCount = group.Count();
    for (Integer i = 0; i < iCount; ++i) {
        if (group.Get_sMemberID(i) == sItemID) return true;
    }
    return false;
}

void RemoveFromGroup(std::string sItemID, std::string sGroupID) {
    const Integer iType = GetDBIDType(sGroupID);
    if (!IsGroupType(iType)) return;
    Group& group = GroupOf(static_cast<MediaType>(iType), sGroupID);
    group.SetCount(TakeOut(group.sMemberIDs(), group.Count(), sItemID));
    Item& item = ItemOfGroup(iType, sItemID);
    item.iNoGroups = TakeOut(item.sGroups(), item.iNoGroups, sGroupID);
}

void RemoveItem(const std::string& sID, bool& bDeleteFile) {
    const Doing removing("Removing", sID, "from the library");
    const Integer iType = GetDBIDType(sID);
    const auto type = static_cast<MediaType>(iType);
    std::string sPath;
    if (IsItemType(iType)) {
        const Item& item = ItemOf(type, sID);
        UnlinkFromGroups(item, sID);
        sPath = item.sPath;
        RemoveRecord(type, sID);
    } else if (IsGroupType(iType)) {
        UnlinkMembers(GroupOf(type, sID), type, sID);
        RemoveRecord(type, sID);
        bDeleteFile = false;
    }
    if (bDeleteFile && IsItemType(iType)) {
        const Doing deleting("Deleting", sPath);
        oFSO().DeleteFile(sPath, true);
    }
    bDBChanged = true;
}

}  // namespace tavel
