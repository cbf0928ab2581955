#include "ui/main/ItemRows.h"

#include "library/Collections.h"
#include "library/Identifiers.h"
#include "library/SizeText.h"

#include <algorithm>

namespace tavel {

namespace {

std::string RowKey(const Record& record) { return "ID" + record.sDBID; }

double Megabytes(const Record& record) { return Round(record.iSize / 1000000.0, 2); }

// The sum goes back into a Long at each step, so that every member's fraction is lost by itself.
template <class Member>
std::string WholeTotal(const Group& group, const Collection<Member>& members) {
    Long total = 0;
    for (Integer i = 0; i < group.Count(); ++i) {
        total = RoundToLong(total + Megabytes(members.Item(group.Members().Get(i))));
    }
    return std::to_string(total) + " Mb";
}

std::string PageTotal(const Group& group) {
    float total = 0;
    for (Integer i = 0; i < group.Count(); ++i) {
        total = static_cast<float>(total + Megabytes(colPhoto.Item(group.Members().Get(i))));
    }
    return TextOfSingle(static_cast<float>(Round(total, 2))) + " Mb";
}

template <class T>
std::vector<ListRow> RowsOf(const Collection<T>& records, ListRow (*makeRow)(const T&)) {
    std::vector<ListRow> rows;
    rows.reserve(static_cast<std::size_t>(records.Count()));
    for (Long i = 1; i <= records.Count(); ++i) rows.push_back(makeRow(records.Item(i)));
    return rows;
}

template <class T>
void AddMembers(const Group& group, const Collection<T>& members, ListRow (*makeRow)(const T&),
                const std::function<void(ListRow)>& add) {
    for (Integer i = 0; i < group.Count(); ++i) {
        add(makeRow(members.Item(group.Members().Get(i))));
    }
}

}  // namespace

ListRow PhotoRow(const Photo& photo) {
    const std::string sDims = std::to_string(photo.iSizeW) + " X " + std::to_string(photo.iSizeH);
    return {RowKey(photo),
            {photo.sName, sDims, photo.sFormat, SizeText(photo.iSize), photo.sPath()}};
}

ListRow VideoRow(const Video& video) {
    return {RowKey(video), {video.sName, video.sFormat, SizeText(video.iSize), video.sPath()}};
}

ListRow MusicRow(const Music& music) {
    return {RowKey(music),
            {music.sName, music.sArtist, music.sAlbum, music.sFormat, SizeText(music.iSize),
             music.sPath()}};
}

ListRow MagazineRow(const Magazine& magazine) {
    return {RowKey(magazine),
            {magazine.sName, "", std::to_string(magazine.iPages) + " pages",
             TotalPhotoSeriesSize(magazine.sDBID, mtMagazine)}};
}

ListRow PhotoAlbumRow(const PhotoAlbum& album) {
    return {RowKey(album),
            {album.sName, "", std::to_string(album.iPages) + " pages",
             TotalPhotoSeriesSize(album.sDBID, mtPhotoAlbum)}};
}

ListRow VidSeriesRow(const VidSeries& series) {
    return {RowKey(series),
            {series.sName, std::to_string(series.iEpisodes()) + " Episodes",
             TotalVidSeriesSize(series.sDBID)}};
}

ListRow PlaylistRow(const Playlist& playlist) {
    return {RowKey(playlist),
            {playlist.sName, "", "", std::to_string(playlist.iTracks) + " tracks",
             TotalPlaylistSize(playlist.sDBID)}};
}

std::vector<ListRow> RowsOfType(Integer iType) {
    switch (iType) {
        case mtPhoto:
            return RowsOf(colPhoto, PhotoRow);
        case mtMagazine:
            return RowsOf(colMagazine, MagazineRow);
        case mtPhotoAlbum:
            return RowsOf(colPhotoAlbum, PhotoAlbumRow);
        case mtVideo:
            return RowsOf(colVideo, VideoRow);
        case mtVidSeries:
            return RowsOf(colVidSeries, VidSeriesRow);
        case mtMusic:
            return RowsOf(colMusic, MusicRow);
        case mtPlaylist:
            return RowsOf(colPlaylist, PlaylistRow);
        default:
            return {};
    }
}

void AddRowsOfGroup(const std::string& sID, const std::function<void(ListRow)>& add) {
    switch (GetDBIDType(sID)) {
        case mtMagazine:
            return AddMembers(colMagazine.Item(sID), colPhoto, PhotoRow, add);
        case mtPhotoAlbum:
            return AddMembers(colPhotoAlbum.Item(sID), colPhoto, PhotoRow, add);
        case mtVidSeries:
            return AddMembers(colVidSeries.Item(sID), colVideo, VideoRow, add);
        case mtPlaylist:
            return AddMembers(colPlaylist.Item(sID), colMusic, MusicRow, add);
        default:
            return;
    }
}

std::string TotalVidSeriesSize(const std::string& sID) {
    return WholeTotal(colVidSeries.Item(sID), colVideo);
}

std::string TotalPlaylistSize(const std::string& sID) {
    return WholeTotal(colPlaylist.Item(sID), colMusic);
}

std::string TotalPhotoSeriesSize(const std::string& sID, Integer iType) {
    if (iType == mtMagazine) return PageTotal(colMagazine.Item(sID));
    if (iType == mtPhotoAlbum) return PageTotal(colPhotoAlbum.Item(sID));
    return "0 Mb";
}

std::string GetDBID(std::string_view sKey) {
    return std::string(sKey.substr(std::min<std::size_t>(2, sKey.size())));
}

}  // namespace tavel
