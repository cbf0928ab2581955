#include "ui/toolkit/PageSetupDialog.h"

#include "ui/toolkit/Controls.h"

#include <QComboBox>
#include <QPrinter>

namespace tavel {

namespace {

QPrinter* Prepared(const PageRequest& request, QPrinter& printer) {
    Apply(request.printer, printer);
    return &printer;
}

}  // namespace

PageSetupDialog::PageSetupDialog(const PageRequest& request, QPrinter& printer)
    : QPageSetupDialog(Prepared(request, printer), request.owner) {
    setObjectName(QStringLiteral("PageSetupDialog"));
    PlainButtons(*this);
}

PageAnswer PageSetupDialog::Answer() {
    PageAnswer answer;
    answer.result = 1;
    answer.printer = StateOf(*printer());
    return answer;
}

}  // namespace tavel
