#include "platform/linux/ReadShare.h"

#include <algorithm>

namespace tavel {

namespace {

// What each one is is asked when something is to be written, which is seldom next to reading.
std::list<int>& Held() {
    static std::list<int> held;
    return held;
}

}  // namespace

ReadShare::ReadShare(int file) : m_held(Held().emplace(Held().end(), file)) {}

ReadShare::~ReadShare() { Held().erase(m_held); }

bool ReadShare::IsHeld(const Place& file) {
    if (Held().empty()) return false;
    const FileIdentity identity(file);
    return std::any_of(Held().begin(), Held().end(),
                       [&](int held) { return FileIdentity(held) == identity; });
}

}  // namespace tavel
