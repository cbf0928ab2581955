#include "ui/support/DialogRecorder.h"
#include "ui/support/NoHostBoxes.h"
#include "ui/support/PageSetupCall.h"
#include "ui/support/Printers.h"
#include "ui/support/PromptQueue.h"

#include <gtest/gtest.h>

#include <QPrintEngine>
#include <QPrinter>
#include <limits>

namespace tavel::test {

namespace {

using Call = PageSetupCall;

// Prints with a dialog that leaves the printer so.
void PrintBefore(CDLG& dialog, DialogRecorder& dialogs, const PrinterState& printer) {
    dialogs.printAnswer.result = 1;
    dialogs.printAnswer.printer = printer;
    auto range = CDLG::Range::All;
    Long from = 1, to = 1;
    Integer copies = 1;
    bool toFile = false, collate = false;
    ASSERT_TRUE(dialog.VBPrintDlg(range, false, from, to, false, copies, true, false, toFile,
                                  collate, false, nullptr, nullptr));
}

}  // namespace

TEST(VBPageSetupDlg2, each_minimum_is_that_of_its_side_and_none_is_below_0) {
    DialogRecorder dialogs;
    Call call;
    call.MinLeftMargin = 1;
    call.MinTopMargin = 2;
    call.MinRightMargin = 3;
    call.MinBottomMargin = 4;
    call.Run();
    EXPECT_EQ(dialogs.page.printer.layout.minimumMargins(), QMarginsF(1, 2, 3, 4));
    call.MinLeftMargin = -5;
    call.LeftMargin = -3;
    call.Run();
    EXPECT_EQ(dialogs.page.printer.layout.minimumMargins(), QMarginsF(0, 2, 3, 4));
    EXPECT_EQ(dialogs.page.printer.layout.margins().left(), 0);
}

TEST(VBPageSetupDlg2, a_margin_that_comes_back_below_its_minimum_is_raised_to_it) {
    DialogRecorder dialogs;
    dialogs.pageAnswer.result = 1;
    dialogs.pageAnswer.printer.layout =
        QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait, QMarginsF(1, 30, 1, 30),
                    QPageLayout::Millimeter);
    Call call;
    call.MinLeftMargin = call.MinTopMargin = 5;
    QPrinter printer;
    call.Printer = &printer;
    EXPECT_TRUE(call.Run());
    EXPECT_EQ(call.LeftMargin, 5);
    EXPECT_EQ(call.TopMargin, 30);
    EXPECT_EQ(call.RightMargin, 1);
    EXPECT_EQ(printer.pageLayout().margins(QPageLayout::Millimeter).left(), 5);
}

TEST(VBPageSetupDlg2, margins_that_come_back_are_raised_at_the_cost_of_those_opposite) {
    struct Case {
        QMarginsF least;
        QMarginsF answered;
        QMarginsF result;
    };
    for (const Case& one : {Case{{20, 30, 0, 0}, {1, 1, 200, 290}, {20, 30, 190, 267}},
                            Case{{0, 0, 60, 97}, {200, 290, 10, 7}, {150, 200, 60, 97}}}) {
        DialogRecorder dialogs;
        dialogs.pageAnswer.result = 1;
        dialogs.pageAnswer.printer.layout = QPageLayout(
            QPageSize(QPageSize::A4), QPageLayout::Portrait, one.answered, QPageLayout::Millimeter);
        Call call;
        call.MinLeftMargin = one.least.left();
        call.MinTopMargin = one.least.top();
        call.MinRightMargin = one.least.right();
        call.MinBottomMargin = one.least.bottom();
        EXPECT_TRUE(call.Run());
        EXPECT_EQ(QMarginsF(call.LeftMargin, call.TopMargin, call.RightMargin, call.BottomMargin),
                  one.result);
    }
}

TEST(VBPageSetupDlg2, minimums_that_leave_nothing_of_the_page_that_comes_back_raise_nothing) {
    DialogRecorder dialogs;
    dialogs.pageAnswer.result = 1;
    dialogs.pageAnswer.printer.layout = QPageLayout(QPageSize(QPageSize::A6), QPageLayout::Portrait,
                                                    QMarginsF(1, 1, 1, 1), QPageLayout::Millimeter);
    Call call;
    call.MinLeftMargin = call.MinRightMargin = 60;
    EXPECT_TRUE(call.Run());
    EXPECT_EQ(call.LeftMargin, 1);
    EXPECT_EQ(call.RightMargin, 1);
}

