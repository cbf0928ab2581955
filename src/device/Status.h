#pragma once

#include <string>

namespace tavel {

// What the status panel shows. Lengths are twips; the bar's whole span is kept in its two pictures
// alone: merged, imgEmpty covers it; split, both stand side by side.
struct StatusPanel {
    float imgEmptyLeft = 120;
    float imgEmptyWidth = 6195;
    float imgFullLeft = 120;
    float imgFullWidth = 105;
    bool bImgFullVisible = true;
    bool bFiguresVisible = true;  // the four labels and imgEmpty, which always go together
    std::string labPSPStatus = "PSP STATUS";
    std::string labEmpty = "100%";
    std::string labEmptySpace = "1024 Mb";
    std::string labFull = "100%";
    std::string labFullSpace = "1024 Mb";
};

// Brings the panel up to date from the connected state and the drive's figures of the moment.
// Fails when a connected stick has gone or tells a size of 0.
void UpdateStatusPanel(StatusPanel& panel);

}  // namespace tavel
