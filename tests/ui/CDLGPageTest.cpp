#include "ui/support/DialogRecorder.h"
#include "ui/support/Modal.h"
#include "ui/support/Printers.h"
#include "ui/support/Windows.h"
#include "ui/toolkit/dialogs/CDLG.h"

#include <gtest/gtest.h>

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QPrinter>
#include <QRadioButton>
#include <limits>

namespace tavel::test {

namespace {

using PageUnits = CDLG::PageUnits;

// One call, each of whose arguments a test may change.
template <class Margin>
struct CallWith {
    bool DisableMargins = false;
    bool DisableOrientation = false;
    bool DisablePaper = false;
    bool DisablePrinter = false;
    Margin LeftMargin = 20, MinLeftMargin = 0;
    Margin RightMargin = 21, MinRightMargin = 0;
    Margin TopMargin = 22, MinTopMargin = 0;
    Margin BottomMargin = 23, MinBottomMargin = 0;
    Long PaperSize = 9;
    Long Orientation = 1;
    Long PrintQuality = 600;
    PageUnits Units = PageUnits::Millimeters;
    QPrinter* Printer = nullptr;
    QWidget* Owner = nullptr;
    Long flags = 0;
};

struct Call : CallWith<double> {
    bool Run(CDLG& dialog) {
        return dialog.VBPageSetupDlg2(
            DisableMargins, DisableOrientation, DisablePaper, DisablePrinter, LeftMargin,
            MinLeftMargin, RightMargin, MinRightMargin, TopMargin, MinTopMargin, BottomMargin,
            MinBottomMargin, PaperSize, Orientation, PrintQuality, Units, Printer, Owner, flags);
    }
    bool Run() {
        CDLG dialog;
        return Run(dialog);
    }
};

struct WholeCall : CallWith<Long> {
    bool Run() {
        return CDLG().VBPageSetupDlg(
            DisableMargins, DisableOrientation, DisablePaper, DisablePrinter, LeftMargin,
            MinLeftMargin, RightMargin, MinRightMargin, TopMargin, MinTopMargin, BottomMargin,
            MinBottomMargin, PaperSize, Orientation, PrintQuality, Units, Printer, Owner, flags);
    }
};

QDoubleSpinBox& Margin(QWidget& box, const char* name) { return Find<QDoubleSpinBox>(box, name); }

void TypeMargin(QWidget& box, const char* name, const char* value) {
    auto& edit = *Margin(box, name).findChild<QLineEdit*>();
    edit.selectAll();
    QTest::keyClicks(&edit, QLatin1String(value));
    QTest::keyClick(&edit, Qt::Key_Tab);
}

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

TEST(VBPageSetupDlg2, what_the_user_sets_comes_back) {
    Call call;
    QPrinter printer;
    call.Printer = &printer;
    ConfirmNext([](QWidget& box) {
        EXPECT_EQ(Margin(box, "leftMargin").value(), 20);
        EXPECT_EQ(Margin(box, "rightMargin").value(), 21);
        EXPECT_EQ(Margin(box, "topMargin").value(), 22);
        EXPECT_EQ(Margin(box, "bottomMargin").value(), 23);
        EXPECT_TRUE(Find<QRadioButton>(box, "portrait").isChecked());
        TypeMargin(box, "leftMargin", "30.5");
        TypeMargin(box, "topMargin", "31");
        auto& paper = Find<QComboBox>(box, "pageSizeCombo");
        EXPECT_EQ(paper.currentText(), QStringLiteral("A4"));
        for (int i = 0; i < paper.count() && paper.currentText() != QLatin1String("A3"); ++i)
            QTest::keyClick(&paper, i == 0 ? Qt::Key_Home : Qt::Key_Down);
        QTest::keyClick(&Find(box, "landscape"), Qt::Key_Space);
    });
    CDLG dialog;
    EXPECT_TRUE(call.Run(dialog));
    EXPECT_EQ(dialog.APIReturn(), 1);
    EXPECT_EQ(call.PaperSize, 8);
    EXPECT_EQ(call.Orientation, 2);
    EXPECT_EQ(call.PrintQuality, 600);
    EXPECT_DOUBLE_EQ(call.LeftMargin, 30.5);
    EXPECT_DOUBLE_EQ(call.RightMargin, 21);
    EXPECT_DOUBLE_EQ(call.TopMargin, 31);
    EXPECT_DOUBLE_EQ(call.BottomMargin, 23);

    EXPECT_EQ(printer.pageLayout().pageSize().id(), QPageSize::A3);
    EXPECT_EQ(printer.pageLayout().orientation(), QPageLayout::Landscape);
    EXPECT_EQ(printer.pageLayout().margins(QPageLayout::Millimeter), QMarginsF(30.5, 31, 21, 23));
    EXPECT_EQ(printer.resolution(), 600);
}

TEST(VBPageSetupDlg2, margins_are_in_the_given_units) {
    Call call;
    call.Units = PageUnits::Inches;
    call.LeftMargin = call.RightMargin = call.TopMargin = call.BottomMargin = 1.25;
    ConfirmNext([](QWidget& box) {
        EXPECT_EQ(Margin(box, "leftMargin").value(), 1.25);
        EXPECT_EQ(Margin(box, "leftMargin").suffix(), QStringLiteral("in"));
        EXPECT_EQ(Find<QComboBox>(box, "unitCombo").currentText(), QStringLiteral("Inches (in)"));
        TypeMargin(box, "leftMargin", "0.75");
    });
    EXPECT_TRUE(call.Run());
    EXPECT_DOUBLE_EQ(call.LeftMargin, 0.75);
    EXPECT_DOUBLE_EQ(call.RightMargin, 1.25);
}

TEST(VBPageSetupDlg2, margins_come_back_in_the_given_units_whatever_the_user_looks_at) {
    Call call;
    ConfirmNext([](QWidget& box) {
        auto& units = Find<QComboBox>(box, "unitCombo");
        QTest::keyClicks(&units, QStringLiteral("Inches"));
        TypeMargin(box, "leftMargin", "1");
    });
    EXPECT_TRUE(call.Run());
    EXPECT_NEAR(call.LeftMargin, 25.4, 0.01);
}

TEST(VBPageSetupDlg2, no_margin_can_be_set_below_its_minimum) {
    Call call;
    call.LeftMargin = 5;
    call.MinLeftMargin = 10;
    call.MinTopMargin = 15;
    ConfirmNext([](QWidget& box) {
        EXPECT_EQ(Margin(box, "leftMargin").value(), 10) << "begins at it";
        TypeMargin(box, "topMargin", "3");
        EXPECT_GE(Margin(box, "topMargin").value(), 15);
        TypeMargin(box, "leftMargin", "11");
    });
    CDLG dialog;
    EXPECT_TRUE(call.Run(dialog));
    EXPECT_DOUBLE_EQ(call.LeftMargin, 11);
    EXPECT_GE(call.TopMargin, 15);

    call.MinLeftMargin = call.MinTopMargin = 0;
    call.LeftMargin = 1;
    CancelNext([](QWidget& box) {
        EXPECT_EQ(Margin(box, "leftMargin").value(), 1) << "minimums are of one call";
    });
    EXPECT_FALSE(call.Run(dialog));
}

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

TEST(VBPageSetupDlg2, minimums_that_leave_nothing_of_the_page_are_the_printers_own) {
    DialogRecorder dialogs;
    Call call;
    call.Run();
    const QMarginsF own = dialogs.page.printer.layout.minimumMargins();
    for (double Call::*minimum : {&Call::MinLeftMargin, &Call::MinTopMargin}) {
        for (const double size : {500.0, std::numeric_limits<double>::infinity()}) {
            Call large;
            large.*minimum = size;
            large.Run();
            EXPECT_EQ(dialogs.page.printer.layout.minimumMargins(), own);
            EXPECT_EQ(dialogs.page.printer.layout.margins(), QMarginsF(20, 22, 21, 23));
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
    EXPECT_EQ(dialogs.page.printer.layout.margins(), QMarginsF(210, 7, 21, 23));
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

TEST(VBPageSetupDlg2, what_is_0_is_as_at_the_last_call) {
    CDLG dialog;
    Call call;
    call.PaperSize = 8;
    call.Orientation = 2;
    ConfirmNext();
    EXPECT_TRUE(call.Run(dialog));
    Call again;
    again.PaperSize = again.Orientation = again.PrintQuality = 0;
    again.LeftMargin = again.RightMargin = again.TopMargin = again.BottomMargin = 0;
    ConfirmNext();
    EXPECT_TRUE(again.Run(dialog));
    EXPECT_EQ(again.PaperSize, 8);
    EXPECT_EQ(again.Orientation, 2);
    EXPECT_EQ(again.PrintQuality, 600);
    EXPECT_DOUBLE_EQ(again.LeftMargin, 20);
    EXPECT_DOUBLE_EQ(again.BottomMargin, 23);

    again.PaperSize = 100000;
    again.Orientation = 7;
    again.PrintQuality = -4;
    ConfirmNext();
    EXPECT_TRUE(again.Run(dialog)) << "numbers that stand for nothing";
    EXPECT_EQ(again.PaperSize, 8);
    EXPECT_EQ(again.Orientation, 2);
    EXPECT_EQ(again.PrintQuality, 600);
}

TEST(VBPageSetupDlg2, margins_of_the_last_call_come_in_the_units_of_this_one) {
    CDLG dialog;
    Call call;
    call.LeftMargin = 25.4;
    ConfirmNext();
    EXPECT_TRUE(call.Run(dialog));
    call.LeftMargin = call.RightMargin = call.TopMargin = call.BottomMargin = 0;
    call.Units = PageUnits::Inches;
    ConfirmNext();
    EXPECT_TRUE(call.Run(dialog));
    EXPECT_NEAR(call.LeftMargin, 1, 0.01);
}

TEST(VBPageSetupDlg2, a_cancelled_call_leaves_nothing_to_the_next_one) {
    CDLG dialog;
    Call call;
    ConfirmNext();
    EXPECT_TRUE(call.Run(dialog));
    call.PaperSize = 8;
    call.Orientation = 2;
    call.PrintQuality = 1200;
    CancelNext();
    EXPECT_FALSE(call.Run(dialog));
    call.PaperSize = call.Orientation = call.PrintQuality = 0;
    ConfirmNext();
    EXPECT_TRUE(call.Run(dialog));
    EXPECT_EQ(call.PaperSize, 9);
    EXPECT_EQ(call.Orientation, 1);
    EXPECT_EQ(call.PrintQuality, 600);
}

TEST(VBPageSetupDlg2, a_quality_beyond_32767_is_brought_down_to_it) {
    for (const Long quality : {32767, 32768, std::numeric_limits<Long>::max()}) {
        Call call;
        QPrinter printer;
        call.Printer = &printer;
        call.PrintQuality = quality;
        ConfirmNext();
        EXPECT_TRUE(call.Run());
        EXPECT_EQ(call.PrintQuality, 32767);
        EXPECT_NEAR(printer.pageLayout().fullRectPixels(printer.resolution()).width(),
                    32767 * 210 / 25.4, 32767);
    }
}

TEST(VBPageSetupDlg2, several_pages_on_a_sheet_are_not_offered) {
    const Printers printers({QStringLiteral("Ink")});
    Call call;
    CancelNext(
        [](QWidget& box) { EXPECT_FALSE(Find(box, "pagesPerSheetButtonGroup").isVisible()); });
    EXPECT_FALSE(call.Run());
}

TEST(VBPageSetupDlg2, another_paper_keeps_the_smallest_margins_of_the_printer) {
    DialogRecorder dialogs;
    PrinterState printer;
    printer.layout = QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait, {20, 20, 20, 20},
                                 QPageLayout::Millimeter, {5, 6, 7, 8});
    CDLG dialog;
    PrintBefore(dialog, dialogs, printer);
    Call call;
    call.PaperSize = 8;
    call.Run(dialog);
    EXPECT_EQ(dialogs.page.printer.layout.pageSize().id(), QPageSize::A3);
    EXPECT_EQ(dialogs.page.printer.layout.minimumMargins(), QMarginsF(5, 6, 7, 8));
}

TEST(VBPageSetupDlg2, a_paper_of_no_number_is_0) {
    DialogRecorder dialogs;
    dialogs.pageAnswer.result = 1;
    dialogs.pageAnswer.printer.layout.setPageSize(QPageSize(QPageSize::A10));
    Call call;
    EXPECT_TRUE(call.Run());
    EXPECT_EQ(call.PaperSize, 0);
}

TEST(VBPageSetupDlg2, a_cancel_leaves_everything_as_it_is) {
    CDLG dialog;
    Call call;
    QPrinter printer;
    call.Printer = &printer;
    const QPageLayout before = printer.pageLayout();
    CancelNext([](QWidget& box) {
        TypeMargin(box, "leftMargin", "30");
        QTest::keyClick(&Find(box, "landscape"), Qt::Key_Space);
    });
    EXPECT_FALSE(call.Run(dialog));
    EXPECT_EQ(call.LeftMargin, 20);
    EXPECT_EQ(call.Orientation, 1);
    EXPECT_EQ(call.PaperSize, 9);
    EXPECT_EQ(printer.pageLayout(), before);
    EXPECT_EQ(dialog.APIReturn(), 0);
}

TEST(VBPageSetupDlg2, what_is_disabled_cannot_be_set) {
    struct Case {
        bool Call::*disable;
        const char* control;
    };
    for (const Case& one :
         {Case{&Call::DisableMargins, "leftMargin"}, Case{&Call::DisableOrientation, "landscape"},
          Case{&Call::DisablePaper, "pageSizeCombo"}}) {
        Call call;
        call.*one.disable = true;
        ConfirmNext([&one](QWidget& box) {
            for (const char* control : {"leftMargin", "landscape", "pageSizeCombo"}) {
                EXPECT_EQ(Find(box, control).isEnabled(), control != std::string(one.control))
                    << control;
            }
        });
        EXPECT_TRUE(call.Run());
        EXPECT_EQ(call.LeftMargin, 20);
        EXPECT_EQ(call.PaperSize, 9);
    }
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

TEST(VBPageSetupDlg2, the_box_belongs_to_its_owner_and_outlives_it) {
    Call call;
    ExpectCancelWithItsOwner(call);
}

TEST(VBPageSetupDlg, margins_are_whole_and_rounded_to_nearest_with_halves_to_even) {
    WholeCall call;
    call.MinTopMargin = 10;
    ConfirmNext([](QWidget& box) {
        EXPECT_EQ(Margin(box, "topMargin").value(), 22);
        TypeMargin(box, "leftMargin", "30.5");
        TypeMargin(box, "rightMargin", "31.5");
        TypeMargin(box, "bottomMargin", "12.7");
        TypeMargin(box, "topMargin", "3");
    });
    EXPECT_TRUE(call.Run());
    EXPECT_EQ(call.LeftMargin, 30);
    EXPECT_EQ(call.RightMargin, 32);
    EXPECT_EQ(call.BottomMargin, 13);
    EXPECT_GE(call.TopMargin, 10);
    EXPECT_EQ(call.PaperSize, 9);
    CancelNext();
    call.LeftMargin = 17;
    EXPECT_FALSE(call.Run());
    EXPECT_EQ(call.LeftMargin, 17);
}

TEST(VBPageSetupDlg, everything_is_passed_on) {
    DialogRecorder dialogs;
    QWidget owner;
    WholeCall call;
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
    EXPECT_EQ(dialogs.page.flags, 0x4 | 0x10 | 0x200 | 0x80);
    EXPECT_EQ(layout.units(), QPageLayout::Inch);
    EXPECT_EQ(layout.margins(), QMarginsF(1, 3, 2, 4));
    EXPECT_EQ(layout.minimumMargins(), QMarginsF(1, 1, 2, 1));
    EXPECT_EQ(layout.pageSize().id(), QPageSize::A3);
    EXPECT_EQ(layout.orientation(), QPageLayout::Landscape);
    EXPECT_EQ(dialogs.page.printer.printQuality, 300);

    call.DisableMargins = call.DisablePaper = false;
    call.DisableOrientation = call.DisablePrinter = true;
    call.Run();
    EXPECT_EQ(dialogs.page.flags, 0x4 | 0x100 | 0x20 | 0x80);

    QPrinter printer;
    call.Printer = &printer;
    dialogs.pageAnswer.result = 1;
    dialogs.pageAnswer.printer = dialogs.page.printer;
    EXPECT_TRUE(call.Run());
    EXPECT_EQ(printer.resolution(), 300);
    EXPECT_EQ(printer.pageLayout().pageSize().id(), QPageSize::A3);
}

}  // namespace tavel::test
