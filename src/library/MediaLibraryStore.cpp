#include "library/MediaLibraryStore.h"

#include "library/Collections.h"
#include "library/LibraryFile.h"
#include "library/Scan.h"

namespace tavel {

void MediaLibraryStore::LoadDB() { tavel::LoadDB(); }
void MediaLibraryStore::SaveDB() { tavel::SaveDB(); }
void MediaLibraryStore::BackgroundScan() { tavel::BackgroundScan(); }
void MediaLibraryStore::Release() { ReleaseCollections(); }

}  // namespace tavel
