#include "core/PublicStuff.h"
#include "core/modRegistry.h"
#include "library/Collections.h"
#include "library/LibraryFile.h"
#include "platform/ProfileService.h"

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

void WriteHead(const SectionWriter& section, const Record& record, MediaType type) {
    section.Write("ID", record.sDBID);
    section.Write("Name", record.sName);
    section.Write("Type", Long{type});
}

void WriteGroupsOf(const SectionWriter& section, const Item& item) {
    section.Write("NoOfGroups", Long{item.iNoGroups});
    for (Integer i = 0; i < item.iNoGroups; ++i)
        section.Write("group" + std::to_string(i), item.Groups().Get(i));
}

void Write(const SectionWriter& section, const Photo& photo) {
    WriteHead(section, photo, mtPhoto);
    section.Write("Path", photo.sPath());
    section.Write("Format", photo.sFormat);
    section.Write("Size", photo.iSize);
    section.Write("SizeW", Long{photo.iSizeW});
    section.Write("SizeH", Long{photo.iSizeH});
    WriteGroupsOf(section, photo);
}

void Write(const SectionWriter& section, const Music& music) {
    WriteHead(section, music, mtMusic);
    section.Write("Path", music.sPath());
    section.Write("Size", music.iSize);
    section.Write("Format", music.sFormat);
    section.Write("Artist", music.sArtist);
    section.Write("Album", music.sAlbum);
    WriteGroupsOf(section, music);
}

void Write(const SectionWriter& section, const Video& video) {
    WriteHead(section, video, mtVideo);
    section.Write("Path", video.sPath());
    section.Write("Format", video.sFormat);
    section.Write("Size", video.iSize);
    section.Write("ThumbPath", video.sThumbPath);
    WriteGroupsOf(section, video);
}

void WriteGroup(const SectionWriter& section, const Group& group, MediaType type,
                std::string_view countKey) {
    WriteHead(section, group, type);
    const Integer iCount = group.Count();
    section.Write(countKey, Long{iCount});
    for (Integer i = 0; i < iCount; ++i) section.Write(std::to_string(i), group.Members().Get(i));
}

void Write(const SectionWriter& section, const Magazine& magazine) {
    WriteGroup(section, magazine, mtMagazine, "NoOfPages");
}

void Write(const SectionWriter& section, const PhotoAlbum& album) {
    WriteGroup(section, album, mtPhotoAlbum, "NoOfPages");
}

void Write(const SectionWriter& section, const VidSeries& series) {
    WriteGroup(section, series, mtVidSeries, "NoOfEpisodes");
}

void Write(const SectionWriter& section, const Playlist& playlist) {
    WriteGroup(section, playlist, mtPlaylist, "NoOfTracks");
}

// `number` is that of the last section written.
template <class T>
void WriteAll(Integer& number, const Collection<T>& collection) {
    for (Long i = 1; i <= collection.Count(); ++i) {
        number = ToInteger(number + 1);
        Write(SectionWriter(number), collection.Item(i));
    }
}

}  // namespace

void SaveDB() {
    const ProfileBatch batch(sDBFile);
    Integer n = 0;
    WriteAll(n, colPhoto);
    WriteAll(n, colMusic);
    WriteAll(n, colVideo);
    WriteAll(n, colMagazine);
    WriteAll(n, colPhotoAlbum);
    WriteAll(n, colVidSeries);
    WriteAll(n, colPlaylist);
    WriteValue(sDBFile, "DB", "NoOfItems", "s", std::to_string(n));
}

}  // namespace tavel
