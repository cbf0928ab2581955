#include "device/Status.h"

#include "core/PublicStuff.h"
#include "platform/Activity.h"
#include "platform/Failure.h"
#include "platform/Numbers.h"

namespace tavel {

namespace {

void HideFigures(StatusPanel& panel) {
    panel.bFiguresVisible = false;
    panel.bImgFullVisible = false;
}

void Merge(StatusPanel& panel) {
    panel.imgEmptyWidth = panel.imgFullWidth + panel.imgEmptyWidth;
    panel.imgEmptyLeft = panel.imgFullLeft;
}

double TotalSize() {
    const double bytes = oPSPDrive->TotalSize();
    if (bytes == 0) Fail(failure::DivisionByZero);
    return bytes;
}

// The free part stands at the right end of the span, the used one takes what is left of it.
void Split(StatusPanel& panel) {
    const Integer iLeft = RoundToInteger(panel.imgEmptyLeft);
    const Integer iRight = RoundToInteger(panel.imgEmptyLeft + panel.imgEmptyWidth);
    const double dScale = panel.imgEmptyWidth / (TotalSize() / 1000);
    panel.imgEmptyWidth = static_cast<float>(dScale * (oPSPDrive->FreeSpace() / 1000));
    panel.imgEmptyLeft = static_cast<float>(iRight) - panel.imgEmptyWidth;
    panel.imgFullLeft = iLeft;
    panel.imgFullWidth = panel.imgEmptyLeft - panel.imgFullLeft;
}

void ShowPercents(StatusPanel& panel) {
    const double dFree = oPSPDrive->FreeSpace() / TotalSize() * 100;
    const float fFree = static_cast<float>(Round(dFree, 1));
    panel.labEmpty = TextOfSingle(fFree) + "% Free";
    panel.labFull = TextOfSingle(100 - fFree) + "% Used";
}

// The free megabytes are a difference of two rounded figures, not a measured one.
void ShowMegabytes(StatusPanel& panel) {
    const double dUsed = (TotalSize() - oPSPDrive->FreeSpace()) / 1000000;
    const float fUsed = static_cast<float>(Round(dUsed, 2));
    panel.labFullSpace = TextOfSingle(fUsed) + " Mb";
    const float fRest = static_cast<float>(Round(TotalSize() / 1000000, 1) - fUsed);
    panel.labEmptySpace = TextOfSingle(fRest) + " Mb";
}

void ShowConnected(StatusPanel& panel) {
    const Doing measuring("Measuring the space on the PSP", sPSPName);
    if (panel.bImgFullVisible) {
        HideFigures(panel);
        Merge(panel);
    }
    panel.labPSPStatus = sPSPName + " Connected";
    if (oPSPDrive == nullptr) Fail(failure::ObjectNotSet);
    Split(panel);
    ShowPercents(panel);
    ShowMegabytes(panel);
    panel.bFiguresVisible = true;
    panel.bImgFullVisible = true;
}

// Merges whether or not the bar is split: each call more widens the hidden bar by the used part.
void ShowNotConnected(StatusPanel& panel) {
    panel.labPSPStatus = "No PSP Connected";
    HideFigures(panel);
    Merge(panel);
}

}  // namespace

void UpdateStatusPanel(StatusPanel& panel) {
    if (bPSPConnected) {
        ShowConnected(panel);
    } else {
        ShowNotConnected(panel);
    }
}

}  // namespace tavel
