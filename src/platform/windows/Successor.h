#pragma once

#include "platform/windows/Handle.h"
#include "platform/windows/Places.h"

#include <string>
#include <string_view>

namespace tavel {

// A new file beside another, which can take that one's place in one step: whoever looks finds the
// old bytes or the new ones. Where there is no other one it takes the free place, whole. Its name
// is always the same, so that one which a kill has left behind is gone with the next. Others
// may read it, and nothing more. It has the other one's rights and is hidden like it (Rights.h).
class Successor {
  public:
    // `former` is a file or a free place, and outlives the successor.
    explicit Successor(const Place& former);
    ~Successor();  // removes it unless it has taken the place
    Successor(const Successor&) = delete;
    Successor& operator=(const Successor&) = delete;

    // Does nothing once something has failed.
    void Write(std::string_view bytes);
    // What has been written gets the time and the attributes of the file that it was copied from.
    void CopyTraits(const HostStatus& source) { m_file.SetTraits(source); }
    // True when it is the file of that name now, and all of it is on the medium.
    bool TakePlace();
    // The host's number of the first failure, 0 when there was none.
    DWORD Error() const { return m_error; }
    // A failure may come after that step.
    bool HasTakenPlace() const { return m_hasTakenPlace; }

  private:
    bool Make();
    bool Check(bool succeeded);
    bool Rename() const;

    const Place& m_former;
    std::wstring m_callPath;
    Handle m_file;
    DWORD m_error = 0;
    bool m_hasTakenPlace = false;
};

}  // namespace tavel
