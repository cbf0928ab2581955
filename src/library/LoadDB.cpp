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
    explicit Section(Long number) : m_header("[" + std::to_string(number) + "]") {}

    std::string_view Header() const { return m_header; }
    std::string Text(std::string_view key) const {
        std::string text;
        ReadValue(sDBFile, Name(), key, "s", "", text);
        return text;
    }
    Integer Number(std::string_view key) const { return TextToInteger(Text(key)); }
    Long LongNumber(std::string_view key) const { return TextToLong(Text(key)); }

  private:
    std::string_view Name() const { return Header().substr(1, m_header.size() - 2); }

    std::string m_header;
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

void Load(Photo& photo, const Section& section) {
    photo.sName = section.Text("name");
    photo.sPath(section.Text("path"));
    photo.sFormat = section.Text("format");
    // Width and height change places at each load; libraries in use hold them that way.
    photo.iSizeH = section.Number("sizew");
    photo.iSizeW = section.Number("sizeh");
    photo.iSize = section.LongNumber("size");
    LoadGroupsOf(photo, section);
}

void Load(Music& music, const Section& section) {
    music.sName = section.Text("name");
    music.sPath(section.Text("path"));
    music.sArtist = section.Text("artist");
    music.sAlbum = section.Text("album");
    music.iSize = section.LongNumber("size");
    music.sFormat = section.Text("format");
    LoadGroupsOf(music, section);
}

void Load(Video& video, const Section& section) {
    video.sName = section.Text("name");
    video.sPath(section.Text("path"));
    video.iSize = section.LongNumber("size");
    video.sFormat = section.Text("format");
    video.sThumbPath = section.Text("thumbpath");
    LoadGroupsOf(video, section);
}

void LoadGroup(Group& group, const Section& section, std::string_view countKey) {
    group.sName = section.Text("name");
    LoadMembersOf(group, section, countKey);
}

void Load(PagedGroup& group, const Section& section) { LoadGroup(group, section, "noofpages"); }
void Load(VidSeries& series, const Section& section) { LoadGroup(series, section, "noofepisodes"); }
void Load(Playlist& list, const Section& section) { LoadGroup(list, section, "nooftracks"); }

void LoadEntry(const Section& section) {
    const Doing loading("Loading", section.Header(), "of", sDBFile);
    const Integer iType = section.Number("type");
    if (!IsItemType(iType) && !IsGroupType(iType)) return;
    WithCollection(iType, [&](auto& records, auto*& current) {
        std::string sID = section.Text("id");
        current = &records.Add(sID, {});
        current->sDBID = std::move(sID);
        Load(*current, section);
    });
}

}  // namespace

void LoadDB() {
    const Doing loading("Loading", sDBFile);
    const ProfileBatch batch(sDBFile);
    Integer iNoOfItems = 0;
    ReadValue(sDBFile, "db", "noofitems", "s", "0", iNoOfItems);
    for (Long i = 1; i <= iNoOfItems; ++i) LoadEntry(Section(i));
    AddLog("DB", "DB Loaded");
}

}  // namespace tavel
