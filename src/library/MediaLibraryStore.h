#pragma once

#include "core/LibraryStore.h"

namespace tavel {

// The media library as start-up and shutdown know it.
class MediaLibraryStore : public LibraryStore {
  public:
    void LoadDB() override;
    void SaveDB() override;
    void BackgroundScan() override;
    void Release() override;
};

}  // namespace tavel
