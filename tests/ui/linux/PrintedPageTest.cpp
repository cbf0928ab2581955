#include "ui/support/Margins.h"
#include "ui/support/Modal.h"
#include "ui/support/PageSetupCall.h"
#include "ui/support/PrintCall.h"
#include "ui/support/Printers.h"
#include "ui/support/Windows.h"

#include <gtest/gtest.h>

#include <QComboBox>
#include <QPrintEngine>
#include <QPrinter>
#include <functional>

// The page that a printer gets from the boxes that Qt has of its own, where the system has none.

namespace tavel::test {

namespace {

void SetProperties(QWidget& box, const std::function<void(QWidget&)>& act) {
    WhenModal(act);
    QTest::keyClick(&Find(box, "properties"), Qt::Key_Space);
}

class PrintedPages : public ::testing::Test {
  protected:
    PrintedPages() {
        call.Printer = &printer;
        call.PrintToFile = false;
    }

    // A3 across, with margins from the left around to the bottom.
    void SetUpPage() {
        PageSetupCall page;
        page.PaperSize = 8;
        page.Orientation = 2;
        page.LeftMargin = 20;
        page.TopMargin = 30;
        page.RightMargin = 40;
        page.BottomMargin = 50;
        ConfirmNext();
        ASSERT_TRUE(page.Run(dialog));
    }

    std::string Page() const {
        const QPageLayout page = printer.pageLayout();
        const QMargins margins = page.margins(QPageLayout::Millimeter).toMargins();
        return QStringLiteral("%1 %2, %3 %4 %5 %6")
            .arg(QPageSize::key(page.pageSize().id()), page.orientation() == QPageLayout::Landscape
                                                           ? QStringLiteral("across")
                                                           : QStringLiteral("upright"))
            .arg(margins.left())
            .arg(margins.top())
            .arg(margins.right())
            .arg(margins.bottom())
            .toStdString();
    }

    QPrinter printer;
    CDLG dialog;
    PrintCall call;
};

}  // namespace

TEST_F(PrintedPages, a_printer_has_the_page_of_the_page_setup_before_it) {
    const Printers printers({QStringLiteral("Ink")});
    SetUpPage();
    ConfirmNext();
    EXPECT_TRUE(call.Run(dialog));
    EXPECT_EQ(printer.printerName(), QStringLiteral("Ink"));
    EXPECT_EQ(Page(), "A3 across, 20 30 40 50");
}

TEST_F(PrintedPages, what_the_user_sets_in_the_properties_counts_unless_they_are_cancelled) {
    const Printers printers({QStringLiteral("Ink")});
    SetUpPage();
    ConfirmNext([](QWidget& box) {
        for (int times = 0; times < 2; ++times) {
            SetProperties(box, [](QWidget& properties) {
                EXPECT_EQ(Find<QComboBox>(properties, "pageSizeCombo").currentText(),
                          QStringLiteral("A3"));
                Margin(properties, "topMargin").setValue(35);
                QTest::keyClick(&properties, Qt::Key_Escape);
            });
        }
    });
    EXPECT_TRUE(call.Run(dialog));
    EXPECT_EQ(Page(), "A3 across, 20 30 40 50");

    ConfirmNext([](QWidget& box) {
        SetProperties(box, [](QWidget& properties) {
            EXPECT_EQ(Margin(properties, "topMargin").value(), 30);
            Margin(properties, "topMargin").setValue(35);
            QTest::keyClick(&properties, Qt::Key_Return);
        });
    });
    EXPECT_TRUE(call.Run(dialog));
    EXPECT_EQ(Page(), "A3 across, 20 35 40 50");
}

TEST_F(PrintedPages,
       what_was_set_in_the_properties_stays_when_they_are_opened_again_and_cancelled) {
    const Printers printers({QStringLiteral("Ink")});
    SetUpPage();
    ConfirmNext([](QWidget& box) {
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape}) {
            SetProperties(box, [key](QWidget& properties) {
                Margin(properties, "topMargin").setValue(key == Qt::Key_Return ? 35 : 45);
                QTest::keyClick(&properties, key);
            });
        }
    });
    EXPECT_TRUE(call.Run(dialog));
    EXPECT_EQ(Page(), "A3 across, 20 35 40 50");
}

