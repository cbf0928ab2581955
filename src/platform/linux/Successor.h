#pragma once

#include "platform/linux/Places.h"

namespace tavel {

// Renames to a name that is free; errno is EEXIST where it isn't. The folders are open, or stand
// for whole paths.
bool RenameIfFree(int from, const char* old, int to, const char* name);

// A new file beside another, which can take that one's place in one step: whoever looks, after a
// kill or a power cut too, finds the old bytes or the new ones. Where there is no other one it
// takes the free place, whole. Its name is always the same, so that one which a kill has left
// behind is gone with the next. It has the other one's owner and mode, as far as
// the user may give it away (Descriptor.h).
class Successor {
  public:
    // `former` is a file, or a free place with the status that the file is to have; its folder is
    // open, and it outlives the successor.
    explicit Successor(const Place& former);
    ~Successor();  // removes it unless it has taken the place
    Successor(const Successor&) = delete;
    Successor& operator=(const Successor&) = delete;

    // Does nothing once something has failed.
    void Write(std::string_view bytes);
    // What has been written gets this modification time.
    void SetTime(const timespec& modified) { m_file.SetTime(modified); }
    // True when it is the file of that name now, and all of it is on the medium.
    bool TakePlace();
    // The host's number of the first failure, 0 when there was none.
    int Error() const { return m_error; }
    // A failure may come after that step.
    bool HasTakenPlace() const { return m_hasTakenPlace; }

  private:
    bool IsUnderItsName() const;
    bool Rename() const;
    bool Check(bool succeeded);

    const Place& m_former;
    std::string m_name;
    Descriptor m_file;
    int m_error = 0;
    bool m_hasTakenPlace = false;
};

}  // namespace tavel
