#include "ui/support/Looks.h"
#include "ui/toolkit/dialogs/CommonDialogs.h"

// Dialogs that are the system's own elsewhere.

namespace tavel::test {

namespace {

class PrintLooksTest : public LooksTest {};

}  // namespace

TEST_P(PrintLooksTest, the_dialogs_of_printers_and_pages) {
    auto& dialogs = Service<CommonDialogs>::Get();
    PrintRequest print;
    print.printer = DefaultPrinter();
    LookAtBox("print", [&] { dialogs.PickPrinter(print); });
    print.flags = printFlag::NoPageNumbers | printFlag::NoSelection;
    LookAtBox("print_all", [&] { dialogs.PickPrinter(print); });
    PageRequest page;
    page.printer = DefaultPrinter();
    LookAtBox("page_setup", [&] { dialogs.SetUpPage(page); });
}

INSTANTIATE_TEST_SUITE_P(Desktops, PrintLooksTest, desktops, NameOfDesktop);

}  // namespace tavel::test
