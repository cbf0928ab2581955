#include "ui/toolkit/dialogs/PageParts.h"

#include "ui/toolkit/dialogs/Parts.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QMarginsF>
#include <QPageSize>
#include <QSizeF>
#include <QVariant>
#include <utility>

namespace tavel {

namespace {

QPageLayout::Unit UnitsOf(const QWidget& box) {
    auto units = QPageLayout::Millimeter;
    WithPart<QComboBox>(box, "unitCombo", [&units](const QComboBox& list) {
        units = list.currentData().value<QPageLayout::Unit>();
    });
    return units;
}

double Value(const QWidget& box, const char* spinBox) {
    double value = 0;
    WithPart<QDoubleSpinBox>(box, spinBox,
                             [&value](const QDoubleSpinBox& part) { value = part.value(); });
    return value;
}

QPageLayout::Orientation OrientationOf(const QWidget& box) {
    auto orientation = QPageLayout::Portrait;
    WithPart<QAbstractButton>(box, "landscape", [&orientation](const QAbstractButton& landscape) {
        if (landscape.isChecked()) orientation = QPageLayout::Landscape;
    });
    return orientation;
}

// The one that is told by its size has no paper of its own in the list.
QPageSize PaperOf(const QWidget& box) {
    QVariant paper;
    WithPart<QComboBox>(box, "pageSizeCombo",
                        [&paper](const QComboBox& papers) { paper = papers.currentData(); });
    if (paper.isValid()) return paper.value<QPageSize>();
    const QSizeF size(Value(box, "pageWidth"), Value(box, "pageHeight"));
    const bool across = OrientationOf(box) == QPageLayout::Landscape;
    return QPageSize(across ? size.transposed() : size, static_cast<QPageSize::Unit>(UnitsOf(box)));
}

// A printer may have several papers of one size, which differ in their names.
int IndexOf(const QPageSize& paper, const QComboBox& papers) {
    const int same = papers.findData(QVariant::fromValue(paper));
    if (same >= 0) return same;
    for (int i = 0; i < papers.count(); ++i) {
        if (papers.itemData(i).value<QPageSize>().isEquivalentTo(paper)) return i;
    }
    return papers.findData(QVariant());
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

}  // namespace

bool HasPage(const QWidget& box) {
    return box.findChild<QComboBox*>(QStringLiteral("pageSizeCombo")) != nullptr;
}

void NameUnits(const QWidget& box) {
    WithPart(box, "unitCombo",
             [](QWidget& units) { units.setAccessibleName(QObject::tr("Units")); });
}

QPageLayout PageShown(const QWidget& box) {
    const QMarginsF margins(Value(box, "leftMargin"), Value(box, "topMargin"),
                            Value(box, "rightMargin"), Value(box, "bottomMargin"));
    return {PaperOf(box), OrientationOf(box), margins, UnitsOf(box)};
}

void ShowPage(const QWidget& box, const QPageLayout& page) {
    const auto set = [](QDoubleSpinBox& part, double value) { part.setValue(value); };
    QPageLayout shown = page;
    shown.setUnits(UnitsOf(box));
    WithPart<QComboBox>(box, "pageSizeCombo", [&](QComboBox& papers) {
        const int index = IndexOf(page.pageSize(), papers);
        if (index < 0) return;
        papers.setCurrentIndex(index);
        if (papers.itemData(index).isValid()) return;
        const QSizeF size = shown.fullRect().size();
        WithPart<QDoubleSpinBox>(box, "pageWidth", [&](auto& part) { set(part, size.width()); });
        WithPart<QDoubleSpinBox>(box, "pageHeight", [&](auto& part) { set(part, size.height()); });
    });
    WithMargins(box, shown.margins(), set);
}

void KeepMinimums(QWidget& box, const std::function<QMarginsF()>& least) {
    const auto again = [&box, least] {
        WithMargins(box, least(),
                    [](QDoubleSpinBox& margin, double value) { margin.setMinimum(value); });
    };
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
