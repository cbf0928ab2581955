#pragma once

#include "ui/toolkit/Strings.h"

#include <QDir>

namespace tavel::test {

// A path of the host with separators of its own.
inline QString AsHostTells(const std::string& hostPath) {
    return QDir::toNativeSeparators(ToQString(hostPath));
}

}  // namespace tavel::test
