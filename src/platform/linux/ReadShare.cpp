#include "platform/linux/ReadShare.h"

#include <algorithm>

namespace tavel {

namespace {

std::list<FileIdentity>& Held() {
    static std::list<FileIdentity> held;
    return held;
}

}  // namespace

ReadShare::ReadShare(int file) : m_held(Held().emplace(Held().end(), file)) {}

ReadShare::~ReadShare() { Held().erase(m_held); }

bool ReadShare::IsHeld(const Place& file) {
    if (Held().empty()) return false;
    return std::find(Held().begin(), Held().end(), FileIdentity(file)) != Held().end();
}

}  // namespace tavel
