#include "ui/toolkit/dialogs/PrinterState.h"

#include <QPrintEngine>
#include <QRectF>
#include <QSizeF>
#include <cmath>

namespace tavel {

namespace {

// Qt's public headers have no name for it.
constexpr auto jobOptions = static_cast<QPrintEngine::PrintEnginePropertyKey>(0xFE00);

// The lower bound stands for what is no number.
double Within(double low, double margin, double high) {
    return std::fmin(std::fmax(margin, low), high);
}

}  // namespace

PrinterState DefaultPrinter() { return StateOf(QPrinter(QPrinter::HighResolution)); }

PrinterState StateOf(const QPrinter& printer) {
    PrinterState state;
    state.deviceName = printer.printerName();
    state.file = printer.outputFileName();
    state.copies = printer.copyCount();
    state.layout = printer.pageLayout();
    state.printQuality = printer.resolution();
    state.colors = printer.colorMode();
    state.sides = printer.duplex();
    state.order = printer.pageOrder();
    state.jobOptions = printer.printEngine()->property(jobOptions).toStringList();
    return state;
}

void Apply(const PrinterState& state, QPrinter& printer) {
    // Where the pages go comes first: it brings sizes and settings of its own along.
    printer.setOutputFileName(state.file);
    if (!state.deviceName.isEmpty())
        printer.setPrinterName(state.deviceName);
    else if (!state.file.isEmpty())
        printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setCopyCount(state.copies);
    ApplyPage(state, printer);
    printer.setColorMode(state.colors);
    printer.setDuplex(state.sides);
    printer.setPageOrder(state.order);
    printer.printEngine()->setProperty(jobOptions, state.jobOptions);
}

void ApplyPage(const PrinterState& state, QPrinter& printer) {
    printer.setResolution(state.printQuality);
    SetPage(state.layout, printer);
}

QMarginsF Possible(const QMarginsF& margins, const QPageLayout& page) {
    const QMarginsF low = page.minimumMargins();
    const QMarginsF high = page.maximumMargins();
    const QSizeF size = page.fullRect().size();
    const double left = Within(low.left(), margins.left(), high.left());
    const double top = Within(low.top(), margins.top(), high.top());
    return {left, top, Within(low.right(), margins.right(), size.width() - left),
            Within(low.bottom(), margins.bottom(), size.height() - top)};
}

bool AreMinimums(const QMarginsF& margins, const QPageLayout& page) {
    const QRectF left = page.fullRect().marginsRemoved(margins);
    return !margins.isNull() && left.width() > 0 && left.height() > 0;
}

// In parts: a page whose margins a printer cannot print, be it by the fraction of a point, it
// refuses as a whole.
void SetPage(const QPageLayout& page, QPrinter& printer) {
    printer.setPageSize(page.pageSize());
    printer.setPageOrientation(page.orientation());
    QPageLayout own = printer.pageLayout();
    own.setUnits(page.units());
    printer.setPageMargins(Possible(page.margins(), own), page.units());
}

}  // namespace tavel
