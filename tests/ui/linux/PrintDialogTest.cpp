#include "support/Support.h"
#include "ui/support/Modal.h"
#include "ui/support/NoHostBoxes.h"
#include "ui/support/PrintCall.h"
#include "ui/support/Printers.h"
#include "ui/support/PromptQueue.h"
#include "ui/support/Windows.h"
#include "ui/toolkit/Strings.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QLineEdit>
#include <QPainter>
#include <QPrinter>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpression>
#include <QSpinBox>

// The box that Qt has of its own, where the system has none.

namespace tavel::test {

namespace {

using Call = PrintCall;
using Range = CDLG::Range;

void Type(QLineEdit& edit, const QString& text) {
    edit.selectAll();
    QTest::keyClicks(&edit, text);
}

void Type(QWidget& box, const char* spinBox, int value) {
    Type(*Find<QSpinBox>(box, spinBox).findChild<QLineEdit*>(), QString::number(value));
}

void Press(QWidget& box, const char* button) { QTest::keyClick(&Find(box, button), Qt::Key_Space); }

void PrintInto(QWidget& box, const QString& file) {
    auto& name = Find<QLineEdit>(box, "filename");
    Type(name, file);
    QTest::keyClick(&name, Qt::Key_Return);
}

// The sizes of a PDF's pages in points, "width x height".
QStringList PagesOf(const std::string& pdf) {
    static const QRegularExpression box(QStringLiteral(R"(/MediaBox \[0 0 ([\d.]+) ([\d.]+)\])"));
    QStringList pages;
    for (auto match = box.globalMatch(QString::fromLatin1(pdf.data(), qsizetype(pdf.size())));
         match.hasNext();) {
        const QRegularExpressionMatch page = match.next();
        pages << QStringLiteral("%1 x %2")
                     .arg(std::lround(page.captured(1).toDouble()))
                     .arg(std::lround(page.captured(2).toDouble()));
    }
    return pages;
}

class PrintDialogs : public ::testing::Test {
  protected:
    QString File(const char* name) const { return ToQString(folder.HostPath(name)); }

