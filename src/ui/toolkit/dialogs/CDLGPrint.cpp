#include "ui/toolkit/dialogs/CDLG.h"
#include "ui/toolkit/dialogs/CommonDialogs.h"

#include <algorithm>

namespace tavel {

namespace {

constexpr Long hooksAndTemplates = 0x3F000;
constexpr Long lastPage = 65535;

CDLG::Range RangeOf(Long word) {
    if ((word & printFlag::PageNumbers) != 0) return CDLG::Range::PageNumbers;
    return (word & printFlag::Selection) != 0 ? CDLG::Range::Selection : CDLG::Range::All;
}

}  // namespace

PrinterState& CDLG::KeptPrinter() {
    if (!m_printer) m_printer = DefaultPrinter();
    return *m_printer;
}

bool CDLG::VBPrintDlg(Range& PrintRange, bool DisablePageNumbers, Long& FromPage, Long& ToPage,
                      bool DisableSelection, Integer& Copies, bool ShowPrintToFile,
                      bool DisablePrintToFile, bool& PrintToFile, bool& Collate,
                      bool PreventWarning, QWidget* Owner, QPrinter* Printer, Long flags, bool,
                      EventSink*) {
    Begin();
    PrintRequest request;
    request.owner = Owner;
    request.printer = KeptPrinter();
    request.printer.jobOptions.clear();
    request.printer.copies = std::max<int>(Copies, 1);
    request.fromPage = std::clamp(FromPage, 1, lastPage);
    request.toPage = std::clamp(ToPage, request.fromPage, lastPage);
    request.flags = (flags & ~hooksAndTemplates) | static_cast<Long>(PrintRange) |
                    (DisablePageNumbers ? printFlag::NoPageNumbers : 0) |
                    (DisableSelection ? printFlag::NoSelection : 0) |
                    (Collate ? printFlag::Collate : 0) | (PrintToFile ? printFlag::ToFile : 0) |
                    (PreventWarning ? printFlag::NoWarning : 0) |
                    (DisablePrintToFile ? printFlag::DisableToFile : 0) |
                    (ShowPrintToFile ? 0 : printFlag::HideToFile);

    const PrintAnswer answer = Service<CommonDialogs>::Get().PickPrinter(request);
    if (!End(answer)) return false;
    m_printer = answer.printer;
    // A PDF goes past the printer, with which the next call begins again.
    if (m_printer->deviceName.isEmpty()) {
        m_printer->deviceName = request.printer.deviceName;
        m_printer->sides = request.printer.sides;
    }
    PrintRange = RangeOf(answer.flags);
    if (PrintRange == Range::PageNumbers) {
        FromPage = answer.fromPage;
        ToPage = answer.toPage;
    }
    Copies = ToInteger(answer.printer.copies);
    PrintToFile = (answer.flags & printFlag::ToFile) != 0;
    Collate = (answer.flags & printFlag::Collate) != 0;
    if (Printer != nullptr) Apply(answer.printer, *Printer);
    return true;
}

}  // namespace tavel
