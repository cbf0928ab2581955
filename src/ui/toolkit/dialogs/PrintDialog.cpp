#include "ui/toolkit/dialogs/PrintDialog.h"

#include "ui/toolkit/Controls.h"
#include "ui/toolkit/Twips.h"
#include "ui/toolkit/dialogs/PageParts.h"
#include "ui/toolkit/dialogs/Parts.h"

#include <QAbstractButton>
#include <QChildEvent>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QLineEdit>
#include <QPrinter>
#include <QPrinterInfo>
#include <QSpinBox>
#include <algorithm>
#include <limits>
#include <utility>

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

// The same where the printer can have it.
QPageSize PaperFor(const QPrinterInfo& device, const QPageSize& paper) {
    const QList<QPageSize> papers = device.supportedPageSizes();
    const auto isSame = [&paper](const QPageSize& one) { return one.isEquivalentTo(paper); };
    const bool canHave = papers.isEmpty() || device.supportsCustomPageSizes() ||
                         std::any_of(papers.begin(), papers.end(), isSame);
    return canHave ? paper : device.defaultPageSize();
}

}  // namespace

PrintDialog::PrintDialog(const PrintRequest& request, QPrinter& printer)
    : QPrintDialog(Prepared(request, printer), request.owner), m_page(request.printer.layout) {
    setObjectName(QStringLiteral("PrintDialog"));
    setOption(PrintToFile, request.OffersFile());
    setOption(PrintCollateCopies);
    SetRange(request);
    WithPart<QSpinBox>(*this, "copies", [&request](QSpinBox& copies) {
        copies.setMaximum(std::numeric_limits<Integer>::max());
        copies.setValue(request.printer.copies);
    });
    if (request.OffersFile()) SetFile(request);
    PlainButtons(*this);
    NameControls();
    ShowAll();
}

// Not until it shows does Qt's dialog list the file, and it brings up what no answer has room for
// and no printer picks out by itself.
void PrintDialog::showEvent(QShowEvent* event) {
    QPrintDialog::showEvent(event);
    HideRanges({"pagesRadioButton", "pagesLineEdit", "pageSetLabel", "pageSetCombo"});
    if (!std::exchange(m_beginsWithFile, false)) return;
    WithPart<QComboBox>(*this, "printers", [](QComboBox& printers) {
        printers.setCurrentIndex(printers.count() - 1);
    });
}

void PrintDialog::HideRanges(std::initializer_list<const char*> parts) {
    WithPart(*this, "gbPrintRange", [parts](const QWidget& ranges) {
        for (const char* part : parts)
            WithPart(ranges, part, [](QWidget& control) { control.hide(); });
    });
}

// Controls without a caption of their own, as a screen reader tells them.
void PrintDialog::NameControls() {
    const std::pair<const char*, QString> names[] = {
        {"from", tr("From page")}, {"to", tr("To page")}, {"fileBrowser", tr("Browse")}};
    for (const auto& named : names) {
        WithPart(*this, named.first,
                 [&named](QWidget& control) { control.setAccessibleName(named.second); });
    }
}

// Copies and pages, which Qt keeps behind a button that is neither Print nor Cancel.
void PrintDialog::ShowAll() {
    WithPart<QDialogButtonBox>(*this, nullptr, [this](const QDialogButtonBox& buttons) {
        for (QAbstractButton* button : buttons.buttons()) {
            if (buttons.buttonRole(button) != QDialogButtonBox::ResetRole) continue;
            button->click();
            button->hide();
        }
        resize(sizeHint().expandedTo({Pixels(7500), 0}));
    });
}

void PrintDialog::SetRange(const PrintRequest& request) {
    setMinMax(1, 65535);
    setFromTo(request.fromPage, request.toPage);
    // Not before: pages that are told are offered.
    setOption(PrintPageRange, !request.Has(printFlag::NoPageNumbers));
    setOption(PrintSelection, !request.Has(printFlag::NoSelection));
    // Qt offers these whatever its option says.
    if (request.Has(printFlag::NoPageNumbers)) HideRanges({"printRange", "from", "label_3", "to"});
    if (request.Has(printFlag::PageNumbers) && !request.Has(printFlag::NoPageNumbers))
        setPrintRange(PageRange);
    else if (request.Has(printFlag::Selection) && !request.Has(printFlag::NoSelection))
        setPrintRange(Selection);
    else
        setPrintRange(AllPages);
}

void PrintDialog::SetFile(const PrintRequest& request) {
    const QString last = request.printer.file;
    const QString file = last.isEmpty() ? QDir::home().filePath(QStringLiteral("print.pdf")) : last;
    WithPart<QLineEdit>(*this, "filename", [&file](QLineEdit& name) { name.setText(file); });
    m_beginsWithFile = request.Has(printFlag::ToFile);
}

// Qt makes the box of a printer's properties when it is first opened, and another one for another
// printer.
void PrintDialog::childEvent(QChildEvent* event) {
    QPrintDialog::childEvent(event);
    if (!event->polished()) return;
    auto* box = qobject_cast<QDialog*>(event->child());
    if (box != nullptr && HasPage(*box)) BeginProperties(*box);
}

void PrintDialog::BeginProperties(QDialog& properties) {
    NameUnits(properties);
    PlainButtons(properties);
    ShowPage(properties, m_page);
    connect(&properties, &QDialog::accepted, this,
            [this, &properties] { m_acceptedProperties = &properties; });
    // A cancel takes it back to what Qt began it with.
    connect(&properties, &QDialog::rejected, this, [this, &properties] {
        if (m_acceptedProperties.isNull()) ShowPage(properties, m_page);
    });
}

// What nobody has set in the properties Qt sets anew for a printer: its own paper, no margins. And
// what somebody has set the printer may have refused. A dialog of the system's own has set its
// page.
void PrintDialog::KeepPage() {
    WithPart(*this, "printers", [this](QWidget&) {
        QPageLayout page = m_page;
        if (m_acceptedProperties.isNull())
            page.setPageSize(PaperFor(QPrinterInfo(*printer()), m_page.pageSize()));
        else
            page = PageShown(*m_acceptedProperties);
        SetPage(page, *printer());
    });
}

PrintAnswer PrintDialog::Answer() {
    KeepPage();
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
