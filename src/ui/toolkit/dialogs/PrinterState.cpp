#include "ui/toolkit/dialogs/PrinterState.h"

namespace tavel {

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
    return state;
}

void Apply(const PrinterState& state, QPrinter& printer) {
    // Where the pages go comes first: it brings sizes and settings of its own along.
    printer.setOutputFileName(state.file);
    if (!state.file.isEmpty())
        printer.setOutputFormat(QPrinter::PdfFormat);
    else if (!state.deviceName.isEmpty())
        printer.setPrinterName(state.deviceName);
    printer.setCopyCount(state.copies);
    printer.setResolution(state.printQuality);
    printer.setPageLayout(state.layout);
    printer.setColorMode(state.colors);
    printer.setDuplex(state.sides);
    printer.setPageOrder(state.order);
}

}  // namespace tavel