TEST_F(PrintedPages, properties_count_with_the_smallest_margins_of_the_printer_too) {
    const Printers printers({QStringLiteral("Ink")});
    ConfirmNext([](QWidget& box) {
        SetProperties(box, [](QWidget& properties) {
            EXPECT_EQ(Margin(properties, "topMargin").value(), 4.32);
            QTest::keyClicks(&Find(properties, "pageSizeCombo"), QStringLiteral("Envelope"));
            QTest::keyClick(&Find(properties, "landscape"), Qt::Key_Space);
            QTest::keyClick(&properties, Qt::Key_Return);
        });
    });
    EXPECT_TRUE(call.Run(dialog));
    EXPECT_EQ(Page(), "Env10 across, 15 15 15 15");
}

TEST_F(PrintedPages, what_a_print_server_is_told_beside_the_page_reaches_the_printer) {
    const Printers printers({QStringLiteral("Ink")});
    ConfirmNext([](QWidget& box) {
        SetProperties(box, [](QWidget& properties) {
            auto& sheet = Find<QComboBox>(properties, "pagesPerSheetCombo");
            QTest::keyClick(&sheet, Qt::Key_Down);
            EXPECT_EQ(sheet.currentText(), QStringLiteral("2 (2x1)"));
            QTest::keyClick(&properties, Qt::Key_Return);
        });
    });
    EXPECT_TRUE(call.Run(dialog));
    constexpr auto jobOptions = static_cast<QPrintEngine::PrintEnginePropertyKey>(0xFE00);
    const QStringList told = printer.printEngine()->property(jobOptions).toStringList();
    EXPECT_EQ(told.value(told.indexOf(QStringLiteral("number-up")) + 1), QStringLiteral("2"));
}

TEST_F(PrintedPages, another_printer_prints_the_page_within_its_own_margins) {
    const Printers printers({QStringLiteral("Ink"), QStringLiteral("Laser")});
    PageSetupCall page;
    page.PaperSize = 8;
    page.Orientation = 2;
    page.PrintQuality = 300;
    page.LeftMargin = 5;
    ConfirmNext();
    ASSERT_TRUE(page.Run(dialog));
    call.Copies = 3;
    ConfirmNext([](QWidget& box) { QTest::keyClick(&Find(box, "printers"), Qt::Key_Down); });
    EXPECT_TRUE(call.Run(dialog));
    EXPECT_EQ(printer.printerName(), QStringLiteral("Laser"));
    EXPECT_EQ(Page(), "A3 across, 15 22 21 23");
    EXPECT_EQ(printer.resolution(), 300);
    EXPECT_EQ(printer.copyCount(), 3);
}

TEST_F(PrintedPages, a_paper_of_any_size_goes_to_the_printers_that_can_have_it) {
    const Printers printers({QStringLiteral("Photo"), QStringLiteral("Ink")});
    PageSetupCall page;
    ConfirmNext([](QWidget& box) {
        auto& papers = Find<QComboBox>(box, "pageSizeCombo");
        papers.setCurrentIndex(papers.findText(QStringLiteral("Custom")));
        Find<QDoubleSpinBox>(box, "pageWidth").setValue(150);
        Find<QDoubleSpinBox>(box, "pageHeight").setValue(200);
    });
    ASSERT_TRUE(page.Run(dialog));
    ConfirmNext();
    EXPECT_TRUE(call.Run(dialog));
    EXPECT_EQ(printer.pageLayout().fullRect(QPageLayout::Millimeter).size(), QSizeF(150, 200));
    ConfirmNext([](QWidget& box) { QTest::keyClick(&Find(box, "printers"), Qt::Key_Down); });
    EXPECT_TRUE(call.Run(dialog));
    EXPECT_EQ(printer.printerName(), QStringLiteral("Ink"));
    EXPECT_EQ(Page(), "A4 upright, 20 22 21 23");
}

TEST_F(PrintedPages, properties_that_were_set_for_another_printer_are_left) {
    const Printers printers({QStringLiteral("Ink"), QStringLiteral("Laser")});
    SetUpPage();
    ConfirmNext([](QWidget& box) {
        SetProperties(box, [](QWidget& properties) {
            Margin(properties, "topMargin").setValue(35);
            QTest::keyClick(&properties, Qt::Key_Return);
        });
        QTest::keyClick(&Find(box, "printers"), Qt::Key_Down);
    });
    EXPECT_TRUE(call.Run(dialog));
    EXPECT_EQ(printer.printerName(), QStringLiteral("Laser"));
    EXPECT_EQ(Page(), "A3 across, 20 30 40 50");
}

}  // namespace tavel::test
