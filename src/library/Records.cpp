#include "library/Records.h"

#include "library/PathIndex.h"

namespace tavel {

bool IsItemType(Integer iType) { return iType == mtPhoto || iType == mtVideo || iType == mtMusic; }

bool IsGroupType(Integer iType) {
    return iType == mtMagazine || iType == mtPhotoAlbum || iType == mtVidSeries ||
           iType == mtPlaylist;
}

// A record that is being made gets its first path before anybody looks for one.
void Item::sPath(std::string sPath) {
    if (!m_sPath.empty()) ForgetPaths();
    m_sPath = std::move(sPath);
}

}  // namespace tavel
