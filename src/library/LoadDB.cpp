#include "core/Log.h"
#include "core/PublicStuff.h"
#include "core/modRegistry.h"
#include "library/Collections.h"
#include "library/LibraryFile.h"
#include "platform/Activity.h"
#include "platform/ProfileService.h"

#include <utility>

namespace tavel {

namespace {

// A numbered section of db.txt, read key by key. Numbers are converted after the read: text that
// is none fails, where the profile wrapper would keep it quiet.
class Section {
  public:
    explicit Section(Long number) : m_place("from [" + std::to_string(number) + "] of") {}

    // For the failure message: "from [1] of".
    std::string_view Place() const { return m_place; }
    std::string Text(std::string_view key) const {
        std::string text;
        ReadValue(sDBFile, Name(), key, "s", "", text);
        return text;
    }
    Integer Number(std::string_view key) const { return TextToInteger(Text(key)); }
    Long LongNumber(std::string_view key) const { return TextToLong(Text(key)); }

  private:
    std::string_view Name() const {
        const std::size_t start = m_place.find('[') + 1;
        return Place().substr(start, m_place.find(']') - start);
    }

    std::string m_place;
};

void LoadGroupsOf(Item& item, const Section& section) {
    item.iNoGroups = section.Number("noofgroups");
    if (item.iNoGroups == 0) return;
    item.Groups().Redim(ToInteger(item.iNoGroups - 1), false);
    for (Integer i = 0; i < item.iNoGroups; ++i)
        item.Groups().Set(i, section.Text("group" + std::to_string(i)));
}

// A group without members was written but cannot be read: its array has no upper bound of -1.
void LoadMembersOf(Group& group, const Section& section, std::string_view countKey) {
    group.SetCount(section.Number(countKey));
    const Integer iCount = group.Count();
    group.Members().Redim(ToInteger(iCount - 1), false);
    for (Integer i = 0; i < iCount; ++i) group.Members().Set(i, section.Text(std::to_string(i)));
}

// What the failure message tells of an entry comes first.
void LoadName(Item& item, const Section& section) {
    item.sName = section.Text("name");
    item.sPath(section.Text("path"));
}

void LoadName(Group& group, const Section& section) { group.sName = section.Text("name"); }

Doing Loading(const Item& item, const Section& section) {
    return Doing("Loading", item.sPath(), section.Place(), sDBFile);
}

Doing Loading(const Group& group, const Section& section) {
    return Doing("Loading the group", group.sName, section.Place(), sDBFile);
}

void LoadFields(Photo& photo, const Section& section) {
    photo.sFormat = section.Text("format");
    // Width and height change places at each load; libraries in use hold them that way.
    photo.iSizeH = section.Number("sizew");
    photo.iSizeW = section.Number("sizeh");
    photo.iSize = section.LongNumber("size");
    LoadGroupsOf(photo, section);
}

void LoadFields(Music& music, const Section& section) {
    music.sArtist = section.Text("artist");
    music.sAlbum = section.Text("album");
    music.iSize = section.LongNumber("size");
    music.sFormat = section.Text("format");
    LoadGroupsOf(music, section);
}

void LoadFields(Video& video, const Section& section) {
    video.iSize = section.LongNumber("size");
    video.sFormat = section.Text("format");
    video.sThumbPath = section.Text("thumbpath");
    LoadGroupsOf(video, section);
}

void LoadFields(PagedGroup& group, const Section& section) {
    LoadMembersOf(group, section, "noofpages");
}

void LoadFields(VidSeries& series, const Section& section) {
    LoadMembersOf(series, section, "noofepisodes");
}

void LoadFields(Playlist& list, const Section& section) {
    LoadMembersOf(list, section, "nooftracks");
}

void LoadEntry(const Section& section) {
    const Doing finding("Loading an entry", section.Place(), sDBFile);
    const Integer iType = section.Number("type");
    if (!IsItemType(iType) && !IsGroupType(iType)) return;
    WithCollection(iType, [&](auto& records, auto*& current) {
        std::string sID = section.Text("id");
        current = &records.Add(sID, {});
        current->sDBID = std::move(sID);
        LoadName(*current, section);
        const Doing loading = Loading(*current, section);
        LoadFields(*current, section);
    });
}

}  // namespace

void LoadDB() {
    const Doing loading("Loading the library from", sDBFile);
    const ProfileBatch batch(sDBFile);
    Integer iNoOfItems = 0;
    ReadValue(sDBFile, "db", "noofitems", "s", "0", iNoOfItems);
    for (Long i = 1; i <= iNoOfItems; ++i) LoadEntry(Section(i));
    AddLog("DB", "DB Loaded");
}

}  // namespace tavel
