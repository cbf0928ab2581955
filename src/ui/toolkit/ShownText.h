#pragma once

#include <QString>

namespace tavel {

// No control of one line holds more characters than these.
inline constexpr int MaxShown = 1000;

// A text as a control of one line shows it: its first MaxShown characters, each line break, of
// whatever kind, as a blank. A name from a tag may hold any of them, and may be as long as its
// file: Qt would lay out all of it at each painting.
QString OneLine(const QString& text);

// What to hand to QToolTip, so that the tip reads just as the text does.
QString TipOf(const QString& text);

}  // namespace tavel
