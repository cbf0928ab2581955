#pragma once

#include "core/PublicStuff.h"

class QWidget;

namespace tavel {

// Gives a window's labels, buttons, check boxes, option buttons, frames, combo boxes and list
// boxes the style's font name, and the window and them its colours (&H00BBGGRR, or &H800000nn for a
// system colour; -1 leaves a colour as it is). Controls of any other kind (text boxes, pictures,
// trees, grids, drive lists) keep their own look.
void StyleApply(QWidget& window, const Style& style);

}  // namespace tavel
