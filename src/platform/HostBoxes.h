#pragma once

#include "platform/HostWindow.h"
#include "platform/Numbers.h"
#include "platform/Service.h"

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace tavel {

// The host's own boxes, where its users expect them rather than those of the windows' toolkit: on
// Windows the system's, on Linux none. They block in a loop of the host's in which the program's
// timers go on, and keep input from their owner alone. Texts are engine text, paths drive paths.

struct HostFileRequest {
    HostWindow owner = 0;
    bool saving = false;
    std::string title;
    std::string startFolder;  // empty: the box's own choice
    std::string startName;    // of a file or a path; empty: none
    std::string defaultExtension;
    std::vector<std::pair<std::string, std::string>> filters;  // words, "*.jpg;*.png;"
    int filterIndex = 0;                                       // from 0
    Long flags = 0;                                            // the platform's, as they stand
};

struct HostFileAnswer {
    bool isChosen = false;
    Long error = 0;  // of the box when nothing is chosen; 0: cancelled
    // Of one folder, unless the box had a view of several; none when what was picked has no path.
    std::vector<std::string> files;
    int filterIndex = 0;
    bool readOnly = false;
};

// A box that picks a folder, as it stands.
class HostFolderBox {
  public:
    virtual ~HostFolderBox() = default;
    virtual void Select(const std::string& path) = 0;
    virtual void SetStatus(const std::string& text) = 0;
    virtual void Allow(bool ok) = 0;  // whether the selection may be chosen
};

struct HostFolderRequest {
    HostWindow owner = 0;
    std::string title;
    bool includeFiles = false;
    bool newStyle = false;  // with a button that makes a folder
    // The box stands, with nothing selected by its caller yet. Neither may fail.
    std::function<void(HostFolderBox&)> onReady;
    // With the path of the selection, empty for what is no place in the file system.
    std::function<void(HostFolderBox&, const std::string&)> onSelection;
};

class HostBoxes {
  public:
    virtual ~HostBoxes() = default;

    // Whether the host has such boxes. Where it has none, the rest does as though cancelled.
    virtual bool AreThere() = 0;
    // Lets the user pick files to open or name one to save.
    virtual HostFileAnswer PickFiles(const HostFileRequest& request) = 0;
    // The folder that the user picks, empty on Cancel.
    virtual std::string PickFolder(const HostFolderRequest& request) = 0;
    // Cancels the box that stands over this window, if one does, or what it asks itself, to which
    // the answer is No where it has no Cancel, and OK to what it tells. It goes when the host's
    // loop comes to it.
    virtual void Cancel(HostWindow owner) = 0;
};

template <>
HostBoxes* OwnService<HostBoxes>();

}  // namespace tavel
