#include "ui/toolkit/dialogs/Parts.h"

#include <QDialog>

namespace tavel {

bool IsSystems(const QWidget& dialog) { return dialog.findChild<QWidget*>() == nullptr; }

void LetBoxesGo(const QWidget& dialog) {
    for (QDialog* box : dialog.findChildren<QDialog*>()) {
        if (!box->isVisible()) continue;
        box->close();
        box->setParent(nullptr);
    }
}

}  // namespace tavel
