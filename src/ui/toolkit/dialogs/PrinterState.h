#pragma once

#include <QMarginsF>
#include <QPageLayout>
#include <QPrinter>
#include <QString>
#include <QStringList>

namespace tavel {

// What is told of a printer from one dialog to the next, and to the one that prints.
struct PrinterState {
    QString deviceName;  // empty where there is no printer
    // Where the pages go, a path of the host: a PDF or, with a printer, whatever that prints into
    // it. Empty: to the printer.
    QString file;
    int copies = 1;        // from 1
    QPageLayout layout;    // paper, orientation, margins
    int printQuality = 0;  // dots per inch
    QPrinter::ColorMode colors = QPrinter::Color;
    QPrinter::DuplexMode sides = QPrinter::DuplexNone;
    QPrinter::PageOrder order = QPrinter::FirstPageFirst;
    QStringList jobOptions;  // what else a print server is told: names, each with its value behind
};

// The default printer as it comes, or a PDF where there is none.
PrinterState DefaultPrinter();

PrinterState StateOf(const QPrinter& printer);
void Apply(const PrinterState& state, QPrinter& printer);

// Paper, orientation, margins and quality alone.
void ApplyPage(const PrinterState& state, QPrinter& printer);

// As near to these as the page's smallest margins and its size allow, the left one and the top one
// first; what is no number becomes the smallest.
QMarginsF Possible(const QMarginsF& margins, const QPageLayout& page);

// Smallest margins that are 0, or leave nothing of the page, are none.
bool AreMinimums(const QMarginsF& margins, const QPageLayout& page);

// Gives the printer this page, with the printer's own smallest margins where these are smaller.
void SetPage(const QPageLayout& page, QPrinter& printer);

}  // namespace tavel
