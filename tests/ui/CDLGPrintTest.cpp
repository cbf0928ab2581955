#include "ui/support/DialogRecorder.h"
#include "ui/support/NoHostBoxes.h"
#include "ui/support/PrintCall.h"
#include "ui/support/Printers.h"
#include "ui/support/PromptQueue.h"

#include <gtest/gtest.h>

namespace tavel::test {

namespace {

using Call = PrintCall;
using Range = CDLG::Range;

}  // namespace

TEST(VBPrintDlg, without_a_printer_and_a_file_the_call_fails_and_says_so_unless_it_must_not) {
    for (const bool shown : {false, true}) {
        PromptQueue prompts;
        prompts.ExpectMsgBox(QStringLiteral("There is no printer."), MsgBoxButtons::OK,
                             MsgBoxAnswer::OK);
        Call call;
        call.ShowPrintToFile = shown;
        call.DisablePrintToFile = shown;
        call.Copies = 2;
        CDLG dialog;
        EXPECT_FALSE(call.Run(dialog));
        EXPECT_EQ(call.Copies, 2);
        EXPECT_TRUE(call.PrintToFile);
        EXPECT_EQ(dialog.APIReturn(), 0);
        EXPECT_EQ(dialog.ExtendedError(), 0) << "is told for other results";
        call.PreventWarning = true;
        EXPECT_FALSE(call.Run(dialog));
    }
}

TEST(VBPrintDlg, where_the_box_is_the_hosts_a_file_stands_for_no_printer) {
    const IdleHostBoxes boxes;
    PromptQueue prompts;
    prompts.ExpectMsgBox(QStringLiteral("There is no printer."), MsgBoxButtons::OK,
                         MsgBoxAnswer::OK);
    Call call;
    EXPECT_FALSE(call.Run());
    call.PreventWarning = true;
    EXPECT_FALSE(call.Run());
}

TEST(VBPrintDlg, what_a_print_server_was_told_is_not_told_at_the_next_call) {
    DialogRecorder dialogs;
    dialogs.printAnswer.result = 1;
    dialogs.printAnswer.printer = DefaultPrinter();
    dialogs.printAnswer.printer.jobOptions = {QStringLiteral("number-up"), QStringLiteral("2")};
    CDLG dialog;
    Call call;
    EXPECT_TRUE(call.Run(dialog));
    EXPECT_TRUE(call.Run(dialog));
    EXPECT_EQ(dialogs.print.printer.jobOptions, QStringList());
}

TEST(VBPrintDlg, the_flags_say_what_the_booleans_say_and_never_hook_or_template) {
    DialogRecorder dialogs;
    Call call;
    call.flags = 0x3F000 | 0x800;
    call.Run();
    EXPECT_EQ(dialogs.print.flags, 0x20 | 0x800);
    Call other;
    other.PrintRange = Range::PageNumbers;
    other.DisablePageNumbers = other.DisableSelection = other.DisablePrintToFile = true;
    other.Collate = other.PreventWarning = true;
    other.ShowPrintToFile = other.PrintToFile = false;
    other.Run();
    EXPECT_EQ(dialogs.print.flags, 0x2 | 0x4 | 0x8 | 0x10 | 0x80 | 0x80000 | 0x100000);
}

TEST(VBPrintDlg, pages_and_copies_are_brought_into_what_there_is) {
    DialogRecorder dialogs;
    Call call;
    call.FromPage = 0;
    call.ToPage = -5;
    call.Copies = 0;
    call.Run();
    EXPECT_EQ(dialogs.print.fromPage, 1);
    EXPECT_EQ(dialogs.print.toPage, 1);
    EXPECT_EQ(dialogs.print.printer.copies, 1);
    call.FromPage = 70000;
    call.Run();
    EXPECT_EQ(dialogs.print.fromPage, 65535);
    EXPECT_EQ(dialogs.print.toPage, 65535);
    EXPECT_EQ(call.FromPage, 70000) << "stays after a cancel";
}

TEST(VBPrintDlg, a_printer_that_prints_into_a_file_stays_the_device) {
    const Printers printers({QStringLiteral("Ink"), QStringLiteral("Laser")});
    DialogRecorder dialogs;
    dialogs.printAnswer.result = 1;
    dialogs.printAnswer.flags = 0x20;
    dialogs.printAnswer.printer = DefaultPrinter();
    dialogs.printAnswer.printer.deviceName = QStringLiteral("Laser");
    dialogs.printAnswer.printer.file = QStringLiteral("FILE:");  // Windows asks for it at the end
    CDLG dialog;
    Call call;
    QPrinter printer;
    call.Printer = &printer;
    EXPECT_TRUE(call.Run(dialog));
    EXPECT_TRUE(call.PrintToFile);
    EXPECT_EQ(printer.printerName(), QStringLiteral("Laser"));
    EXPECT_EQ(printer.outputFormat(), QPrinter::NativeFormat);
    EXPECT_EQ(printer.outputFileName(), QStringLiteral("FILE:"));
    EXPECT_TRUE(call.Run(dialog));
    EXPECT_EQ(dialogs.print.printer.deviceName, QStringLiteral("Laser"));
}

TEST(VBPrintDlg, a_print_into_a_file_leaves_the_printer_to_the_next_call) {
    const Printers printers({QStringLiteral("Ink"), QStringLiteral("Laser")});
    DialogRecorder dialogs;
    dialogs.printAnswer.result = 1;
    dialogs.printAnswer.printer = DefaultPrinter();
    dialogs.printAnswer.printer.deviceName = QStringLiteral("Laser");
    dialogs.printAnswer.printer.sides = QPrinter::DuplexLongSide;
    CDLG dialog;
    Call call;
    QPrinter printer;
    call.Printer = &printer;
    EXPECT_TRUE(call.Run(dialog));
    dialogs.printAnswer.printer.deviceName.clear();
    dialogs.printAnswer.printer.sides = QPrinter::DuplexNone;
    dialogs.printAnswer.printer.file = QStringLiteral("/somewhere/a.pdf");
    EXPECT_TRUE(call.Run(dialog));
    EXPECT_EQ(printer.outputFormat(), QPrinter::PdfFormat);
    EXPECT_EQ(printer.duplex(), QPrinter::DuplexNone);
    EXPECT_TRUE(call.Run(dialog));
    EXPECT_EQ(dialogs.print.printer.deviceName, QStringLiteral("Laser"));
    EXPECT_EQ(dialogs.print.printer.sides, QPrinter::DuplexLongSide);
    EXPECT_EQ(dialogs.print.printer.file, QStringLiteral("/somewhere/a.pdf"));
}

TEST(VBPrintDlg, a_cancelled_call_leaves_nothing_to_the_next_one) {
    DialogRecorder dialogs;
    dialogs.printAnswer.printer.copies = 7;
    dialogs.printAnswer.printer.deviceName = QStringLiteral("Laser");
    CDLG dialog;
    Call call;
    EXPECT_FALSE(call.Run(dialog));
    const PrinterState first = dialogs.print.printer;
    EXPECT_FALSE(call.Run(dialog));
    EXPECT_EQ(dialogs.print.printer.deviceName, first.deviceName);
    EXPECT_EQ(dialogs.print.printer.layout, first.layout);
    EXPECT_EQ(dialogs.print.printer.printQuality, first.printQuality);
}

TEST(VBPrintDlg, a_failure_tells_its_reason_where_the_result_is_neither_0_nor_1) {
    DialogRecorder dialogs;
    dialogs.printAnswer.result = 2;
    dialogs.printAnswer.error = 0x1006;
    CDLG dialog;
    Call call;
    EXPECT_FALSE(call.Run(dialog));
    EXPECT_EQ(dialog.ExtendedError(), 0x1006);
}

}  // namespace tavel::test
