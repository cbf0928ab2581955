#pragma once

#include "platform/HostBoxes.h"

namespace tavel::test {

// A host without boxes of its own, for as long as it lives: what is asked is the toolkit's.
class NoHostBoxes : public HostBoxes {
  public:
    NoHostBoxes() { Service<HostBoxes>::Use(this); }
    ~NoHostBoxes() override { Service<HostBoxes>::Use(nullptr); }
    NoHostBoxes(const NoHostBoxes&) = delete;
    NoHostBoxes& operator=(const NoHostBoxes&) = delete;

    bool AreThere() override { return false; }
    HostFileAnswer PickFiles(const HostFileRequest&) override { return {}; }
    std::string PickFolder(const HostFolderRequest&) override { return {}; }
    void Cancel(HostWindow) override {}
};

// A host with boxes of its own, in which nothing is picked.
class IdleHostBoxes : public NoHostBoxes {
  public:
    bool AreThere() override { return true; }
};

}  // namespace tavel::test
