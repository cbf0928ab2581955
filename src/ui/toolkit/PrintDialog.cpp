#include "ui/toolkit/PrintDialog.h"

#include "ui/toolkit/Controls.h"
#include "ui/toolkit/Twips.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QLineEdit>
#include <QPrinter>
#include <QPushButton>
#include <QSpinBox>

namespace tavel {

namespace {

// A printer that begins as the request has it, in the dialog's own hand.
QPrinter* Prepared(const PrintRequest& request, QPrinter& printer) {
    PrinterState state = request.printer;
    if (!request.Has(printFlag::ToFile) || !request.OffersFile()) state.file.clear();
    Apply(state, printer);
    printer.setCollateCopies(request.Has(printFlag::Collate));
    return &printer;
}

}  // namespace

PrintDialog::PrintDialog(const PrintRequest& request, QPrinter& printer)
    : QPrintDialog(Prepared(request, printer), request.owner) {
    setObjectName(QStringLiteral("PrintDialog"));
    setOption(PrintToFile, request.OffersFile());
    setOption(PrintCollateCopies);
    SetRange(request);
    if (request.OffersFile()) SetFile(request);
    PlainButtons(*this);
    NameControls();
    ShowAll();
}

// Qt offers them whatever its option says.
void PrintDialog::HidePageNumbers() {
    auto& ranges = *findChild<QWidget*>(QStringLiteral("gbPrintRange"));
    for (const char* part :
         {"printRange", "from", "label_3", "to", "pagesRadioButton", "pagesLineEdit"})
        ranges.findChild<QWidget*>(QLatin1String(part))->hide();
}

// Controls without a caption of their own, as a screen reader tells them.
void PrintDialog::NameControls() {
    const std::pair<const char*, QString> names[] = {{"from", tr("From page")},
                                                     {"to", tr("To page")},
                                                     {"pagesLineEdit", tr("Pages")},
                                                     {"pageSetCombo", tr("Page Set")},
                                                     {"fileBrowser", tr("Browse")}};
    for (const auto& [control, name] : names)
        findChild<QWidget*>(QLatin1String(control))->setAccessibleName(name);
}

// Copies and pages, which Qt keeps behind its last button.
void PrintDialog::ShowAll() {
    auto* options = findChild<QDialogButtonBox*>()->findChildren<QPushButton*>().back();
    options->click();
    options->hide();
    resize(sizeHint().expandedTo({Pixels(7500), 0}));
}

void PrintDialog::SetRange(const PrintRequest& request) {
    setMinMax(1, 65535);
    setFromTo(request.fromPage, request.toPage);
    // Not before: pages that are told are offered.
    setOption(PrintPageRange, !request.Has(printFlag::NoPageNumbers));
    setOption(PrintSelection, !request.Has(printFlag::NoSelection));
    if (request.Has(printFlag::NoPageNumbers)) HidePageNumbers();
    if (request.Has(printFlag::PageNumbers) && !request.Has(printFlag::NoPageNumbers))
        setPrintRange(PageRange);
    else if (request.Has(printFlag::Selection) && !request.Has(printFlag::NoSelection))
        setPrintRange(Selection);
    else
        setPrintRange(AllPages);
}

void PrintDialog::SetFile(const PrintRequest& request) {
    const QString file = request.printer.file;
    findChild<QLineEdit*>(QStringLiteral("filename"))
        ->setText(file.isEmpty() ? QDir::home().filePath(QStringLiteral("print.pdf")) : file);
    auto& printers = *findChild<QComboBox*>(QStringLiteral("printers"));
    if (request.Has(printFlag::ToFile)) printers.setCurrentIndex(printers.count() - 1);
}

PrintAnswer PrintDialog::Answer() {
    PrintAnswer answer;
    answer.result = 1;
    answer.printer = StateOf(*printer());
    answer.fromPage = fromPage();
    answer.toPage = toPage();
    answer.flags = (printRange() == PageRange ? printFlag::PageNumbers : 0) |
                   (printRange() == Selection ? printFlag::Selection : 0) |
                   (printer()->collateCopies() ? printFlag::Collate : 0) |
                   (answer.printer.file.isEmpty() ? 0 : printFlag::ToFile);
    return answer;
}

}  // namespace tavel
