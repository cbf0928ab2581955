#pragma once

#include "platform/Numbers.h"

#include <QColor>
#include <cstdint>

namespace tavel {

// The setting's system colours, taken from the program's palette, so that they go dark with the
// desktop. The index is the setting's own, from 0 (scroll bars) over 5 (windows), 8 (their text),
// 13 (what is selected), 15 (the faces of buttons) to 30 (the menu bar). An index that the setting
// does not have is black.
QColor SystemColor(int index);

// A colour as properties keep it: 0x00BBGGRR, or 0x800000nn for the system colour nn. What is
// neither, such as -1, loses its first byte.
QColor FromOleColor(std::uint32_t color);

// The same the other way: 0x00BBGGRR. How transparent it is gets lost.
Long ToOleColor(const QColor& color);

}  // namespace tavel
