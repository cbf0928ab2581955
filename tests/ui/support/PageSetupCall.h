#pragma once

#include "ui/toolkit/dialogs/CDLG.h"

#include <QPrinter>
#include <QWidget>

namespace tavel::test {

using PageUnits = CDLG::PageUnits;

// One call, each of whose arguments a test may change.
template <class Margin>
struct PageSetupCallWith {
    bool DisableMargins = false;
    bool DisableOrientation = false;
    bool DisablePaper = false;
    bool DisablePrinter = false;
    Margin LeftMargin = 20, MinLeftMargin = 0;
    Margin RightMargin = 21, MinRightMargin = 0;
    Margin TopMargin = 22, MinTopMargin = 0;
    Margin BottomMargin = 23, MinBottomMargin = 0;
    Long PaperSize = 9;
    Long Orientation = 1;
    Long PrintQuality = 600;
    PageUnits Units = PageUnits::Millimeters;
    QPrinter* Printer = nullptr;
    QWidget* Owner = nullptr;
    Long flags = 0;
};

struct PageSetupCall : PageSetupCallWith<double> {
    bool Run(CDLG& dialog) {
        return dialog.VBPageSetupDlg2(
            DisableMargins, DisableOrientation, DisablePaper, DisablePrinter, LeftMargin,
            MinLeftMargin, RightMargin, MinRightMargin, TopMargin, MinTopMargin, BottomMargin,
            MinBottomMargin, PaperSize, Orientation, PrintQuality, Units, Printer, Owner, flags);
    }
    bool Run() {
        CDLG dialog;
        return Run(dialog);
    }
};

struct WholePageSetupCall : PageSetupCallWith<Long> {
    bool Run() {
        return CDLG().VBPageSetupDlg(
            DisableMargins, DisableOrientation, DisablePaper, DisablePrinter, LeftMargin,
            MinLeftMargin, RightMargin, MinRightMargin, TopMargin, MinTopMargin, BottomMargin,
            MinBottomMargin, PaperSize, Orientation, PrintQuality, Units, Printer, Owner, flags);
    }
};

}  // namespace tavel::test