TEST(VBPageSetupDlg2, whether_there_are_minimums_is_told_by_the_arguments_alone) {
    DialogRecorder dialogs;
    Call call;
    call.flags = 0x1;
    call.Run();
    EXPECT_FALSE(dialogs.page.Has(0x1));
}

TEST(VBPageSetupDlg2, minimums_that_leave_nothing_of_the_page_are_the_printers_own) {
    DialogRecorder dialogs;
    Call call;
    call.Run();
    const QMarginsF own = dialogs.page.printer.layout.minimumMargins();
    Call exactly;
    exactly.MinLeftMargin = exactly.MinRightMargin = 105;
    exactly.Run();
    EXPECT_FALSE(dialogs.page.Has(0x1));
    for (double Call::*minimum : {&Call::MinLeftMargin, &Call::MinTopMargin}) {
        for (const double size : {500.0, std::numeric_limits<double>::infinity()}) {
            Call large;
            large.*minimum = size;
            large.Run();
            EXPECT_EQ(dialogs.page.printer.layout.minimumMargins(), own);
            EXPECT_EQ(dialogs.page.printer.layout.margins(), QMarginsF(20, 22, 21, 23));
            EXPECT_FALSE(dialogs.page.Has(0x1));
        }
    }
}

TEST(VBPageSetupDlg2, a_margin_that_is_larger_than_the_page_or_no_number_is_brought_into_it) {
    DialogRecorder dialogs;
    Call call;
    call.LeftMargin = 1e9;
    call.TopMargin = std::numeric_limits<double>::quiet_NaN();
    call.MinTopMargin = 7;
    call.Run();
    EXPECT_EQ(dialogs.page.printer.layout.margins(), QMarginsF(210, 7, 0, 23));
}

TEST(VBPageSetupDlg2, margins_begin_within_what_those_opposite_leave_of_the_page) {
    DialogRecorder dialogs;
    Call call;
    call.LeftMargin = call.RightMargin = 150;
    call.TopMargin = 250;
    call.BottomMargin = 100;
    call.Run();
    EXPECT_EQ(dialogs.page.printer.layout.margins(), QMarginsF(150, 250, 60, 47));
}

TEST(VBPageSetupDlg2, the_page_begins_as_the_print_dialog_before_it_has_left_the_printer) {
    DialogRecorder dialogs;
    PrinterState printer;
    printer.deviceName = QStringLiteral("Laser");
    printer.printQuality = 1200;
    CDLG dialog;
    PrintBefore(dialog, dialogs, printer);
    Call call;
    call.PrintQuality = 0;
    call.Run(dialog);
    EXPECT_EQ(dialogs.page.printer.deviceName, QStringLiteral("Laser"));
    EXPECT_EQ(dialogs.page.printer.printQuality, 1200);
}

TEST(VBPageSetupDlg2, the_page_is_set_up_for_the_printer_after_a_print_into_a_file_too) {
    DialogRecorder dialogs;
    PrinterState file;
    file.file = QStringLiteral("/somewhere/a.pdf");
    CDLG dialog;
    PrintBefore(dialog, dialogs, file);
    Call().Run(dialog);
    EXPECT_EQ(dialogs.page.printer.file, QString());
}

TEST(VBPageSetupDlg2, the_pages_of_a_printer_object_go_where_they_went) {
    const Printers printers({QStringLiteral("Ink")});
    DialogRecorder dialogs;
    dialogs.pageAnswer.result = 1;
    dialogs.pageAnswer.printer = DefaultPrinter();
    dialogs.pageAnswer.printer.layout.setPageSize(QPageSize(QPageSize::A3));
    PrinterState file;
    file.file = QStringLiteral("/somewhere/a.pdf");
    CDLG dialog;
    PrintBefore(dialog, dialogs, file);

    Call call;
    QPrinter fresh;
    call.Printer = &fresh;
    EXPECT_TRUE(call.Run(dialog));
    EXPECT_EQ(fresh.pageLayout().pageSize().id(), QPageSize::A3);
    EXPECT_EQ(fresh.printerName(), QStringLiteral("Ink"));
    EXPECT_EQ(fresh.outputFileName(), QString()) << "the file of the print before";

    QPrinter own;
    own.setOutputFileName(QStringLiteral("/elsewhere/own.pdf"));
    own.setCopyCount(3);
    own.setColorMode(QPrinter::GrayScale);
    call.Printer = &own;
    EXPECT_TRUE(call.Run(dialog));
    EXPECT_EQ(own.pageLayout().pageSize().id(), QPageSize::A3);
    EXPECT_EQ(own.outputFileName(), QStringLiteral("/elsewhere/own.pdf"));
    EXPECT_EQ(own.outputFormat(), QPrinter::PdfFormat);
    EXPECT_EQ(own.copyCount(), 3);
    EXPECT_EQ(own.colorMode(), QPrinter::GrayScale);
}

