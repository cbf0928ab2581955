#pragma once

#include "ui/toolkit/panel/PropertyBag.h"

namespace tavel {

struct PanelProperties;

// The colours that a panel is drawn in.
struct PanelColors {
    OleColor headerStart = 0;
    OleColor headerEnd = 0;
    OleColor headerText = 0;
    OleColor chevron = 0;  // the close button and the grip, too
    OleColor footerStart = 0;
    OleColor footerEnd = 0;
    OleColor footerText = 0;
    OleColor containerStart = 0;
    OleColor containerEnd = 0;
    OleColor border = 0;
};

inline constexpr int PanelThemeCount = 12;

// The theme of that number, from 0 to PanelThemeCount - 1.
PanelColors PanelTheme(int theme);

PanelColors CustomPanelColors(const PanelProperties& properties);

// Both colours looked up, and of each channel alpha parts of 255 taken from the first and the rest
// from the second.
OleColor dBlendColor(OleColor oColorFrom, OleColor oColorTo, std::uint8_t alpha);

}  // namespace tavel
