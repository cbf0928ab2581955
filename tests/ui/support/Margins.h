#pragma once

#include "ui/support/Windows.h"

#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QTest>

namespace tavel::test {

// One of the boxes for margins in the box of a page or of a printer's properties.
inline QDoubleSpinBox& Margin(QWidget& box, const char* name) {
    return Find<QDoubleSpinBox>(box, name);
}

inline void TypeMargin(QWidget& box, const char* name, const char* value) {
    auto& edit = *Margin(box, name).findChild<QLineEdit*>();
    edit.selectAll();
    QTest::keyClicks(&edit, QLatin1String(value));
    QTest::keyClick(&edit, Qt::Key_Tab);
}

}  // namespace tavel::test
