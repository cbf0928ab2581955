#include "device/TransferTestBase.h"

namespace tavel::test {

namespace {

std::string IdOf(const char* prefix, const std::string& sName) {
    std::string sID = prefix;
    for (const char c : sName) {
        if (c != ' ') sID += c;
    }
    return sID;
}

template <class Class>
std::string AddGroup(Collection<Class>& collection, const char* prefix, const std::string& sName,
                     const std::initializer_list<std::string>& members) {
    Class group;
    group.sName = sName;
    group.sDBID = IdOf(prefix, sName);
    group.SetCount(static_cast<Integer>(members.size()));
    Integer i = 0;
    for (const std::string& sMember : members) {
        group.Members().Redim(i, true);
        group.Members().Set(i++, sMember);
    }
    return collection.Add(group.sDBID, group).sDBID;
}

}  // namespace

// What the file is called on the stick comes from the record alone: neither name nor extension of
// the source are the record's.
void TransferTestBase::FillItem(Item& item, const std::string& sID, const std::string& sFormat,
                                const std::string& bytes) const {
    const std::string sFile = "lib/" + std::to_string(m_sources) + ".bin";
    temp.Write(sFile, bytes);
    item.sDBID = sID;
    item.sFormat = sFormat;
    item.sPath(temp.DrivePath(sFile));
}

std::string TransferTestBase::AddPhoto(const std::string& sName, const std::string& bytes) {
    Photo photo;
    ++m_sources;
    photo.sName = sName;
    FillItem(photo, IdOf("ph_", sName), "jpg", bytes);
    return colPhoto.Add(photo.sDBID, photo).sDBID;
}

std::string TransferTestBase::AddTrack(const std::string& sName, const std::string& bytes) {
    Music track;
    ++m_sources;
    track.sName = sName;
    track.sArtist = "Artist";
    FillItem(track, IdOf("mu_", sName), "mp3", bytes);
    return colMusic.Add(track.sDBID, track).sDBID;
}

std::string TransferTestBase::AddVideo(const std::string& sName, const std::string& bytes) {
    Video video;
    ++m_sources;
    video.sName = sName;
    FillItem(video, IdOf("vd_", sName), "mp4", bytes);
    return colVideo.Add(video.sDBID, video).sDBID;
}

std::string TransferTestBase::AddMagazine(const std::string& sName,
                                          std::initializer_list<std::string> members) {
    return AddGroup(colMagazine, "ma_", sName, members);
}

std::string TransferTestBase::AddAlbum(const std::string& sName,
                                       std::initializer_list<std::string> members) {
    return AddGroup(colPhotoAlbum, "pa_", sName, members);
}

std::string TransferTestBase::AddSeries(const std::string& sName,
                                        std::initializer_list<std::string> members) {
    return AddGroup(colVidSeries, "vs_", sName, members);
}

std::string TransferTestBase::AddPlaylist(const std::string& sName,
                                          std::initializer_list<std::string> members) {
    return AddGroup(colPlaylist, "pl_", sName, members);
}

}  // namespace tavel::test
