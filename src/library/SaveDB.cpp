#include "core/PublicStuff.h"
#include "core/modRegistry.h"
#include "library/Collections.h"
#include "library/LibraryFile.h"
#include "platform/Activity.h"
#include "platform/ProfileService.h"

#include <array>

namespace tavel {

namespace {

// A numbered section of db.txt, written key by key.
class SectionWriter {
  public:
    explicit SectionWriter(Integer number) : m_name(std::to_string(number)) {}

    void Write(std::string_view key, std::string_view value) const {
        WriteValue(sDBFile, m_name, key, "s", value);
    }
    void Write(std::string_view key, Long value) const { Write(key, std::to_string(value)); }

  private:
    std::string m_name;
};

void WriteGroupsOf(const SectionWriter& section, const Item& item) {
    section.Write("NoOfGroups", Long{item.iNoGroups});
    for (Integer i = 0; i < item.iNoGroups; ++i)
        section.Write("group" + std::to_string(i), item.Groups().Get(i));
}

void WriteFields(const SectionWriter& section, const Photo& photo) {
    section.Write("Path", photo.sPath());
    section.Write("Format", photo.sFormat);
    section.Write("Size", photo.iSize);
    section.Write("SizeW", Long{photo.iSizeW});
    section.Write("SizeH", Long{photo.iSizeH});
    WriteGroupsOf(section, photo);
}

void WriteFields(const SectionWriter& section, const Music& music) {
    section.Write("Path", music.sPath());
    section.Write("Size", music.iSize);
    section.Write("Format", music.sFormat);
    section.Write("Artist", music.sArtist);
    section.Write("Album", music.sAlbum);
    WriteGroupsOf(section, music);
}

void WriteFields(const SectionWriter& section, const Video& video) {
    section.Write("Path", video.sPath());
    section.Write("Format", video.sFormat);
    section.Write("Size", video.iSize);
    section.Write("ThumbPath", video.sThumbPath);
    WriteGroupsOf(section, video);
}

void WriteMembers(const SectionWriter& section, const Group& group, std::string_view countKey) {
    const Integer iCount = group.Count();
    section.Write(countKey, Long{iCount});
    for (Integer i = 0; i < iCount; ++i) section.Write(std::to_string(i), group.Members().Get(i));
}

void WriteFields(const SectionWriter& section, const PagedGroup& group) {
    WriteMembers(section, group, "NoOfPages");
}

void WriteFields(const SectionWriter& section, const VidSeries& series) {
    WriteMembers(section, series, "NoOfEpisodes");
}

void WriteFields(const SectionWriter& section, const Playlist& list) {
    WriteMembers(section, list, "NoOfTracks");
}

template <class T>
void WriteEntry(Integer number, MediaType type, const T& record) {
    const Doing saving("Saving", record.sDBID, "in", sDBFile);
    const SectionWriter section(number);
    section.Write("ID", record.sDBID);
    section.Write("Name", record.sName);
    section.Write("Type", Long{type});
    WriteFields(section, record);
}

constexpr std::array SaveOrder{mtPhoto,      mtMusic,     mtVideo,   mtMagazine,
                               mtPhotoAlbum, mtVidSeries, mtPlaylist};

}  // namespace

void SaveDB() {
    const Doing saving("Saving", sDBFile);
    const ProfileBatch batch(sDBFile);
    Integer n = 0;
    for (const MediaType type : SaveOrder) {
        WithCollection(type, [&](const auto& records, auto*) {
            for (Long i = 1; i <= records.Count(); ++i) {
                n = ToInteger(n + 1);
                WriteEntry(n, type, records.Item(i));
            }
        });
    }
    WriteValue(sDBFile, "DB", "NoOfItems", "s", std::to_string(n));
}

}  // namespace tavel
