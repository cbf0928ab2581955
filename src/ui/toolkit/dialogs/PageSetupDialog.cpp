#include "ui/toolkit/dialogs/PageSetupDialog.h"

#include "ui/toolkit/Controls.h"
#include "ui/toolkit/dialogs/PageParts.h"
#include "ui/toolkit/dialogs/Parts.h"

#include <QPrinter>
#include <cmath>

namespace tavel {

namespace {

QPrinter* Prepared(const PageRequest& request, QPrinter& printer) {
    Apply(request.printer, printer);
    return &printer;
}

// The dialog shows hundredths. Margins that read as those requested are these.
QMarginsF AsRequested(const QMarginsF& shown, const QMarginsF& requested) {
    constexpr double half = 0.0051;
    const auto one = [&](double (QMarginsF::*side)() const) {
        const double margin = (requested.*side)();
        return std::fabs((shown.*side)() - margin) < half ? margin : (shown.*side)();
    };
    return {one(&QMarginsF::left), one(&QMarginsF::top), one(&QMarginsF::right),
            one(&QMarginsF::bottom)};
}

}  // namespace

PageSetupDialog::PageSetupDialog(const PageRequest& request, QPrinter& printer)
    : QPageSetupDialog(Prepared(request, printer), request.owner),
      m_page(request.printer.layout),
      m_minimums(request.minimums) {
    setObjectName(QStringLiteral("PageSetupDialog"));
    NameUnits(*this);
    if (HasPage(*this)) {
        ShowPage(*this, m_page);
        KeepMinimums(*this, [this] { return Minimums(); });
    }
    Disable(request);
    PlainButtons(*this);
    adjustSize();
}

// Those of the page that is shown: the printer's own differ from paper to paper.
QMarginsF PageSetupDialog::Minimums() {
    QPageLayout page = PageShown(*this);
    const QPageLayout::Unit shown = page.units();
    SetPage(page, *printer());
    page.setUnits(m_page.units());
    if (AreMinimums(m_minimums, page))
        page.setMinimumMargins(m_minimums);
    else
        page = printer()->pageLayout();
    page.setUnits(shown);
    return page.minimumMargins();
}

void PageSetupDialog::Disable(const PageRequest& request) {
    const auto disable = [&](Long flag, const char* part) {
        if (!request.Has(flag)) return;
        WithPart(*this, part, [](QWidget& one) { one.parentWidget()->setEnabled(false); });
    };
    disable(pageFlag::DisableMargins, "topMargin");
    disable(pageFlag::DisableOrientation, "portrait");
    disable(pageFlag::DisablePaper, "pageSizeCombo");
    // Several pages on a sheet: no answer has room for them, and a file has none.
    WithPart(*this, "pagesPerSheetButtonGroup", [](QWidget& sheet) { sheet.hide(); });
}

QPageLayout PageSetupDialog::Chosen() const {
    QPageLayout page = PageShown(*this);
    QPageLayout requested = m_page;
    requested.setUnits(page.units());
    page.setMargins(AsRequested(page.margins(), requested.margins()));
    return page;
}

PageAnswer PageSetupDialog::Answer() {
    // The printer may have refused what Qt has handed it.
    if (HasPage(*this)) SetPage(Chosen(), *printer());
    PageAnswer answer;
    answer.result = 1;
    answer.printer = StateOf(*printer());
    answer.printer.layout.setUnits(m_page.units());
    return answer;
}

}  // namespace tavel
