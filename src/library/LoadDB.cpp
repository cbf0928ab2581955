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

template <class T>
T& AddRecord(Collection<T>& collection, T*& current, const Section& section) {
    std::string sID = section.Text("id");
    collection.Add(sID, T{});
    current = &collection.Item(collection.Count());
    current->sDBID = std::move(sID);
    return *current;
}

void LoadGroupsOf(Item& item, const Section& section) {
    item.iNoGroups = section.Number("noofgroups");
    if (item.iNoGroups == 0) return;
    item.Redim_sGroups(ToInteger(item.iNoGroups - 1), false);
    for (Integer i = 0; i < item.iNoGroups; ++i)
        item.Set_sGroups(i, section.Text("group" + std::to_string(i)));
}

// A group without members was written but cannot be read: its array has no upper bound of -1.
void LoadMembersOf(Group& group, const Section& section, std::string_view countKey) {
    group.SetCount(section.Number(countKey));
    const Integer iCount = group.Count();
    group.Redim_sMemberID(ToInteger(iCount - 1), false);
    for (Integer i = 0; i < iCount; ++i) group.Set_sMemberID(i, section.Text(std::to_string(i)));
}

void LoadPhoto(const Section& section) {
    Photo& photo = AddRecord(colPhoto, curPhoto, section);
    photo.sName = section.Text("name");
    photo.sPath = section.Text("path");
    photo.sFormat = section.Text("format");
    // Width and height change places at each load; libraries in use hold them that way.
    photo.iSizeH = section.Number("sizew");
    photo.iSizeW = section.Number("sizeh");
    photo.iSize = section.LongNumber("size");
    LoadGroupsOf(photo, section);
}

void LoadMusic(const Section& section) {
    Music& music = AddRecord(colMusic, curMusic, section);
    music.sName = section.Text("name");
    music.sPath = section.Text("path");
    music.sArtist = section.Text("artist");
    music.sAlbum = section.Text("album");
    music.iSize = section.LongNumber("size");
    music.sFormat = section.Text("format");
    LoadGroupsOf(music, section);
}

void LoadVideo(const Section& section) {
    Video& video = AddRecord(colVideo, curVideo, section);
    video.sName = section.Text("name");
    video.sPath = section.Text("path");
    video.iSize = section.LongNumber("size");
    video.sFormat = section.Text("format");
    video.sThumbPath = section.Text("thumbpath");
    LoadGroupsOf(video, section);
}

template <class T>
void LoadGroup(Collection<T>& collection, T*& current, const Section& section,
               std::string_view countKey) {
    T& group = AddRecord(collection, current, section);
    group.sName = section.Text("name");
    LoadMembersOf(group, section, countKey);
}

void LoadEntry(const Section& section) {
    const Doing loading("Loading", section.Header(), "of", sDBFile);
    switch (section.Number("type")) {
        case mtPhoto:
            return LoadPhoto(section);
        case mtMagazine:
            return LoadGroup(colMagazine, curMagazine, section, "noofpages");
        case mtPhotoAlbum:
            return LoadGroup(colPhotoAlbum, curPhotoAlbum, section, "noofpages");
        case mtVideo:
            return LoadVideo(section);
        case mtVidSeries:
            return LoadGroup(colVidSeries, curVidSeries, section, "noofepisodes");
        case mtMusic:
            return LoadMusic(section);
        case mtPlaylist:
            return LoadGroup(colPlaylist, curPlaylist, section, "nooftracks");
        default:
            return;
    }
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
