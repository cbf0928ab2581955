#include "ui/toolkit/dialogs/PageParts.h"

#include "ui/toolkit/dialogs/Parts.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QMarginsF>
#include <QPageSize>
#include <utility>

namespace tavel {

namespace {

// In the units that the box shows.
QPageLayout AsShown(const QWidget& box, QPageLayout page) {
    WithPart<QComboBox>(box, "unitCombo", [&page](const QComboBox& units) {
        page.setUnits(units.currentData().value<QPageLayout::Unit>());
    });
    return page;
}

template <class Act>
void WithMargins(const QWidget& box, const QMarginsF& values, Act act) {
    const std::pair<const char*, double> margins[] = {{"leftMargin", values.left()},
                                                      {"topMargin", values.top()},
                                                      {"rightMargin", values.right()},
                                                      {"bottomMargin", values.bottom()}};
    for (const auto& margin : margins) {
        WithPart<QDoubleSpinBox>(box, margin.first,
                                 [&](QDoubleSpinBox& part) { act(part, margin.second); });
    }
}

void SetMinimums(const QWidget& box, const QPageLayout& page) {
    WithMargins(box, AsShown(box, page).minimumMargins(),
                [](QDoubleSpinBox& margin, double least) { margin.setMinimum(least); });
}

}  // namespace

bool HasPage(const QWidget& box) {
    return box.findChild<QComboBox*>(QStringLiteral("pageSizeCombo")) != nullptr;
}

void ShowPage(const QWidget& box, const QPageLayout& page) {
    WithPart<QComboBox>(box, "pageSizeCombo", [&page](QComboBox& papers) {
        for (int i = 0; i < papers.count(); ++i) {
            if (!papers.itemData(i).value<QPageSize>().isEquivalentTo(page.pageSize())) continue;
            papers.setCurrentIndex(i);
            return;
        }
    });
    WithMargins(box, AsShown(box, page).margins(),
                [](QDoubleSpinBox& margin, double value) { margin.setValue(value); });
}

void KeepMinimums(QWidget& box, const QPageLayout& page) {
    const auto again = [&box, page] { SetMinimums(box, page); };
    WithPart<QComboBox>(box, "pageSizeCombo", [&](QComboBox& papers) {
        QObject::connect(&papers, &QComboBox::currentIndexChanged, &box, again);
    });
    WithPart<QComboBox>(box, "unitCombo", [&](QComboBox& units) {
        QObject::connect(&units, &QComboBox::activated, &box, again);
    });
    for (const char* size : {"pageWidth", "pageHeight"}) {
        WithPart<QDoubleSpinBox>(box, size, [&](QDoubleSpinBox& length) {
            QObject::connect(&length, &QDoubleSpinBox::valueChanged, &box, again);
        });
    }
    for (const char* orientation : {"portrait", "landscape"}) {
        WithPart<QAbstractButton>(box, orientation, [&](QAbstractButton& button) {
            QObject::connect(&button, &QAbstractButton::clicked, &box, again);
        });
    }
    again();
}

}  // namespace tavel
