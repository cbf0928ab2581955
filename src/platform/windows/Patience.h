#pragma once

#include "platform/windows/WindowsApi.h"

namespace tavel {

// What a file is refused for while others have it open.
inline bool IsHeld(DWORD error) {
    return error == ERROR_SHARING_VIOLATION || error == ERROR_ACCESS_DENIED ||
           error == ERROR_DELETE_PENDING || error == ERROR_USER_MAPPED_FILE;
}

// What guards the computer against viruses, and what indexes it, have a file open for a moment
// after each change. A call that fails for what may be no more than that is made again, for a fifth
// of a second at most; GetLastError tells why it failed at last.
template <class Call, class MayPass>
bool Patiently(Call&& call, MayPass&& mayPass) {
    constexpr int tries = 10;
    constexpr DWORD moment = 20;  // milliseconds
    for (int i = 1; i < tries; ++i) {
        if (call()) return true;
        if (!mayPass(GetLastError())) return false;
        Sleep(moment);
    }
    return call();
}
template <class Call>
bool Patiently(Call&& call) {
    return Patiently(call, IsHeld);
}

}  // namespace tavel
