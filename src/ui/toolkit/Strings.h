#pragma once

#include "platform/Text.h"

#include <QString>
#include <string>
#include <string_view>

namespace tavel {

// The edge between engine text and Qt's. A byte that is no part of valid UTF-8 comes out as its
// Windows-1252 character.
inline QString ToQString(std::string_view text) {
    return QString::fromStdU16String(ToUnicode(text));
}

inline std::string FromQString(const QString& text) { return FromUnicode(text.toStdU16String()); }

}  // namespace tavel
