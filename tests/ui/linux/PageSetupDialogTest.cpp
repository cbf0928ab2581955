#include "ui/support/Margins.h"
#include "ui/support/Modal.h"
#include "ui/support/PageSetupCall.h"
#include "ui/support/Printers.h"
#include "ui/support/Windows.h"

#include <gtest/gtest.h>

#include <QComboBox>
#include <QDialog>
#include <QPrinter>
#include <QRadioButton>
#include <algorithm>
#include <limits>

// The box that Qt has of its own, where the system has none.

namespace tavel::test {

namespace {

using Call = PageSetupCall;

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

TEST(VBPageSetupDlg2, minimums_hold_on_another_paper_and_in_other_units) {
    Call call;
    call.MinTopMargin = 15;
    ConfirmNext([](QWidget& box) {
        auto& paper = Find<QComboBox>(box, "pageSizeCombo");
        QTest::keyClick(&paper, Qt::Key_Home);
        ASSERT_NE(paper.currentText(), QStringLiteral("A4"));
        TypeMargin(box, "topMargin", "3");
        EXPECT_GE(Margin(box, "topMargin").value(), 15);
        QTest::keyClick(&Find(box, "landscape"), Qt::Key_Space);
        TypeMargin(box, "topMargin", "4");
        EXPECT_GE(Margin(box, "topMargin").value(), 15);
        QTest::keyClick(&Find(box, "unitCombo"), Qt::Key_Down);
        TypeMargin(box, "topMargin", "0.3");
        EXPECT_NEAR(Margin(box, "topMargin").minimum(), 15 / 25.4, 0.005);
    });
    EXPECT_TRUE(call.Run());
    EXPECT_GE(call.TopMargin, 14.9);
}

TEST(VBPageSetupDlg2, minimums_count_on_the_papers_of_which_they_leave_something) {
    struct Case {
        Long begins;
        const char* chosen;
        double least;
    };
    constexpr double wide = 80;  // twice that is wider than an A5
    for (const Case& one : {Case{9, "A5", 0}, Case{11, "A4", wide}}) {
        Call call;
        call.PaperSize = one.begins;
        call.MinLeftMargin = call.MinRightMargin = wide;
        ConfirmNext([&one](QWidget& box) {
            auto& papers = Find<QComboBox>(box, "pageSizeCombo");
            papers.setCurrentIndex(papers.findText(QLatin1String(one.chosen)));
            EXPECT_EQ(Margin(box, "leftMargin").minimum(), one.least);
            TypeMargin(box, "rightMargin", "10");
            TypeMargin(box, "leftMargin", "10");
        });
        EXPECT_TRUE(call.Run());
        EXPECT_EQ(call.LeftMargin, std::max(one.least, 10.0)) << one.chosen;
        EXPECT_EQ(call.RightMargin, std::max(one.least, 10.0)) << one.chosen;
    }
}

TEST(VBPageSetupDlg2, an_owner_that_goes_as_the_box_is_confirmed_cancels_it) {
    auto* owner = new QWidget;
    Call call;
    call.Owner = owner;
    WhenModal([owner](QWidget& box) {
        QObject::connect(&static_cast<QDialog&>(box), &QDialog::accepted,
                         [owner] { delete owner; });
        QTest::keyClick(&box, Qt::Key_Return);
    });
    EXPECT_FALSE(call.Run());
}

TEST(VBPageSetupDlg2, a_margin_that_reads_as_requested_keeps_what_lies_below_a_hundredth) {
    Call call;
    call.Units = PageUnits::Inches;
    call.LeftMargin = 0.125;
    call.RightMargin = 0.375;
    call.TopMargin = 0.625;
    call.BottomMargin = 0.875;
    ConfirmNext([](QWidget& box) { TypeMargin(box, "topMargin", "1"); });
    EXPECT_TRUE(call.Run());
    EXPECT_DOUBLE_EQ(call.LeftMargin, 0.125);
    EXPECT_DOUBLE_EQ(call.RightMargin, 0.375);
    EXPECT_DOUBLE_EQ(call.TopMargin, 1);
    EXPECT_DOUBLE_EQ(call.BottomMargin, 0.875);
}

TEST(VBPageSetupDlg2, an_owner_may_go_once_the_box_is_confirmed) {
    auto* owner = new QWidget;
    Call call;
    call.Owner = owner;
    WhenModal([owner](QWidget& box) {
        QMetaObject::invokeMethod(
            qApp, [owner] { delete owner; }, Qt::QueuedConnection);
        QTest::keyClick(&box, Qt::Key_Return);
    });
    EXPECT_TRUE(call.Run());
    EXPECT_EQ(call.LeftMargin, 20);
    RunEvents();
}

TEST(VBPageSetupDlg2, a_paper_of_any_size_is_kept) {
    for (const QStringList& names : {QStringList(), QStringList(QStringLiteral("Photo"))}) {
        const Printers printers(names);
        CDLG dialog;
        Call call;
        call.Orientation = 2;
        call.MinTopMargin = 15;
        ConfirmNext([](QWidget& box) {
            auto& papers = Find<QComboBox>(box, "pageSizeCombo");
            papers.setCurrentIndex(papers.findText(QStringLiteral("Custom")));
            Margin(box, "pageWidth").setValue(200);
            Margin(box, "pageHeight").setValue(150);
            EXPECT_EQ(Margin(box, "topMargin").minimum(), 15);
        });
        EXPECT_TRUE(call.Run(dialog));
        EXPECT_EQ(call.PaperSize, 256) << "the setting's number for the user's own";

        QPrinter printer;
        call.Printer = &printer;
        call.PaperSize = call.Orientation = 0;
        ConfirmNext([](QWidget& box) {
            EXPECT_EQ(Find<QComboBox>(box, "pageSizeCombo").currentText(),
                      QStringLiteral("Custom"));
            EXPECT_EQ(Margin(box, "pageWidth").value(), 200);
            EXPECT_EQ(Margin(box, "pageHeight").value(), 150);
        });
        EXPECT_TRUE(call.Run(dialog));
        EXPECT_EQ(printer.pageLayout().fullRect(QPageLayout::Millimeter).size(), QSizeF(200, 150));
    }
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

TEST(VBPageSetupDlg2, the_box_belongs_to_its_owner_and_outlives_it) {
    Call call;
    ExpectCancelWithItsOwner(call);
}

TEST(VBPageSetupDlg, margins_are_whole_and_rounded_to_nearest_with_halves_to_even) {
    WholePageSetupCall call;
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

}  // namespace tavel::test
