#include "ui/toolkit/dialogs/CDLG.h"
#include "ui/toolkit/dialogs/CommonDialogs.h"

#include <QPageSize>
#include <algorithm>
#include <cmath>

namespace tavel {

namespace {

constexpr Long minMargins = 0x1;
constexpr Long thousandthsOfInches = 0x4;
constexpr Long hundredthsOfMillimeters = 0x8;
constexpr Long disablePrinter = 0x20;
constexpr Long hooksAndTemplates = 0x6A000;

// The most that a device's settings have room for.
constexpr Long finestQuality = 32767;

constexpr Long upright = 1;
constexpr Long across = 2;

// A printer may have several papers of one number, which the page of the last call tells apart.
void SetPaper(QPageLayout& layout, Long paper) {
    if (paper == layout.pageSize().windowsId()) return;
    const QPageSize::PageSizeId id = QPageSize::id(paper);
    if (paper > 0 && id != QPageSize::Custom) layout.setPageSize(QPageSize(id));
}

void SetOrientation(QPageLayout& layout, Long orientation) {
    if (orientation == upright) layout.setOrientation(QPageLayout::Portrait);
    if (orientation == across) layout.setOrientation(QPageLayout::Landscape);
}

// No box keeps all of them: the system's own knows none, and Qt's none of the side opposite.
QPageLayout WithMinimums(QPageLayout page, const QMarginsF& minimums) {
    if (AreMinimums(minimums, page)) page.setMinimumMargins(page.minimumMargins() | minimums);
    return page;
}

}  // namespace

bool CDLG::VBPageSetupDlg2(bool DisableMargins, bool DisableOrientation, bool DisablePaper,
                           bool DisablePrinter, double& LeftMargin, double MinLeftMargin,
                           double& RightMargin, double MinRightMargin, double& TopMargin,
                           double MinTopMargin, double& BottomMargin, double MinBottomMargin,
                           Long& PaperSize, Long& Orientation, Long& PrintQuality, PageUnits Units,
                           QPrinter* Printer, QWidget* Owner, Long flags, bool, EventSink*) {
    Begin();
    PageRequest request;
    request.owner = Owner;
    request.printer = KeptPrinter();
    request.printer.file.clear();  // the page is set up for the printer
    request.flags = (flags & ~hooksAndTemplates & ~minMargins) |
                    (Units == PageUnits::Inches ? thousandthsOfInches : hundredthsOfMillimeters) |
                    (DisableMargins ? pageFlag::DisableMargins : 0) |
                    (DisableOrientation ? pageFlag::DisableOrientation : 0) |
                    (DisablePaper ? pageFlag::DisablePaper : 0) |
                    (DisablePrinter ? disablePrinter : 0);
    if (PrintQuality > 0) request.printer.printQuality = std::min(PrintQuality, finestQuality);

    QPageLayout& layout = request.printer.layout;
    layout.setUnits(Units == PageUnits::Inches ? QPageLayout::Inch : QPageLayout::Millimeter);
    request.minimums = {std::fmax(MinLeftMargin, 0), std::fmax(MinTopMargin, 0),
                        std::fmax(MinRightMargin, 0), std::fmax(MinBottomMargin, 0)};
    const QMarginsF margins(LeftMargin, TopMargin, RightMargin, BottomMargin);
    SetPaper(layout, PaperSize);
    SetOrientation(layout, Orientation);
    const bool hasMinimums = AreMinimums(request.minimums, layout);
    layout.setMinimumMargins(hasMinimums ? request.minimums : QMarginsF());
    layout.setMargins(Possible(margins.isNull() ? layout.margins() : margins, layout));
    if (hasMinimums) request.flags |= minMargins;

    const PageAnswer answer = Service<CommonDialogs>::Get().SetUpPage(request);
    if (!End(answer)) return false;
    PrinterState& kept = KeptPrinter();
    QPageLayout& page = kept.layout = answer.printer.layout;
    page.setMargins(Possible(page.margins(), WithMinimums(page, request.minimums)));
    kept.printQuality = answer.printer.printQuality;
    LeftMargin = page.margins().left();
    RightMargin = page.margins().right();
    TopMargin = page.margins().top();
    BottomMargin = page.margins().bottom();
    PaperSize = std::max(page.pageSize().windowsId(), 0);
    Orientation = page.orientation() == QPageLayout::Landscape ? across : upright;
    PrintQuality = kept.printQuality;
    if (Printer != nullptr) ApplyPage(kept, *Printer);
    return true;
}

bool CDLG::VBPageSetupDlg(bool DisableMargins, bool DisableOrientation, bool DisablePaper,
                          bool DisablePrinter, Long& LeftMargin, Long MinLeftMargin,
                          Long& RightMargin, Long MinRightMargin, Long& TopMargin,
                          Long MinTopMargin, Long& BottomMargin, Long MinBottomMargin,
                          Long& PaperSize, Long& Orientation, Long& PrintQuality, PageUnits Units,
                          QPrinter* Printer, QWidget* Owner, Long flags, bool Hook,
                          EventSink* Sink) {
    double left = LeftMargin, right = RightMargin, top = TopMargin, bottom = BottomMargin;
    if (!VBPageSetupDlg2(DisableMargins, DisableOrientation, DisablePaper, DisablePrinter, left,
                         MinLeftMargin, right, MinRightMargin, top, MinTopMargin, bottom,
                         MinBottomMargin, PaperSize, Orientation, PrintQuality, Units, Printer,
                         Owner, flags, Hook, Sink))
        return false;
    LeftMargin = RoundToLong(left);
    RightMargin = RoundToLong(right);
    TopMargin = RoundToLong(top);
    BottomMargin = RoundToLong(bottom);
    return true;
}

}  // namespace tavel
