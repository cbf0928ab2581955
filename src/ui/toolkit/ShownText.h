#pragma once

#include <QString>

namespace tavel {

// A text as a control of one line shows it: each line break, of whatever kind, is a blank. A name
// from a file or a tag may hold any of them.
QString OneLine(QString text);

// What to hand to QToolTip, so that the tip reads just as the text does.
QString TipOf(const QString& text);

}  // namespace tavel
