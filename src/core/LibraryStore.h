#pragma once

namespace tavel {

// What start-up and shutdown ask of the media library, which stands above core.
class LibraryStore {
  public:
    virtual ~LibraryStore() = default;
    virtual void LoadDB() = 0;
    virtual void SaveDB() = 0;
    virtual void BackgroundScan() = 0;
    virtual void Release() = 0;  // empties the collections and the working references
};

}  // namespace tavel
