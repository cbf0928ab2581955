#pragma once

#include "ui/toolkit/dialogs/CDLG.h"

#include <QPrinter>
#include <QWidget>

namespace tavel::test {

// One call, each of whose arguments a test may change.
struct PrintCall {
    CDLG::Range PrintRange = CDLG::Range::All;
    bool DisablePageNumbers = false;
    Long FromPage = 1;
    Long ToPage = 65535;
    bool DisableSelection = false;
    Integer Copies = 1;
    bool ShowPrintToFile = true;
    bool DisablePrintToFile = false;
    bool PrintToFile = true;
    bool Collate = false;
    bool PreventWarning = false;
    QWidget* Owner = nullptr;
    QPrinter* Printer = nullptr;
    Long flags = 0;

    bool Run(CDLG& dialog) {
        return dialog.VBPrintDlg(PrintRange, DisablePageNumbers, FromPage, ToPage, DisableSelection,
                                 Copies, ShowPrintToFile, DisablePrintToFile, PrintToFile, Collate,
                                 PreventWarning, Owner, Printer, flags);
    }
    bool Run() {
        CDLG dialog;
        return Run(dialog);
    }
};

}  // namespace tavel::test