TEST(VBPageSetupDlg2, the_next_print_begins_with_the_printer_of_the_last_one) {
    DialogRecorder dialogs;
    dialogs.pageAnswer.result = 1;
    dialogs.pageAnswer.printer = DefaultPrinter();
    PrinterState laser;
    laser.deviceName = QStringLiteral("Laser");
    laser.file = QStringLiteral("FILE:");
    laser.sides = QPrinter::DuplexLongSide;
    laser.colors = QPrinter::GrayScale;
    CDLG dialog;
    PrintBefore(dialog, dialogs, laser);
    EXPECT_TRUE(Call().Run(dialog));
    PrintBefore(dialog, dialogs, laser);
    EXPECT_EQ(dialogs.print.printer.deviceName, laser.deviceName);
    EXPECT_EQ(dialogs.print.printer.file, laser.file);
    EXPECT_EQ(dialogs.print.printer.sides, laser.sides);
    EXPECT_EQ(dialogs.print.printer.colors, laser.colors);
}

TEST(VBPageSetupDlg2, what_a_print_server_is_told_of_a_print_is_left_by_the_page) {
    constexpr auto jobOptions = static_cast<QPrintEngine::PrintEnginePropertyKey>(0xFE00);
    const Printers printers({QStringLiteral("Ink")});
    DialogRecorder dialogs;
    dialogs.pageAnswer.result = 1;
    dialogs.pageAnswer.printer = DefaultPrinter();
    PrinterState told = DefaultPrinter();
    told.jobOptions = {QStringLiteral("number-up"), QStringLiteral("2")};
    CDLG dialog;
    PrintBefore(dialog, dialogs, told);
    QPrinter ofPrint, other;
    Apply(told, ofPrint);
    Call call;
    for (QPrinter* printer : {&ofPrint, &other}) {
        call.Printer = printer;
        EXPECT_TRUE(call.Run(dialog));
    }
    EXPECT_EQ(ofPrint.printEngine()->property(jobOptions).toStringList(), told.jobOptions);
    EXPECT_EQ(other.printEngine()->property(jobOptions).toStringList(), QStringList());
}

TEST(VBPageSetupDlg2, the_smallest_margins_of_the_page_before_are_asked_for_no_more) {
    DialogRecorder dialogs;
    PrinterState printer;
    printer.layout = QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait, {20, 20, 20, 20},
                                 QPageLayout::Millimeter, {15, 16, 17, 18});
    CDLG dialog;
    PrintBefore(dialog, dialogs, printer);
    Call call;
    call.PaperSize = 8;
    call.LeftMargin = 3;
    call.Run(dialog);
    EXPECT_EQ(dialogs.page.printer.layout.pageSize().id(), QPageSize::A3);
    EXPECT_EQ(dialogs.page.printer.layout.minimumMargins(), QMarginsF());
    EXPECT_EQ(dialogs.page.printer.layout.margins().left(), 3);
    EXPECT_FALSE(dialogs.page.Has(0x1)) << "the printer knows its own";
}

TEST(VBPageSetupDlg2, a_paper_of_no_number_is_0) {
    DialogRecorder dialogs;
    dialogs.pageAnswer.result = 1;
    dialogs.pageAnswer.printer.layout.setPageSize(QPageSize(QPageSize::A10));
    Call call;
    EXPECT_TRUE(call.Run());
    EXPECT_EQ(call.PaperSize, 0);
}

