#include "library/Collections.h"

namespace tavel {

Collection<Photo> colPhoto;
Collection<Magazine> colMagazine;
Collection<PhotoAlbum> colPhotoAlbum;
Collection<Video> colVideo;
Collection<VidSeries> colVidSeries;
Collection<Music> colMusic;
Collection<Playlist> colPlaylist;

Photo* curPhoto = nullptr;
Magazine* curMagazine = nullptr;
PhotoAlbum* curPhotoAlbum = nullptr;
Video* curVideo = nullptr;
VidSeries* curVidSeries = nullptr;
Music* curMusic = nullptr;
Playlist* curPlaylist = nullptr;

void ReleaseCollections() {
    for (const MediaType type : MediaTypes) {
        WithCollection(type, [](auto& collection, auto*& current) {
            current = nullptr;
            collection.Clear();
        });
    }
}

Item& ItemOf(Integer itemType, std::string_view sID) {
    return WithItems(itemType, [&](auto& items, auto*) -> Item& { return items.Item(sID); });
}

Group& GroupOf(Integer groupType, std::string_view sID) {
    return WithGroups(groupType, [&](auto& groups, auto*) -> Group& { return groups.Item(sID); });
}

Record& RecordOf(Integer iType, std::string_view sID) {
    return WithCollection(iType,
                          [&](auto& records, auto*) -> Record& { return records.Item(sID); });
}

void RemoveRecord(Integer iType, std::string_view sID) {
    WithCollection(iType, [&](auto& records, auto*& current) {
        if (&records.Item(sID) == current) current = nullptr;
        records.Remove(sID);
    });
}

}  // namespace tavel
