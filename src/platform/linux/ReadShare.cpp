#include "platform/linux/ReadShare.h"

#include <set>
#include <utility>

namespace tavel {

namespace {

std::multiset<std::pair<dev_t, ino_t>>& Held() {
    static std::multiset<std::pair<dev_t, ino_t>> held;
    return held;
}

}  // namespace

ReadShare::ReadShare(const struct stat& file) : m_device(file.st_dev), m_inode(file.st_ino) {
    Held().emplace(m_device, m_inode);
}

ReadShare::~ReadShare() { Held().erase(Held().find({m_device, m_inode})); }

bool ReadShare::IsHeld(const struct stat& file) {
    return Held().count({file.st_dev, file.st_ino}) != 0;
}

}  // namespace tavel