TEST(VBPageSetupDlg2, the_flags_say_what_the_arguments_say_and_never_hook_or_template) {
    DialogRecorder dialogs;
    Call call;
    call.flags = 0x2000 | 0x8000 | 0x20000 | 0x40000 | 0x80;
    call.Run();
    EXPECT_EQ(dialogs.page.flags, 0x8 | 0x80);
    call.flags = 0;
    call.DisableMargins = call.DisableOrientation = call.DisablePaper = true;
    call.Units = PageUnits::Inches;
    call.Run();
    EXPECT_EQ(dialogs.page.flags, 0x4 | 0x10 | 0x100 | 0x200);
    call.DisablePrinter = true;
    call.Run();
    EXPECT_EQ(dialogs.page.flags, 0x4 | 0x10 | 0x20 | 0x100 | 0x200);
    call.MinTopMargin = 0.1;
    call.Run();
    EXPECT_EQ(dialogs.page.flags, 0x1 | 0x4 | 0x10 | 0x20 | 0x100 | 0x200);
}

TEST(VBPageSetupDlg2, a_failure_tells_its_reason_where_the_result_is_neither_0_nor_1) {
    DialogRecorder dialogs;
    dialogs.pageAnswer.result = 2;
    dialogs.pageAnswer.error = 0x2001;
    CDLG dialog;
    Call call;
    EXPECT_FALSE(call.Run(dialog));
    EXPECT_EQ(dialog.ExtendedError(), 0x2001);
    EXPECT_EQ(call.LeftMargin, 20);
}

TEST(VBPageSetupDlg2, where_the_box_is_the_hosts_there_is_no_page_without_a_printer) {
    const IdleHostBoxes boxes;
    PromptQueue prompts;
    prompts.ExpectMsgBox(QStringLiteral("There is no printer."), MsgBoxButtons::OK,
                         MsgBoxAnswer::OK);
    Call call;
    EXPECT_FALSE(call.Run());
    EXPECT_EQ(call.LeftMargin, 20);
    call.flags = 0x80;
    EXPECT_FALSE(call.Run());
}

TEST(VBPageSetupDlg, everything_is_passed_on) {
    DialogRecorder dialogs;
    QWidget owner;
    WholePageSetupCall call;
    call.LeftMargin = 1;
    call.RightMargin = 2;
    call.TopMargin = 3;
    call.BottomMargin = 4;
    call.MinLeftMargin = call.MinTopMargin = call.MinBottomMargin = 1;
    call.MinRightMargin = 2;
    call.DisableMargins = call.DisablePaper = true;
    call.Orientation = 2;
    call.PrintQuality = 300;
    call.PaperSize = 8;
    call.Units = PageUnits::Inches;
    call.Owner = &owner;
    call.flags = 0x80;
    EXPECT_FALSE(call.Run());
    const QPageLayout& layout = dialogs.page.printer.layout;
    EXPECT_EQ(dialogs.page.owner, &owner);
    EXPECT_EQ(dialogs.page.flags, 0x1 | 0x4 | 0x10 | 0x200 | 0x80);
    EXPECT_EQ(layout.units(), QPageLayout::Inch);
    EXPECT_EQ(layout.margins(), QMarginsF(1, 3, 2, 4));
    EXPECT_EQ(layout.minimumMargins(), QMarginsF(1, 1, 2, 1));
    EXPECT_EQ(layout.pageSize().id(), QPageSize::A3);
    EXPECT_EQ(layout.orientation(), QPageLayout::Landscape);
    EXPECT_EQ(dialogs.page.printer.printQuality, 300);

    call.DisableMargins = call.DisablePaper = false;
    call.DisableOrientation = call.DisablePrinter = true;
    call.Run();
    EXPECT_EQ(dialogs.page.flags, 0x1 | 0x4 | 0x100 | 0x20 | 0x80);

    QPrinter printer;
    call.Printer = &printer;
    dialogs.pageAnswer.result = 1;
    dialogs.pageAnswer.printer = dialogs.page.printer;
    EXPECT_TRUE(call.Run());
    EXPECT_EQ(printer.resolution(), 300);
    EXPECT_EQ(printer.pageLayout().pageSize().id(), QPageSize::A3);

    dialogs.pageAnswer.printer.printQuality = 1200;
    dialogs.pageAnswer.printer.layout.setPageSize(QPageSize(QPageSize::A5));
    dialogs.pageAnswer.printer.layout.setOrientation(QPageLayout::Portrait);
    EXPECT_TRUE(call.Run());
    EXPECT_EQ(call.PaperSize, 11);
    EXPECT_EQ(call.Orientation, 1);
    EXPECT_EQ(call.PrintQuality, 1200);
}

}  // namespace tavel::test
