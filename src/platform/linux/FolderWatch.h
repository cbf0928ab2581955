#pragma once

#include "platform/linux/Descriptor.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace tavel {

// The kernel's word on what happens in folders. It is there to be taken as soon as a change has
// been made, whoever made it on this machine.
class FolderWatch {
  public:
    FolderWatch();

    // The number of the watch over a folder, the same for a folder that has one already. Negative
    // where the host can't watch. It ends with the folder or its file system.
    int Add(const std::string& hostPath);
    void Remove(int watch);

    struct News {
        int watch = -1;         // -1: some news were lost
        std::string_view name;  // of the entry that came or went
        bool hasCome = false;
        bool hasGone = false;
        bool hasMoved = false;  // the folder itself
        bool hasEnded = false;  // the watch
    };
    // Passes on what has happened since the last call, in its order; false when nothing has.
    bool Take(const std::function<void(const News&)>& tell);

  private:
    Descriptor m_inotify;
};

}  // namespace tavel
