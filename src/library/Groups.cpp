#include "library/Groups.h"

#include "core/PublicStuff.h"
#include "library/Collections.h"
#include "library/Identifiers.h"
#include "library/LibraryWindows.h"
#include "platform/Activity.h"
#include "platform/Failure.h"
#include "platform/Service.h"

namespace tavel {

namespace {

Group& NewGroup(Integer iType, const std::string& sID) {
    return WithGroups(iType, [&](auto& groups, auto*& current) -> Group& {
        current = &groups.Add(sID, {});
        return *current;
    });
}

Item& ItemOfGroup(Integer groupType, const std::string& sItemID) {
    return ItemOf(GetMediaClass(groupType), sItemID);
}

void LinkToGroup(Integer groupType, const std::string& sItemID, const std::string& sGroupID) {
    Item& item = ItemOfGroup(groupType, sItemID);
    const Integer n = item.iNoGroups;
    item.Groups().Redim(n, true);
    item.Groups().Set(n, sGroupID);
    item.iNoGroups = ToInteger(n + 1);
}

bool HasMember(const Group& group, const std::string& sItemID) {
    return group.Members().LastOf(sItemID, group.Count()).has_value();
}

// The last of equal entries goes, and the first of all when none is equal. A list of one keeps its
// entry behind the count of 0 that this returns.
Integer TakeOut(TextArray& ids, Integer n, const std::string& sID) {
    if (n == 0) Fail(failure::SubscriptOutOfRange);
    const Integer position = ids.LastOf(sID, n).value_or(0);
    if (n != 1) {
        ids.TakeOut(position);
        ids.Redim(ToInteger(n - 2), true);
    }
    return ToInteger(n - 1);
}

// The loop goes by the number of groups at its start, while each round shortens the list: an item
// in two or more groups fails after the first round.
void UnlinkFromGroups(const Item& item, const std::string& sID) {
    const Doing removing("Removing", item.sPath(), "from the library");
    const Integer iNoGroups = item.iNoGroups;
    for (Integer i = 0; i < iNoGroups; ++i) {
        RemoveFromGroup(sID, item.Groups().Get(i));
    }
}

// An album's pages are taken by a rising position in a list that shortens, so an album of two or
// more fails; the others always give their first member.
void UnlinkMembers(const Group& group, Integer iType, const std::string& sID) {
    const Doing removing("Removing the group", group.sName, "from the library");
    const Integer iCount = group.Count();
    for (Integer i = 0; i < iCount; ++i) {
        RemoveFromGroup(group.Members().Get(iType == mtPhotoAlbum ? i : Integer{0}), sID);
    }
}

// Gives the path of its file.
std::string RemoveItemOf(Integer iType, const std::string& sID) {
    const Item& item = ItemOf(iType, sID);
    UnlinkFromGroups(item, sID);
    std::string sPath = item.sPath();
    RemoveRecord(iType, sID);
    return sPath;
}

void RemoveGroupOf(Integer iType, const std::string& sID) {
    UnlinkMembers(GroupOf(iType, sID), iType, sID);
    RemoveRecord(iType, sID);
}

void DeleteFile(const std::string& sPath) {
    const Doing deleting("Deleting", sPath);
    oFSO().DeleteFile(sPath, true);
}

}  // namespace

std::string MakeGroup(const std::vector<std::string>& sIDs, const std::string& sName,
                      Integer iType) {
    const Doing making("Making the group", sName);
    std::string sID = MakeDBID(sName, iType);
    if (IsGroupType(iType)) {
        Group& group = NewGroup(iType, sID);
        group.sName = sName;
        group.sDBID = sID;
        const Integer iCount = ToInteger(static_cast<std::int64_t>(sIDs.size()));
        group.SetCount(iCount);
        group.Members().Redim(ToInteger(iCount - 1), false);
        for (Integer i = 0; i < iCount; ++i) {
            const std::string& sItemID = sIDs[static_cast<std::size_t>(i)];
            group.Members().Set(i, sItemID);
            LinkToGroup(iType, sItemID, sID);
        }
    }
    Service<CategoryTree>::Get().RefreshCats();
    return sID;
}

void AddToGroup(const std::vector<std::string>& sIDs, const std::string& sGroupID) {
    const Doing finding("Adding to the group", sGroupID);
    const Integer iType = GetDBIDType(sGroupID);
    if (!IsGroupType(iType)) return;
    Group& group = GroupOf(iType, sGroupID);
    const Doing adding("Adding to the group", group.sName);
    const Integer iOld = group.Count();
    const Integer iCount = ToInteger(iOld + static_cast<std::int64_t>(sIDs.size()));
    group.SetCount(iCount);
    group.Members().Redim(ToInteger(iCount - 1), true);
    Integer iWrite = iOld;
    for (const std::string& sItemID : sIDs) {
        // The count is raised already, so that an id that comes twice is seen, too; so is one that
        // a group emptied before still holds behind its count.
        if (HasMember(group, sItemID)) continue;
        group.Members().Set(iWrite, sItemID);
        LinkToGroup(iType, sItemID, sGroupID);
        ++iWrite;
    }
    group.Members().Redim(ToInteger(iWrite - 1), true);
    group.SetCount(iWrite);
}

bool IsInGroup(const std::string& sItemID, const std::string& sGroupID) {
    const Integer iType = GetDBIDType(sGroupID);
    if (!IsGroupType(iType)) return false;
    return HasMember(GroupOf(iType, sGroupID), sItemID);
}

void RemoveFromGroup(std::string sItemID, std::string sGroupID) {
    const Doing finding("Removing", sItemID, "from the group", sGroupID);
    const Integer iType = GetDBIDType(sGroupID);
    if (!IsGroupType(iType)) return;
    Group& group = GroupOf(iType, sGroupID);
    const Doing removing("Removing", sItemID, "from the group", group.sName);
    group.SetCount(TakeOut(group.Members(), group.Count(), sItemID));
    Item& item = ItemOfGroup(iType, sItemID);
    const Doing unlinking("Removing", item.sPath(), "from the group", group.sName);
    item.iNoGroups = TakeOut(item.Groups(), item.iNoGroups, sGroupID);
}

void RemoveItem(const std::string& sID, bool& bDeleteFile) {
    const Doing removing("Removing", sID, "from the library");
    const Integer iType = GetDBIDType(sID);
    if (IsItemType(iType)) {
        const std::string sPath = RemoveItemOf(iType, sID);
        if (bDeleteFile) DeleteFile(sPath);
    } else if (IsGroupType(iType)) {
        RemoveGroupOf(iType, sID);
        bDeleteFile = false;
    }
    bDBChanged = true;
}

}  // namespace tavel
