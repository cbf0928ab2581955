#include "ui/support/LookAtEach.h"

#include "ui/toolkit/Strings.h"

#include <QAbstractSpinBox>
#include <QAccessible>
#include <QComboBox>
#include <QEvent>
#include <QLineEdit>

namespace tavel::test {

namespace {

bool TakesValues(const QWidget& control) {
    if (qobject_cast<const QAbstractSpinBox*>(control.parentWidget()) != nullptr) return false;
    return qobject_cast<const QLineEdit*>(&control) != nullptr ||
           qobject_cast<const QComboBox*>(&control) != nullptr ||
           qobject_cast<const QAbstractSpinBox*>(&control) != nullptr;
}

}  // namespace

int ExpectNamed(const QWidget& box) {
    int count = 0;
    for (QWidget* control : box.findChildren<QWidget*>()) {
        if (!control->isVisible() || !TakesValues(*control)) continue;
        ++count;
        EXPECT_FALSE(
            QAccessible::queryAccessibleInterface(control)->text(QAccessible::Name).isEmpty())
            << FromQString(box.objectName()) << " "
            << (control->objectName().isEmpty() ? control->metaObject()->className()
                                                : FromQString(control->objectName()));
    }
    return count;
}

void ExpectOwnText(const QWidget& box) {
    EXPECT_EQ(box.font().pointSizeF(), QApplication::font().pointSizeF())
        << FromQString(box.objectName());
}

NamelessParts::NamelessParts() { qApp->installEventFilter(this); }

bool NamelessParts::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Create) {
        connect(watched, &QObject::objectNameChanged, watched, [watched](const QString& name) {
            if (!name.isEmpty()) watched->setObjectName(QString());
        });
    }
    return false;
}

}  // namespace tavel::test
