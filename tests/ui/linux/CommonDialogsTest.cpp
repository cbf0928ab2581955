#include "ui/support/ButtonsWithPictures.h"
#include "ui/support/LookAtEach.h"
#include "ui/support/Modal.h"
#include "ui/support/PageSetupCall.h"
#include "ui/support/Printers.h"
#include "ui/support/Windows.h"
#include "ui/toolkit/Strings.h"
#include "ui/toolkit/dialogs/PageSetupDialog.h"

#include <gtest/gtest.h>

#include <QComboBox>
#include <QDir>
#include <QPrinter>
#include <QPushButton>

// Dialogs of Qt's own, which are the system's elsewhere.

namespace tavel::test {

namespace {

Asks PrintersAndPages(Long printFlags = 0, Long pageFlags = 0) {
    PrintRequest print;
    print.printer = DefaultPrinter();
    print.flags = printFlags;
    PageRequest page;
    page.printer = DefaultPrinter();
    page.flags = pageFlags;
    auto& dialogs = Service<CommonDialogs>::Get();
    return {[&dialogs, print] { dialogs.PickPrinter(print); },
            [&dialogs, page] { dialogs.SetUpPage(page); }};
}

}  // namespace

TEST(PrintAndPageDialogs, a_screen_reader_has_a_name_for_all_that_takes_a_value) {
    int count = 0;
    LookAtEach(PrintersAndPages(), [&count](QWidget& box) { count += ExpectNamed(box); });
    EXPECT_GT(count, 10);
}

TEST(PrintAndPageDialogs, a_part_that_a_dialog_does_not_have_is_passed_over) {
    const NamelessParts host;
    int seen = 0;
    LookAtEach(PrintersAndPages(printFlag::ToFile | printFlag::NoPageNumbers,
                                pageFlag::DisableMargins | pageFlag::DisableOrientation |
                                    pageFlag::DisablePaper),
               [&seen](QWidget& box) {
                   ++seen;
                   EXPECT_EQ(box.findChild<QWidget*>(QStringLiteral("from")), nullptr);
                   EXPECT_EQ(box.findChild<QWidget*>(QStringLiteral("unitCombo")), nullptr);
               });
    EXPECT_EQ(seen, 2);
}

TEST(PrintAndPageDialogs, a_page_begins_as_it_was_given_where_no_part_has_a_name) {
    const NamelessParts host;
    QPrinter printer;
    PageRequest request;
    request.printer = DefaultPrinter();
    request.printer.layout = QPageLayout(QPageSize(QPageSize::A3), QPageLayout::Landscape,
                                         QMarginsF(1, 2, 3, 4), QPageLayout::Inch);
    const PageSetupDialog box(request, printer);
    EXPECT_EQ(printer.pageLayout(), request.printer.layout);
}

TEST(PrintAndPageDialogs, a_page_comes_back_from_a_dialog_where_no_part_has_a_name) {
    const NamelessParts host;
    PageSetupCall call;
    call.PaperSize = 8;
    ConfirmNext();
    EXPECT_TRUE(call.Run());
    EXPECT_EQ(call.PaperSize, 8);
    EXPECT_EQ(call.LeftMargin, 20);
}

TEST(PrintAndPageDialogs, a_page_is_as_the_print_dialog_has_set_it_where_no_part_has_a_name) {
    const NamelessParts host;
    const Printers printers({QStringLiteral("Photo")});
    PrintRequest request;
    request.printer = DefaultPrinter();
    request.flags = printFlag::HideToFile;
    ConfirmNext([](QWidget& box) {
        ConfirmNext([](QWidget& properties) {
            for (QComboBox* list : properties.findChildren<QComboBox*>()) {
                const int index = list->findText(QStringLiteral("A3"));
                if (index >= 0) list->setCurrentIndex(index);
            }
        });
        for (QPushButton* button : box.findChildren<QPushButton*>()) {
            if (button->text() == QLatin1String("P&roperties")) button->click();
        }
    });
    const PrintAnswer answer = Service<CommonDialogs>::Get().PickPrinter(request);
    EXPECT_EQ(answer.printer.layout.pageSize().id(), QPageSize::A3);
}

TEST(PrintAndPageDialogs, nothing_is_kept_in_the_file_that_Qt_programs_share) {
    Asks asks = ColorsAndFonts();
    for (const auto& ask : PrintersAndPages()) asks.push_back(ask);
    LookAtEach(asks, [](QWidget& box) {
        for (QPushButton* button : box.findChildren<QPushButton*>()) {
            const QString caption = button->text().remove(QLatin1Char('&'));
            if (caption == QLatin1String("Add to Custom Colors")) button->click();
        }
    });
    EXPECT_EQ(QDir(qEnvironmentVariable("XDG_CONFIG_HOME")).entryList(QDir::Files), QStringList());
}

TEST(PrintAndPageDialogs, no_button_has_a_picture_on_a_desktop_that_likes_them) {
    const ButtonsWithPictures desktop;
    int buttons = 0;
    LookAtEach(PrintersAndPages(), [&buttons](QWidget& box) {
        for (const QPushButton* button : box.findChildren<QPushButton*>()) {
            EXPECT_TRUE(button->icon().isNull()) << FromQString(box.objectName());
            ++buttons;
        }
    });
    EXPECT_EQ(buttons, 4 + 2);
}

TEST(PrintAndPageDialogs, the_properties_of_a_printer_are_named_and_without_pictures_too) {
    const Printers printers({QStringLiteral("Ink")});
    const ButtonsWithPictures desktop;
    CancelNext([](QWidget& box) {
        CancelNext([](QWidget& properties) {
            EXPECT_GE(ExpectNamed(properties), 10);
            EXPECT_EQ(Find(properties, "unitCombo").accessibleName(), QStringLiteral("Units"));
            for (const QPushButton* button : properties.findChildren<QPushButton*>())
                EXPECT_TRUE(button->icon().isNull()) << FromQString(button->text());
        });
        QTest::keyClick(&Find(box, "properties"), Qt::Key_Space);
    });
    PrintersAndPages().front()();
}

TEST(PrintAndPageDialogs, each_has_the_text_of_the_program) {
    LookAtEach(PrintersAndPages(), ExpectOwnText);
}

}  // namespace tavel::test
