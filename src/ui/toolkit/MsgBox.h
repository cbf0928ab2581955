#pragma once

#include "core/MessageBoxes.h"

#include <QString>

namespace tavel {

// A message box that blocks until it is answered. Carriage returns begin new lines. One with Yes
// and No that is closed otherwise answers No, an OKCancel box Cancel.
MsgBoxAnswer MsgBox(const QString& text, MsgBoxButtons buttons = MsgBoxButtons::OK,
                    const QString& title = QLatin1String(ProgramTitle));

}  // namespace tavel
