#include "core/PublicStuff.h"
#include "core/modRegistry.h"
#include "library/Collections.h"
#include "library/LibraryFile.h"
#include "platform/ProfileLines.h"
#include "platform/ProfileService.h"

namespace tavel {

namespace {

// One numbered section. What has been written to it goes to the file at its end, by failure too.
class SectionWriter {
  public:
    SectionWriter(Integer number, ProfileLines& lines) : m_number(number), m_lines(lines) {
        m_lines.Clear();
    }
    ~SectionWriter() { WriteValues(sDBFile, std::to_string(m_number), m_lines); }
    SectionWriter(const SectionWriter&) = delete;
    SectionWriter& operator=(const SectionWriter&) = delete;

    void Write(std::string_view key, std::string_view value) { m_lines.Add(key, value); }
    void Write(std::string_view key, Long value) { Write(key, std::to_string(value)); }

  private:
    const Integer m_number;
    ProfileLines& m_lines;
};

void WriteHead(SectionWriter& section, const Record& record, MediaType type) {
    section.Write("ID", record.sDBID);
    section.Write("Name", record.sName);
    section.Write("Type", Long{type});
}

void WriteGroupsOf(SectionWriter& section, const Item& item) {
    section.Write("NoOfGroups", Long{item.iNoGroups});
    for (Integer i = 0; i < item.iNoGroups; ++i)
        section.Write("group" + std::to_string(i), item.Groups().Get(i));
}

void Write(SectionWriter& section, const Photo& photo) {
    WriteHead(section, photo, mtPhoto);
    section.Write("Path", photo.sPath());
    section.Write("Format", photo.sFormat);
    section.Write("Size", photo.iSize);
    section.Write("SizeW", Long{photo.iSizeW});
    section.Write("SizeH", Long{photo.iSizeH});
    WriteGroupsOf(section, photo);
}

void Write(SectionWriter& section, const Music& music) {
    WriteHead(section, music, mtMusic);
    section.Write("Path", music.sPath());
    section.Write("Size", music.iSize);
    section.Write("Format", music.sFormat);
    section.Write("Artist", music.sArtist);
    section.Write("Album", music.sAlbum);
    WriteGroupsOf(section, music);
}

void Write(SectionWriter& section, const Video& video) {
    WriteHead(section, video, mtVideo);
    section.Write("Path", video.sPath());
    section.Write("Format", video.sFormat);
    section.Write("Size", video.iSize);
    section.Write("ThumbPath", video.sThumbPath);
    WriteGroupsOf(section, video);
}

void WriteGroup(SectionWriter& section, const Group& group, MediaType type,
                std::string_view countKey) {
    WriteHead(section, group, type);
    const Integer iCount = group.Count();
    section.Write(countKey, Long{iCount});
    for (Integer i = 0; i < iCount; ++i) section.Write(std::to_string(i), group.Members().Get(i));
}

void Write(SectionWriter& section, const Magazine& magazine) {
    WriteGroup(section, magazine, mtMagazine, "NoOfPages");
}

void Write(SectionWriter& section, const PhotoAlbum& album) {
    WriteGroup(section, album, mtPhotoAlbum, "NoOfPages");
}

void Write(SectionWriter& section, const VidSeries& series) {
    WriteGroup(section, series, mtVidSeries, "NoOfEpisodes");
}

void Write(SectionWriter& section, const Playlist& playlist) {
    WriteGroup(section, playlist, mtPlaylist, "NoOfTracks");
}

// `number` is that of the last section written.
template <class T>
void WriteAll(Integer& number, ProfileLines& lines, const Collection<T>& collection) {
    for (Long i = 1; i <= collection.Count(); ++i) {
        number = ToInteger(number + 1);
        SectionWriter section(number, lines);
        Write(section, collection.Item(i));
    }
}

}  // namespace

void SaveDB() {
    const ProfileBatch batch(sDBFile);
    ProfileLines lines;
    Integer n = 0;
    WriteAll(n, lines, colPhoto);
    WriteAll(n, lines, colMusic);
    WriteAll(n, lines, colVideo);
    WriteAll(n, lines, colMagazine);
    WriteAll(n, lines, colPhotoAlbum);
    WriteAll(n, lines, colVidSeries);
    WriteAll(n, lines, colPlaylist);
    WriteValue(sDBFile, "DB", "NoOfItems", "s", std::to_string(n));
}

}  // namespace tavel