    TempFolder folder;
    QPrinter printer;
    CDLG dialog;
};

}  // namespace

TEST_F(PrintDialogs, a_page_goes_into_the_file_that_is_typed) {
    Call call;
    call.Printer = &printer;
    WhenModal([this](QWidget& box) { PrintInto(box, File("page.pdf")); });
    EXPECT_TRUE(call.Run());
    EXPECT_TRUE(call.PrintToFile);

    QPainter(&printer).drawText(300, 300, QStringLiteral("Tavel"));
    const std::string pdf = folder.Read("page.pdf");
    EXPECT_EQ(pdf.substr(0, 4), "%PDF");
    const QSizeF paper = printer.pageLayout().fullRect(QPageLayout::Point).size();
    EXPECT_EQ(PagesOf(pdf), QStringList(QStringLiteral("%1 x %2")
                                            .arg(std::lround(paper.width()))
                                            .arg(std::lround(paper.height()))));
}

TEST_F(PrintDialogs, a_page_has_the_paper_of_the_page_setup_before_it) {
    double left = 0, right = 0, top = 0, bottom = 0;
    Long paper = 8;  // A3
    Long across = 2;
    Long quality = 300;
    ConfirmNext();
    EXPECT_TRUE(dialog.VBPageSetupDlg2(false, false, false, false, left, 0, right, 0, top, 0,
                                       bottom, 0, paper, across, quality,
                                       CDLG::PageUnits::Millimeters, nullptr));
    Call call;
    call.Printer = &printer;
    call.Copies = 3;
    WhenModal([this](QWidget& box) { PrintInto(box, File("a3.pdf")); });
    EXPECT_TRUE(call.Run(dialog));
    EXPECT_EQ(printer.copyCount(), 3);
    EXPECT_EQ(printer.pageLayout().orientation(), QPageLayout::Landscape);
    EXPECT_EQ(printer.pageLayout().pageSize().id(), QPageSize::A3);
    EXPECT_EQ(printer.resolution(), 300);
    EXPECT_EQ(printer.outputFileName(), File("a3.pdf"));
    QPainter(&printer).drawText(300, 300, QStringLiteral("Tavel"));
    EXPECT_EQ(PagesOf(folder.Read("a3.pdf")), QStringList(QStringLiteral("1191 x 842")));
}

TEST_F(PrintDialogs, what_the_user_sets_comes_back) {
    Call call;
    WhenModal([this](QWidget& box) {
        EXPECT_TRUE(Find(box, "copies").isVisible()) << "without a further button";
        EXPECT_EQ(Find<QSpinBox>(box, "copies").value(), 1);
        EXPECT_TRUE(Find<QRadioButton>(box, "printAll").isChecked());
        Press(box, "printRange");
        Type(box, "from", 3);
        Type(box, "to", 7);
        Type(box, "copies", 4);
        Press(box, "collate");
        PrintInto(box, File("a.pdf"));
    });
    EXPECT_TRUE(call.Run());
    EXPECT_EQ(call.PrintRange, Range::PageNumbers);
    EXPECT_EQ(call.FromPage, 3);
    EXPECT_EQ(call.ToPage, 7);
    EXPECT_EQ(call.Copies, 4);
    EXPECT_TRUE(call.Collate);
}

TEST_F(PrintDialogs, the_dialog_begins_with_what_it_is_given) {
    Call call;
    call.PrintRange = Range::PageNumbers;
    call.FromPage = 5;
    call.ToPage = 9;
    call.Copies = 2;
    call.Collate = true;
    WhenModal([this](QWidget& box) {
        EXPECT_TRUE(Find<QRadioButton>(box, "printRange").isChecked());
        EXPECT_EQ(Find<QSpinBox>(box, "from").value(), 5);
        EXPECT_EQ(Find<QSpinBox>(box, "to").value(), 9);
        EXPECT_EQ(Find<QSpinBox>(box, "copies").value(), 2);
        EXPECT_TRUE(Find<QCheckBox>(box, "collate").isChecked());
        PrintInto(box, File("a.pdf"));
    });
    EXPECT_TRUE(call.Run());
    EXPECT_EQ(call.PrintRange, Range::PageNumbers);
    EXPECT_EQ(call.FromPage, 5);
    EXPECT_EQ(call.ToPage, 9);
    EXPECT_EQ(call.Copies, 2);
    EXPECT_TRUE(call.Collate);

    call.PrintRange = Range::Selection;
    WhenModal([this](QWidget& box) {
        EXPECT_TRUE(Find<QRadioButton>(box, "printSelection").isChecked());
        PrintInto(box, File("b.pdf"));
    });
    EXPECT_TRUE(call.Run());
    EXPECT_EQ(call.PrintRange, Range::Selection);
    EXPECT_EQ(call.FromPage, 5) << "pages are told of a range of pages alone";
}

TEST_F(PrintDialogs, pages_beyond_those_of_Qts_own_dialog_come_in_and_out) {
    Call call;
    call.PrintRange = Range::PageNumbers;
    call.FromPage = 10000;
    call.ToPage = 65535;
    WhenModal([this](QWidget& box) {
        EXPECT_EQ(Find<QSpinBox>(box, "from").value(), 10000);
        EXPECT_EQ(Find<QSpinBox>(box, "to").value(), 65535);
        Type(box, "from", 12345);
        Type(box, "to", 65534);
        PrintInto(box, File("a.pdf"));
    });
    EXPECT_TRUE(call.Run());
    EXPECT_EQ(call.FromPage, 12345);
    EXPECT_EQ(call.ToPage, 65534);
}

TEST_F(PrintDialogs, collating_comes_in_and_out_off_as_well) {
    Call call;
    call.Copies = 2;
    for (const bool collate : {false, true}) {
        call.Collate = collate;
        WhenModal([&](QWidget& box) {
            EXPECT_EQ(Find<QCheckBox>(box, "collate").isChecked(), collate);
            if (collate) Press(box, "collate");
            PrintInto(box, File(collate ? "a.pdf" : "b.pdf"));
        });
        EXPECT_TRUE(call.Run());
        EXPECT_FALSE(call.Collate);
    }
}

TEST_F(PrintDialogs, a_page_without_colors_has_none) {
    Call call;
    call.Printer = &printer;
    WhenModal([this](QWidget& box) {
        Press(box, "grayscale");
        Press(box, "reverse");
        PrintInto(box, File("gray.pdf"));
    });
    EXPECT_TRUE(call.Run(dialog));
    EXPECT_EQ(printer.colorMode(), QPrinter::GrayScale);
    EXPECT_EQ(printer.pageOrder(), QPrinter::LastPageFirst);
    CancelNext([](QWidget& box) {
        EXPECT_TRUE(Find<QRadioButton>(box, "grayscale").isChecked()) << "as it was left";
    });
    EXPECT_FALSE(call.Run(dialog));
}

TEST_F(PrintDialogs, a_disabled_range_is_not_offered) {
    for (const Range range : {Range::Selection, Range::PageNumbers}) {
        Call call;
        call.DisablePageNumbers = call.DisableSelection = true;
        call.PrintRange = range;
        CancelNext([](QWidget& box) {
            auto& ranges = Find(box, "gbPrintRange");
            EXPECT_TRUE(Find<QRadioButton>(ranges, "printAll").isChecked());
            for (const QWidget* one : ranges.findChildren<QWidget*>())
                EXPECT_EQ(one->isVisible(), one->objectName() == QLatin1String("printAll"))
                    << FromQString(one->objectName());
        });
        EXPECT_FALSE(call.Run());
        WhenModal([&](QWidget& box) {
            PrintInto(box, File(range == Range::Selection ? "a.pdf" : "b.pdf"));
        });
        EXPECT_TRUE(call.Run());
        EXPECT_EQ(call.PrintRange, Range::All);
    }
}

TEST_F(PrintDialogs, no_pages_are_offered_that_the_answer_has_no_room_for) {
    const Printers printers({QStringLiteral("Ink")});
    Call call;
    CancelNext([](QWidget& box) {
        QTest::keyClick(&Find(box, "printers"), Qt::Key_Home);
        for (const char* part :
             {"pagesRadioButton", "pagesLineEdit", "pageSetCombo", "printCurrentPage"})
            EXPECT_FALSE(Find(box, part).isVisible()) << part;
        for (const char* part : {"printAll", "printRange", "from", "to", "printSelection"})
            EXPECT_TRUE(Find(box, part).isVisible()) << part;
    });
    EXPECT_FALSE(call.Run());
}

TEST_F(PrintDialogs, a_cancel_leaves_everything_as_it_is) {
    Call call;
    call.Printer = &printer;
    const QString before = printer.outputFileName();
    WhenModal([this](QWidget& box) {
        Type(Find<QLineEdit>(box, "filename"), File("a.pdf"));
        Type(box, "copies", 4);
        Press(box, "printSelection");
        QTest::keyClick(&box, Qt::Key_Escape);
    });
    EXPECT_FALSE(call.Run(dialog));
    EXPECT_EQ(call.PrintRange, Range::All);
    EXPECT_EQ(call.Copies, 1);
    EXPECT_EQ(call.ToPage, 65535);
    EXPECT_EQ(printer.outputFileName(), before);
    EXPECT_EQ(printer.copyCount(), 1);
    EXPECT_EQ(dialog.APIReturn(), 0);
}

TEST_F(PrintDialogs, a_file_that_is_there_is_asked_about) {
    folder.Write("taken.pdf", "old");
    Call call;
    WhenModal([this](QWidget& box) {
        WhenModal([](QWidget& question) { QTest::keyClick(&question, Qt::Key_Escape); });
        PrintInto(box, File("taken.pdf"));
        EXPECT_TRUE(box.isVisible());
        QTest::keyClick(&box, Qt::Key_Escape);
    });
    EXPECT_FALSE(call.Run());
    EXPECT_EQ(folder.Read("taken.pdf"), "old");
}

TEST_F(PrintDialogs, the_file_of_the_last_call_is_proposed_again) {
    Call call;
    WhenModal([this](QWidget& box) {
        EXPECT_EQ(Find<QLineEdit>(box, "filename").text(),
                  QDir::home().filePath(QStringLiteral("print.pdf")));
        PrintInto(box, File("a.pdf"));
    });
    EXPECT_TRUE(call.Run(dialog));
    WhenModal([this](QWidget& box) {
        EXPECT_EQ(Find<QLineEdit>(box, "filename").text(), File("a.pdf"));
        QTest::keyClick(&box, Qt::Key_Escape);
    });
    EXPECT_FALSE(call.Run(dialog));
}

TEST_F(PrintDialogs, the_printer_becomes_the_device_that_is_chosen) {
    const Printers printers({QStringLiteral("Ink"), QStringLiteral("Laser")});
    Call call;
    call.Printer = &printer;
    call.PrintToFile = false;
    ConfirmNext([](QWidget& box) {
        auto& devices = Find<QComboBox>(box, "printers");
        EXPECT_EQ(devices.currentText(), QStringLiteral("Ink"));
        QTest::keyClick(&devices, Qt::Key_Down);
        Press(box, "duplexLong");
    });
    EXPECT_TRUE(call.Run(dialog));
    EXPECT_FALSE(call.PrintToFile);
    EXPECT_EQ(printer.printerName(), QStringLiteral("Laser"));
    EXPECT_EQ(printer.outputFileName(), QString());
    EXPECT_EQ(printer.duplex(), QPrinter::DuplexLongSide);
    CancelNext([](QWidget& box) {
        EXPECT_EQ(Find<QComboBox>(box, "printers").currentText(), QStringLiteral("Laser"));
    });
    EXPECT_FALSE(call.Run(dialog));
}

TEST_F(PrintDialogs, the_printer_is_as_it_was_after_a_print_into_a_file) {
    const Printers printers({QStringLiteral("Ink"), QStringLiteral("Laser")});
    Call call;
    call.PrintToFile = false;
    ConfirmNext([](QWidget& box) {
        QTest::keyClick(&Find(box, "printers"), Qt::Key_Down);
        Press(box, "duplexLong");
    });
    EXPECT_TRUE(call.Run(dialog));
    call.PrintToFile = true;
    WhenModal([this](QWidget& box) { PrintInto(box, File("a.pdf")); });
    EXPECT_TRUE(call.Run(dialog));
    call.PrintToFile = false;
    call.Printer = &printer;
    ConfirmNext([](QWidget& box) {
        EXPECT_EQ(Find<QComboBox>(box, "printers").currentText(), QStringLiteral("Laser"));
    });
    EXPECT_TRUE(call.Run(dialog));
    EXPECT_EQ(printer.printerName(), QStringLiteral("Laser"));
    EXPECT_EQ(printer.duplex(), QPrinter::DuplexLongSide);
}

TEST_F(PrintDialogs, as_many_copies_as_there_may_be_come_in_and_out) {
    Call call;
    call.Copies = 32767;
    WhenModal([this](QWidget& box) { PrintInto(box, File("a.pdf")); });
    EXPECT_TRUE(call.Run());
    EXPECT_EQ(call.Copies, 32767);
}

TEST_F(PrintDialogs, the_file_may_be_left_for_a_printer_and_the_other_way) {
    const Printers printers({QStringLiteral("Ink")});
    Call call;
    call.Printer = &printer;
    ConfirmNext([](QWidget& box) {
        EXPECT_TRUE(Find(box, "filename").isEnabled()) << "begins with the file";
        QTest::keyClick(&Find(box, "printers"), Qt::Key_Home);
        EXPECT_FALSE(Find(box, "filename").isEnabled());
    });
    EXPECT_TRUE(call.Run(dialog));
    EXPECT_FALSE(call.PrintToFile);
    EXPECT_EQ(printer.printerName(), QStringLiteral("Ink"));

    WhenModal([this](QWidget& box) {
        EXPECT_FALSE(Find(box, "filename").isEnabled()) << "begins with the printer";
        QTest::keyClick(&Find(box, "printers"), Qt::Key_End);
        PrintInto(box, File("a.pdf"));
    });
    EXPECT_TRUE(call.Run(dialog));
    EXPECT_TRUE(call.PrintToFile);
    EXPECT_EQ(printer.outputFileName(), File("a.pdf"));

    call.PrintToFile = false;
    ConfirmNext();
    EXPECT_TRUE(call.Run(dialog));
    EXPECT_FALSE(call.PrintToFile);
    EXPECT_EQ(printer.outputFileName(), QString()) << "the file of the call before is left";
}

TEST_F(PrintDialogs, a_file_is_a_PDF_whatever_its_name_ends_with) {
    const Printers printers({QStringLiteral("Ink")});
    printer.setPrinterName(QStringLiteral("Ink"));
    Call call;
    call.Printer = &printer;
    WhenModal([this](QWidget& box) { PrintInto(box, File("page.out")); });
    EXPECT_TRUE(call.Run());
    EXPECT_EQ(printer.outputFileName(), File("page.out"));
    EXPECT_EQ(printer.outputFormat(), QPrinter::PdfFormat);
}

TEST_F(PrintDialogs, a_file_is_offered_beside_the_printers_only_where_it_is_asked_for) {
    const Printers printers({QStringLiteral("Ink"), QStringLiteral("Laser")});
    for (const bool shown : {false, true}) {
        for (const bool disabled : {false, true}) {
            Call call;
            call.ShowPrintToFile = shown;
            call.DisablePrintToFile = disabled;
            CancelNext([&](QWidget& box) {
                const bool offered = shown && !disabled;
                auto& devices = Find<QComboBox>(box, "printers");
                EXPECT_EQ(devices.itemText(1), QStringLiteral("Laser"));
                EXPECT_EQ(devices.count() > 2, offered);
                EXPECT_EQ(Find(box, "filename").isVisible(), offered);
            });
            EXPECT_FALSE(call.Run());
        }
    }
}

TEST_F(PrintDialogs, no_file_is_offered_where_boxes_are_the_hosts) {
    const Printers printers({QStringLiteral("Ink")});
    const IdleHostBoxes boxes;
    Call call;
    ConfirmNext([](QWidget& box) {
        EXPECT_EQ(Find<QComboBox>(box, "printers").currentText(), QStringLiteral("Ink"));
        EXPECT_FALSE(Find(box, "filename").isVisible());
    });
    EXPECT_TRUE(call.Run());
    EXPECT_FALSE(call.PrintToFile);
}

TEST_F(PrintDialogs, the_box_belongs_to_its_owner_and_outlives_it) {
    Call call;
    ExpectCancelWithItsOwner(call);
}

TEST_F(PrintDialogs, an_owner_may_go_while_a_box_stands_over_the_dialog) {
    folder.Write("taken.pdf", "old");
    for (const char* opening : {"OK", "fileBrowser", "properties"}) {
        auto* owner = new QWidget;
        Call call;
        call.Owner = owner;
        WhenModal([&, owner](QWidget& box) {
            Find<QLineEdit>(box, "filename").setText(File("taken.pdf"));
            auto* button = box.findChild<QAbstractButton*>(QString::fromLatin1(opening));
            if (button == nullptr)
                button = box.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok);
            WhenModalOver(
                box, [button] { button->click(); }, [owner](QWidget&) { delete owner; });
        });
        EXPECT_FALSE(call.Run()) << opening;
    }
    EXPECT_EQ(folder.Read("taken.pdf"), "old");
}

}  // namespace tavel::test
