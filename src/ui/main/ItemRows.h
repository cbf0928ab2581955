#pragma once

#include "library/Records.h"
#include "ui/toolkit/ListModel.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace tavel {

// Rows of the item list, made of library records. The key is "ID" and the record's id.
ListRow PhotoRow(const Photo& photo);
ListRow VideoRow(const Video& video);
ListRow MusicRow(const Music& music);
ListRow MagazineRow(const Magazine& magazine);
ListRow PhotoAlbumRow(const PhotoAlbum& album);
ListRow VidSeriesRow(const VidSeries& series);
ListRow PlaylistRow(const Playlist& playlist);

// One row for each record of the collection of a media type, first to last; none for 6, 7 and any
// value outside 0 to 8.
std::vector<ListRow> RowsOfType(Integer iType);

// Hands over one row for each member of a group, in member order; none for an id that is no
// group's. Fails with 5 for a group or a member that doesn't resolve, the rows of the members
// before it handed over.
void AddRowsOfGroup(const std::string& sID, const std::function<void(ListRow)>& add);

// The text of a group's size. Video series and playlists drop the fractions of the sum at each
// member; photo series keep them. iType is 1 for a magazine, 2 for an album; any other totals 0.
std::string TotalVidSeriesSize(const std::string& sID);
std::string TotalPlaylistSize(const std::string& sID);
std::string TotalPhotoSeriesSize(const std::string& sID, Integer iType);

// A row's key without its first two characters.
std::string GetDBID(std::string_view sKey);

}  // namespace tavel
