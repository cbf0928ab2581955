#include "ui/support/Margins.h"
#include "ui/support/Modal.h"
#include "ui/support/PageSetupCall.h"
#include "ui/support/Printers.h"
#include "ui/support/Windows.h"

#include <gtest/gtest.h>

#include <QComboBox>
#include <QPrinter>
#include <QRadioButton>

// The box that Qt has of its own, where there is a printer.

namespace tavel::test {

namespace {

using Call = PageSetupCall;

}  // namespace

TEST(VBPageSetupDlg2, where_there_is_a_printer_the_box_begins_with_the_given_page_too) {
    const Printers printers({QStringLiteral("Ink")});
    Call call;
    call.PaperSize = 8;  // A3
    call.Orientation = 2;
    call.MinTopMargin = 15;
    ConfirmNext([](QWidget& box) {
        EXPECT_EQ(Find<QComboBox>(box, "pageSizeCombo").currentText(), QStringLiteral("A3"));
        EXPECT_TRUE(Find<QRadioButton>(box, "landscape").isChecked());
        EXPECT_EQ(Margin(box, "leftMargin").value(), 20);
        EXPECT_EQ(Margin(box, "bottomMargin").value(), 23);
        EXPECT_EQ(Margin(box, "topMargin").minimum(), 15);
    });
    EXPECT_TRUE(call.Run());
    EXPECT_EQ(call.PaperSize, 8);
    EXPECT_EQ(call.Orientation, 2);
    EXPECT_DOUBLE_EQ(call.LeftMargin, 20);
    EXPECT_DOUBLE_EQ(call.RightMargin, 21);
    EXPECT_DOUBLE_EQ(call.TopMargin, 22);
    EXPECT_DOUBLE_EQ(call.BottomMargin, 23);
}

TEST(VBPageSetupDlg2, a_paper_that_the_printer_has_not_is_the_printers_own) {
    const Printers printers({QStringLiteral("Ink")});
    Call call;
    call.PaperSize = 1;  // Letter
    ConfirmNext();
    EXPECT_TRUE(call.Run());
    EXPECT_EQ(call.PaperSize, 9);
    EXPECT_DOUBLE_EQ(call.LeftMargin, 20);
    EXPECT_DOUBLE_EQ(call.BottomMargin, 23);
}

TEST(VBPageSetupDlg2, a_page_with_the_smallest_margins_of_its_printer_is_taken) {
    const Printers printers({QStringLiteral("Ink")});
    Call call;
    QPrinter printer;
    call.Printer = &printer;
    call.PaperSize = 8;  // A3
    call.Orientation = 2;
    call.LeftMargin = call.RightMargin = call.TopMargin = call.BottomMargin = 0;
    ConfirmNext([](QWidget& box) {
        EXPECT_TRUE(Find<QRadioButton>(box, "landscape").isChecked());
        EXPECT_EQ(Margin(box, "leftMargin").value(), 4.32);
        TypeMargin(box, "rightMargin", "10");
    });
    EXPECT_TRUE(call.Run());
    EXPECT_EQ(call.PaperSize, 8);
    EXPECT_EQ(call.Orientation, 2);
    EXPECT_DOUBLE_EQ(call.LeftMargin, 4.32);
    EXPECT_DOUBLE_EQ(call.RightMargin, 10);
    EXPECT_EQ(printer.pageLayout().pageSize().id(), QPageSize::A3);
    EXPECT_EQ(printer.pageLayout().orientation(), QPageLayout::Landscape);
}

TEST(VBPageSetupDlg2, each_paper_has_the_smallest_margins_of_the_printer_for_it) {
    const Printers printers({QStringLiteral("Ink")});
    CDLG dialog;
    Call call;
    call.LeftMargin = call.RightMargin = call.TopMargin = call.BottomMargin = 5;
    ConfirmNext([](QWidget& box) {
        EXPECT_EQ(Margin(box, "leftMargin").minimum(), 4.32);
        QTest::keyClicks(&Find(box, "pageSizeCombo"), QStringLiteral("Envelope"));
        EXPECT_EQ(Margin(box, "leftMargin").value(), 14.99);
        EXPECT_EQ(Margin(box, "bottomMargin").value(), 14.99);
    });
    EXPECT_TRUE(call.Run(dialog));
    EXPECT_EQ(call.PaperSize, 20);
    EXPECT_DOUBLE_EQ(call.LeftMargin, 14.99);

    call.PaperSize = 9;
    call.LeftMargin = 6;
    ConfirmNext();
    EXPECT_TRUE(call.Run(dialog));
    EXPECT_DOUBLE_EQ(call.LeftMargin, 6) << "those of the paper before are no longer in the way";
}

TEST(VBPageSetupDlg2, a_margin_comes_back_as_it_is_shown_on_another_paper) {
    const Printers printers({QStringLiteral("Ink")});
    struct Case {
        Long paper;
        double requested;
        const char* chosen;
        double shown;
    };
    for (const Case& one : {Case{20, 5, "A4", 14.99},     // the least of an Envelope 10
                            Case{66, 280, "A3", 210}}) {  // A2, for which it has A4
        Call call;
        call.PaperSize = one.paper;
        call.LeftMargin = one.requested;
        ConfirmNext([&one](QWidget& box) {
            auto& papers = Find<QComboBox>(box, "pageSizeCombo");
            papers.setCurrentIndex(papers.findText(QLatin1String(one.chosen)));
            EXPECT_DOUBLE_EQ(Margin(box, "leftMargin").value(), one.shown);
        });
        EXPECT_TRUE(call.Run());
        EXPECT_DOUBLE_EQ(call.LeftMargin, one.shown);
    }
}

TEST(VBPageSetupDlg2, minimums_that_a_printer_does_not_reach_are_the_printers_own_in_the_end) {
    const Printers printers({QStringLiteral("Ink")});
    Call call;
    call.LeftMargin = call.MinLeftMargin = 1;
    call.Orientation = 2;
    ConfirmNext([](QWidget& box) { EXPECT_EQ(Margin(box, "leftMargin").minimum(), 1); });
    EXPECT_TRUE(call.Run());
    EXPECT_DOUBLE_EQ(call.LeftMargin, 4.32);
    EXPECT_DOUBLE_EQ(call.TopMargin, 22);
    EXPECT_EQ(call.Orientation, 2);
}

TEST(VBPageSetupDlg2, a_paper_is_found_by_its_size_where_the_printer_has_a_name_of_its_own_for_it) {
    const Printers printers({QStringLiteral("Ink")});
    Call call;
    call.PaperSize = 11;
    ConfirmNext([](QWidget& box) {
        EXPECT_EQ(Find<QComboBox>(box, "pageSizeCombo").currentText(), QStringLiteral("ISO A5"));
    });
    EXPECT_TRUE(call.Run());
    EXPECT_EQ(call.PaperSize, 11);
}

TEST(VBPageSetupDlg2, of_two_papers_of_one_size_the_one_that_was_set_up_is_kept) {
    const Printers printers({QStringLiteral("Ink")});
    CDLG dialog;
    Call call;
    ConfirmNext([](QWidget& box) {
        auto& papers = Find<QComboBox>(box, "pageSizeCombo");
        EXPECT_EQ(papers.currentText(), QStringLiteral("A4"));
        QTest::keyClick(&papers, Qt::Key_End);
        EXPECT_EQ(papers.currentText(), QStringLiteral("A4 without border"));
        TypeMargin(box, "leftMargin", "0");
    });
    EXPECT_TRUE(call.Run(dialog));
    EXPECT_EQ(call.LeftMargin, 0);
    EXPECT_EQ(call.PaperSize, 9);
    for (const Long paper : {0, 9}) {
        call.PaperSize = paper;
        call.LeftMargin = 1;
        ConfirmNext([](QWidget& box) {
            auto& papers = Find<QComboBox>(box, "pageSizeCombo");
            EXPECT_EQ(papers.currentText(), QStringLiteral("A4 without border"));
            QTest::keyClick(&papers, Qt::Key_Home);
            EXPECT_EQ(Margin(box, "leftMargin").value(), 4.32);
            QTest::keyClick(&papers, Qt::Key_End);
            TypeMargin(box, "leftMargin", "1");
        });
        EXPECT_TRUE(call.Run(dialog));
        EXPECT_EQ(call.LeftMargin, 1);
    }
}

}  // namespace tavel::test
